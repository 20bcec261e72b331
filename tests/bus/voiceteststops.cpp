// How a voice test stops, by its timer and with its wrapper, and what of it goes on.

#include "tests/bus/voiceclients.h"
#include "tests/support/logcapture.h"
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

ISOLATED_TEST_CLASS(QCoreApplication, VoiceTestStopsTest, ScriptedAudio::install())
#include "voiceteststops.moc"
