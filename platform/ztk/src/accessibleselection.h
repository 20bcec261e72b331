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
 * selection a choice. It belongs to the list that it serves.
 */
class AssistedChoice : public QObject
{
    Q_OBJECT

public:
    /** Serves @p list from now on, if users choose one row at a time there. */
    static void serve(QListView *list);

private:
    explicit AssistedChoice(QListView *list);

    void check();
    void choose(const QModelIndex &index);

    QListView *m_list;
};

} // namespace Widget
} // namespace Ztk
