#include "zlistaccessible.h"

#include "ztk/zlistview.h"

#include <QPointer>

namespace Ztk {
namespace Widget {

namespace {

class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    RowAccessible(ZListView *list, int row)
        : m_list(list)
        , m_row(row)
    {
    }

    int row() const { return m_row; }

    bool isValid() const override { return m_list && index().isValid(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return parent()->window(); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_list);
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override {}

    QString text(QAccessible::Text text) const override
    {
        if (text == QAccessible::Description)
            return index().data(Qt::AccessibleDescriptionRole).toString();
        if (text != QAccessible::Name)
            return QString();
        const QString own = index().data(Qt::AccessibleTextRole).toString();
        return own.isEmpty() ? index().data(Qt::DisplayRole).toString() : own;
    }

    QRect rect() const override
    {
        const QRect place = m_list->visualRect(index());
        return QRect(m_list->viewport()->mapToGlobal(place.topLeft()), place.size());
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        const QRect place = m_list->visualRect(index());
        state.invisible = !m_list->isVisible();
        state.offscreen = !m_list->viewport()->rect().intersects(place);
        state.disabled = !m_list->isEnabled() || !(index().flags() & Qt::ItemIsEnabled);
        state.selectable = true;
        state.selected = m_list->selectionModel()->isSelected(index());
        state.focusable = true;
        state.focused = m_list->hasFocus() && m_list->currentIndex() == index();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }

    QStringList actionNames() const override { return {toggleAction()}; }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

    // AccessibleSelection makes it the user's choice.
    void doAction(const QString &name) override
    {
        const bool one = m_list->selectionMode() == QAbstractItemView::SingleSelection;
        if (name == toggleAction())
            m_list->selectionModel()->select(index(), one ? QItemSelectionModel::ClearAndSelect
                                                          : QItemSelectionModel::Toggle);
    }

private:
    QModelIndex index() const
    {
        const QAbstractItemModel *model = m_list->model();
        return model ? model->index(m_row, m_list->modelColumn()) : QModelIndex();
    }

    const QPointer<ZListView> m_list;
    const int m_row;
};

QAccessibleInterface *create(const QString &, QObject *object)
{
    auto *list = qobject_cast<ZListView *>(object);
    return list ? new ZListAccessible(list) : nullptr;
}

} // namespace

ZListAccessible::ZListAccessible(ZListView *list)
    : QAccessibleWidget(list, QAccessible::List)
{
}

ZListAccessible::~ZListAccessible()
{
    for (const QAccessible::Id row : qAsConst(m_rows))
        QAccessible::deleteAccessibleInterface(row);
}

void ZListAccessible::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(create);
        return true;
    }();
    Q_UNUSED(installed)
}

int ZListAccessible::childCount() const
{
    return list()->model() ? list()->model()->rowCount() : 0;
}

QAccessibleInterface *ZListAccessible::child(int row) const
{
    if (row < 0 || row >= childCount())
        return nullptr;
    if (!m_rows.contains(row))
        m_rows.insert(row,
                      QAccessible::registerAccessibleInterface(new RowAccessible(list(), row)));
    return QAccessible::accessibleInterface(m_rows.value(row));
}

QAccessibleInterface *ZListAccessible::childAt(int x, int y) const
{
    return child(list()->indexAt(list()->viewport()->mapFromGlobal(QPoint(x, y))).row());
}

QAccessibleInterface *ZListAccessible::focusChild() const
{
    return list()->hasFocus() ? child(list()->currentIndex().row()) : nullptr;
}

int ZListAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *row = dynamic_cast<const RowAccessible *>(child);
    return row ? row->row() : -1;
}

ZListView *ZListAccessible::list() const
{
    return static_cast<ZListView *>(widget());
}

} // namespace Widget
} // namespace Ztk
