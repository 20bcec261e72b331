#pragma once

#include <QPointer>
#include <QWidget>

class QScrollArea;

namespace controlcenter {

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

    /** The page, or null. */
    QWidget *page() const;
    void setPage(QWidget *page);

    /** Disposes of the list and the page. */
    void clear();

    /** Text of the row that is current in the list, or empty when there is none. */
    QString currentRowText() const;

    /** Scrolls the page so that @p widget, one of its descendants, can be seen. */
    void ensureVisible(QWidget *widget);

    /** Puts the page back to its top. */
    void scrollToTop();

Q_SIGNALS:
    /** @p widget was taken out; it lives on until the event loop deletes it. */
    void taken(QWidget *widget);

private:
    void dispose(QWidget *widget);

    QWidget *m_column;
    QScrollArea *m_scrollArea;
    QPointer<QWidget> m_list;
};

} // namespace controlcenter
