#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

namespace controlcenter {

class ControlCenterWindow;

/**
 * Whole voice tests: one for each thing that the microphone can hear, one cancelled, one without
 * network and one that the AI service refuses. Each must end with the right verdict.
 */
TourSteps voiceSteps(const ControlCenterWindow *window);

} // namespace controlcenter
