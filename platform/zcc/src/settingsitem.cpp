#include "zcc/widgets/settingsitem.h"

#include "groupingrole.h"
#include "zcc/widgets/settingsgroup.h"

#include <ztk/zpainting.h>

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
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(ZPainting::roundedPath(ZPainting::snapped(&painter, rect()),
                                                joinsAbove ? 0 : ZPainting::cardRadius,
                                                joinsBelow ? 0 : ZPainting::cardRadius),
                         palette().color(QPalette::Active, QPalette::Base));
    }
    QFrame::paintEvent(event);
}

} // namespace widgets
} // namespace zcc
