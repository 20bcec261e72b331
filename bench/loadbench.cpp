#include "bench/suite.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <QProcess>

double timeLoadMs(const QString &file)
{
    QPluginLoader loader(file);
    return timedMs([&loader] { loader.instance(); });
}

namespace {

/** Qt never lets go of a plugin, so each load needs a process of its own. */
double loadInNewProcess(const QString &file)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--time-load"), file});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed().toDouble();
}

} // namespace

QVector<Ratio> benchLoad()
{
    const QString svgPlugin = QLibraryInfo::location(QLibraryInfo::PluginsPath) +
                              QStringLiteral("/imageformats/libqsvg.so");
    return {compare(
        QStringLiteral("plugin load"), QStringLiteral("loading the module"),
        QStringLiteral("loading Qt's SVG plugin"), 20, QStringLiteral("ms"),
        [] { return loadInNewProcess(QStringLiteral(MODULE_FILE)); },
        [svgPlugin] { return loadInNewProcess(svgPlugin); })};
}
