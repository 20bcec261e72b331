#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** Flips switches with the space bar; the services must change, and a fresh page must show it. */
TourSteps switchSteps(const ControlCenterWindow *window);

} // namespace controlcenter
