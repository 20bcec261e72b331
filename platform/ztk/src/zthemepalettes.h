#pragma once

#include <QPalette>

namespace Ztk {
namespace Gui {

/** The colours of the light theme; every role of every group is set. */
QPalette lightPalette();

/** The colours of the dark theme; every role of every group is set. */
QPalette darkPalette();

} // namespace Gui
} // namespace Ztk
