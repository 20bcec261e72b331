#include "assistantdockserviceinterface.h"
#include "bus/serviceproxy.h"
#include "proxy/assistantstateproxy.h"
#include "tests/support/busrecorder.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QDBusConnectionInterface>
#include <QtTest>

#include <csignal>
#include <functional>

// Every call of the contract with the services, one row each, as the bus carried it: destination,
// path, interface, method, argument types, whether a reply was asked for, and the values.

using testsupport::BusMessage;
using testsupport::BusRecorder;
using testsupport::ServiceProcess;

using Proxy = AssistantStateProxy;
using CallFunction = std::function<QVariant()>;
Q_DECLARE_METATYPE(CallFunction)

class StateContractTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void writesAreSentWithoutAskingForAReply_data();
    void writesAreSentWithoutAskingForAReply();
    void writesReturnAtOnceWhileTheBusDaemonHangs();
    void writesReachTheServicesState_data();
    void writesReachTheServicesState();
    void readsAskForAReplyAndReturnIt_data();
    void readsAskForAReplyAndReturnIt();
    void theNetworkIsAskedForOnTheSystemBus();
    void dockCallsAskForAReply_data();
    void dockCallsAskForAReply();
    void theDockProxyRelaysItsSignal();

private:
    /** The one call that @p function sends; fails the test when it is not one. */
    QVariant recorded(const CallFunction &function, const QString &summary,
                      const QJsonArray &arguments);

    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    BusRecorder m_session{QDBusConnection::SessionBus};
    BusRecorder m_system{QDBusConnection::SystemBus};
};

namespace {

const QString dockName = QStringLiteral("com.corvane.aiassistant.dock");
const QString dockPath = QStringLiteral("/com/corvane/aiassistant/dockIconControl");

QString onAssistant(const char *object, const char *interface, const char *call)
{
    return QStringLiteral("com.corvane.aiassistant /aiassistant/%1 com.corvane.aiassistant.%2.%3")
        .arg(QLatin1String(object), QLatin1String(interface), QLatin1String(call));
}

QString onDock(const char *call)
{
    return QStringLiteral("%1 %2 %1.%3").arg(dockName, dockPath, QLatin1String(call));
}

} // namespace

void StateContractTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network})
        QVERIFY(service->start());
    QVERIFY(m_session.start());
    QVERIFY(m_system.start());
}

void StateContractTest::init()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network})
        service->reset();
    QVERIFY(m_session.clear());
    QVERIFY(m_system.clear());
}

QVariant StateContractTest::recorded(const CallFunction &function, const QString &summary,
                                     const QJsonArray &arguments)
{
    const QVariant result = function();
    [&] {
        QVERIFY(m_session.sync());
        QVERIFY(m_system.sync());
        QCOMPARE(m_session.callSummaries(), QStringList{summary});
        QCOMPARE(m_session.calls().constFirst().arguments, arguments);
        QCOMPARE(m_system.callSummaries(), QStringList());
    }();
    return result;
}

void StateContractTest::writesAreSentWithoutAskingForAReply_data()
{
    QTest::addColumn<CallFunction>("function");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<QJsonArray>("arguments");
    const auto add = [](const char *name, const CallFunction &function, const QString &summary,
                        const QJsonArray &arguments) {
        QTest::newRow(name) << function << summary + QStringLiteral(" no-reply") << arguments;
    };

    const auto addSwitch = [&add](const char *name, qint32 (*write)(bool), const QString &summary) {
        for (const bool on : {true, false})
            add(qPrintable(QLatin1String(name) + QLatin1String(on ? " on" : " off")),
                [write, on] { return write(on); }, summary, {on});
    };

    const QString setIatEnable = onAssistant("iat", "iat", "setIatEnable(b)");
    addSwitch("dictation", &Proxy::setVoiceIatState, setIatEnable);
    const QString setIatLanguage = onAssistant("iat", "iat", "setIatLanguage(s)");
    for (const char *language : {"zh_cn", "en_us"}) {
        const QString text = QLatin1String(language);
        QTest::addRow("dictation language %s", language)
            << CallFunction([text] { return Proxy::setVoiceIatLanguage(text); })
            << setIatLanguage + QStringLiteral(" no-reply") << QJsonArray{text};
    }

    const QString setTtsEnable = onAssistant("tts", "tts", "setTTSEnable(b)");
    addSwitch("reading", &Proxy::setVoiceTTSState, setTtsEnable);
    const QString setWindow = onAssistant("tts", "tts", "setEnableWindow(b)");
    addSwitch("speech widget", &Proxy::setVoiceTTSWindowState, setWindow);
    const QString setSpeaker = onAssistant("tts", "tts", "setSpeaker(s)");
    const QString female = QStringLiteral("x_tovali");
    add("reader 0", [] { return Proxy::setVoiceTTSSpeaker(0); }, setSpeaker, {female});
    add("reader 1", [] { return Proxy::setVoiceTTSSpeaker(1); }, setSpeaker,
        {QStringLiteral("x_morven")});
    add("reader 2", [] { return Proxy::setVoiceTTSSpeaker(2); }, setSpeaker,
        {QStringLiteral("x2_pella")});
    add("reader 3", [] { return Proxy::setVoiceTTSSpeaker(3); }, setSpeaker, {female});
    add("reader 5", [] { return Proxy::setVoiceTTSSpeaker(5); }, setSpeaker, {female});
    add("reader -1", [] { return Proxy::setVoiceTTSSpeaker(-1); }, setSpeaker, {female});

    const QString setVoice = onAssistant("tavrenmain", "mainWindow", "setVOXASpeaker(s)");
    const QString male = QStringLiteral("morven"); // without the prefix of the reader's
    add("assistant's voice 0", [] { return Proxy::setAssistantSpeaker(0); }, setVoice, {female});
    add("assistant's voice 1", [] { return Proxy::setAssistantSpeaker(1); }, setVoice, {male});
    add("assistant's voice 2", [] { return Proxy::setAssistantSpeaker(2); }, setVoice, {male});
    add("assistant's voice -1", [] { return Proxy::setAssistantSpeaker(-1); }, setVoice, {male});

    const QString setTransEnable = onAssistant("trans", "trans", "setTransEnable(b)");
    addSwitch("translation", &Proxy::setAssistantTransState, setTransEnable);
    const QString setDirection = onAssistant("trans", "trans", "setTransLanguage(s)");
    for (const QString &direction :
         {QStringLiteral("cn|en"), QStringLiteral("en|cn"), QString(), QStringLiteral("阿|%1 ")}) {
        QTest::newRow(qPrintable(QStringLiteral("direction \"%1\"").arg(direction)))
            << CallFunction([direction] { return Proxy::setAssistantTransLang(direction); })
            << setDirection + QStringLiteral(" no-reply") << QJsonArray{direction};
    }

    const QString enable = onAssistant("voicewakeuper", "voicewakeuper", "enableOneshot()");
    const QString disable = onAssistant("voicewakeuper", "voicewakeuper", "disableOneshot()");
    add("one-shot 0", [] { return Proxy::setOneShotMode(0); }, disable, {});
    add("one-shot 1", [] { return Proxy::setOneShotMode(1); }, enable, {});
    add("one-shot 2", [] { return Proxy::setOneShotMode(2); }, enable, {});
    add("one-shot -1", [] { return Proxy::setOneShotMode(-1); }, enable, {});
}

void StateContractTest::writesAreSentWithoutAskingForAReply()
{
    QFETCH(CallFunction, function);
    QFETCH(QString, summary);
    QFETCH(QJsonArray, arguments);
    QCOMPARE(recorded(function, summary, arguments), QVariant(0));
    QCOMPARE(m_session.daemonCalls(), QStringList());
}

void StateContractTest::writesReturnAtOnceWhileTheBusDaemonHangs()
{
    const QDBusConnection bus = m_assistant.connection();
    const uint daemon = bus.interface()->servicePid(QStringLiteral("org.freedesktop.DBus"));
    QVERIFY(daemon > 0);
    QCOMPARE(kill(pid_t(daemon), SIGSTOP), 0);
    QElapsedTimer timer;
    timer.start();
    Proxy::setVoiceIatState(true);
    Proxy::setVoiceIatLanguage(QStringLiteral("en_us"));
    Proxy::setVoiceTTSState(true);
    Proxy::setVoiceTTSWindowState(true);
    Proxy::setVoiceTTSSpeaker(1);
    Proxy::setAssistantTransState(true);
    Proxy::setAssistantTransLang(QStringLiteral("cn|en"));
    Proxy::setAssistantSpeaker(1);
    Proxy::setOneShotMode(1);
    const qint64 elapsedMs = timer.elapsed();
    QCOMPARE(kill(pid_t(daemon), SIGCONT), 0);
    QVERIFY2(elapsedMs < 1000, qPrintable(QString::number(elapsedMs)));
    QVERIFY(m_assistant.waitForCalls(QStringLiteral("enableOneshot")));
    QVERIFY(m_session.sync());
    QCOMPARE(m_session.callSummaries().size(), 9);
}

void StateContractTest::writesReachTheServicesState_data()
{
    QTest::addColumn<CallFunction>("function");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const auto add = [](const char *name, const char *member, const char *key,
                        const QVariant &value, const CallFunction &function) {
        QTest::newRow(name) << function << QString::fromLatin1(member) << QString::fromLatin1(key)
                            << value;
    };
    add("dictation", "setIatEnable", "iat.enabled", true,
        [] { return Proxy::setVoiceIatState(true); });
    const QString language = QStringLiteral("en_us");
    add("dictation language", "setIatLanguage", "iat.language", language,
        [language] { return Proxy::setVoiceIatLanguage(language); });
    add("reading", "setTTSEnable", "tts.enabled", true,
        [] { return Proxy::setVoiceTTSState(true); });
    add("speech widget", "setEnableWindow", "tts.window", true,
        [] { return Proxy::setVoiceTTSWindowState(true); });
    add("reader", "setSpeaker", "tts.speaker", QStringLiteral("x_morven"),
        [] { return Proxy::setVoiceTTSSpeaker(1); });
    add("assistant's voice", "setVOXASpeaker", "assistant.speaker", QStringLiteral("morven"),
        [] { return Proxy::setAssistantSpeaker(1); });
    add("translation", "setTransEnable", "trans.enabled", true,
        [] { return Proxy::setAssistantTransState(true); });
    const QString direction = QStringLiteral("en|cn");
    add("direction", "setTransLanguage", "trans.language", direction,
        [direction] { return Proxy::setAssistantTransLang(direction); });
    add("one-shot", "enableOneshot", "wakeup.oneshot", true,
        [] { return Proxy::setOneShotMode(1); });
}

void StateContractTest::writesReachTheServicesState()
{
    QFETCH(CallFunction, function);
    QFETCH(QString, member);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    // From another value, so that the write is what made the difference.
    m_assistant.setValue(key, value.type() == QVariant::Bool ? QVariant(false)
                                                             : QVariant(QStringLiteral("another")));
    function();
    QVERIFY(m_assistant.waitForCalls(member));
    QCOMPARE(m_assistant.value(key), value);
}

void StateContractTest::readsAskForAReplyAndReturnIt_data()
{
    QTest::addColumn<CallFunction>("function");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<QJsonArray>("arguments");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariant>("reply");
    QTest::addColumn<QVariant>("result");
    const auto add = [](const QString &name, const CallFunction &function, const QString &summary,
                        const QVariant &reply, const QVariant &result) {
        const int dot = summary.lastIndexOf(QLatin1Char('.')) + 1;
        QTest::newRow(qPrintable(name))
            << function << summary << QJsonArray()
            << summary.mid(dot, summary.indexOf(QLatin1Char('(')) - dot) << reply << result;
    };

    const CallFunction iat = &Proxy::queryVoiceIatState;
    const CallFunction tts = &Proxy::queryVoiceTTSState;
    const CallFunction window = &Proxy::queryVoiceTTSWindowState;
    const CallFunction trans = &Proxy::queryAssistantTransState;
    for (const bool on : {true, false}) {
        const QString name = on ? QStringLiteral("%1 is on") : QStringLiteral("%1 is off");
        add(name.arg(QLatin1String("dictation")), iat, onAssistant("iat", "iat", "getIatEnable()"),
            on, on);
        add(name.arg(QLatin1String("reading")), tts, onAssistant("tts", "tts", "getTTSEnable()"),
            on, on);
        add(name.arg(QLatin1String("speech widget")), window,
            onAssistant("tts", "tts", "getEnableWindow()"), on, on);
        add(name.arg(QLatin1String("translation")), trans,
            onAssistant("trans", "trans", "getTransEnable()"), on, on);
    }

    for (const QString &text :
         {QStringLiteral("zh_cn"), QStringLiteral("en_us"), QStringLiteral("ZH_CN"),
          QStringLiteral("klingon"), QString(QLatin1String(""))}) {
        add(
            QStringLiteral("dictation language \"%1\"").arg(text),
            [] { return Proxy::getVoiceIatLanguage(); },
            onAssistant("iat", "iat", "getIatLanguage()"), text, text);
    }
    for (const QString &text : {QStringLiteral("cn|en"), QStringLiteral("en|cn"),
                                QStringLiteral("CN|EN"), QString(QLatin1String(""))}) {
        add(
            QStringLiteral("direction \"%1\"").arg(text),
            [] { return Proxy::getAssistantTransLang(); },
            onAssistant("trans", "trans", "getTransLanguage()"), text, text);
    }

    const QList<QPair<QString, int>> speakers = {
        {QStringLiteral("x_tovali"), 0},  {QStringLiteral("tovali"), 0},
        {QStringLiteral("x_morven"), 1},  {QStringLiteral("x2_pella"), 2},
        {QStringLiteral("morven"), 2},    {QStringLiteral("X_TOVALI"), 2},
        {QStringLiteral("x_tovali "), 2}, {QStringLiteral("unknown"), 2},
        {QString(QLatin1String("")), 2},
    };
    for (const auto &speaker : speakers) {
        add(
            QStringLiteral("reader \"%1\"").arg(speaker.first),
            [] { return Proxy::getVoiceTTSSpeaker(); }, onAssistant("tts", "tts", "getSpeaker()"),
            speaker.first, speaker.second);
    }

    for (const bool on : {true, false}) {
        const auto wakeUp = [on] {
            Proxy::setVoiceWakeupState(on);
            return QVariant();
        };
        add(on ? QStringLiteral("wake-up on") : QStringLiteral("wake-up off"), wakeUp,
            onAssistant("voicewakeuper", "voicewakeuper", on ? "enableIvw()" : "disableIvw()"), 7,
            QVariant());
    }
}

void StateContractTest::readsAskForAReplyAndReturnIt()
{
    QFETCH(CallFunction, function);
    QFETCH(QString, summary);
    QFETCH(QJsonArray, arguments);
    QFETCH(QString, member);
    QFETCH(QVariant, reply);
    QFETCH(QVariant, result);
    m_assistant.script(member, QStringLiteral("reply"), reply);
    QCOMPARE(recorded(function, summary, arguments), result);
    QCOMPARE(m_session.daemonCalls(), QStringList());
}

void StateContractTest::theNetworkIsAskedForOnTheSystemBus()
{
    QVERIFY(Proxy::checkNetworkState());
    QVERIFY(m_session.sync());
    QVERIFY(m_system.sync());
    QCOMPARE(m_system.callSummaries(),
             QStringList{QStringLiteral("org.freedesktop.NetworkManager "
                                        "/org/freedesktop/NetworkManager "
                                        "org.freedesktop.NetworkManager.state()")});
    QCOMPARE(m_system.daemonCalls(), QStringList());
    QCOMPARE(m_session.callSummaries(), QStringList());
}

void StateContractTest::dockCallsAskForAReply_data()
{
    QTest::addColumn<CallFunction>("function");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<QJsonArray>("arguments");
    QTest::addColumn<QVariant>("result");
    const auto dock = [] {
        return std::make_shared<AssistantDockServiceInterface>(dockName, dockPath,
                                                               QDBusConnection::sessionBus());
    };
    const auto waited = [](QDBusPendingReply<bool> reply) {
        reply.waitForFinished();
        return reply.isError() ? QVariant() : QVariant(reply.value());
    };
    QTest::newRow("read") << CallFunction([=] { return waited(dock()->getDockHideStatus()); })
                          << onDock("getDockHideStatus()") << QJsonArray() << QVariant(false);
    QTest::newRow("hide") << CallFunction([=] { return waited(dock()->setDockHideStatus(true)); })
                          << onDock("setDockHideStatus(b)") << QJsonArray{true} << QVariant(true);
    QTest::newRow("show") << CallFunction([=] { return waited(dock()->setDockHideStatus(false)); })
                          << onDock("setDockHideStatus(b)") << QJsonArray{false} << QVariant(true);
}

void StateContractTest::dockCallsAskForAReply()
{
    QFETCH(CallFunction, function);
    QFETCH(QString, summary);
    QFETCH(QJsonArray, arguments);
    QFETCH(QVariant, result);
    m_dock.setValue(QStringLiteral("hidden"), false);
    QCOMPARE(recorded(function, summary, arguments), result);
}

void StateContractTest::theDockProxyRelaysItsSignal()
{
    QCOMPARE(AssistantDockServiceInterface::staticInterfaceName(), "com.corvane.aiassistant.dock");
    m_dock.setValue(QStringLiteral("hidden"), false);
    ServiceProxy<AssistantDockServiceInterface> dock(dockName, dockPath,
                                                     QDBusConnection::sessionBus());
    QSignalSpy changes(&dock, &AssistantDockServiceInterface::dockHideChange);
    m_dock.setValue(QStringLiteral("hidden"), true);
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0), QVariant(true));
    m_dock.setValue(QStringLiteral("hidden"), false);
    QTRY_COMPARE(changes.count(), 2);
    QCOMPARE(changes.at(1).at(0), QVariant(false));
}

TEST_CLASS(QCoreApplication, StateContractTest)
#include "statecontract.moc"
