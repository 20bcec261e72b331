#include "zcc/widgets/settingsitem.h"

namespace zcc {
namespace widgets {

SettingsItem::SettingsItem(QWidget *parent) : QFrame(parent) {}
void SettingsItem::addBackground() { m_background = true; }
bool SettingsItem::hasBackground() const { return m_background; }
void SettingsItem::paintEvent(QPaintEvent *event) { QFrame::paintEvent(event); }

} // namespace widgets
} // namespace zcc
