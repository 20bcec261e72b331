#include "accessibleselection.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QListView>

namespace Ztk {
namespace Widget {

void AccessibleSelection::install(QListView *list)
{
    const bool installed =
        list->findChild<AccessibleSelection *>(QString(), Qt::FindDirectChildrenOnly);
    if (!installed && list->selectionModel() &&
        list->selectionMode() == QAbstractItemView::SingleSelection)
        new AccessibleSelection(list);
}

AccessibleSelection::AccessibleSelection(QListView *list)
    : QObject(list)
    , m_list(list)
{
    // A click selects its row before it makes it the current one; only later can the two be told
    // from a selection that nothing follows.
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &AccessibleSelection::check, Qt::QueuedConnection);
}

void AccessibleSelection::check()
{
    const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    if (selected.size() == 1 && selected.constFirst() != m_list->currentIndex())
        choose(selected.constFirst());
}

void AccessibleSelection::choose(const QModelIndex &index)
{
    m_list->setCurrentIndex(index);
    if (m_list->window()->inherits("QComboBoxPrivateContainer")) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(m_list, &enter);
    } else {
        Q_EMIT m_list->clicked(index);
    }
}

} // namespace Widget
} // namespace Ztk
