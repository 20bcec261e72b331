#include "bench/suite.h"

#include <QProcess>

#include <algorithm>

namespace {

double coldStartMs(const QStringList &command)
{
    QProcess process;
    process.start(QStringLiteral(COLD_START), command);
    process.waitForFinished(-1);
    if (process.exitCode() != 0)
        qFatal("%s", process.readAllStandardError().constData());
    return process.readAllStandardOutput().trimmed().toDouble();
}

} // namespace

void benchColdStart(const Report &report)
{
    Comparison what;
    what.name = QStringLiteral("cold start");
    what.subject = QStringLiteral("the window until it shows a page");
    what.baseline =
        QStringLiteral("the faster of a mixer and a settings window of another desktop");
    what.unit = QStringLiteral("ms");
    what.aim = 1.0;
    what.rounds = 9;
    what.measureSubject = [] {
        return coldStartMs({QStringLiteral(WINDOW_PROGRAM), QStringLiteral("--plugin"),
                            QStringLiteral(MODULE_FILE), QStringLiteral("--page"),
                            QStringLiteral("Translation")});
    };
    what.measureBaseline = [] {
        return std::min(coldStartMs({QStringLiteral("pavucontrol-qt")}),
                        coldStartMs({QStringLiteral("lxqt-config")}));
    };
    report(compare(what));
}
