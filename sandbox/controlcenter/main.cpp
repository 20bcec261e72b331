#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/looks/lookpictures.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/options.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/windowkeeper.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <unistd.h>

#include <cstdio>
#include <vector>

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

// Returns the exit code. Leaves the arguments with which the program is to be run again, if it is.
int run(char **argv, const Options &options, QStringList *successor)
{
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

    WindowKeeper keeper(loaded.module, options);
    const QStringList pages = keeper.window()->pageNames();
    if (!options.page.isEmpty() && !pages.contains(options.page))
        return reportError(noSuch(QStringLiteral("page"), options.page, pages), WrongUsage);
    if (options.tour.isEmpty()) {
        keeper.show();
        QTextStream(stdout) << "open\n";
    } else {
        // Pictures are not for the screen of whoever takes them.
        keeper.window()->resize(ControlCenterWindow::usualSize());
        keeper.show();
        QTimer::singleShot(0, &keeper, [&keeper, &options] {
            QCoreApplication::exit(runTour(keeper.window(), options));
        });
    }
    const int code = keeper.exec();
    *successor = keeper.argumentsOfSuccessor();
    return code;
}

// In place of this process, for whoever waits for its end.
int runAgain(char *program, const QStringList &arguments)
{
    std::vector<QByteArray> texts{program};
    for (const QString &argument : arguments)
        texts.push_back(argument.toLocal8Bit());
    std::vector<char *> words;
    for (QByteArray &text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    execv("/proc/self/exe", words.data());
    return reportError(QStringLiteral("The window cannot be opened in another language: %1")
                           .arg(qt_error_string()),
                       Unavailable);
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QStringList successor;
    const int code = run(argv, parseOptions(arguments), &successor);
    return successor.isEmpty() ? code : runAgain(argv[0], successor);
}
