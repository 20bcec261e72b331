#pragma once

#include <QPointer>
#include <QWidget>

class QAbstractItemView;

namespace controlcenter {

class ModuleView;

/**
 * The window's columns: the side bar with the entries, and the content of the open entry, which of
 * a module is a list and a page. They stand side by side where there is room. In a narrower window
 * the side bar stands alone, in a narrow one the list and the page do so, too: what is chosen in
 * one column leads to the next, and goBack() to the one before.
 */
class Columns : public QWidget
{
    Q_OBJECT

public:
    enum Column { Entries, List, Page };

    /** @p entries is in @p sideBar, and @p module in @p content. Owns the side bar and content. */
    Columns(QWidget *sideBar, QAbstractItemView *entries, QWidget *content, ModuleView *module,
            QWidget *parent = nullptr);

    /** The content, list and page together, is never narrower beside the side bar. In pixels. */
    void setLeastContentWidth(int width);

    /** Lets @p column be seen. Where there is no list, its place is the page's. */
    void open(Column column);

    /** Whether a column is seen; the list also where it is not there. */
    bool shows(Column column) const;

    /** Whether a column before those that are seen is hidden. */
    bool hasWayBack() const;

public Q_SLOTS:
    /** Lets the column before be seen, with the focus. Does nothing when there is no way back. */
    void goBack();

Q_SIGNALS:
    /** Other columns may be seen now. */
    void arranged();

    /**
     * The user chose something in a column, and it was hidden: the next one wants the focus. Once
     * more when what was chosen comes later, since services are waited for.
     */
    void wentOn();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void arrange();
    void watch(QAbstractItemView *view);
    void goOn(QAbstractItemView *from);
    QAbstractItemView *list() const;

    QWidget *m_sideBar;
    QAbstractItemView *m_entries;
    QWidget *m_content;
    ModuleView *m_module;
    QPointer<QAbstractItemView> m_watchedList;
    int m_leastContentWidth = 0;
    Column m_column = Page;
    bool m_wentOn = false;               ///< since something was opened or gone back to
    bool m_seen[3] = {true, true, true}; ///< by column
};

} // namespace controlcenter
