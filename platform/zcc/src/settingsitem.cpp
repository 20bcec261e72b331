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
        const bool framed = ZPainting::isHighContrast();
        if (!framed && rect().adjusted(0, radius, 0, -radius).contains(event->rect())) {
            painter.fillRect(card, fill);
        } else {
            const auto fillCard = [&](qreal inset, const QColor &color) {
                painter.fillPath(ZPainting::roundedPath(card.adjusted(inset, inset, -inset, -inset),
                                                        joinsAbove ? 0 : radius - inset,
                                                        joinsBelow ? 0 : radius - inset),
                                 color);
            };
            painter.setRenderHint(QPainter::Antialiasing);
            if (framed)
                fillCard(0, palette().color(QPalette::Active, QPalette::Mid));
            fillCard(framed ? ZPainting::hairline(&painter) : 0, fill);
        }
    }
    QFrame::paintEvent(event);
}

} // namespace widgets
} // namespace zcc
