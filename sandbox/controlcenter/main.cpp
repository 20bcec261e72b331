#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/looks/lookpictures.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/options.h"
#include "sandbox/controlcenter/themechoice.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/toursections.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <unistd.h>

#include <cstdio>

using namespace controlcenter;

namespace {

// Exit codes; 0 is success.
enum ExitCode {
    TourFailed = 1,
    WrongUsage = 2,
    Unavailable = 3, // the module, the display or a file
};

int reportError(const QString &text, ExitCode code)
{
    QTextStream(stderr) << "control-center: " << text << '\n';
    return code;
}

QtMessageHandler usualHandler = nullptr;

// While the application object is made: Qt aborts where it cannot show windows, without one
// sentence that says why.
void reportQtFailure(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    static QStringList reasons;
    reasons.append(text.simplified());
    if (type != QtFatalMsg) {
        usualHandler(type, context, text);
        return;
    }
    reportError(QStringLiteral("The window cannot be shown; DISPLAY is \"%1\", WAYLAND_DISPLAY is "
                               "\"%2\". %3")
                    .arg(qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
                         reasons.join(QLatin1String("; "))),
                Unavailable);
    _exit(Unavailable);
}

// Never closed: messages come from any thread, to the very end.
FILE *logFile = nullptr;

void writeToLog(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    std::fprintf(logFile, "%s\n", qFormatLogMessage(type, context, text).toLocal8Bit().constData());
    std::fflush(logFile);
}

// Returns the exit code.
int runTour(ControlCenterWindow *window, const Options &options)
{
    TourSteps steps;
    for (const QString &section : options.sections.isEmpty() ? tourSections() : options.sections)
        steps += tourSection(section, window);
    Tour tour(window, options.tour);
    const QString problem = tour.prepareFolder(steps);
    if (!problem.isEmpty())
        return reportError(problem, WrongUsage);
    return tour.run(steps) ? 0 : TourFailed;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = parseOptions(arguments);
    if (!options.error.isEmpty())
        return reportError(options.error, WrongUsage);
    for (const QString &section : options.sections)
        if (!tourSections().contains(section))
            return reportError(noSuch(QStringLiteral("section"), section, tourSections()),
                               WrongUsage);

    prepareEnvironment(options);
    int qtArgumentCount = 1; // Qt would take --plugin for one of its own options
    if (options.help) {
        const QCoreApplication application(qtArgumentCount, argv);
        QTextStream(stdout) << helpText();
        return 0;
    }
    usualHandler = qInstallMessageHandler(reportQtFailure);
    QApplication application(qtArgumentCount, argv);
    qInstallMessageHandler(usualHandler);
    QApplication::setApplicationName(QStringLiteral("control-center"));
    if (!options.log.isEmpty()) {
        logFile = std::fopen(QFile::encodeName(options.log).constData(), "ae");
        if (!logFile)
            return reportError(
                QStringLiteral("%1 cannot be written: %2").arg(options.log, qt_error_string()),
                Unavailable);
        qInstallMessageHandler(writeToLog);
    }
    applyAppearance(options);

    const LoadedModule loaded = loadModule(options.plugin);
    if (!loaded.module)
        return reportError(loaded.error, Unavailable);

    if (!options.looks.isEmpty())
        return drawLooks(loaded.module, options.places, options.looks) ? 0 : Unavailable;

    ControlCenterWindow window(loaded.module);
    if (!options.page.isEmpty() && !window.pageNames().contains(options.page))
        return reportError(noSuch(QStringLiteral("page"), options.page, window.pageNames()),
                           WrongUsage);
    if (options.theme == QLatin1String("system"))
        window.theme()->choose(ThemeChoice::System);
    // Pictures are not for the screen of whoever takes them.
    if (!options.tour.isEmpty())
        window.resize(window.usualSize());
    window.show();
    if (options.tour.isEmpty())
        QTextStream(stdout) << "open\n";
    // From inside the event loop: before it, a request to quit would be lost while a page waits
    // for its service.
    QTimer::singleShot(0, &window, [&window, &options] {
        if (options.page.isEmpty())
            window.openModule();
        else
            window.openPage(options.page);
        if (!options.tour.isEmpty())
            QCoreApplication::exit(runTour(&window, options));
    });
    return QApplication::exec();
}
