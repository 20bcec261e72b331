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

#include <QApplication>
#include <QLabel>
#include <QtTest>

#include <functional>
#include <memory>

// The calls that a page makes when it opens.

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

private:
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    BusRecorder m_session{QDBusConnection::SessionBus};
    BusRecorder m_system{QDBusConnection::SystemBus};
};

void PageCallsTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network})
        QVERIFY(service->start());
    QVERIFY(m_session.start());
    QVERIFY(m_system.start());
}

void PageCallsTest::init()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network})
        service->reset();
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

TEST_CLASS(QApplication, PageCallsTest)
#include "pagecalls.moc"
