#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/**
 * Changes and removes shortcuts on the window's own page; a feature page must show the new one. The
 * keybinding service gets its old shortcuts back at the end.
 */
TourSteps shortcutSteps(const ControlCenterWindow *window);

} // namespace controlcenter
