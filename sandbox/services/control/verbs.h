#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace sandbox {

class ServiceControl;

/** What came of a verb: text for standard output, or a problem for standard error. */
struct VerbResult
{
    QString output;
    QString problem;
};

/** One thing that the tool can do with a service. */
struct Verb
{
    QString name;
    QString arguments;    ///< For the usage text.
    QString description;  ///< One line.
    int minimumArguments; ///< How many words must follow.
    int maximumArguments; ///< How many may follow.
    std::function<VerbResult(ServiceControl &, const QStringList &)> run;
};

/** All of them, in the order of the usage text. */
const QList<Verb> &verbs();

} // namespace sandbox
