#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** Sheets with all of the module's icons at usual, one and a half and double scale. */
TourSteps iconSteps(const ControlCenterWindow *window);

} // namespace controlcenter
