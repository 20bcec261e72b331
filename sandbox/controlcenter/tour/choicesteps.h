#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** Chooses in every list with the arrow keys; the service must change, and a fresh page show it. */
TourSteps choiceSteps(const ControlCenterWindow *window);

} // namespace controlcenter
