#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace Ztk {
namespace Widget {

class ZListView;

/**
 * What assistive technologies see of a list: its rows. To Qt the current row has the focus also
 * while another widget has it: two lists in one window would both report a focused row.
 */
class ZListAccessible : public QAccessibleWidget
{
public:
    explicit ZListAccessible(ZListView *list);
    ~ZListAccessible() override;

    /** Makes it known to Qt; further calls do nothing. */
    static void install();

    int childCount() const override;
    QAccessibleInterface *child(int row) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    ZListView *list() const;

    mutable QHash<int, QAccessible::Id> m_rows;
};

} // namespace Widget
} // namespace Ztk
