#include "tests/plugin/hostedmodule.h"
#include "tests/support/fakeframe.h"
#include "tests/support/modulepages.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/moduleinterface.h>

#include <QFile>
#include <QPluginLoader>
#include <QtTest>

#include <functional>

using namespace testsupport;
using zccV20::ModuleInterface;

// A host that takes the module's library out of the process again. Each test has a process of its
// own: Qt remembers meta types by addresses in the library, so it can be used in a process only
// once.

class ModuleUnloadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theBundlesComeAndGoWithTheLibrary();
    void unloadsAfterItsPagesWereOpen();
    void unloadsWhileAVoiceTestRuns();

private:
    /** Loads the library, shows the module in a frame, does @p work with both, and unloads it. */
    static void use(const std::function<void(ModuleInterface *, FakeFrame *)> &work);
};

namespace {

const QString catalogue = QStringLiteral(":/translation/assistant-control-plugin_en.ts");
const QString icon = QStringLiteral(":/icons/tavren/builtin/actions/zcc_nav_voice_42px.svg");

/** The widget of that class that somebody sees now. */
QWidget *visibleWidget(const char *className)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets)
        if (widget->inherits(className) && widget->isVisible())
            return widget;
    return nullptr;
}

} // namespace

void ModuleUnloadTest::theBundlesComeAndGoWithTheLibrary()
{
    QPluginLoader loader(moduleFile());
    loader.setLoadHints({}); // Qt would keep the library in the process otherwise
    QVERIFY(!QFile::exists(catalogue));
    QVERIFY(!QFile::exists(icon));
    for (int round = 0; round < 2; ++round) {
        QVERIFY2(loader.load(), qPrintable(loader.errorString()));
        QVERIFY(QFile::exists(catalogue));
        QVERIFY(QFile::exists(icon));
        QVERIFY(loader.unload());
        QVERIFY(!QFile::exists(catalogue));
        QVERIFY(!QFile::exists(icon));
    }
}

void ModuleUnloadTest::use(const std::function<void(ModuleInterface *, FakeFrame *)> &work)
{
    QPluginLoader loader(moduleFile());
    loader.setLoadHints({});
    auto *module = qobject_cast<ModuleInterface *>(loader.instance());
    QVERIFY2(module, qPrintable(loader.errorString()));
    {
        FakeFrame frame;
        module->setFrameProxy(&frame);
        module->preInitialize();
        module->initialize();
        module->active();
        work(module, &frame);
        module->deactive();
    }
    flushDeferredDeletes();
    QVERIFY(loader.unload());
}

void ModuleUnloadTest::unloadsAfterItsPagesWereOpen()
{
    use([](ModuleInterface *module, FakeFrame *) {
        for (const ModulePage &page : featurePages())
            module->load(page.name);
    });
    QVERIFY(!QFile::exists(catalogue));
    QCoreApplication::processEvents();
}

// The page leaves the test to itself; the library stays for what is under way.
void ModuleUnloadTest::unloadsWhileAVoiceTestRuns()
{
    qputenv("PULSE_SERVER", "unix:/nowhere/pulse");
    ServiceProcess network(QStringLiteral("networkmanager"));
    QVERIFY(network.start());
    network.setValue(QStringLiteral("state"), 70u);

    use([](ModuleInterface *, FakeFrame *frame) {
        QVERIFY(frame->showActive());
        QWidget *link = visibleWidget("Ztk::Widget::ZCommandLinkButton");
        QVERIFY(link);
        QTest::mouseClick(link, Qt::LeftButton);
        QVERIFY(visibleWidget("VoiceAnimationWidget"));
    });
    QVERIFY(QFile::exists(catalogue));
    QCoreApplication::processEvents();
}

ISOLATED_TEST_CLASS(QApplication, ModuleUnloadTest, )
#include "moduleunload.moc"
