#pragma once

#include <QObject>

class QListView;

namespace Ztk {
namespace Widget {

/**
 * Lets assistive technologies choose in a list.
 *
 * All they can do to a row is to select it. To Qt that is less than a click: the current row stays
 * what it was, nothing is opened, and a combo box keeps its value. This object makes such a
 * selection the user's choice. It belongs to its list.
 */
class AccessibleSelection : public QObject
{
    Q_OBJECT

public:
    /** Makes one for @p list, if it has none and users choose one row at a time there. */
    static void install(QListView *list);

private:
    explicit AccessibleSelection(QListView *list);

    void check();
    void choose(const QModelIndex &index);

    QListView *m_list;
};

} // namespace Widget
} // namespace Ztk
