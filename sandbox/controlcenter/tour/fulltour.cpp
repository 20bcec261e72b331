#include "sandbox/controlcenter/tour/fulltour.h"

#include "sandbox/controlcenter/tour/keyboardsteps.h"
#include "sandbox/controlcenter/tour/pagesteps.h"
#include "sandbox/controlcenter/tour/searchsteps.h"
#include "sandbox/controlcenter/tour/switchsteps.h"

namespace controlcenter {

TourSteps fullTour(const ControlCenterWindow *window)
{
    return pageSteps(window) + searchSteps(window) + switchSteps(window) + keyboardSteps(window);
}

} // namespace controlcenter
