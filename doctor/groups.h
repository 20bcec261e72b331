#pragma once

#include "doctor/finding.h"

#include <QStringList>

namespace doctor {

/** What the command line says about the checks. */
struct Wishes
{
    QString plugin; ///< The module's file.

    /** The options that say the same. */
    QStringList arguments() const;
};

/**
 * Runs all checks, in groups that run at the same time, each in a process of its own: what blocks
 * or crashes there is a finding of that group, and the others go on.
 */
QList<Finding> runGroups(const Wishes &wishes);

/** What such a process does: writes the findings of the group @p name to standard output. False
 * when there is no such group. */
bool runGroup(const QString &name, const Wishes &wishes);

} // namespace doctor
