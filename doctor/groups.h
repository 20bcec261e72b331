#pragma once

#include "doctor/finding.h"

#include <QStringList>

namespace doctor {

/** What the command line says about the checks. */
struct Wishes
{
    QString plugin;       ///< The module's file.
    bool listen = false;  ///< To the microphone.
    bool session = false; ///< Open sessions of the AI service.

    /** The options that say the same. */
    QStringList arguments() const;
};

/**
 * Runs all checks, in groups that run at the same time, each in a process of its own: what blocks
 * or crashes there is a finding of that group, and the others go on.
 */
QList<Finding> runGroups(const Wishes &wishes);

/**
 * What such a process does: writes the findings of the group @p name to standard output, and ends
 * the process. Returns when there is no such group.
 */
void runGroup(const QString &name, const Wishes &wishes);

} // namespace doctor
