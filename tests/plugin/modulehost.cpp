#include "tests/plugin/hostedmodule.h"
#include "tests/support/logcapture.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLibrary>
#include <QListView>
#include <QMetaMethod>
#include <QPixmap>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using namespace testsupport;
using zccV20::ModuleInterface;

namespace {

QString signature(const QMetaMethod &method)
{
    return QString::fromLatin1(method.methodSignature());
}

/** The slots or signals that a class adds to its base, in the order of its meta-object. */
QStringList ownMethods(const QMetaObject *metaObject, QMetaMethod::MethodType type)
{
    QStringList methods;
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i)
        if (metaObject->method(i).methodType() == type)
            methods.append(signature(metaObject->method(i)));
    return methods;
}

/** "KIND|TEXT|TEXT...", with "|present" behind a search entry that is. */
QStringList registrations(const FakeFrame &frame, FakeFrame::Registration::Kind first,
                          FakeFrame::Registration::Kind last)
{
    static const char *const kinds[] = {"name", "page", "item"};
    QStringList lines;
    for (const FakeFrame::Registration &entry : frame.registrations()) {
        if (entry.kind < first || entry.kind > last)
            continue;
        QStringList parts = entry.texts;
        parts.prepend(QLatin1String(kinds[entry.kind]));
        if (entry.present)
            parts.append(QStringLiteral("present"));
        lines.append(parts.join(QLatin1Char('|')));
    }
    return lines;
}

} // namespace

/** What the module says of itself, registers and logs. No service runs. */
class ModuleHostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void answersBothCasts();
    void oneObjectWhileItLivesAndANewOneAfterwards();
    void fourSlotsAndNothingElse();
    void saysWhatItIs();
    void keepsTheDefaultsOfTheBase();
    void availablePagesAreShortNamesInOrder();
    void logsItsLifecycle_data();
    void logsItsLifecycle();
    void logsNothingElse();
    void registersThePageNamesInTheirOwnOrder();
    void registersTheSearchEntriesInOrder();
    void activeRegistersNothing();
    void slotsOfThePages_data();
    void slotsOfThePages();
    void listHasASignalPerPageAndNoSlots();

private:
    QTemporaryDir m_theme;
    std::unique_ptr<HostedModule> m_host;
};

void ModuleHostTest::initTestCase()
{
    // A theme that has every icon the module asks for by name.
    const QString actions = m_theme.filePath(QStringLiteral("names/actions/32"));
    QVERIFY(QDir().mkpath(actions));
    QFile index(m_theme.filePath(QStringLiteral("names/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    QVERIFY(index.write("[Icon Theme]\nName=names\nDirectories=actions/32\n"
                        "[actions/32]\nSize=32\nType=Fixed\n") > 0);
    QPixmap picture(32, 32);
    picture.fill(Qt::black);
    QStringList names = {QStringLiteral("zcc_nav_voice")};
    for (const ModulePage &page : modulePages())
        names.append(page.icon);
    for (const QString &name : qAsConst(names))
        QVERIFY(picture.save(actions + QLatin1Char('/') + name + QStringLiteral(".png")));
    QIcon::setThemeSearchPaths({m_theme.path()});
    QIcon::setThemeName(QStringLiteral("names"));
}

void ModuleHostTest::init()
{
    m_host = std::make_unique<HostedModule>();
    QVERIFY2(m_host->module, qPrintable(m_host->loader.errorString()));
}

void ModuleHostTest::cleanup()
{
    m_host.reset();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void ModuleHostTest::answersBothCasts()
{
    QObject *object = m_host->loader.instance();
    QCOMPARE(object->metaObject()->className(), "TavrenAIAssitantControlPlugin");
    QCOMPARE(object->qt_metacast("TavrenAIAssitantControlPlugin"), static_cast<void *>(object));
    void *const interface = object->qt_metacast("zccV20::ModuleInterface");
    QVERIFY(interface);
    QCOMPARE(object->qt_metacast("com.tavren.zde.ControlCenter.module/1.0"), interface);
    QCOMPARE(static_cast<void *>(m_host->module), interface);
    QCOMPARE(object->qt_metacast("QObject"), static_cast<void *>(object));
    QVERIFY(!object->qt_metacast("TavrenAIAssistantControlPlugin"));
    QVERIFY(!object->qt_metacast("com.tavren.zde.ControlCenter.module/1.1"));
    QVERIFY(!object->parent());
}

void ModuleHostTest::oneObjectWhileItLivesAndANewOneAfterwards()
{
    QPointer<QObject> first = m_host->loader.instance();
    QCOMPARE(QPluginLoader(m_host->loader.fileName()).instance(), first.data());

    // The entry point itself, past Qt's own bookkeeping.
    using Instance = QObject *(*)();
    const auto entry = Instance(QLibrary::resolve(m_host->loader.fileName(), "qt_plugin_instance"));
    QVERIFY(entry);
    QCOMPARE(entry(), first.data());

    int destroyed = 0;
    connect(first, &QObject::destroyed, this, [&destroyed] { ++destroyed; });
    delete first;
    QCOMPARE(destroyed, 1);

    const QPointer<QObject> second = entry();
    QVERIFY(second);
    QCOMPARE(m_host->loader.instance(), second.data());
    QVERIFY(qobject_cast<ModuleInterface *>(second));
}

void ModuleHostTest::fourSlotsAndNothingElse()
{
    const QMetaObject *metaObject = m_host->loader.instance()->metaObject();
    QCOMPARE(metaObject->superClass(), &QObject::staticMetaObject);
    QCOMPARE(ownMethods(metaObject, QMetaMethod::Slot),
             (QStringList{
                 QStringLiteral("showAssistantWidget()"), QStringLiteral("showVoiceIatWidget()"),
                 QStringLiteral("showVoiceTtsWidget()"), QStringLiteral("showTranslateWidget()")}));
    QCOMPARE(metaObject->methodCount() - metaObject->methodOffset(), 4);
    QCOMPARE(metaObject->propertyCount(), metaObject->propertyOffset());
}

void ModuleHostTest::saysWhatItIs()
{
    QCOMPARE(m_host->module->name(), QStringLiteral("voice"));
    QCOMPARE(m_host->module->displayName(), QStringLiteral("Assistive Tools"));
    QCOMPARE(m_host->module->icon().name(), QStringLiteral("zcc_nav_voice"));
    QCOMPARE(m_host->module->translationPath(),
             QStringLiteral(":/translation/assistant-control-plugin_%1.ts"));
    QCOMPARE(m_host->module->path(), QStringLiteral("mainwindow"));
    QCOMPARE(m_host->module->follow(), QStringLiteral("keyboard"));
}

void ModuleHostTest::keepsTheDefaultsOfTheBase()
{
    QVERIFY(m_host->module->enabled());
    QVERIFY(!m_host->module->moduleWidget());
    m_host->module->active();
    m_host->module->showPage(QStringLiteral("Translation"));
    QCOMPARE(m_host->frame->pushes().size(), 2);
    QVERIFY(!m_host->module->moduleWidget());
}

void ModuleHostTest::availablePagesAreShortNamesInOrder()
{
    QCOMPARE(m_host->module->availPage(), testsupport::availableShortNames());
}

using Operation = std::function<void(ModuleInterface *)>;
Q_DECLARE_METATYPE(Operation)

void ModuleHostTest::logsItsLifecycle_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("function");
    const auto add = [](const char *name, const Operation &operation, const QString &text,
                        const char *function) {
        QTest::newRow(name) << operation << text << QString::fromLatin1(function);
    };
    add(
        "preInitialize",
        [](ModuleInterface *module) {
            module->preInitialize(true, zccV20::FrameProxyInterface::FullWindow);
        },
        QStringLiteral("preInitialize"),
        "virtual void TavrenAIAssitantControlPlugin::preInitialize(bool, "
        "zccV20::FrameProxyInterface::PushType)");
    add(
        "initialize", [](ModuleInterface *module) { module->initialize(); },
        QStringLiteral("initialize \"%1\"").arg(QLocale::system().name()),
        "virtual void TavrenAIAssitantControlPlugin::initialize()");
    add(
        "reset", [](ModuleInterface *module) { module->reset(); }, QStringLiteral("reset"),
        "virtual void TavrenAIAssitantControlPlugin::reset()");
    add(
        "translationPath", [](ModuleInterface *module) { module->translationPath(); },
        QStringLiteral("translationPath"),
        "virtual QString TavrenAIAssitantControlPlugin::translationPath() const");
    add(
        "active", [](ModuleInterface *module) { module->active(); }, QStringLiteral("active"),
        "virtual void TavrenAIAssitantControlPlugin::active()");
    add(
        "deactive", [](ModuleInterface *module) { module->deactive(); }, QStringLiteral("deactive"),
        "virtual void TavrenAIAssitantControlPlugin::deactive()");
    add(
        "load", [](ModuleInterface *module) { module->load(QStringLiteral("Speech to Text")); },
        QStringLiteral("load \"Speech to Text\""),
        "virtual int TavrenAIAssitantControlPlugin::load(const QString&)");
}

void ModuleHostTest::logsItsLifecycle()
{
    QFETCH(Operation, operation);
    QFETCH(QString, text);
    QFETCH(QString, function);

    const LogCapture log;
    operation(m_host->module);
    QList<LogRecord> records;
    for (const LogRecord &record : log.records())
        if (QFileInfo(record.file).baseName() == QLatin1String("tavrenaiassitantcontrolplugin"))
            records.append(record);
    QCOMPARE(records.size(), 1);
    const LogRecord record = records.constFirst();
    QCOMPARE(record.type, QtDebugMsg);
    QCOMPARE(record.category, QStringLiteral("default"));
    QVERIFY2(QFileInfo(record.file).isRelative(), qPrintable(record.file));
    QVERIFY(record.line > 0);
    QCOMPARE(record.function, function);
    QCOMPARE(record.text, text);
}

void ModuleHostTest::logsNothingElse()
{
    const LogCapture log;
    m_host->module->name();
    m_host->module->displayName();
    m_host->module->icon();
    m_host->module->showPage(QString());
    m_host->module->moduleWidget();
    m_host->module->contentPopped(nullptr);
    m_host->module->availPage();
    m_host->module->path();
    m_host->module->follow();
    m_host->module->enabled();
    m_host->module->addChildPageTrans();
    m_host->module->initSearchData();
    QCOMPARE(log.texts(), QStringList());
}

void ModuleHostTest::registersThePageNamesInTheirOwnOrder()
{
    m_host->module->preInitialize();
    QStringList expected;
    for (const QString &name : testsupport::registeredPageNames())
        expected.append(QStringLiteral("name|%1|%1").arg(name));
    QCOMPARE(registrations(*m_host->frame, FakeFrame::Registration::PageTranslation,
                           FakeFrame::Registration::PageTranslation),
             expected);
    QVERIFY(m_host->frame->pushes().isEmpty());
}

void ModuleHostTest::registersTheSearchEntriesInOrder()
{
    m_host->module->preInitialize();
    QStringList expected;
    for (const ModulePage &page : modulePages()) {
        expected.append(QStringLiteral("page|Assistive Tools|%1|present").arg(page.name));
        for (const QString &setting : page.settings)
            expected.append(
                QStringLiteral("item|Assistive Tools|%1|%2|present").arg(page.name, setting));
    }
    QCOMPARE(registrations(*m_host->frame, FakeFrame::Registration::SearchModule,
                           FakeFrame::Registration::SearchItem),
             expected);
}

void ModuleHostTest::activeRegistersNothing()
{
    m_host->module->initialize();
    m_host->module->active();
    m_host->module->deactive();
    QVERIFY(m_host->frame->registrations().isEmpty());
}

void ModuleHostTest::slotsOfThePages_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QStringList>("slotNames");
    for (const ModulePage &page : modulePages())
        QTest::newRow(qPrintable(page.name)) << page.name << page.slotNames;
}

void ModuleHostTest::slotsOfThePages()
{
    QFETCH(QString, page);
    QFETCH(QStringList, slotNames);

    m_host->module->active();
    m_host->module->load(page);
    const QMetaObject *metaObject = m_host->frame->pushes().constLast().widget->metaObject();
    QCOMPARE(metaObject->superClass(), &QWidget::staticMetaObject);
    QCOMPARE(ownMethods(metaObject, QMetaMethod::Slot), slotNames);
    QCOMPARE(metaObject->methodCount() - metaObject->methodOffset(), slotNames.size());
    QCOMPARE(metaObject->propertyCount(), metaObject->propertyOffset());
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i)
        QCOMPARE(metaObject->method(i).access(), QMetaMethod::Public);
}

void ModuleHostTest::listHasASignalPerPageAndNoSlots()
{
    m_host->module->active();
    const QMetaObject *metaObject = m_host->pushed(0)->metaObject();
    QCOMPARE(metaObject->superClass(), &QWidget::staticMetaObject);
    QStringList expected;
    for (const ModulePage &page : modulePages())
        expected.append(page.requestSignal);
    QCOMPARE(ownMethods(metaObject, QMetaMethod::Signal), expected);
    QCOMPARE(metaObject->methodCount() - metaObject->methodOffset(), expected.size());
    QCOMPARE(metaObject->propertyCount(), metaObject->propertyOffset());

    const QMetaObject *view = m_host->pushed(0)->findChild<QListView *>()->metaObject();
    QCOMPARE(view->className(), "AssistZListView");
    QCOMPARE(view->superClass()->className(), "Ztk::Widget::ZListView");
    QCOMPARE(view->methodCount(), view->methodOffset());
}

TEST_CLASS(QApplication, ModuleHostTest)
#include "modulehost.moc"
