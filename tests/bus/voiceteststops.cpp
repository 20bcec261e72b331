// How a voice test stops, by its timer and with its wrapper, and what of it goes on; and tests
// whose AI service refuses, hangs, dies or is not there, or whose microphone is not there.

#include "comcorvaneaiserviceaqcinterface.h"
#include "tests/bus/voiceclients.h"
#include "tests/support/logcapture.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "voice/audiorecorder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>

using namespace testsupport;

class VoiceTestStopsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void stopOrder();
    void stopWithoutStart();
    void stopTwice();
    void afterStop();
    void timer();
    void leftBehind();
    void deletedWhileRunning();
    void deletedWhileIdle();
    void otherWrapperTookTheRecorder();
    void serviceRefuses();
    void recognitionIsRefused();
    void serviceIsAbsent();
    void serviceHangs();
    void recognitionHangs();
    void serviceDiesInTheMiddle();
    void noMicrophone();
    void microphoneVanishes();

private:
    VoiceService m_service;
};

void VoiceTestStopsTest::init()
{
    QVERIFY(m_service.start());
}

void VoiceTestStopsTest::stopOrder()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    m_service.reset();
    m_service.script(stopAqc, QStringLiteral("hold")); // not waited for
    LogCapture log;
    run.wrapper->stop();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("info|stop"), QStringLiteral("info|recorder stopped"),
                          QStringLiteral("info|IatWapper stop iat")}));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(m_service.waitForCalls(freeSession));
    // The quality check's session is never freed.
    QCOMPARE(m_service.callTexts(), QStringList({QStringLiteral("stopAqc ") + aqcPath,
                                                 QStringLiteral("stopIat ") + iatPath,
                                                 QStringLiteral("freeSession iat")}));
    QVERIFY(microphoneIsClosed());
}

void VoiceTestStopsTest::stopWithoutStart()
{
    VoiceTest run;
    LogCapture log;
    run.wrapper->stop();
    QCOMPARE(log.take(), QStringList({QStringLiteral("info|stop"),
                                      QStringLiteral("debug|recorder already stopped")}));
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList());
}

void VoiceTestStopsTest::stopTwice()
{
    TimerTracker tracker;
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    run.wrapper->stop();
    QVERIFY(m_service.waitForCalls(freeSession));
    m_service.reset();
    // The timer runs on, and stops the test once more.
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QVERIFY(tracker.timers(testMs).first()->isActive());
    LogCapture log;
    QVERIFY(TimerTracker::fire(tracker.timers(testMs).first()));
    QCOMPARE(log.take(), QStringList({QStringLiteral("info|stop"),
                                      QStringLiteral("debug|recorder already stopped")}));
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList(QStringLiteral("stopAqc ") + aqcPath));
}

void VoiceTestStopsTest::afterStop()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    run.wrapper->stop();
    QVERIFY(m_service.waitForCalls(freeSession));
    m_service.reset();
    // Somebody else records: none of it is this test's.
    QVERIFY(microphoneIsClosed());
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(audio().hear(block(1)), 1);
    m_service.recognise(iatPath, QStringLiteral("late"));
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList());
    QVERIFY(run.levels.isEmpty());
    QVERIFY(run.texts.isEmpty());
}

void VoiceTestStopsTest::timer()
{
    TimerTracker tracker;
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QTimer *timer = tracker.timers(testMs).first();
    QVERIFY(timer->isActive());
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->timerType(), Qt::PreciseTimer);
    QVERIFY(!timer->parent());
    // A second start begins the ten seconds anew.
    QTRY_VERIFY(timer->remainingTime() < testMs - 100);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(run.wrapper->start(), 0);
    const int remaining = timer->remainingTime();
    QVERIFY(remaining >= testMs - 1 - clock.elapsed());
}

// A page leaves its test behind; what is left of it stops the next page's recording when its own
// ten seconds are over.
void VoiceTestStopsTest::leftBehind()
{
    TimerTracker tracker;
    VoiceTest left;
    QCOMPARE(left.wrapper->start(), 0);
    left.wrapper->stop();
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QTimer *timer = tracker.timers(testMs).first();

    VoiceTest next;
    QCOMPARE(next.wrapper->start(), 0);
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QVERIFY(TimerTracker::fire(timer));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    next.wrapper->stop();
}

void VoiceTestStopsTest::deletedWhileRunning()
{
    TimerTracker tracker;
    VoiceTest run;
    QPointer<AudioRecorder> recorder = AudioRecorder::getInstance();
    QCOMPARE(run.wrapper->start(), 0);
    m_service.reset();
    LogCapture log;
    run.wrapper.reset();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("info|stop"), QStringLiteral("info|recorder stopped"),
                          QStringLiteral("info|IatWapper stop iat")}));
    QVERIFY(recorder); // scheduled for deletion
    QTRY_VERIFY(!recorder);
    QTRY_VERIFY(tracker.timers(testMs).isEmpty());
    QCOMPARE(audio().captures().size(), 0);
    QVERIFY(m_service.waitForCalls(freeSession));
    QCOMPARE(m_service.callTexts(), QStringList({QStringLiteral("stopAqc ") + aqcPath,
                                                 QStringLiteral("stopIat ") + iatPath,
                                                 QStringLiteral("freeSession iat")}));
    m_service.notify(aqcPath, QStringLiteral("1000"));
    QVERIFY(everythingArrived());
    QVERIFY(run.verdicts.isEmpty());
}

void VoiceTestStopsTest::deletedWhileIdle()
{
    TimerTracker tracker;
    QPointer<AudioRecorder> recorder;
    QPointer<QTimer> timer;
    {
        VoiceTest run;
        recorder = AudioRecorder::getInstance();
        QCOMPARE(run.wrapper->start(), 0);
        run.wrapper->stop();
        timer = tracker.timers(testMs).first();
        QVERIFY(m_service.waitForCalls(freeSession));
        timer->stop();
        m_service.reset();
    }
    QTRY_VERIFY(!recorder);
    QTRY_VERIFY(!timer);
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList());
}

void VoiceTestStopsTest::otherWrapperTookTheRecorder()
{
    VoiceTest run;
    VoiceTest other;
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
    QVERIFY(m_service.waitForCalls(putAudio, 2));
    QCOMPARE(m_service.heard(secondAqcPath), block(2));
}

void VoiceTestStopsTest::serviceRefuses()
{
    m_service.setValue(QStringLiteral("code.aqc"), 5);
    TimerTracker tracker;
    VoiceTest run;
    LogCapture log;
    QCOMPARE(run.wrapper->start(), 5);
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|aiservice createsession error!")));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QCOMPARE(audio().built(), 0);
    QVERIFY(tracker.timers(testMs).isEmpty());
    QCOMPARE(m_service.callTexts(), QStringList(QStringLiteral("createSession aqc")));
    QVERIFY(run.wrapper->findChildren<ComCorvaneAiserviceAqcInterface *>().isEmpty());

    // The next run works, and a refusal after it forgets its session.
    m_service.setValue(QStringLiteral("code.aqc"), 0);
    QCOMPARE(run.wrapper->start(), 0);
    run.wrapper->stop();
    m_service.setValue(QStringLiteral("code.aqc"), -3);
    QCOMPARE(run.wrapper->start(), -3);
    QTRY_VERIFY(run.wrapper->findChildren<ComCorvaneAiserviceAqcInterface *>().isEmpty());
    m_service.reset();
    run.wrapper->stop();
    QVERIFY(everythingArrived());
    QCOMPARE(m_service.callTexts(), QStringList());
}

void VoiceTestStopsTest::recognitionIsRefused()
{
    m_service.setValue(QStringLiteral("code.iat"), 5);
    VoiceTest run;
    LogCapture log;
    QCOMPARE(run.wrapper->start(), 0);
    QVERIFY(log.take().contains(QStringLiteral("debug|Iat createSession failed")));
    QCOMPARE(audio().hear(block(1)), 1);
    QVERIFY(m_service.waitForCalls(putAudio));
    QCOMPARE(m_service.heard(aqcPath), block(1));
    m_service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestStopsTest::serviceIsAbsent()
{
    QVERIFY(m_service.stop());
    TimerTracker tracker;
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QCOMPARE(audio().hear(block(1)), 1);
    QCOMPARE(run.levels.size(), 1);
    QCOMPARE(tracker.timers(testMs).size(), 1);
    QVERIFY(tracker.timers(testMs).first()->isActive());
    QVERIFY(TimerTracker::fire(tracker.timers(testMs).first()));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    QVERIFY(m_service.start());
    QCOMPARE(run.wrapper->start(), 0);
    m_service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

// Longer than the bus waits: as if the service were absent, and the next run works.
void VoiceTestStopsTest::serviceHangs()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    VoiceService service;
    QVERIFY(service.start());
    VoiceTest run;
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
    QCOMPARE(service.heard(secondAqcPath), block(2));
    QCOMPARE(service.heard(secondIatPath), block(2));
}

void VoiceTestStopsTest::recognitionHangs()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    VoiceService service;
    QVERIFY(service.start());
    service.script(startIat, QStringLiteral("hold"));
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    // The quality check runs, and hears what it should.
    audio().hear(block(1));
    QVERIFY(service.waitForCalls(putAudio, 2));
    QCOMPARE(service.heard(aqcPath), block(1));
    service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
    QCOMPARE(service.release(startIat), 1); // nobody takes the answer
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());

    service.reset();
    QCOMPARE(run.wrapper->start(), 0);
    service.recognise(secondIatPath, QStringLiteral("a"));
    QTRY_COMPARE(run.texts, QStringList(QStringLiteral("a 1 1")));
}

void VoiceTestStopsTest::serviceDiesInTheMiddle()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(block(1));
    QVERIFY(m_service.waitForCalls(putAudio, 2));
    m_service.kill();
    for (int i = 0; i < 20; ++i)
        audio().hear(block(i));
    run.wrapper->stop();
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(microphoneIsClosed());

    QVERIFY(m_service.start());
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(audio().hear(block(3)), 1);
    QVERIFY(m_service.waitForCalls(putAudio, 2));
    QCOMPARE(m_service.heard(aqcPath), block(3));
    m_service.notify(aqcPath, QStringLiteral("1000"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1000")));
}

void VoiceTestStopsTest::noMicrophone()
{
    audio().setDevices({});
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    // The test itself goes on to its end.
    QVERIFY(run.levels.isEmpty());
    QVERIFY(m_service.calls(stopAqc).isEmpty());
    run.wrapper->stop();
    QVERIFY(m_service.waitForCalls(freeSession));
    m_service.notify(aqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(run.verdicts, QStringList(QStringLiteral("1003")));
}

void VoiceTestStopsTest::microphoneVanishes()
{
    VoiceTest run;
    QCOMPARE(run.wrapper->start(), 0);
    audio().hear(block(1));
    audio().setDevices({});
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    run.wrapper->stop();
    QVERIFY(microphoneIsClosed());
    audio().setDevices({{"mic", true}});
    QCOMPARE(run.wrapper->start(), 0);
    QCOMPARE(audio().hear(block(2)), 1);
    QVERIFY(m_service.waitForCalls(putAudio, 4));
    QCOMPARE(m_service.heard(secondAqcPath), block(2));
}

ISOLATED_TEST_CLASS(QCoreApplication, VoiceTestStopsTest, ScriptedAudio::install())

#include "voiceteststops.moc"
