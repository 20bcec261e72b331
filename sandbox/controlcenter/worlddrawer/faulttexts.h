#pragma once

#include "sandbox/services/control/servicecontrol.h"

#include <QString>
#include <QStringList>

namespace controlcenter {

/** What people call @p fault: "Running" for none. */
QString faultName(const sandbox::Fault &fault);

/**
 * What people see in the module while the service on the bus as @p busName fails so, in sentences,
 * translated. Empty while it does not fail.
 */
QStringList faultSentences(const QString &busName, const sandbox::Fault &fault);

} // namespace controlcenter
