#pragma once

#include "ztk/zguiapplicationhelper.h"

#include <QPalette>

namespace Ztk {
namespace Gui {

/** The colours of a theme; every role of every group is set. */
QPalette themePalette(ZGuiApplicationHelper::ColorType type);

} // namespace Gui
} // namespace Ztk
