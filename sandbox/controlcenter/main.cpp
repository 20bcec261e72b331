#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/options.h"
#include "sandbox/controlcenter/tour/fulltour.h"
#include "sandbox/controlcenter/tour/tour.h"

#include <QApplication>
#include <QTextStream>
#include <QTimer>

using namespace controlcenter;

namespace {

/** Exit codes; 0 is success. */
enum ExitCode {
    TourFailed = 1,
    WrongUsage = 2,
    NoModule = 3,
};

/** True when every step was as expected. */
bool goOnTour(ControlCenterWindow *window, const Options &options)
{
    TourSteps steps;
    for (const QString &section : options.sections.isEmpty() ? tourSections() : options.sections)
        steps += tourSection(section, window);
    return Tour(window, options.tour).run(steps);
}

int complain(const QString &text, ExitCode code)
{
    QTextStream(stderr) << "control-center: " << text << '\n';
    return code;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = parseOptions(arguments);
    if (!options.error.isEmpty())
        return complain(options.error, WrongUsage);
    for (const QString &section : options.sections) {
        if (!tourSections().contains(section))
            return complain(QStringLiteral("The tour has no section \"%1\", but %2.")
                                .arg(section, tourSections().join(QStringLiteral(", "))),
                            WrongUsage);
    }

    prepareEnvironment(options);
    int qtArgumentCount = 1; // Qt would take --plugin for one of its own options
    QApplication application(qtArgumentCount, argv);
    QApplication::setApplicationName(QStringLiteral("control-center"));
    if (options.help) {
        QTextStream(stdout) << helpText();
        return 0;
    }
    dressApplication(options);

    const LoadedModule loaded = loadModule(options.plugin);
    if (!loaded.module)
        return complain(loaded.error, NoModule);

    ControlCenterWindow window(loaded.module);
    window.show();
    // From inside the event loop: before it, nobody would hear that the application shall quit
    // while a page waits for its service.
    QTimer::singleShot(0, &window, [&window, &options] {
        if (options.page.isEmpty())
            window.openModule();
        else
            window.openPage(options.page);
        if (!options.tour.isEmpty())
            QCoreApplication::exit(goOnTour(&window, options) ? 0 : TourFailed);
    });
    return QApplication::exec();
}
