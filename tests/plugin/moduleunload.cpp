#include "tests/support/fakeframe.h"
#include "tests/support/widgets.h"

#include <zcc/moduleinterface.h>

#include <QFile>
#include <QPluginLoader>
#include <QtTest>

// A host that takes the module's library out of the process again.

class ModuleUnloadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theBundlesComeAndGoWithTheLibrary();
    void unloadsAfterItsPagesWereOpen();
};

namespace {

const QString catalogue = QStringLiteral(":/translation/assistant-control-plugin_en.ts");
const QString icon = QStringLiteral(":/icons/tavren/builtin/actions/zcc_nav_voice_42px.svg");

} // namespace

void ModuleUnloadTest::theBundlesComeAndGoWithTheLibrary()
{
    QPluginLoader loader(QStringLiteral(MODULE_FILE));
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

void ModuleUnloadTest::unloadsAfterItsPagesWereOpen()
{
    QPluginLoader loader(QStringLiteral(MODULE_FILE));
    loader.setLoadHints({});
    auto *module = qobject_cast<zccV20::ModuleInterface *>(loader.instance());
    QVERIFY2(module, qPrintable(loader.errorString()));
    {
        testsupport::FakeFrame frame;
        module->setFrameProxy(&frame);
        module->preInitialize();
        module->initialize();
        module->active();
        for (const char *page : {"Speech to Text", "Text to Speech", "Translation"})
            module->load(QLatin1String(page));
        module->deactive();
    }
    testsupport::flushDeferredDeletes();
    QVERIFY(loader.unload());
    QVERIFY(!QFile::exists(catalogue));
    QCoreApplication::processEvents();
}

QTEST_MAIN(ModuleUnloadTest)
#include "moduleunload.moc"
