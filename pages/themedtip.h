#pragma once

#include <QObject>

class QLabel;
class QWidget;

/** Gives a tip the colour of its page's theme again when that changes while the page is open. */
class ThemedTip : public QObject
{
public:
    /** Belongs to @p tip, which stands on @p page. */
    ThemedTip(QLabel *tip, QWidget *page);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLabel *m_tip = nullptr;
    QWidget *m_page = nullptr;
};
