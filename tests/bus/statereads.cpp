#include "proxy/assistantstateproxy.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <functional>
#include <memory>

// What every read returns when its service does not answer as it should. Each has its fallback;
// only three reads log.

using testsupport::LogCapture;
using testsupport::ServiceProcess;

using Proxy = AssistantStateProxy;
using Read = std::function<QVariant()>;
Q_DECLARE_METATYPE(QtMsgType)

namespace {

enum class Condition { Answered, Absent, Error, WrongType, NoValue, Gone };

struct ConditionName
{
    Condition condition;
    const char *name;
};

const ConditionName conditions[] = {
    {Condition::Answered, "answered"},
    {Condition::Absent, "service absent"},
    {Condition::Error, "error reply"},
    {Condition::WrongType, "reply of another type"},
    {Condition::NoValue, "reply without a value"},
    {Condition::Gone, "gone while waiting"},
};

/** One read: who answers it, what it yields when it works and when it does not. */
struct ReadCase
{
    const char *name;
    Read read;
    const char *service;
    const char *member;
    QVariant reply;
    QVariant result;
    QVariant wrongReply;
    QVariant fallback;
    QtMsgType logType;
    QString logAnswered; // null: nothing is logged
    QString logFallback;
};

} // namespace

Q_DECLARE_METATYPE(Condition)
Q_DECLARE_METATYPE(ReadCase)

class StateReadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsFallBack_data();
    void readsFallBack();
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
    void prepare(ServiceProcess &process, const QString &member, Condition condition,
                 const QVariant &reply, const QVariant &wrongReply);

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

void StateReadsTest::prepare(ServiceProcess &process, const QString &member, Condition condition,
                             const QVariant &reply, const QVariant &wrongReply)
{
    switch (condition) {
    case Condition::Answered:
        process.script(member, QStringLiteral("reply"), reply);
        break;
    case Condition::Absent:
        process.leaveBus();
        break;
    case Condition::Error:
        // An error whose text would be a fine answer.
        process.script(member, QStringLiteral("error"), QStringLiteral("true"));
        break;
    case Condition::WrongType:
        process.script(member, QStringLiteral("reply"), wrongReply);
        break;
    case Condition::NoValue:
        process.script(member, QStringLiteral("reply-list"), QVariantList());
        break;
    case Condition::Gone:
        process.script(member, QStringLiteral("vanish"));
        break;
    }
}

void StateReadsTest::readsFallBack_data()
{
    QTest::addColumn<ReadCase>("readCase");
    QTest::addColumn<Condition>("condition");

    const auto onOff = [](const char *name, bool (*read)(), const char *member) {
        return ReadCase{name, [read] { return read(); }, "assistant", member,     true,
                        true, QStringLiteral("true"),    false,       QtDebugMsg, {},
                        {}};
    };
    const QList<ReadCase> cases = {
        onOff("dictation", &Proxy::queryVoiceIatState, "getIatEnable"),
        onOff("reading", &Proxy::queryVoiceTTSState, "getTTSEnable"),
        onOff("speech widget", &Proxy::queryVoiceTTSWindowState, "getEnableWindow"),
        onOff("translation", &Proxy::queryAssistantTransState, "getTransEnable"),
        {"dictation language",
         [] { return Proxy::getVoiceIatLanguage(); },
         "assistant",
         "getIatLanguage",
         QStringLiteral("en_us"),
         QStringLiteral("en_us"),
         true,
         QStringLiteral("zh_cn"),
         QtDebugMsg,
         {},
         {}},
        {"direction",
         [] { return Proxy::getAssistantTransLang(); },
         "assistant",
         "getTransLanguage",
         QStringLiteral("cn|en"),
         QStringLiteral("cn|en"),
         1,
         QStringLiteral("en|cn"),
         QtDebugMsg,
         {},
         {}},
        {"reader", [] { return Proxy::getVoiceTTSSpeaker(); }, "assistant", "getSpeaker",
         QStringLiteral("x_morven"), 1, 1, 2, QtDebugMsg,
         QStringLiteral("getVoiceTTSSpeaker \"x_morven\""),
         QStringLiteral("getVoiceTTSSpeaker \"\"")},
        {"shortcut",
         [] { return Proxy::getShortCut(QStringLiteral("translation"), 0); },
         "keybinding",
         "GetShortcut",
         QStringLiteral("{\"Accels\":[\"<Control><Alt>T\"]}"),
         QStringLiteral("Ctrl+Alt+T"),
         QStringList{QStringLiteral("<Control><Alt>T")},
         QString(QLatin1String("")),
         QtCriticalMsg,
         {},
         QStringLiteral("Key Accels not found in JSON.")},
        {"network",
         [] { return Proxy::checkNetworkState(); },
         "networkmanager",
         "state",
         70U,
         true,
         70,
         false,
         QtCriticalMsg,
         {},
         QStringLiteral("dbus call network manager state failed")},
    };
    for (const ReadCase &readCase : cases)
        for (const ConditionName &condition : conditions)
            QTest::addRow("%s, %s", readCase.name, condition.name)
                << readCase << condition.condition;
}

void StateReadsTest::readsFallBack()
{
    QFETCH(ReadCase, readCase);
    QFETCH(Condition, condition);
    ServiceProcess &process = service(QString::fromLatin1(readCase.service));
    prepare(process, QString::fromLatin1(readCase.member), condition, readCase.reply,
            readCase.wrongReply);

    const bool answered = condition == Condition::Answered;
    {
        const LogCapture log;
        QCOMPARE(readCase.read(), answered ? readCase.result : readCase.fallback);
        const QString expected = answered ? readCase.logAnswered : readCase.logFallback;
        QCOMPARE(log.texts(), expected.isNull() ? QStringList() : QStringList{expected});
        if (!expected.isNull()) {
            QCOMPARE(log.records().constFirst().type, readCase.logType);
            QCOMPARE(log.records().constFirst().category, QStringLiteral("default"));
        }
    }

    // The next read, with the service back, works.
    if (condition == Condition::Gone) {
        QVERIFY(process.waitForEnd());
        QVERIFY(process.start());
    }
    process.reset();
    process.joinBus();
    process.script(QString::fromLatin1(readCase.member), QStringLiteral("reply"), readCase.reply);
    QCOMPARE(readCase.read(), readCase.result);
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
