#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/**
 * Goes by Tab from the search field to every control of every page and back with Shift+Tab; each
 * stop must be seen.
 */
TourSteps keyboardSteps(const ControlCenterWindow *window);

} // namespace controlcenter
