#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** The page of services: it shows what a switch has changed, and follows other programs. */
TourSteps serviceSteps(const ControlCenterWindow *window);

} // namespace controlcenter
