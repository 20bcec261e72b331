#include <zcc/frameproxyinterface.h>
#include <zcc/moduleinterface.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPluginLoader>
#include <QTextStream>

// A control center that knows nothing yet: prints the milliseconds that the plugin named as its
// argument takes to load, to build its object and to initialise it, if it is a module. Qt never
// lets go of a plugin, so each load needs such a process of its own.

namespace {

class Frame final : public zccV20::FrameProxyInterface
{
public:
    void pushWidget(zccV20::ModuleInterface *, QWidget *, PushType) override {}
    void addPageTranslation(const QString &, const QString &) override {}
    void addSearchModule(const QString &, const QString &, bool) override {}
    void addSearchItem(const QString &, const QString &, const QString &, bool) override {}
};

} // namespace

int main(int argc, char *argv[])
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);
    Frame frame;

    QElapsedTimer timer;
    timer.start();
    QPluginLoader loader(application.arguments().value(1));
    QObject *plugin = loader.instance();
    if (auto *module = qobject_cast<zccV20::ModuleInterface *>(plugin)) {
        module->setFrameProxy(&frame);
        module->preInitialize();
        module->initialize();
    }
    const double ms = timer.nsecsElapsed() / 1e6;

    QTextStream(stdout) << ms << '\n';
    return plugin ? 0 : 1;
}
