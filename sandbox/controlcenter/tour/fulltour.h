#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** Everything that the tour shows, in its order. */
TourSteps fullTour(const ControlCenterWindow *window);

} // namespace controlcenter
