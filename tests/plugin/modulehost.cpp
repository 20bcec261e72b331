#include "tests/support/fakeframe.h"
#include "tests/support/logcapture.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/moduleinterface.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QListView>
#include <QMetaMethod>
#include <QPluginLoader>
#include <QPointer>
#include <QRegularExpression>
#include <QResource>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

// The module driven as a control center drives it, by a host that knows its interface only. No
// service runs: every page opens with its fallbacks.

using testsupport::FakeFrame;
using testsupport::LogCapture;
using testsupport::LogRecord;
using testsupport::ModulePage;
using testsupport::modulePages;
using zccV20::ModuleInterface;

namespace {

const QString moduleFile = QStringLiteral(MODULE_FILE);

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

    void activePushesTheListThenTheAssistantPage();
    void activeTwicePushesTwoListsAndTwoAssistantPages();
    void anOldListStillOpensPages();
    void everyPushIsAParentlessWidgetOfTheModuleWithType2();
    void contentPoppedDeactiveAndResetLeaveThePagesAlone();

    void loadOpensThePageOfItsUntranslatedName_data();
    void loadOpensThePageOfItsUntranslatedName();
    void loadBuildsAFreshPageEachTime();
    void loadBeforeActiveReturnsZero();
    void loadAfterTheFrameDestroyedTheListReturnsZero();

    void slotsOfThePages_data();
    void slotsOfThePages();
    void listHasASignalPerPageAndNoSlots();

    void theFrameMayDestroyAPageAtAnyTime();
    void theFrameMayDestroyTheListBeforeThePages();
    void pagesOutliveTheModuleObject();
    void listOutlivesTheModuleObject();
    void worksWithoutAFrameProxy();

    void carriesItsIconsAndCatalogues_data();
    void carriesItsIconsAndCatalogues();
    void translationPathLeadsToTheCatalogueOfALocale_data();
    void translationPathLeadsToTheCatalogueOfALocale();

private:
    QWidget *pushed(int index) const { return m_frame->pushes().at(index).widget; }

    QTemporaryDir m_theme;
    std::unique_ptr<QPluginLoader> m_loader;
    std::unique_ptr<FakeFrame> m_frame;
    ModuleInterface *m_module = nullptr;
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
    m_loader = std::make_unique<QPluginLoader>(moduleFile);
    QObject *object = m_loader->instance();
    QVERIFY2(object, qPrintable(m_loader->errorString()));
    m_module = qobject_cast<ModuleInterface *>(object);
    QVERIFY(m_module);
    m_frame = std::make_unique<FakeFrame>(FakeFrame::OnDemand);
    m_module->setFrameProxy(m_frame.get());
}

void ModuleHostTest::cleanup()
{
    m_frame.reset();
    testsupport::flushDeferredDeletes();
    delete m_loader->instance();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void ModuleHostTest::answersBothCasts()
{
    QObject *object = m_loader->instance();
    QCOMPARE(object->metaObject()->className(), "TavrenAIAssitantControlPlugin");
    QCOMPARE(object->qt_metacast("TavrenAIAssitantControlPlugin"), static_cast<void *>(object));
    void *const interface = object->qt_metacast("zccV20::ModuleInterface");
    QVERIFY(interface);
    QCOMPARE(object->qt_metacast("com.tavren.zde.ControlCenter.module/1.0"), interface);
    QCOMPARE(static_cast<void *>(m_module), interface);
    QCOMPARE(object->qt_metacast("QObject"), static_cast<void *>(object));
    QVERIFY(!object->qt_metacast("TavrenAIAssistantControlPlugin"));
    QVERIFY(!object->qt_metacast("com.tavren.zde.ControlCenter.module/1.1"));
    QVERIFY(!object->parent());
}

void ModuleHostTest::oneObjectWhileItLivesAndANewOneAfterwards()
{
    QPointer<QObject> first = m_loader->instance();
    QCOMPARE(QPluginLoader(moduleFile).instance(), first.data());

    // The entry point itself, past Qt's own bookkeeping.
    using Instance = QObject *(*)();
    const auto entry = Instance(QLibrary::resolve(moduleFile, "qt_plugin_instance"));
    QVERIFY(entry);
    QCOMPARE(entry(), first.data());

    int destroyed = 0;
    connect(first, &QObject::destroyed, this, [&destroyed] { ++destroyed; });
    delete first;
    QCOMPARE(destroyed, 1);

    const QPointer<QObject> second = entry();
    QVERIFY(second);
    QCOMPARE(m_loader->instance(), second.data());
    QVERIFY(qobject_cast<ModuleInterface *>(second));
}

void ModuleHostTest::fourSlotsAndNothingElse()
{
    const QMetaObject *metaObject = m_loader->instance()->metaObject();
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
    QCOMPARE(m_module->name(), QStringLiteral("voice"));
    QCOMPARE(m_module->displayName(), QStringLiteral("Assistive Tools"));
    QCOMPARE(m_module->icon().name(), QStringLiteral("zcc_nav_voice"));
    QCOMPARE(m_module->translationPath(),
             QStringLiteral(":/translation/assistant-control-plugin_%1.ts"));
    QCOMPARE(m_module->path(), QStringLiteral("mainwindow"));
    QCOMPARE(m_module->follow(), QStringLiteral("keyboard"));
}

void ModuleHostTest::keepsTheDefaultsOfTheBase()
{
    QVERIFY(m_module->enabled());
    QVERIFY(!m_module->moduleWidget());
    m_module->active();
    m_module->showPage(QStringLiteral("Translation"));
    QCOMPARE(m_frame->pushes().size(), 2);
    QVERIFY(!m_module->moduleWidget());
}

void ModuleHostTest::availablePagesAreShortNamesInOrder()
{
    QCOMPARE(m_module->availPage(), testsupport::availableShortNames());
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
    operation(m_module);
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
    m_module->name();
    m_module->displayName();
    m_module->icon();
    m_module->showPage(QString());
    m_module->moduleWidget();
    m_module->contentPopped(nullptr);
    m_module->availPage();
    m_module->path();
    m_module->follow();
    m_module->enabled();
    m_module->addChildPageTrans();
    m_module->initSearchData();
    QCOMPARE(log.texts(), QStringList());
}

void ModuleHostTest::registersThePageNamesInTheirOwnOrder()
{
    m_module->preInitialize();
    QStringList expected;
    for (const QString &name : testsupport::registeredPageNames())
        expected.append(QStringLiteral("name|%1|%1").arg(name));
    QCOMPARE(registrations(*m_frame, FakeFrame::Registration::PageTranslation,
                           FakeFrame::Registration::PageTranslation),
             expected);
    QVERIFY(m_frame->pushes().isEmpty());
}

void ModuleHostTest::registersTheSearchEntriesInOrder()
{
    m_module->preInitialize();
    QStringList expected;
    for (const ModulePage &page : modulePages()) {
        expected.append(QStringLiteral("page|Assistive Tools|%1|present").arg(page.name));
        for (const QString &setting : page.settings)
            expected.append(
                QStringLiteral("item|Assistive Tools|%1|%2|present").arg(page.name, setting));
    }
    QCOMPARE(registrations(*m_frame, FakeFrame::Registration::SearchModule,
                           FakeFrame::Registration::SearchItem),
             expected);
}

void ModuleHostTest::activeRegistersNothing()
{
    m_module->initialize();
    m_module->active();
    m_module->deactive();
    QVERIFY(m_frame->registrations().isEmpty());
}

void ModuleHostTest::activePushesTheListThenTheAssistantPage()
{
    m_module->preInitialize();
    m_module->initialize();
    QVERIFY(m_frame->pushes().isEmpty());
    m_module->active();
    QCOMPARE(m_frame->pushedClasses(), (QStringList{QStringLiteral("ThirdListWidget"),
                                                    QStringLiteral("AssistantSettingWidget")}));
}

void ModuleHostTest::activeTwicePushesTwoListsAndTwoAssistantPages()
{
    m_module->active();
    m_module->active();
    QCOMPARE(
        m_frame->pushedClasses(),
        (QStringList{QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget"),
                     QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget")}));
    QVERIFY(pushed(0) != pushed(2));
    QVERIFY(pushed(1) != pushed(3));

    // load() is the newer list's.
    m_module->load(QStringLiteral("Translation"));
    QCOMPARE(pushed(0)->findChild<QListView *>()->currentIndex().row(), 0);
    QCOMPARE(pushed(2)->findChild<QListView *>()->currentIndex().row(), 3);
}

void ModuleHostTest::anOldListStillOpensPages()
{
    m_module->active();
    m_module->active();
    auto *oldList = pushed(0)->findChild<QListView *>();
    oldList->setFocus();
    QTest::keyClick(oldList, Qt::Key_Down);
    QCOMPARE(m_frame->pushes().size(), 5);
    QCOMPARE(m_frame->pushes().constLast().className, QStringLiteral("VoiceIatSettingWidget"));
}

void ModuleHostTest::everyPushIsAParentlessWidgetOfTheModuleWithType2()
{
    m_module->preInitialize(false, zccV20::FrameProxyInterface::FullWindow);
    m_module->active();
    for (const ModulePage &page : modulePages())
        m_module->load(page.name);
    QCOMPARE(m_frame->pushes().size(), modulePages().size() + 2); // after active()'s two
    for (const FakeFrame::Push &push : m_frame->pushes()) {
        QCOMPARE(push.module, m_module);
        QVERIFY(push.widget);
        QVERIFY(!push.hadParent);
        QCOMPARE(push.type, 2);
    }
}

void ModuleHostTest::contentPoppedDeactiveAndResetLeaveThePagesAlone()
{
    m_module->active();
    m_module->contentPopped(pushed(1));
    m_module->deactive();
    m_module->reset();
    testsupport::flushDeferredDeletes();
    QCOMPARE(m_frame->pushes().size(), 2);
    QVERIFY(pushed(0));
    QVERIFY(pushed(1));
}

void ModuleHostTest::loadOpensThePageOfItsUntranslatedName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("page");
    const QString assistant = QStringLiteral("AssistantSettingWidget");
    const QVector<ModulePage> pages = modulePages();
    for (int row = 0; row < pages.size(); ++row) {
        const ModulePage &page = pages.at(row);
        QTest::newRow(qPrintable(page.name)) << page.name << row << page.className;
    }
    QTest::newRow("other letter case") << "speech to text" << 0 << assistant;
    QTest::newRow("short name iat") << "iat" << 0 << assistant;
    QTest::newRow("short name tts") << "tts" << 0 << assistant;
    QTest::newRow("short name translation") << "translation" << 0 << assistant;
    QTest::newRow("name with a space behind") << "Translation " << 0 << assistant;
    QTest::newRow("name as part of a path") << "Translation/Language" << 0 << assistant;
    QTest::newRow("empty") << "" << 0 << assistant;
    QTest::newRow("null") << QString() << 0 << assistant;
    QTest::newRow("rubbish") << QString(100000, QChar(0xFFFD)) << 0 << assistant;
}

void ModuleHostTest::loadOpensThePageOfItsUntranslatedName()
{
    QFETCH(QString, path);
    QFETCH(int, row);
    QFETCH(QString, page);

    m_module->active();
    // From another row, so that row 0 too is a change.
    m_module->load(QStringLiteral("Text to Speech"));
    const int before = m_frame->pushes().size();
    QCOMPARE(m_module->load(path), 0);
    QCOMPARE(m_frame->pushes().size(), before + 1);
    QCOMPARE(m_frame->pushes().constLast().className, page);
    QCOMPARE(pushed(0)->findChild<QListView *>()->currentIndex().row(), row);
}

void ModuleHostTest::loadBuildsAFreshPageEachTime()
{
    m_module->active();
    m_module->load(QStringLiteral("Translation"));
    m_module->load(QStringLiteral("Translation"));
    QCOMPARE(m_frame->pushes().size(), 4);
    QVERIFY(pushed(2));
    QVERIFY(pushed(3));
    QVERIFY(pushed(2) != pushed(3));
}

void ModuleHostTest::loadBeforeActiveReturnsZero()
{
    QCOMPARE(m_module->load(QStringLiteral("Translation")), 0);
    QVERIFY(m_frame->pushes().isEmpty());
    m_module->active();
    QCOMPARE(m_frame->pushes().size(), 2);
}

void ModuleHostTest::loadAfterTheFrameDestroyedTheListReturnsZero()
{
    m_module->active();
    delete pushed(0);
    QCOMPARE(m_module->load(QStringLiteral("Translation")), 0);
    QCOMPARE(m_frame->pushes().size(), 2);
    m_module->active();
    QCOMPARE(m_module->load(QStringLiteral("Translation")), 0);
    QCOMPARE(m_frame->pushes().size(), 5);
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

    m_module->active();
    m_module->load(page);
    const QMetaObject *metaObject = m_frame->pushes().constLast().widget->metaObject();
    QCOMPARE(metaObject->superClass(), &QWidget::staticMetaObject);
    QCOMPARE(ownMethods(metaObject, QMetaMethod::Slot), slotNames);
    QCOMPARE(metaObject->methodCount() - metaObject->methodOffset(), slotNames.size());
    QCOMPARE(metaObject->propertyCount(), metaObject->propertyOffset());
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i)
        QCOMPARE(metaObject->method(i).access(), QMetaMethod::Public);
}

void ModuleHostTest::listHasASignalPerPageAndNoSlots()
{
    m_module->active();
    const QMetaObject *metaObject = pushed(0)->metaObject();
    QCOMPARE(metaObject->superClass(), &QWidget::staticMetaObject);
    QStringList expected;
    for (const ModulePage &page : modulePages())
        expected.append(page.requestSignal);
    QCOMPARE(ownMethods(metaObject, QMetaMethod::Signal), expected);
    QCOMPARE(metaObject->methodCount() - metaObject->methodOffset(), expected.size());
    QCOMPARE(metaObject->propertyCount(), metaObject->propertyOffset());

    const QMetaObject *view = pushed(0)->findChild<QListView *>()->metaObject();
    QCOMPARE(view->className(), "AssistZListView");
    QCOMPARE(view->superClass()->className(), "Ztk::Widget::ZListView");
    QCOMPARE(view->methodCount(), view->methodOffset());
}

void ModuleHostTest::theFrameMayDestroyAPageAtAnyTime()
{
    m_module->active();
    delete pushed(1);
    for (const ModulePage &page : modulePages()) {
        m_module->load(page.name);
        QVERIFY(m_frame->pushes().constLast().widget);
        delete m_frame->pushes().constLast().widget;
    }
    m_module->active();
    QVERIFY(m_frame->pushes().constLast().widget);
}

void ModuleHostTest::theFrameMayDestroyTheListBeforeThePages()
{
    m_module->active();
    delete pushed(0);
    auto *languages = pushed(1)->findChild<QComboBox *>();
    QVERIFY(languages);
    languages->setCurrentIndex(-1);
}

void ModuleHostTest::pagesOutliveTheModuleObject()
{
    m_module->active();
    for (const ModulePage &page : modulePages())
        m_module->load(page.name);
    delete m_loader->instance();
    for (int i = 1; i < m_frame->pushes().size(); ++i) {
        const auto buttons = pushed(i)->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons)
            if (button->isCheckable())
                button->click();
    }
}

void ModuleHostTest::listOutlivesTheModuleObject()
{
    m_module->active();
    delete m_loader->instance();
    QTest::keyClick(pushed(0)->findChild<QListView *>(), Qt::Key_Down);
    QCOMPARE(m_frame->pushes().size(), 2);
}

void ModuleHostTest::worksWithoutAFrameProxy()
{
    m_module->setFrameProxy(nullptr);
    m_module->preInitialize();
    m_module->initialize();
    QVERIFY(m_frame->registrations().isEmpty());
}

void ModuleHostTest::carriesItsIconsAndCatalogues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("attribute");
    static const QRegularExpression suffix(QStringLiteral("_(\\d+)px\\.svg$"));
    for (const QString &file : testsupport::bundledIconFiles()) {
        const QByteArray size = suffix.match(file).captured(1).toLatin1();
        QVERIFY(!size.isEmpty());
        QTest::newRow(qPrintable(file))
            << QStringLiteral(":/icons/tavren/builtin/actions/") + file << QByteArray("svg")
            << QByteArray("width=\"" + size + "\" height=\"" + size + "\"");
    }
    for (const char *language : {"zh_CN", "bo", "ug", "zh_HK", "en_US", "zh_TW", "en"})
        QTest::newRow(language) << QStringLiteral(":/translation/assistant-control-plugin_%1.ts")
                                       .arg(QLatin1String(language))
                                << QByteArray("TS") << QByteArray("version=\"2.1\"");
}

void ModuleHostTest::carriesItsIconsAndCatalogues()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, attribute);

    const QResource resource(path);
    QVERIFY(resource.isValid());
    // As stored: 4 bytes of size, then a zlib stream.
    const QByteArray stored = QByteArray::fromRawData(
        reinterpret_cast<const char *>(resource.data()), int(resource.size()));
    QCOMPARE(stored.at(4), '\x78');
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QCOMPARE(qUncompress(stored), content);

    const int root = content.indexOf('<' + begin + ' ');
    QVERIFY(root >= 0);
    const QByteArray rootElement = content.mid(root, content.indexOf('>', root) - root);
    QVERIFY2(rootElement.contains(attribute), rootElement.constData());
}

void ModuleHostTest::translationPathLeadsToTheCatalogueOfALocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("found");
    for (const char *locale : {"zh_CN", "bo", "ug", "zh_HK", "zh_TW"})
        QTest::newRow(locale) << QString::fromLatin1(locale) << true;
    QTest::newRow("English in its long form") << "en_US" << true;
    QTest::newRow("English in its short form") << "en" << true;
    QTest::newRow("another English has none") << "en_GB" << false;
    QTest::newRow("German has none") << "de_DE" << false;
}

void ModuleHostTest::translationPathLeadsToTheCatalogueOfALocale()
{
    QFETCH(QString, locale);
    QFETCH(bool, found);
    QFile catalogue(m_module->translationPath().arg(locale));
    QCOMPARE(catalogue.open(QIODevice::ReadOnly), found);
    if (!found)
        return;
    // The file of this very locale, not another one under its name.
    QXmlStreamReader reader(&catalogue);
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QStringLiteral("TS"));
    QCOMPARE(reader.attributes().value(QLatin1String("language")).toString(), locale);
}

TEST_CLASS(QApplication, ModuleHostTest)
#include "modulehost.moc"
