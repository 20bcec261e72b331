#include "zcc/widgets/settingsgroup.h"

#include "groupingrole.h"

#include <QVBoxLayout>

namespace zcc {
namespace widgets {

namespace {
constexpr int largestJoiningSpacing = 1; ///< Rows this close are drawn as one block.
constexpr int defaultSpacing = 10;
} // namespace

SettingsGroup::SettingsGroup(QFrame *parent)
    : QFrame(parent)
    , m_layout(new QVBoxLayout(this))
{
    GroupingRole::install();
    setFrameShape(QFrame::NoFrame);
    // Rows keep their natural height; what is left over or missing is the page's.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(defaultSpacing);
}

void SettingsGroup::setSpacing(int spacing)
{
    m_layout->setSpacing(spacing);
    update();
}

void SettingsGroup::appendItem(SettingsItem *item)
{
    if (!item)
        return;
    m_layout->removeWidget(item);
    item->addBackground();
    m_layout->addWidget(item);
    item->show();
    updateRows();
}

void SettingsGroup::removeItem(SettingsItem *item)
{
    if (!item || m_layout->indexOf(item) < 0)
        return;
    m_layout->removeWidget(item);
    item->hide();
    updateRows();
}

int SettingsGroup::itemCount() const
{
    return m_layout->count();
}

SettingsItem *SettingsGroup::item(int index) const
{
    QLayoutItem *entry = m_layout->itemAt(index);
    return entry ? qobject_cast<SettingsItem *>(entry->widget()) : nullptr;
}

QVBoxLayout *SettingsGroup::itemLayout() const
{
    return m_layout;
}

bool SettingsGroup::joinsNeighbour(const SettingsItem *item, int step) const
{
    if (m_layout->spacing() > largestJoiningSpacing)
        return false;
    const int own = m_layout->indexOf(const_cast<SettingsItem *>(item));
    for (int i = own + step; own >= 0 && i >= 0 && i < itemCount(); i += step) {
        const SettingsItem *neighbour = this->item(i);
        if (neighbour && !neighbour->isHidden())
            return true;
    }
    return false;
}

/** A row that comes or goes changes which corners its neighbours round. */
void SettingsGroup::updateRows()
{
    for (int i = 0; i < itemCount(); ++i)
        if (SettingsItem *row = item(i))
            row->update();
    update();
}

} // namespace widgets
} // namespace zcc
