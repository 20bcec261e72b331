#pragma once

#include <QList>
#include <QWidget>

class KeyLabel;
class QHBoxLayout;

/**
 * A shortcut as a row of key caps, from left to right in every language. Owns its caps. To
 * assistive technologies it is named by its caps, as in "Ctrl+Alt+T".
 */
class ShortcutKey : public QWidget
{
    Q_OBJECT

public:
    explicit ShortcutKey(QWidget *parent = nullptr);

    /**
     * Replaces the caps by one for each key name of @p keys, in this order. The old ones are
     * deleted by the event loop. Of a list with more than 64 names, which no keyboard can give, the
     * rest becomes one cap with "…".
     */
    void setTextList(const QStringList &keys);

    /** The caps in words, as in "Ctrl+Alt+T". */
    QString text() const;

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void setEnter(bool enter);

    QHBoxLayout *m_layout = nullptr;
    QList<KeyLabel *> m_caps; // in display order
};
