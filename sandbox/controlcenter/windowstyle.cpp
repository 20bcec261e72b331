#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zpainting.h>

#include <QPalette>

using Ztk::Widget::ZPainting;

namespace controlcenter {

QColor separatorColor(const QPalette &palette)
{
    return ZPainting::blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                            0.1);
}

QColor sideBarColor(const QPalette &palette)
{
    return ZPainting::blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                            0.035);
}

QColor secondaryTextColor(const QPalette &palette)
{
    return ZPainting::blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                            0.7);
}

} // namespace controlcenter
