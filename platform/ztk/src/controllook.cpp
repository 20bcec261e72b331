#include "controllook.h"

#include "ztk/zfocustracker.h"
#include "ztk/zpainting.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>

namespace Ztk {
namespace Widget {
namespace controllook {

namespace {
constexpr qreal hoverAmount = 0.05;
constexpr qreal pressedAmount = 0.12;
} // namespace

QPalette::ColorGroup colorGroup(const QStyleOption *option)
{
    return option->state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
}

QColor color(const QStyleOption *option, QPalette::ColorRole role)
{
    return option->palette.color(colorGroup(option), role);
}

QColor stateFill(const QStyleOption *option, const QColor &fill)
{
    if (!(option->state & QStyle::State_Enabled))
        return fill;
    const QColor text = option->palette.color(QPalette::WindowText);
    if (option->state & QStyle::State_Sunken)
        return ZPainting::blend(fill, text, pressedAmount);
    if (option->state & QStyle::State_MouseOver)
        return ZPainting::blend(fill, text, hoverAmount);
    return fill;
}

bool showsFocus(const QStyleOption *option)
{
    return (option->state & QStyle::State_HasFocus) && ZFocusTracker::ringsVisible();
}

void drawPanel(QPainter *painter, const QStyleOption *option, const QRectF &rect, qreal radius,
               const QColor &fill, const QColor &frame)
{
    ZPainting::fillRounded(painter, rect, radius, fill);
    if (showsFocus(option))
        ZPainting::drawFocusRing(painter, rect, radius, option->palette);
    else
        ZPainting::frameRounded(painter, rect, radius, frame, ZPainting::hairline(painter));
}

void drawSymbol(QPainter *painter, const QRect &rect, const char *name, const QColor &color)
{
    ZPainting::drawIcon(painter, rect, QIcon::fromTheme(QLatin1String(name)), color);
}

} // namespace controllook
} // namespace Widget
} // namespace Ztk
