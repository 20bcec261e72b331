#pragma once

#include "sandbox/controlcenter/tour/tourstep.h"

#include <QStringList>

namespace controlcenter {

class ControlCenterWindow;

/** The names of the tour's sections, in their order. */
QStringList tourSections();

/** The steps of section @p name, for @p window with its module loaded. */
TourSteps tourSection(const QString &name, const ControlCenterWindow *window);

} // namespace controlcenter
