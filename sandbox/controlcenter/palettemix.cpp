#include "sandbox/controlcenter/palettemix.h"

#include <QPalette>

namespace controlcenter {

QColor mix(const QColor &under, const QColor &over, qreal share)
{
    const auto channel = [share](qreal a, qreal b) {
        return a + (b - a) * share;
    };
    return QColor::fromRgbF(channel(under.redF(), over.redF()),
                            channel(under.greenF(), over.greenF()),
                            channel(under.blueF(), over.blueF()));
}

QColor separatorColor(const QPalette &palette)
{
    return mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.1);
}

QColor sideBarColor(const QPalette &palette)
{
    return mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.035);
}

QColor secondaryTextColor(const QPalette &palette)
{
    return mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.62);
}

} // namespace controlcenter
