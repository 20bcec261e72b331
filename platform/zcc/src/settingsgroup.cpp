#include "zcc/widgets/settingsgroup.h"

#include <QVBoxLayout>

namespace zcc {
namespace widgets {

SettingsGroup::SettingsGroup(QFrame *parent, BackgroundStyle style)
    : QFrame(parent), m_style(style), m_layout(new QVBoxLayout(this))
{
}
void SettingsGroup::setSpacing(int spacing) { m_layout->setSpacing(spacing); }
void SettingsGroup::appendItem(SettingsItem *item)
{
    if (!item)
        return;
    m_layout->removeWidget(item);
    m_layout->addWidget(item);
}
void SettingsGroup::removeItem(SettingsItem *item)
{
    if (!item || m_layout->indexOf(item) < 0)
        return;
    m_layout->removeWidget(item);
    item->hide();
}
int SettingsGroup::itemCount() const { return m_layout->count(); }
SettingsItem *SettingsGroup::item(int index) const
{
    QLayoutItem *i = m_layout->itemAt(index);
    return i ? qobject_cast<SettingsItem *>(i->widget()) : nullptr;
}
QVBoxLayout *SettingsGroup::itemLayout() const { return m_layout; }
void SettingsGroup::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(m_style)
    QFrame::paintEvent(event);
}

} // namespace widgets
} // namespace zcc
