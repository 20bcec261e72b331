#include "proxy/assistantstateproxy.h"
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
#include "statereads.moc"
