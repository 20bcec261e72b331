#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** Opens every page of the module in light and in dark, and one in the smallest window. */
TourSteps pageSteps(const ControlCenterWindow *window);

} // namespace controlcenter
