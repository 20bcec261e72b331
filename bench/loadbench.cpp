#include "bench/suite.h"

#include <QProcess>

namespace {

double loadInNewProcess(const QString &file)
{
    QProcess process;
    process.start(QStringLiteral(PLUGIN_HOST), {file});
    process.waitForFinished();
    if (process.exitCode() != 0)
        qFatal("%s cannot be loaded", qPrintable(file));
    return process.readAllStandardOutput().trimmed().toDouble();
}

} // namespace

void benchLoad(const Report &report)
{
    Comparison what;
    what.name = QStringLiteral("plugin load");
    what.subject = QStringLiteral("loading and initialising the module");
    what.baseline = QStringLiteral("loading an empty plugin with the same libraries");
    what.unit = QStringLiteral("ms");
    what.aim = 1.3;
    what.rounds = 20;
    what.measureSubject = [] {
        return loadInNewProcess(QStringLiteral(MODULE_FILE));
    };
    what.measureBaseline = [] {
        return loadInNewProcess(QStringLiteral(EMPTY_PLUGIN));
    };
    report(compare(what));
}
