#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "plugin/tavrenaiassitantcontrolplugin.h"
#include "tests/support/busrecorder.h"
#include "tests/support/fakeframe.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QtTest>

#include <functional>
#include <memory>

// The calls that a page makes when it opens, and that it opens whatever its services do: absent,
// failing, answering with other types, or dying in the middle.

using testsupport::BusMessage;
using testsupport::BusRecorder;
using testsupport::FakeFrame;
using testsupport::ServiceProcess;

using PageMaker = std::function<QWidget *()>;
Q_DECLARE_METATYPE(PageMaker)

namespace {

const QString shortcutCall =
    QStringLiteral("com.tavren.daemon.Keybinding /com/tavren/daemon/Keybinding "
                   "com.tavren.daemon.Keybinding.GetShortcut(si)");
const QString dockCall =
    QStringLiteral("com.corvane.aiassistant.dock /com/corvane/aiassistant/dockIconControl "
                   "com.corvane.aiassistant.dock.getDockHideStatus()");

QString assistantCall(const char *object, const char *method)
{
    return QStringLiteral("com.corvane.aiassistant /aiassistant/%1 com.corvane.aiassistant.%1.%2()")
        .arg(QLatin1String(object), QLatin1String(method));
}

/** What a page shows of the services' state: "Title: on" for switches, the chosen entries. */
QStringList shownState(const QWidget *page)
{
    QStringList state;
    for (const auto *row : page->findChildren<zcc::widgets::SwitchWidget *>())
        state.append(row->title() +
                     (row->checked() ? QLatin1String(": on") : QLatin1String(": off")));
    for (const auto *box : page->findChildren<QComboBox *>())
        state.append(box->currentText());
    return state;
}

QStringList words(const char *line)
{
    return QString::fromLatin1(line).split(QLatin1Char(' '));
}

} // namespace

class PageCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void openingSendsItsCallsAndNothingElse_data();
    void openingSendsItsCallsAndNothingElse();
    void openingThroughTheModuleSendsTheSame();
    void askedForTheRightShortcut_data();
    void askedForTheRightShortcut();

    void opensWithItsFallbacksWhenServicesFail_data();
    void opensWithItsFallbacksWhenServicesFail();
    void opensWhenTheServiceDiesBetweenTwoReads_data();
    void opensWhenTheServiceDiesBetweenTwoReads();
    void dockSwitchIsOnUnlessTheServiceSaysHidden_data();
    void dockSwitchIsOnUnlessTheServiceSaysHidden();

private:
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    BusRecorder m_session{QDBusConnection::SessionBus};
    BusRecorder m_system{QDBusConnection::SystemBus};
    bool m_someMayHaveEnded = false; // because a test made them
};

void PageCallsTest::initTestCase()
{
    QVERIFY(m_session.start());
    QVERIFY(m_system.start());
}

void PageCallsTest::init()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network}) {
        if (m_someMayHaveEnded)
            service->kill();
        if (!service->isRunning())
            QVERIFY(service->start());
        service->reset();
        service->joinBus();
    }
    m_someMayHaveEnded = false;
    QVERIFY(m_session.clear());
    QVERIFY(m_system.clear());
}

void PageCallsTest::cleanup()
{
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageCallsTest::openingSendsItsCallsAndNothingElse_data()
{
    QTest::addColumn<PageMaker>("makePage");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QStringList>("daemonCalls");
    const QStringList none;
    QTest::newRow("speech to text")
        << PageMaker([] { return new VoiceIatSettingWidget; })
        << QStringList{shortcutCall, assistantCall("iat", "getIatEnable"),
                       assistantCall("iat", "getIatLanguage")}
        << none;
    QTest::newRow("text to speech")
        << PageMaker([] { return new VoiceTTSSettingWidget; })
        << QStringList{shortcutCall, assistantCall("tts", "getTTSEnable"),
                       assistantCall("tts", "getEnableWindow"), assistantCall("tts", "getSpeaker")}
        << none;
    QTest::newRow("translation") << PageMaker([] { return new TextTranslateSettingWidget; })
                                 << QStringList{shortcutCall,
                                                assistantCall("trans", "getTransEnable"),
                                                assistantCall("trans", "getTransLanguage")}
                                 << none;
    // Each of the two proxies, the sound daemon's and the dock's: a match for changes of the owner,
    // the question who that is (asked once by QtDBus, once by us), a match for the signal. The
    // dock's matches go with the page; QtDBus then drops one more, once, that it never had.
    const QStringList proxy = words("AddMatch GetNameOwner GetNameOwner AddMatch");
    QTest::newRow("assistant") << PageMaker([] { return new AssistantSettingWidget; })
                               << QStringList{dockCall}
                               << proxy + proxy + words("RemoveMatch RemoveMatch RemoveMatch");
}

void PageCallsTest::openingSendsItsCallsAndNothingElse()
{
    QFETCH(PageMaker, makePage);
    QFETCH(QStringList, calls);
    QFETCH(QStringList, daemonCalls);
    {
        const std::unique_ptr<QWidget> page(makePage());
        page->show();
        QCoreApplication::processEvents();
    }
    QVERIFY(m_session.sync());
    QVERIFY(m_system.sync());
    QCOMPARE(m_session.callSummaries(), calls);
    QCOMPARE(m_session.daemonCalls(), daemonCalls);
    QCOMPARE(m_system.callSummaries(), QStringList());
    QCOMPARE(m_system.daemonCalls(), QStringList());
    const QList<BusMessage> messages = m_session.messages();
    for (const BusMessage &message : messages) {
        QVERIFY(message.interface != QLatin1String("org.freedesktop.DBus.Introspectable"));
        QVERIFY(message.interface != QLatin1String("org.freedesktop.DBus.Properties"));
    }
}

void PageCallsTest::openingThroughTheModuleSendsTheSame()
{
    FakeFrame frame;
    TavrenAIAssitantControlPlugin module;
    module.setFrameProxy(&frame);
    module.preInitialize(false, zccV20::FrameProxyInterface::NextColumn);
    module.initialize();
    QVERIFY(m_session.sync());
    QCOMPARE(m_session.callSummaries(), QStringList());

    module.active();
    QVERIFY(m_session.sync());
    QCOMPARE(m_session.callSummaries(), QStringList{dockCall});

    QVERIFY(m_session.clear());
    module.load(QStringLiteral("Speech to Text"));
    QVERIFY(m_session.sync());
    QCOMPARE(m_session.callSummaries(),
             (QStringList{shortcutCall, assistantCall("iat", "getIatEnable"),
                          assistantCall("iat", "getIatLanguage")}));
}

void PageCallsTest::askedForTheRightShortcut_data()
{
    QTest::addColumn<PageMaker>("makePage");
    QTest::addColumn<QString>("id");
    QTest::newRow("speech to text")
        << PageMaker([] { return new VoiceIatSettingWidget; }) << "speech-to-text";
    QTest::newRow("text to speech")
        << PageMaker([] { return new VoiceTTSSettingWidget; }) << "text-to-speech";
    QTest::newRow("translation") << PageMaker([] { return new TextTranslateSettingWidget; })
                                 << "translation";
}

void PageCallsTest::askedForTheRightShortcut()
{
    QFETCH(PageMaker, makePage);
    QFETCH(QString, id);
    m_keybinding.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"),
                        QStringLiteral("{\"Accels\":[\"<Control><Super>F5\"]}"));
    const std::unique_ptr<QWidget> page(makePage());
    QVERIFY(m_session.sync());
    QCOMPARE(m_session.calls().constFirst().arguments, (QJsonArray{id, 0}));
    QVERIFY(testsupport::labelContaining(page.get(), QStringLiteral("(Ctrl+Super+F5)")));
}

void PageCallsTest::opensWithItsFallbacksWhenServicesFail_data()
{
    struct Page
    {
        const char *name;
        PageMaker make;
        QStringList fallback;
    };
    const QList<Page> pages = {
        {"speech to text",
         [] { return new VoiceIatSettingWidget; },
         {QStringLiteral("Speech to Text: off"), QStringLiteral("中文-普通话")}},
        {"text to speech",
         [] { return new VoiceTTSSettingWidget; },
         {QStringLiteral("Text to Speech: off"), QStringLiteral("Show Speech Widget: off"),
          QStringLiteral("Children")}},
        {"translation",
         [] { return new TextTranslateSettingWidget; },
         {QStringLiteral("Translation: off"), QStringLiteral("EN-CN")}},
        // The wake-up switch follows the settings store, not the service.
        {"assistant",
         [] { return new AssistantSettingWidget; },
         {QStringLiteral("Voice Wakeup: off"), QStringLiteral("Show in the Dock: on"),
          QStringLiteral("中文-普通话")}},
    };
    QTest::addColumn<PageMaker>("makePage");
    QTest::addColumn<QString>("behaviour"); // null: the services are absent
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QStringList>("fallback");
    for (const Page &page : pages) {
        QTest::addRow("%s, services absent", page.name)
            << page.make << QString() << QVariant() << page.fallback;
        QTest::addRow("%s, error replies", page.name)
            << page.make << "error" << QVariant("true") << page.fallback;
        QTest::addRow("%s, numbers for answers", page.name)
            << page.make << "reply" << QVariant(1) << page.fallback;
        QTest::addRow("%s, empty replies", page.name)
            << page.make << "reply-list" << QVariant(QVariantList()) << page.fallback;
        QTest::addRow("%s, gone while waiting", page.name)
            << page.make << "vanish" << QVariant(0) << page.fallback;
    }
    QTest::addRow("speech to text, a text for a bool")
        << pages.at(0).make << "reply" << QVariant("true")
        << QStringList{QStringLiteral("Speech to Text: off"), QStringLiteral("English")};
}

void PageCallsTest::opensWithItsFallbacksWhenServicesFail()
{
    QFETCH(PageMaker, makePage);
    QFETCH(QString, behaviour);
    QFETCH(QVariant, argument);
    QFETCH(QStringList, fallback);

    m_someMayHaveEnded = behaviour == QLatin1String("vanish");
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding})
        if (behaviour.isNull())
            service->leaveBus();
    if (!behaviour.isNull()) {
        for (const char *member :
             {"getIatEnable", "getIatLanguage", "getTTSEnable", "getEnableWindow", "getSpeaker",
              "getTransEnable", "getTransLanguage"})
            m_assistant.script(QLatin1String(member), behaviour, argument);
        m_dock.script(QStringLiteral("getDockHideStatus"), behaviour, argument);
        m_keybinding.script(QStringLiteral("GetShortcut"), behaviour, argument);
    }

    {
        const std::unique_ptr<QWidget> page(makePage());
        QCOMPARE(shownState(page.get()), fallback);
        // No shortcut: empty parentheses stand where it belongs.
        if (testsupport::labelContaining(page.get(), QStringLiteral("shortcuts")))
            QVERIFY(testsupport::labelContaining(page.get(), QStringLiteral("shortcuts ()")));
    }

    // The next page opens normally.
    init();
    m_assistant.setValue(QStringLiteral("iat.enabled"), true);
    m_assistant.setValue(QStringLiteral("iat.language"), QStringLiteral("en_us"));
    const VoiceIatSettingWidget next(nullptr);
    QCOMPARE(shownState(&next),
             (QStringList{QStringLiteral("Speech to Text: on"), QStringLiteral("English")}));
}

void PageCallsTest::opensWhenTheServiceDiesBetweenTwoReads_data()
{
    QTest::addColumn<PageMaker>("makePage");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QStringList>("state");
    QTest::newRow("speech to text")
        << PageMaker([] { return new VoiceIatSettingWidget; }) << "getIatLanguage"
        << QStringList{QStringLiteral("Speech to Text: on"), QStringLiteral("中文-普通话")};
    QTest::newRow("text to speech, at the second read")
        << PageMaker([] { return new VoiceTTSSettingWidget; }) << "getEnableWindow"
        << QStringList{QStringLiteral("Text to Speech: on"),
                       QStringLiteral("Show Speech Widget: off"), QStringLiteral("Children")};
    QTest::newRow("text to speech, at the third read")
        << PageMaker([] { return new VoiceTTSSettingWidget; }) << "getSpeaker"
        << QStringList{QStringLiteral("Text to Speech: on"),
                       QStringLiteral("Show Speech Widget: on"), QStringLiteral("Children")};
    QTest::newRow("translation") << PageMaker([] { return new TextTranslateSettingWidget; })
                                 << "getTransLanguage"
                                 << QStringList{QStringLiteral("Translation: on"),
                                                QStringLiteral("EN-CN")};
}

void PageCallsTest::opensWhenTheServiceDiesBetweenTwoReads()
{
    QFETCH(PageMaker, makePage);
    QFETCH(QString, member);
    QFETCH(QStringList, state);
    for (const char *key : {"iat.enabled", "tts.enabled", "tts.window", "trans.enabled"})
        m_assistant.setValue(QLatin1String(key), true);
    m_assistant.script(member, QStringLiteral("vanish"));
    m_someMayHaveEnded = true;
    {
        const std::unique_ptr<QWidget> page(makePage());
        QCOMPARE(shownState(page.get()), state);
    }
    QVERIFY(m_assistant.waitForEnd());
    const std::unique_ptr<QWidget> withoutService(makePage());
    QCOMPARE(shownState(withoutService.get()).filter(QStringLiteral(": on")), QStringList());
}

void PageCallsTest::dockSwitchIsOnUnlessTheServiceSaysHidden_data()
{
    QTest::addColumn<QVariant>("reply");
    QTest::addColumn<bool>("on");
    QTest::newRow("shown") << QVariant(false) << true;
    QTest::newRow("hidden") << QVariant(true) << false;
    QTest::newRow("the text \"true\"") << QVariant("true") << true;
    QTest::newRow("the number 1") << QVariant(1) << true;
}

void PageCallsTest::dockSwitchIsOnUnlessTheServiceSaysHidden()
{
    QFETCH(QVariant, reply);
    QFETCH(bool, on);
    m_dock.script(QStringLiteral("getDockHideStatus"), QStringLiteral("reply"), reply);
    const AssistantSettingWidget page(nullptr);
    auto *row = testsupport::switchTitled(&page, QStringLiteral("Show in the Dock"));
    QVERIFY(row);
    QCOMPARE(row->checked(), on);
}

TEST_CLASS(QApplication, PageCallsTest)
#include "pagecalls.moc"
