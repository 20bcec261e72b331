// Whole voice tests: scripted microphone, AI service in another process. What is sent, in which
// order; what comes back; how a test ends. Each function in a process of its own.

#include "comcorvaneaiserviceaqcinterface.h"
#include "tests/bus/voiceservice.h"
#include "tests/fakeaudio/scriptedaudio.h"
#include "tests/support/busrecorder.h"
#include "tests/support/impatientbus.h"
#include "tests/support/isolatedtests.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/timertracker.h"
#include "voice/aqcwrapper.h"
#include "voice/audiorecorder.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using testsupport::everythingArrived;
using testsupport::everythingIsQueued;
using testsupport::ImpatientBus;
using testsupport::ScriptedAudio;
using testsupport::ServiceCall;
using testsupport::ServiceProcess;
using testsupport::TimerTracker;
using testsupport::VoiceService;

namespace {

constexpr int testMs = 10000;

const QString aqcPath = QStringLiteral("/session/aqc/1");
const QString iatPath = QStringLiteral("/session/iat/1");

const QString createSession = QStringLiteral("createSession");
const QString freeSession = QStringLiteral("freeSession");
const QString startAqc = QStringLiteral("startAqc");
const QString stopAqc = QStringLiteral("stopAqc");
const QString startIat = QStringLiteral("startIat");
const QString stopIat = QStringLiteral("stopIat");
const QString putAudio = QStringLiteral("putAudio");

ScriptedAudio &audio()
{
    return ScriptedAudio::instance();
}

// "MEMBER PATH", or "MEMBER ABILITY" for the calls of the session manager.
QStringList calls(ServiceProcess &service)
{
    QStringList list;
    const QList<ServiceCall> all = service.calls();
    for (const ServiceCall &call : all)
        list << call.member + QLatin1Char(' ') +
                    (call.path == QLatin1String("/") ? call.arguments.at(1).toString() : call.path);
    return list;
}

// A voice test with what it reports.
class Run : public QObject
{
public:
    Run()
        : wrapper(new AqcWrapper)
    {
        connect(wrapper.get(), &AqcWrapper::signalAqcResult, this,
                [this](const QString &result) { verdicts << result; });
        connect(wrapper.get(), &AqcWrapper::signalUpdateAudioLevel, this,
                [this](double level) { levels << level; });
        connect(wrapper.get(), &AqcWrapper::signaleIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    texts << QStringLiteral("%1 %2 %3").arg(text).arg(int(type)).arg(finish);
                });
    }

    std::unique_ptr<AqcWrapper> wrapper;
    QStringList verdicts;
    QVector<double> levels;
    QStringList texts;
};

// The microphone is closed when the event loop runs again, not by the stop itself.
bool microphoneIsClosed()
{
    return QTest::qWaitFor([] { return audio().captures().isEmpty(); });
}

// How many match rules the bus keeps for the code under test; -1 when it does not tell.
int matchRules()
{
    const QDBusMessage ask = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus.Debug.Stats"), QStringLiteral("GetConnectionStats"));
    QDBusMessage call = ask;
    call << QDBusConnection::sessionBus().baseService();
    const QDBusReply<QVariantMap> stats = QDBusConnection::sessionBus().call(call);
    return stats.isValid() ? stats.value().value(QStringLiteral("MatchRules"), -1).toInt() : -1;
}

QByteArray block(int index)
{
    QByteArray bytes(1600, '\0');
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>((index * 7919 + i * 31) & 0xff);
    return bytes;
}

} // namespace

class VoiceTestRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingBeforeTheStart();
    void startOrder();
    void serviceRefuses();
    void recognitionIsRefused();
    void serviceIsAbsent();
    void emptyPathHearsNobody();

    void blocksGoToBothSessions();
    void everySampleArrives();
    void levelsAndTexts();
    void verdicts();
    void verdictBeforeTheStartIsAnswered();

    void stopOrder();
    void stopWithoutStart();
    void stopTwice();
    void afterStop();
    void startTwice();
    void secondRun();
    void hundredRuns();

    void timer();
    void endsByItself();
    void leftBehind();

    void noMicrophone();
    void microphoneVanishes();
    void serviceHangs();
    void recognitionHangs();
    void serviceDiesInTheMiddle();
    void audioWithoutASession();

    void deletedWhileRunning();
    void deletedWhileIdle();
    void otherWrapperTookTheRecorder();
    void declaredMembers();
};

void VoiceTestRunTest::nothingBeforeTheStart()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run run;
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList());
    QCOMPARE(audio().built(), 0);
    QVERIFY(tracker.timers(testMs).isEmpty());
}

void VoiceTestRunTest::startOrder()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QStringList order;
    connect(AudioRecorder::getInstance(), &AudioRecorder::recordStarted, this, [&] {
        order << QStringLiteral("recording");
        order << calls(service).mid(2); // nothing of the recognition yet
    });
    testsupport::BusRecorder bus;
    QVERIFY(bus.start());
    testsupport::LogCapture log;
    QCOMPARE(run.wrapper->start(), 0);
    // Of the daemon: the owner of the AI service, once for each of the three proxies and once more
    // for each of the two with signals, a match for its changes, and one for each signal.
    QVERIFY(bus.sync());
    const QStringList asked = bus.daemonCalls();
    QCOMPARE(asked.count(QStringLiteral("GetNameOwner")), 5);
    QCOMPARE(asked.count(QStringLiteral("AddMatch")), 5);
    QCOMPARE(asked.size(), 10);
    QCOMPARE(order, QStringList(QStringLiteral("recording")));
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QCOMPARE(
        calls(service),
        QStringList({QStringLiteral("createSession aqc"), QStringLiteral("startAqc ") + aqcPath,
                     QStringLiteral("createSession iat"), QStringLiteral("startIat ") + iatPath}));
    const ServiceCall started = service.calls(startAqc).first();
    QCOMPARE(started.interface, QStringLiteral("com.corvane.aiservice.aqc"));
    QCOMPARE(started.signature, QString());
    QCOMPARE(log.take(),
             QStringList(QStringLiteral("debug|internal QAudioInput change state: ActiveState")));
}

void VoiceTestRunTest::serviceRefuses()
{
    VoiceService service;
    QVERIFY(service.start());
    service.setValue(QStringLiteral("code.aqc"), 5);
    TimerTracker tracker;
    Run run;
    testsupport::LogCapture log;
    QCOMPARE(run.wrapper->start(), 5);
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|aiservice createsession error!")));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QCOMPARE(audio().built(), 0);
    QVERIFY(tracker.timers(testMs).isEmpty());
    QCOMPARE(calls(service), QStringList(QStringLiteral("createSession aqc")));
    QVERIFY(run.wrapper->findChildren<ComCorvaneAiserviceAqcInterface *>().isEmpty());

    // The next run works, and a refusal after it forgets its session.
    service.setValue(QStringLiteral("code.aqc"), 0);
    QCOMPARE(run.wrapper->start(), 0);
    run.wrapper->stop();
    service.setValue(QStringLiteral("code.aqc"), -3);
    QCOMPARE(run.wrapper->start(), -3);
    QTRY_VERIFY(run.wrapper->findChildren<ComCorvaneAiserviceAqcInterface *>().isEmpty());
    service.reset();
    run.wrapper->stop();
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList());
}

void VoiceTestRunTest::recognitionIsRefused()
{
    VoiceService service;
    QVERIFY(service.start());
    service.setValue(QStringLiteral("code.iat"), 5);
    Run run;
    testsupport::LogCapture log;
    QCOMPARE(run.wrapper->start(), 0);
    QVERIFY(log.take().contains(QStringLiteral("debug|Iat createSession failed")));
    QCOMPARE(audio().hear(block(1)), 1);
    QVERIFY(service.waitForCalls(putAudio));
    QCOMPARE(service.heard(aqcPath), block(1));
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestRunTest::serviceIsAbsent()
{
    audio().setDevices({{"mic", true}});
    TimerTracker tracker;
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QCOMPARE(audio().hear(block(1)), 1);
    QCOMPARE(run.levels.size(), 1);
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QVERIFY(tracker.timers(testMs).first()->isActive());
    QVERIFY(TimerTracker::fire(tracker.timers(testMs).first()));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    VoiceService service;
    QVERIFY(service.start());
    QCOMPARE(run.wrapper->start(), 0);
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestRunTest::emptyPathHearsNobody()
{
    VoiceService service;
    QVERIFY(service.start());
    service.script(createSession, QStringLiteral("error"), QStringLiteral("no room"));
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    service.notify(QStringLiteral("/somebody/else"), QStringLiteral("1000"));
    service.notify(aqcPath, QStringLiteral("1000"));
    QVERIFY(everythingArrived());
    QCOMPARE(run.verdicts, QStringList());
    run.wrapper->stop();

    service.script(createSession, QStringLiteral("answer"));
    QCOMPARE(run.wrapper->start(), 0);
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestRunTest::blocksGoToBothSessions()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    service.reset();
    QCOMPARE(audio().hear(QByteArray("\x00\x01\xff\x80", 4)), 1);
    QVERIFY(service.waitForCalls(putAudio, 2));
    const QList<ServiceCall> sent = service.calls();
    QCOMPARE(calls(service), QStringList({QStringLiteral("putAudio ") + aqcPath,
                                          QStringLiteral("putAudio ") + iatPath}));
    for (const ServiceCall &call : sent) {
        QCOMPARE(call.signature, QStringLiteral("ayb"));
        QCOMPARE(call.arguments.at(1), QJsonValue(false));
    }
    QCOMPARE(sent.at(0).interface, QStringLiteral("com.corvane.aiservice.aqc"));
    QCOMPARE(service.heard(aqcPath), QByteArray("\x00\x01\xff\x80", 4));
    QCOMPARE(service.heard(iatPath), QByteArray("\x00\x01\xff\x80", 4));
}

// Ten seconds of sound: nothing lost, nothing doubled.
void VoiceTestRunTest::everySampleArrives()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    QByteArray all;
    for (int i = 0; i < 200; ++i) {
        // Real backends deliver odd-sized pieces too.
        const QByteArray piece = i % 3 ? block(i) : block(i).left(2 + i);
        all += piece;
        QCOMPARE(audio().hear(piece), 1);
        QCoreApplication::processEvents();
    }
    run.wrapper->stop();
    QVERIFY(service.waitForCalls(freeSession));
    QVERIFY(service.heard(aqcPath) == all);
    QVERIFY(service.heard(iatPath) == all);
    QCOMPARE(service.calls(putAudio).size(), 400);
    for (const ServiceCall &call : service.calls(putAudio))
        QCOMPARE(call.arguments.at(1), QJsonValue(false));
}

void VoiceTestRunTest::levelsAndTexts()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(QByteArray("\x00\x80", 2));
    audio().hear(QByteArray(4, '\0'));
    QCOMPARE(run.levels, QVector<double>({1.0, 0.0}));
    service.recognise(iatPath, QStringLiteral("<b>今天</b>"));
    QTRY_COMPARE(run.texts, QStringList(QStringLiteral("<b>今天</b> 1 1")));
}

void VoiceTestRunTest::verdicts()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    // Unchanged, whatever they say, and however often.
    service.notify(aqcPath, QStringLiteral("{\"code\":\"1008\"}"));
    service.notify(aqcPath, QString());
    service.notify(aqcPath, QString());
    service.notify(QStringLiteral("/session/aqc/99"), QStringLiteral("of another session"));
    run.wrapper->stop();
    // The end of the test is not the end of the verdict.
    service.notify(aqcPath, QStringLiteral("9999 <b>"));
    QTRY_COMPARE(run.verdicts.size(), 4);
    QCOMPARE(run.verdicts, QStringList({QStringLiteral("{\"code\":\"1008\"}"), QString(), QString(),
                                        QStringLiteral("9999 <b>")}));
}

void VoiceTestRunTest::verdictBeforeTheStartIsAnswered()
{
    VoiceService service;
    QVERIFY(service.start());
    service.script(startAqc, QStringLiteral("hold"));
    Run run;
    QCOMPARE(run.wrapper->start(), 0); // it does not wait for that answer
    service.notify(aqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1003")));
    QCOMPARE(service.release(startAqc), 1);
    QVERIFY(everythingArrived());
    QCOMPARE(run.verdicts.size(), 1);
}

void VoiceTestRunTest::stopOrder()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    service.reset();
    service.script(stopAqc, QStringLiteral("hold")); // not waited for
    testsupport::LogCapture log;
    run.wrapper->stop();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("info|stop"), QStringLiteral("info|recorder stopped"),
                          QStringLiteral("info|IatWapper stop iat")}));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(service.waitForCalls(freeSession));
    // The quality check's session is never freed.
    QCOMPARE(calls(service), QStringList({QStringLiteral("stopAqc ") + aqcPath,
                                          QStringLiteral("stopIat ") + iatPath,
                                          QStringLiteral("freeSession iat")}));
    QVERIFY(microphoneIsClosed());
}

void VoiceTestRunTest::stopWithoutStart()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    testsupport::LogCapture log;
    run.wrapper->stop();
    QCOMPARE(log.take(), QStringList({QStringLiteral("info|stop"),
                                      QStringLiteral("debug|recorder already stopped")}));
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList());
}

void VoiceTestRunTest::stopTwice()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    run.wrapper->stop();
    QVERIFY(service.waitForCalls(freeSession));
    service.reset();
    // The timer runs on, and stops the test once more.
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QVERIFY(tracker.timers(testMs).first()->isActive());
    testsupport::LogCapture log;
    QVERIFY(TimerTracker::fire(tracker.timers(testMs).first()));
    QCOMPARE(log.take(), QStringList({QStringLiteral("info|stop"),
                                      QStringLiteral("debug|recorder already stopped")}));
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList(QStringLiteral("stopAqc ") + aqcPath));
}

void VoiceTestRunTest::afterStop()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    run.wrapper->stop();
    QVERIFY(service.waitForCalls(freeSession));
    service.reset();
    // Somebody else records: none of it is this test's.
    QVERIFY(microphoneIsClosed());
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(audio().hear(block(1)), 1);
    service.recognise(iatPath, QStringLiteral("late"));
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList());
    QVERIFY(run.levels.isEmpty());
    QVERIFY(run.texts.isEmpty());
}

void VoiceTestRunTest::startTwice()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    QPointer<ComCorvaneAiserviceAqcInterface> first =
        run.wrapper->findChild<ComCorvaneAiserviceAqcInterface *>();
    QVERIFY(first);
    testsupport::LogCapture log;
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("warning|recorder already started")));
    QTRY_VERIFY(!first);
    QCOMPARE(tracker.timers(testMs).size(), 1);

    // Only the new session's verdict counts, once.
    service.notify(aqcPath, QStringLiteral("old"));
    service.notify(QStringLiteral("/session/aqc/2"), QStringLiteral("new"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("new")));

    // Each block goes twice to the new sessions, and none to the old ones.
    service.reset();
    audio().hear(block(1));
    QVERIFY(service.waitForCalls(putAudio, 4));
    QCOMPARE(service.heard(QStringLiteral("/session/aqc/2")), block(1) + block(1));
    QCOMPARE(service.heard(QStringLiteral("/session/iat/2")), block(1) + block(1));
    QCOMPARE(service.heard(aqcPath), QByteArray());
    QCOMPARE(run.levels.size(), 2);
    run.wrapper->stop();
    QVERIFY(service.waitForCalls(freeSession));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
}

void VoiceTestRunTest::secondRun()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    service.recognise(iatPath, QStringLiteral("first"));
    QTRY_COMPARE(run.texts.size(), 1);
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());

    // A verdict that was on its way when the next run begins is not that run's.
    service.notify(aqcPath, QStringLiteral("queued verdict of the first"));
    QVERIFY(everythingIsQueued());
    QCOMPARE(run.wrapper->start(), 0);
    const QString secondAqc = QStringLiteral("/session/aqc/2");
    const QString secondIat = QStringLiteral("/session/iat/2");
    QCOMPARE(audio().hear(block(2)), 1);
    service.notify(aqcPath, QStringLiteral("late verdict of the first"));
    service.notify(secondAqc, QStringLiteral("1004"));
    service.recognise(secondIat, QStringLiteral("second"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1004")));
    QTRY_COMPARE(run.texts.size(), 2);
    QCOMPARE(run.texts.last(), QStringLiteral("second 1 1"));
    QCOMPARE(run.levels.size(), 1);
    QCOMPARE(service.heard(secondAqc), block(2));
    QCOMPARE(service.heard(secondIat), block(2));
}

void VoiceTestRunTest::hundredRuns()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run run;
    // Empty when all went well.
    const auto oneRun = [&](int number) -> QByteArray {
        const QByteArray serial = QByteArray::number(number + 1);
        if (run.wrapper->start() != 0)
            return "not started: " + serial;
        if (audio().hear(block(number)) != 1)
            return "not one recording: " + serial;
        run.wrapper->stop();
        if (!microphoneIsClosed())
            return "microphone left open: " + serial;
        if (!service.waitForCalls(freeSession, number + 1))
            return "session not freed: " + serial;
        if (service.heard(QLatin1String("/session/aqc/" + serial)) != block(number) ||
            service.heard(QLatin1String("/session/iat/" + serial)) != block(number))
            return "other audio than recorded: " + serial;
        return QByteArray();
    };
    QCOMPARE(oneRun(0), QByteArray());
    const int rules = matchRules();
    const int objects = tracker.objects();
    QVERIFY2(rules > 0, "the bus does not tell its match rules");
    AudioRecorder *recorder = AudioRecorder::getInstance();
    for (int number = 1; number < 100; ++number)
        QCOMPARE(oneRun(number), QByteArray());

    QCOMPARE(audio().built(), 100);
    QCOMPARE(AudioRecorder::getInstance(), recorder);
    QCOMPARE(run.levels.size(), 100);
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QCOMPARE(matchRules(), rules);
    // Room for what Qt's own threads have in hand.
    QVERIFY2(tracker.objects() <= objects + 5, qPrintable(QString::number(tracker.objects())));
    QCOMPARE(run.wrapper->findChildren<ComCorvaneAiserviceAqcInterface *>().size(), 1);
}

void VoiceTestRunTest::timer()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QTimer *timer = tracker.timers(testMs).first();
    QVERIFY(timer->isActive());
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->timerType(), Qt::PreciseTimer);
    QVERIFY(!timer->parent());
    // A second start begins the ten seconds anew.
    QTRY_VERIFY(timer->remainingTime() < testMs - 100);
    QCOMPARE(run.wrapper->start(), 0);
    QVERIFY(timer->remainingTime() > testMs - 50);
}

void VoiceTestRunTest::endsByItself()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QSignalSpy stopped(AudioRecorder::getInstance(), &AudioRecorder::recordStoped);
    QCOMPARE(run.wrapper->start(), 0);
    QElapsedTimer time;
    time.start();
    QVERIFY(stopped.wait(12000));
    QVERIFY2(qAbs(time.elapsed() - testMs) < 200, qPrintable(QString::number(time.elapsed())));
    QVERIFY(service.waitForCalls(freeSession));
    QCOMPARE(service.calls(stopAqc).size(), 1);
    QCOMPARE(service.calls(stopIat).size(), 1);
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

// A page leaves its test behind; what is left of it stops the next page's recording when its own
// ten seconds are over.
void VoiceTestRunTest::leftBehind()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run left;
    QCOMPARE(left.wrapper->start(), 0);
    left.wrapper->stop();
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QTimer *timer = tracker.timers(testMs).first();

    Run next;
    QCOMPARE(next.wrapper->start(), 0);
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QVERIFY(TimerTracker::fire(timer));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    next.wrapper->stop();
}

void VoiceTestRunTest::noMicrophone()
{
    VoiceService service;
    QVERIFY(service.start());
    audio().setDevices({});
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    // The test itself goes on to its end.
    QVERIFY(run.levels.isEmpty());
    QVERIFY(service.calls(stopAqc).isEmpty());
    run.wrapper->stop();
    QVERIFY(service.waitForCalls(freeSession));
    service.notify(aqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1003")));
}

void VoiceTestRunTest::microphoneVanishes()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(block(1));
    audio().setDevices({});
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());
    audio().setDevices({{"mic", true}});
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(audio().hear(block(2)), 1);
    QVERIFY(service.waitForCalls(putAudio, 4));
    QCOMPARE(service.heard(QStringLiteral("/session/aqc/2")), block(2));
}

// Longer than the bus waits: as if the service were absent, and the next run works.
void VoiceTestRunTest::serviceHangs()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    service.suspend();
    QCOMPARE(run.wrapper->start(), 0);
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    audio().hear(block(1));
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());
    service.resume();
    QVERIFY(service.waitForCalls(freeSession));
    service.reset();

    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(block(2));
    QVERIFY(service.waitForCalls(putAudio, 2));
    QCOMPARE(service.heard(QStringLiteral("/session/aqc/2")), block(2));
    QCOMPARE(service.heard(QStringLiteral("/session/iat/2")), block(2));
}

void VoiceTestRunTest::recognitionHangs()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    VoiceService service;
    QVERIFY(service.start());
    service.script(startIat, QStringLiteral("hold"));
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    // The quality check runs, and hears what it should.
    audio().hear(block(1));
    QVERIFY(service.waitForCalls(putAudio, 2));
    QCOMPARE(service.heard(aqcPath), block(1));
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
    QCOMPARE(service.release(startIat), 1); // to nobody
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());

    service.reset();
    QCOMPARE(run.wrapper->start(), 0);
    service.recognise(QStringLiteral("/session/iat/2"), QStringLiteral("a"));
    QTRY_COMPARE(run.texts, QStringList(QStringLiteral("a 1 1")));
}

void VoiceTestRunTest::serviceDiesInTheMiddle()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(block(1));
    QVERIFY(service.waitForCalls(putAudio, 2));
    service.kill();
    for (int i = 0; i < 20; ++i)
        audio().hear(block(i));
    run.wrapper->stop();
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(microphoneIsClosed());

    QVERIFY(service.start());
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(audio().hear(block(3)), 1);
    QVERIFY(service.waitForCalls(putAudio, 2));
    QCOMPARE(service.heard(aqcPath), block(3));
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestRunTest::audioWithoutASession()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    run.wrapper->recAudioData(block(1));
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList());
}

void VoiceTestRunTest::deletedWhileRunning()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    Run run;
    QPointer<AudioRecorder> recorder = AudioRecorder::getInstance();
    QCOMPARE(run.wrapper->start(), 0);
    service.reset();
    testsupport::LogCapture log;
    run.wrapper.reset();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("info|stop"), QStringLiteral("info|recorder stopped"),
                          QStringLiteral("info|IatWapper stop iat")}));
    QVERIFY(recorder); // scheduled for deletion
    QTRY_VERIFY(!recorder);
    QTRY_VERIFY(tracker.timers(testMs).isEmpty());
    QCOMPARE(audio().captures().size(), 0);
    QVERIFY(service.waitForCalls(freeSession));
    QCOMPARE(calls(service), QStringList({QStringLiteral("stopAqc ") + aqcPath,
                                          QStringLiteral("stopIat ") + iatPath,
                                          QStringLiteral("freeSession iat")}));
    service.notify(aqcPath, QStringLiteral("1000"));
    QVERIFY(everythingArrived());
    QVERIFY(run.verdicts.isEmpty());
}

void VoiceTestRunTest::deletedWhileIdle()
{
    VoiceService service;
    QVERIFY(service.start());
    TimerTracker tracker;
    QPointer<AudioRecorder> recorder;
    QPointer<QTimer> timer;
    {
        Run run;
        recorder = AudioRecorder::getInstance();
        QCOMPARE(run.wrapper->start(), 0);
        run.wrapper->stop();
        timer = tracker.timers(testMs).first();
        QVERIFY(service.waitForCalls(freeSession));
        timer->stop();
        service.reset();
    }
    QTRY_VERIFY(!recorder);
    QTRY_VERIFY(!timer);
    QVERIFY(everythingArrived());
    QCOMPARE(calls(service), QStringList());
}

void VoiceTestRunTest::otherWrapperTookTheRecorder()
{
    VoiceService service;
    QVERIFY(service.start());
    Run run;
    Run other;
    QPointer<AudioRecorder> recorder = AudioRecorder::getInstance();
    QCOMPARE(run.wrapper->start(), 0);
    other.wrapper.reset();
    QTRY_VERIFY(!recorder);
    // The run goes on without sound; stopping it is safe, and the next run has a recorder again.
    audio().hear(block(1));
    QVERIFY(run.levels.isEmpty());
    run.wrapper->stop();
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(audio().hear(block(2)), 1);
    QCOMPARE(run.levels.size(), 1);
    QVERIFY(service.waitForCalls(putAudio, 2));
    QCOMPARE(service.heard(QStringLiteral("/session/aqc/2")), block(2));
}

// Names and order are the interface; the odd spelling too.
void VoiceTestRunTest::declaredMembers()
{
    const QMetaObject &meta = AqcWrapper::staticMetaObject;
    QStringList members;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        members << QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(members,
             QStringList({QStringLiteral("signalUpdateAudioLevel(double)"),
                          QStringLiteral("signalAqcResult(QString)"),
                          QStringLiteral("signaleIatResult(QString,IatWapper::IatResultType,bool)"),
                          QStringLiteral("recAudioData(QByteArray)")}));
}

ISOLATED_TEST_MAIN(QCoreApplication, VoiceTestRunTest, ScriptedAudio::install())
#include "voicetestrun.moc"
