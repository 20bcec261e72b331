#pragma once

#include <ztk/ziconbutton.h>

#include <QWidget>

class QLabel;

namespace controlcenter {

/** Where the user is: the entry, and the page in it. The page's name is the heading. */
class Breadcrumb : public QWidget
{
    Q_OBJECT

public:
    explicit Breadcrumb(QWidget *parent = nullptr);

    /** @p page may be empty: then the entry is the heading. */
    void setPath(const QString &entry, const QString &page);

    /** From now on at least as wide as this path needs, while both parts are shown. */
    void reserveWidthFor(const QString &entry, const QString &page);

    /** Which parts are shown of a path that has both. One alone is the heading and may wrap. */
    void setParts(bool entry, bool page);

    QString page() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateFonts();
    void updateColors();
    void showPath();

    QString m_entryText;
    QString m_pageText;
    int m_reservedWidth = 0;
    bool m_entryShown = true;
    bool m_pageShown = true;
    QLabel *m_entry;
    QLabel *m_arrow;
    QLabel *m_page;
};

/** Leads back to the column before: an arrow that points to the leading side. */
class BackButton : public Ztk::Widget::ZIconButton
{
    Q_OBJECT

public:
    explicit BackButton(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace controlcenter
