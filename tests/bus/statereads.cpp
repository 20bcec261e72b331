#include "proxy/assistantstateproxy.h"
#include "tests/support/busrecorder.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <map>
#include <memory>

// How the module reads and writes its services' state: what it waits for, returns and logs.

using testsupport::LogCapture;
using testsupport::ServiceProcess;

using Proxy = AssistantStateProxy;

class StateReadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aVoiceThatIsNotKnownIsLogged();
    void onlyGlobalConnectivityCountsAsOnline_data();
    void onlyGlobalConnectivityCountsAsOnline();
    void theNetworkCheckProcessesNoEvents();
    void readsProcessEventsWhileTheyWait();
    void everyWaitEndsHoweverQuickTheReply();
    void aWaitEndsWithTheApplication();
    void writesToAnAbsentServiceReturnZeroAndLogNoError();
    void dictationWritesLogTheTimeTheyTook();

private:
    ServiceProcess &service(const QString &name);

    std::map<QString, std::unique_ptr<ServiceProcess>> m_services;
};

void StateReadsTest::init()
{
    for (auto &entry : m_services) {
        if (!entry.second->isRunning())
            QVERIFY(entry.second->start());
        entry.second->reset();
        entry.second->joinBus();
    }
}

ServiceProcess &StateReadsTest::service(const QString &name)
{
    std::unique_ptr<ServiceProcess> &process = m_services[name];
    if (!process) {
        process = std::make_unique<ServiceProcess>(name);
        [&] {
            QVERIFY(process->start());
        }();
    }
    return *process;
}

void StateReadsTest::aVoiceThatIsNotKnownIsLogged()
{
    service(QStringLiteral("assistant")).leaveBus();
    const LogCapture log;
    QCOMPARE(Proxy::getVoiceTTSSpeaker(), 2);
    QCOMPARE(log.texts(), QStringList(QStringLiteral("getVoiceTTSSpeaker \"\"")));
    QCOMPARE(log.records().constFirst().category, QStringLiteral("default"));
}

void StateReadsTest::onlyGlobalConnectivityCountsAsOnline_data()
{
    QTest::addColumn<uint>("state");
    QTest::addColumn<bool>("online");
    QTest::newRow("0, unknown") << 0U << false;
    QTest::newRow("10, asleep") << 10U << false;
    QTest::newRow("20, disconnected") << 20U << false;
    QTest::newRow("40, connecting") << 40U << false;
    QTest::newRow("50, local only") << 50U << false;
    QTest::newRow("60, site only") << 60U << false;
    QTest::newRow("70, global") << 70U << true;
    QTest::newRow("71, beyond") << 71U << false;
    QTest::newRow("largest number") << 0xFFFFFFFFU << false;
}

void StateReadsTest::onlyGlobalConnectivityCountsAsOnline()
{
    QFETCH(uint, state);
    QFETCH(bool, online);
    service(QStringLiteral("networkmanager"))
        .script(QStringLiteral("state"), QStringLiteral("reply"), state);
    const LogCapture log;
    QCOMPARE(AssistantStateProxy::checkNetworkState(), online);
    QCOMPARE(log.texts(), QStringList());
}

void StateReadsTest::theNetworkCheckProcessesNoEvents()
{
    service(QStringLiteral("networkmanager"))
        .script(QStringLiteral("state"), QStringLiteral("delay"), 50);
    bool processed = false;
    QTimer::singleShot(0, this, [&processed] { processed = true; });
    AssistantStateProxy::checkNetworkState();
    QVERIFY(!processed);
    QTRY_VERIFY(processed);
}

void StateReadsTest::readsProcessEventsWhileTheyWait()
{
    service(QStringLiteral("assistant"))
        .script(QStringLiteral("getIatEnable"), QStringLiteral("delay"), 50);
    service(QStringLiteral("keybinding"))
        .script(QStringLiteral("GetShortcut"), QStringLiteral("delay"), 50);
    int processed = 0;
    QTimer::singleShot(0, this, [&processed] { ++processed; });
    AssistantStateProxy::queryVoiceIatState();
    QCOMPARE(processed, 1);
    QTimer::singleShot(0, this, [&processed] { ++processed; });
    AssistantStateProxy::getShortCut(QStringLiteral("translation"), 0);
    QCOMPARE(processed, 2);
}

void StateReadsTest::everyWaitEndsHoweverQuickTheReply()
{
    // The bus itself refuses calls to a name that nobody owns, so fast that now and then the reply
    // is there before the wait for it has begun.
    service(QStringLiteral("assistant")).leaveBus();
    constexpr int reads = 20000;
    int read = 0;
    int readBefore = -1;
    QTimer watchdog;
    connect(&watchdog, &QTimer::timeout, this, [&] {
        if (read == readBefore)
            qFatal("read %d never ends", read);
        readBefore = read;
    });
    watchdog.start(10000);
    for (; read < reads; ++read)
        AssistantStateProxy::queryVoiceIatState();
    QCOMPARE(read, reads);
}

void StateReadsTest::aWaitEndsWithTheApplication()
{
    ServiceProcess &assistant = service(QStringLiteral("assistant"));
    assistant.script(QStringLiteral("getTransLanguage"), QStringLiteral("hold"));
    QTimer::singleShot(0, this, &QCoreApplication::quit);
    QCOMPARE(AssistantStateProxy::getAssistantTransLang(), QStringLiteral("en|cn"));
    QVERIFY(assistant.waitForCalls(QStringLiteral("getTransLanguage")));
    QCOMPARE(assistant.release(QStringLiteral("getTransLanguage")), 1);
}

void StateReadsTest::writesToAnAbsentServiceReturnZeroAndLogNoError()
{
    service(QStringLiteral("assistant")).leaveBus();
    const LogCapture log;
    QCOMPARE(Proxy::setVoiceIatState(true), 0);
    QCOMPARE(Proxy::setVoiceIatLanguage(QStringLiteral("en_us")), 0);
    QCOMPARE(Proxy::setVoiceTTSState(true), 0);
    QCOMPARE(Proxy::setVoiceTTSWindowState(true), 0);
    QCOMPARE(Proxy::setVoiceTTSSpeaker(1), 0);
    QCOMPARE(Proxy::setAssistantTransState(true), 0);
    QCOMPARE(Proxy::setAssistantTransLang(QStringLiteral("cn|en")), 0);
    QCOMPARE(Proxy::setAssistantSpeaker(1), 0);
    QCOMPARE(Proxy::setOneShotMode(1), 0);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList());
    QCOMPARE(log.texts(QtWarningMsg), QStringList());
}

void StateReadsTest::dictationWritesLogTheTimeTheyTook()
{
    service(QStringLiteral("assistant"));
    const LogCapture log;
    AssistantStateProxy::setVoiceIatState(true);
    QCOMPARE(log.records().size(), 1);
    const testsupport::LogRecord record = log.records().constFirst();
    QCOMPARE(record.type, QtDebugMsg);
    const QRegularExpression form(QStringLiteral("^setVoiceIatState (\\d+(?:\\.\\d+)?) s$"));
    const QRegularExpressionMatch match = form.match(record.text);
    QVERIFY2(match.hasMatch(), qPrintable(record.text));
    QVERIFY(match.captured(1).toDouble() < 1.0); // seconds
}

TEST_CLASS(QCoreApplication, StateReadsTest)

// The keybinding daemon's answers, good and bad, and what the pages show of them.

using testsupport::BusRecorder;

class ShortcutLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void asksForIdentifierAndType_data();
    void asksForIdentifierAndType();
    void rewritesTheFirstAccelerator_data();
    void rewritesTheFirstAccelerator();
    void badRepliesGiveAnEmptyText_data();
    void badRepliesGiveAnEmptyText();
    void aHugeReplyIsReadLikeAnyOther();
    void followsAChangeAtTheDaemon();
    void anUnknownIdentifierGivesAnEmptyText();

private:
    ServiceProcess m_daemon{QStringLiteral("keybinding")};
};

namespace {

QString lookup()
{
    return AssistantStateProxy::getShortCut(QStringLiteral("speech-to-text"), 0);
}

const QString noAccels = QStringLiteral("Key Accels not found in JSON.");

} // namespace

void ShortcutLookupTest::initTestCase()
{
    QVERIFY(m_daemon.start());
}

void ShortcutLookupTest::init()
{
    m_daemon.reset();
}

void ShortcutLookupTest::asksForIdentifierAndType_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("type");
    QTest::newRow("speech to text") << "speech-to-text" << 0;
    QTest::newRow("text to speech") << "text-to-speech" << 0;
    QTest::newRow("translation") << "translation" << 0;
    QTest::newRow("another type") << "translation" << 3;
    QTest::newRow("neither") << "" << -1;
}

void ShortcutLookupTest::asksForIdentifierAndType()
{
    QFETCH(QString, id);
    QFETCH(int, type);
    BusRecorder recorder;
    QVERIFY(recorder.start());
    AssistantStateProxy::getShortCut(id, type);
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(),
             QStringList{QStringLiteral("com.tavren.daemon.Keybinding "
                                        "/com/tavren/daemon/Keybinding "
                                        "com.tavren.daemon.Keybinding.GetShortcut(si)")});
    QCOMPARE(recorder.calls().constFirst().arguments, (QJsonArray{id, type}));
}

void ShortcutLookupTest::rewritesTheFirstAccelerator_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("text");
    const auto one = [](const char *accelerator) {
        return QStringLiteral("{\"Accels\":[\"%1\"]}").arg(QLatin1String(accelerator));
    };
    QTest::newRow("three keys") << one("<Control><Alt>T") << "Ctrl+Alt+T";
    QTest::newRow("super") << one("<Super>space") << "Super+space";
    QTest::newRow("shift keeps its name") << one("<Shift><Alt>F1") << "Shift+Alt+F1";
    QTest::newRow("the first of two") << "{\"Accels\":[\"<Control><Shift>F9\",\"<Super>F9\"]}"
                                      << "Ctrl+Shift+F9";
    QTest::newRow("the word inside a key's name") << one("<Alt>Control_L") << "Alt+Ctrl_L";
    QTest::newRow("every occurrence") << one("<Control>Control_R") << "Ctrl+Ctrl_R";
    QTest::newRow("other letter case stays") << one("<control>T") << "control+T";
    QTest::newRow("Primary is not translated") << one("<Primary>T") << "Primary+T";
    QTest::newRow("no modifier") << one("F12") << "F12";
    QTest::newRow("brackets only") << one("<>") << "+";
    QTest::newRow("a word that the substitutions make") << one("Cont<rol>T") << "Ctrl+T";
    QTest::newRow("other keys of the object are ignored")
        << "{\"Id\":\"x\",\"Type\":[1,{}],\"Accels\":[\"<Alt>T\"],\"accels\":[\"no\"]}"
        << "Alt+T";
    QTest::newRow("not ASCII") << "{\"Accels\":[\"<Control>阿\"]}" << QStringLiteral("Ctrl+阿");
    QTest::newRow("escaped") << "{\"Accels\":[\"\\u003cControl\\u003eA\"]}"
                             << "Ctrl+A";
    QTest::newRow("markup is only text") << one("<b>T</b>") << "b+T/b+";
    QTest::newRow("white space around it") << " \n {\"Accels\" : [ \"<Alt>T\" ] } \n"
                                           << "Alt+T";
}

void ShortcutLookupTest::rewritesTheFirstAccelerator()
{
    QFETCH(QString, reply);
    QFETCH(QString, text);
    m_daemon.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), reply);
    const LogCapture log;
    QCOMPARE(lookup(), text);
    QCOMPARE(log.texts(), QStringList());
}

void ShortcutLookupTest::badRepliesGiveAnEmptyText_data()
{
    QTest::addColumn<QVariant>("reply");
    QTest::addColumn<bool>("logged");
    const auto add = [](const char *name, const QVariant &reply, bool logged) {
        QTest::newRow(name) << reply << logged;
    };
    // The object and its key are there: nothing is said.
    add("no accelerators", "{\"Accels\":[]}", false);
    add("accelerators are null", "{\"Accels\":null}", false);
    add("accelerators are a text", "{\"Accels\":\"<Control>T\"}", false);
    add("accelerators are a number", "{\"Accels\":5}", false);
    add("accelerators are an object", "{\"Accels\":{\"0\":\"<Control>T\"}}", false);
    add("accelerator is a number", "{\"Accels\":[5]}", false);
    add("accelerator is null", "{\"Accels\":[null,\"<Control>T\"]}", false);
    add("accelerator is a list", "{\"Accels\":[[\"<Control>T\"]]}", false);
    add("accelerator is empty", "{\"Accels\":[\"\"]}", false);

    add("empty text", "", true);
    add("not JSON", "Ctrl+Alt+T", true);
    add("cut off", "{\"Accels\":[\"<Control>T\"", true);
    add("text behind the object", "{\"Accels\":[\"<Control>T\"]} x", true);
    add("an array", "[{\"Accels\":[\"<Control>T\"]}]", true);
    add("a bare text", "\"Accels\"", true);
    add("empty object", "{}", true);
    add("key in another letter case", "{\"accels\":[\"<Control>T\"]}", true);
    add("key one level down", "{\"x\":{\"Accels\":[\"<Control>T\"]}}", true);
    add("deeper than a parser goes", QString(100000, QLatin1Char('[')), true);
    add("a number", 5, true);
    add("a bool", true, true);
    add("a list of texts", QStringList{QStringLiteral("{\"Accels\":[\"<Control>T\"]}")}, true);
}

void ShortcutLookupTest::badRepliesGiveAnEmptyText()
{
    QFETCH(QVariant, reply);
    QFETCH(bool, logged);
    m_daemon.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), reply);
    const LogCapture log;
    QCOMPARE(lookup(), QString(QLatin1String("")));
    QCOMPARE(log.texts(), logged ? QStringList{noAccels} : QStringList());
    QCOMPARE(log.texts(QtCriticalMsg), log.texts());
}

void ShortcutLookupTest::aHugeReplyIsReadLikeAnyOther()
{
    const QString padding(10 * 1024 * 1024, QLatin1Char('x'));
    m_daemon.script(
        QStringLiteral("GetShortcut"), QStringLiteral("reply"),
        QStringLiteral("{\"Padding\":\"%1\",\"Accels\":[\"<Control>T\"]}").arg(padding));
    QCOMPARE(lookup(), QStringLiteral("Ctrl+T"));
    m_daemon.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), padding);
    const LogCapture log;
    QCOMPARE(lookup(), QString(QLatin1String("")));
    QCOMPARE(log.texts(), QStringList{noAccels});
}

void ShortcutLookupTest::followsAChangeAtTheDaemon()
{
    m_daemon.setValue(QStringLiteral("speech-to-text"), QStringList{QStringLiteral("<Super>D")});
    QCOMPARE(lookup(), QStringLiteral("Super+D"));
    m_daemon.setValue(QStringLiteral("speech-to-text"),
                      QStringList{QStringLiteral("<Control><Alt>D")});
    QCOMPARE(lookup(), QStringLiteral("Ctrl+Alt+D"));
    m_daemon.setValue(QStringLiteral("speech-to-text"), QStringList());
    QCOMPARE(lookup(), QString(QLatin1String("")));
}

void ShortcutLookupTest::anUnknownIdentifierGivesAnEmptyText()
{
    const LogCapture log;
    QCOMPARE(AssistantStateProxy::getShortCut(QStringLiteral("no-such-shortcut"), 0),
             QString(QLatin1String("")));
    QCOMPARE(log.texts(), QStringList{noAccels});
}

TEST_CLASS(QCoreApplication, ShortcutLookupTest)

#include "statereads.moc"
