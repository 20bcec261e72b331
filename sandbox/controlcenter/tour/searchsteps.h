#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/** Finds a page by typing part of its name, and opens it with the keyboard alone. */
TourSteps searchSteps(const ControlCenterWindow *window);

} // namespace controlcenter
