#pragma once

#include "contracts/contract.h"
#include "doctor/finding.h"

#include <QVariantList>

namespace doctor {

/** What the answer to a call means for the module: one finding, or none where any value is good. */
QList<Finding> checkValue(const Contract::Method &method, const QVariantList &arguments,
                          const QVariant &answer);

} // namespace doctor
