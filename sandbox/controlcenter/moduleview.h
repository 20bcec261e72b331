#pragma once

#include <QPointer>
#include <QWidget>

namespace controlcenter {

class PageArea;

/**
 * Where a module's widgets stand: its list in a column, and beside it one page in a scroll area.
 *
 * Owns every widget that is put in. A widget that is replaced is taken out at once and disposed of
 * with deleteLater(), because the replacement is usually asked for from inside one of its signals.
 */
class ModuleView : public QWidget
{
    Q_OBJECT

public:
    explicit ModuleView(QWidget *parent = nullptr);

    /** The list column, or null. */
    QWidget *list() const;
    void setList(QWidget *list, int width);

    /** What the list is wide beside a page; 0 as long as there was none. */
    int listWidth() const;

    /** What the page needs at least. */
    int leastPageWidth() const;

    /** Which of both are seen. A list alone takes the whole width. */
    void setSeen(bool list, bool page);

    /** The page, or null. */
    QWidget *page() const;
    void setPage(QWidget *page);

    /** Disposes of the list and the page. */
    void clear();

    /** Text of the row that is current in the list, or empty when there is none. */
    QString currentRowText() const;

    /** Scrolls the page so that @p widget, one of its descendants, can be seen. */
    void ensureVisible(QWidget *widget);

Q_SIGNALS:
    /** There is another list or page, or none. */
    void changed();

    /** @p widget was taken out; it lives on until the event loop deletes it. */
    void taken(QWidget *widget);

private:
    void dispose(QWidget *widget);
    void arrange();

    QWidget *m_column;
    PageArea *m_pageArea;
    QPointer<QWidget> m_list;
    int m_listWidth = 0;
    bool m_listSeen = true;
    bool m_pageSeen = true;
};

} // namespace controlcenter
