#include "zcc/widgets/settingsitem.h"

#include "groupingrole.h"
#include "zcc/widgets/settingsgroup.h"

#include <ztk/zpainting.h>

#include <QPaintEvent>
#include <QPainter>

namespace zcc {
namespace widgets {

using Ztk::Widget::ZPainting;

SettingsItem::SettingsItem(QWidget *parent)
    : QFrame(parent)
{
    GroupingRole::install();
    setFrameShape(QFrame::NoFrame);
}

void SettingsItem::addBackground()
{
    if (m_background)
        return;
    m_background = true;
    update();
}

bool SettingsItem::hasBackground() const
{
    return m_background;
}

void SettingsItem::paintEvent(QPaintEvent *event)
{
    if (m_background) {
        QPainter painter(this);
        const auto *group = qobject_cast<const SettingsGroup *>(parentWidget());
        const bool joinsAbove = group && group->joinsNeighbour(this, -1);
        const bool joinsBelow = group && group->joinsNeighbour(this, 1);
        const int radius = ZPainting::cardRadius;
        const QRectF card = ZPainting::snapped(&painter, rect());
        const QColor fill = palette().color(QPalette::Active, QPalette::Base);
        // What moves in a row asks often for what lies behind it, which is seldom a corner.
        if (rect().adjusted(0, radius, 0, -radius).contains(event->rect())) {
            painter.fillRect(card, fill);
        } else {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.fillPath(
                ZPainting::roundedPath(card, joinsAbove ? 0 : radius, joinsBelow ? 0 : radius),
                fill);
        }
    }
    QFrame::paintEvent(event);
}

} // namespace widgets
} // namespace zcc
