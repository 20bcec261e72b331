// Whole voice tests: scripted microphone, AI service in another process. What is sent, in which
// order, and what comes back.

#include "comcorvaneaiserviceaqcinterface.h"
#include "tests/bus/voiceclients.h"
#include "tests/support/busrecorder.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "voice/audiorecorder.h"

#include <QCoreApplication>
#include <QPointer>

using namespace testsupport;

class VoiceTestRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingBeforeTheStart();
    void startOrder();
    void emptyPathReceivesNothing();
    void blocksGoToBothSessions();
    void everySampleArrives();
    void levelsAndTexts();
    void verdicts();
    void verdictBeforeTheStartIsAnswered();
    void startTwice();
    void secondRun();
    void hundredRuns();
    void audioWithoutASession();
    void declaredMembers();

private:
    VoiceService m_service;
};

void VoiceTestRunTest::init()
{
    QVERIFY(m_service.start());
}

void VoiceTestRunTest::nothingBeforeTheStart()
{
    TimerTracker tracker;
    VoiceTest run;
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList());
    QCOMPARE(audio().built(), 0);
    QVERIFY(tracker.timers(testMs).isEmpty());
}

void VoiceTestRunTest::startOrder()
{
    VoiceTest run;
    QStringList order;
    connect(AudioRecorder::getInstance(), &AudioRecorder::recordStarted, this, [&] {
        order << QStringLiteral("recording");
        order << m_service.callTexts().mid(2); // nothing of the recognition yet
    });
    BusRecorder bus;
    QVERIFY(bus.start());
    LogCapture log;
    QCOMPARE(run.wrapper->start(), 0);
    // Of the bus daemon: the owner of the AI service, once for each of the three proxies and once
    // more for each of the two with signals, a match for its changes, and one for each signal.
    QVERIFY(bus.sync());
    const QStringList asked = bus.daemonCalls();
    QCOMPARE(asked.count(QStringLiteral("GetNameOwner")), 5);
    QCOMPARE(asked.count(QStringLiteral("AddMatch")), 5);
    QCOMPARE(asked.size(), 10);
    QCOMPARE(order, QStringList(QStringLiteral("recording")));
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QCOMPARE(
        m_service.callTexts(),
        QStringList({QStringLiteral("createSession aqc"), QStringLiteral("startAqc ") + aqcPath,
                     QStringLiteral("createSession iat"), QStringLiteral("startIat ") + iatPath}));
    const ServiceCall started = m_service.calls(startAqc).first();
    QCOMPARE(started.interface, QStringLiteral("com.corvane.aiservice.aqc"));
    QCOMPARE(started.signature, QString());
    QCOMPARE(log.take(),
             QStringList(QStringLiteral("debug|internal QAudioInput change state: ActiveState")));
}

void VoiceTestRunTest::emptyPathReceivesNothing()
{
    m_service.script(createSession, QStringLiteral("error"), QStringLiteral("no room"));
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    m_service.notify(QStringLiteral("/somebody/else"), QStringLiteral("1000"));
    m_service.notify(aqcPath, QStringLiteral("1000"));
    QVERIFY(everythingArrived());
    QCOMPARE(run.verdicts, QStringList());
    run.wrapper->stop();

    m_service.script(createSession, QStringLiteral("answer"));
    QCOMPARE(run.wrapper->start(), 0);
    m_service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestRunTest::blocksGoToBothSessions()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    m_service.reset();
    QCOMPARE(audio().hear(QByteArray("\x00\x01\xff\x80", 4)), 1);
    QVERIFY(m_service.waitForCalls(putAudio, 2));
    const QList<ServiceCall> sent = m_service.calls();
    QCOMPARE(m_service.callTexts(), QStringList({QStringLiteral("putAudio ") + aqcPath,
                                                 QStringLiteral("putAudio ") + iatPath}));
    for (const ServiceCall &call : sent) {
        QCOMPARE(call.signature, QStringLiteral("ayb"));
        QCOMPARE(call.arguments.at(1), QJsonValue(false));
    }
    QCOMPARE(sent.at(0).interface, QStringLiteral("com.corvane.aiservice.aqc"));
    QCOMPARE(m_service.heard(aqcPath), QByteArray("\x00\x01\xff\x80", 4));
    QCOMPARE(m_service.heard(iatPath), QByteArray("\x00\x01\xff\x80", 4));
}

// Ten seconds of sound: nothing lost, nothing doubled.
void VoiceTestRunTest::everySampleArrives()
{
    VoiceTest run;
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
    QVERIFY(m_service.waitForCalls(freeSession));
    QVERIFY(m_service.heard(aqcPath) == all);
    QVERIFY(m_service.heard(iatPath) == all);
    QCOMPARE(m_service.calls(putAudio).size(), 400);
    for (const ServiceCall &call : m_service.calls(putAudio))
        QCOMPARE(call.arguments.at(1), QJsonValue(false));
}

void VoiceTestRunTest::levelsAndTexts()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(QByteArray("\x00\x80", 2));
    audio().hear(QByteArray(4, '\0'));
    QCOMPARE(run.levels, QVector<double>({1.0, 0.0}));
    m_service.recognise(iatPath, QStringLiteral("<b>今天</b>"));
    QTRY_COMPARE(run.texts, QStringList(QStringLiteral("<b>今天</b> 1 1")));
}

void VoiceTestRunTest::verdicts()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    // Unchanged, whatever they say, and however often.
    m_service.notify(aqcPath, QStringLiteral("{\"code\":\"1008\"}"));
    m_service.notify(aqcPath, QString());
    m_service.notify(aqcPath, QString());
    m_service.notify(QStringLiteral("/session/aqc/99"), QStringLiteral("of another session"));
    run.wrapper->stop();
    // The end of the test is not the end of the verdict.
    m_service.notify(aqcPath, QStringLiteral("9999 <b>"));
    QTRY_COMPARE(run.verdicts.size(), 4);
    QCOMPARE(run.verdicts, QStringList({QStringLiteral("{\"code\":\"1008\"}"), QString(), QString(),
                                        QStringLiteral("9999 <b>")}));
}

void VoiceTestRunTest::verdictBeforeTheStartIsAnswered()
{
    m_service.script(startAqc, QStringLiteral("hold"));
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0); // it does not wait for that answer
    m_service.notify(aqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1003")));
    QCOMPARE(m_service.release(startAqc), 1);
    QVERIFY(everythingArrived());
    QCOMPARE(run.verdicts.size(), 1);
}

void VoiceTestRunTest::startTwice()
{
    TimerTracker tracker;
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    QPointer<ComCorvaneAiserviceAqcInterface> first =
        run.wrapper->findChild<ComCorvaneAiserviceAqcInterface *>();
    QVERIFY(first);
    LogCapture log;
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("warning|recorder already started")));
    QTRY_VERIFY(!first);
    QCOMPARE(tracker.timers(testMs).size(), 1);

    // Only the new session's verdict counts, once.
    m_service.notify(aqcPath, QStringLiteral("old"));
    m_service.notify(secondAqcPath, QStringLiteral("new"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("new")));

    // Each block goes twice to the new sessions, and none to the old ones.
    m_service.reset();
    audio().hear(block(1));
    QVERIFY(m_service.waitForCalls(putAudio, 4));
    QCOMPARE(m_service.heard(secondAqcPath), block(1) + block(1));
    QCOMPARE(m_service.heard(secondIatPath), block(1) + block(1));
    QCOMPARE(m_service.heard(aqcPath), QByteArray());
    QCOMPARE(run.levels.size(), 2);
    run.wrapper->stop();
    QVERIFY(m_service.waitForCalls(freeSession));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
}

void VoiceTestRunTest::secondRun()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    m_service.recognise(iatPath, QStringLiteral("first"));
    QTRY_COMPARE(run.texts.size(), 1);
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());

    // A verdict that was on its way when the next run begins is not that run's.
    m_service.notify(aqcPath, QStringLiteral("queued verdict of the first"));
    QVERIFY(everythingIsQueued());
    QCOMPARE(run.wrapper->start(), 0);
    const QString secondAqc = secondAqcPath;
    const QString secondIat = secondIatPath;
    QCOMPARE(audio().hear(block(2)), 1);
    m_service.notify(aqcPath, QStringLiteral("late verdict of the first"));
    m_service.notify(secondAqc, QStringLiteral("1004"));
    m_service.recognise(secondIat, QStringLiteral("second"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1004")));
    QTRY_COMPARE(run.texts.size(), 2);
    QCOMPARE(run.texts.last(), QStringLiteral("second 1 1"));
    QCOMPARE(run.levels.size(), 1);
    QCOMPARE(m_service.heard(secondAqc), block(2));
    QCOMPARE(m_service.heard(secondIat), block(2));
}

void VoiceTestRunTest::hundredRuns()
{
    TimerTracker tracker;
    VoiceTest run;
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
        if (!m_service.waitForCalls(freeSession, number + 1))
            return "session not freed: " + serial;
        if (m_service.heard(QLatin1String("/session/aqc/" + serial)) != block(number) ||
            m_service.heard(QLatin1String("/session/iat/" + serial)) != block(number))
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
    // Qt's own threads may hold a few objects at the moment.
    QVERIFY2(tracker.objects() <= objects + 5, qPrintable(QString::number(tracker.objects())));
    QCOMPARE(run.wrapper->findChildren<ComCorvaneAiserviceAqcInterface *>().size(), 1);
}

void VoiceTestRunTest::audioWithoutASession()
{
    VoiceTest run;
    run.wrapper->recAudioData(block(1));
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList());
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

ISOLATED_TEST_CLASS(QCoreApplication, VoiceTestRunTest, ScriptedAudio::install())
#include "voicetestrun.moc"
