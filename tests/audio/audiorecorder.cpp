// The process's recorder on scripted microphones: what it passes on, when it stops, and how it is
// deleted.

#include "voice/audiorecorder.h"

#include "tests/support/logcapture.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QProcess>
#include <QSignalSpy>

using namespace testsupport;

namespace {

// Runs @p work in an event loop, and that until nothing is left to do.
template <typename Work>
void runInEventLoop(Work work)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&loop, work] {
        work();
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
    });
    loop.exec();
}

} // namespace

class AudioRecorderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captureFormat();
    void oneInstance();
    void blocksAndLevels();
    void startTwice();
    void stopTwice();
    void startAfterStop();
    void stopFromWithinABlock();
    void blocksAfterTheEndAreAcceptedWithoutAWarning();
    void closesInANestedLoop();
    void waitsForABlockInANestedLoop();
    void deletedInANestedLoopOfABlock();
    void stateIsSetWhenReported();
    void inputStateIsLogged();
    void deletedLaterAndBuiltAgain();
    void deletedWhileRecording();
    void declaredMembers();
    void exits();
};

void AudioRecorderTest::captureFormat()
{
    audio().setDevices({{"mic", true}});
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(audio().openCaptures().size(), 1);
    const QAudioFormat format = audio().openCaptures().first()->captureFormat();
    QCOMPARE(format.sampleRate(), 16000);
    QCOMPARE(format.channelCount(), 1);
    QCOMPARE(format.sampleSize(), 16);
    QCOMPARE(format.codec(), QStringLiteral("audio/pcm"));
    QCOMPARE(format.byteOrder(), QAudioFormat::LittleEndian);
    QCOMPARE(format.sampleType(), QAudioFormat::SignedInt);
}

void AudioRecorderTest::oneInstance()
{
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QVERIFY(recorder);
    QCOMPARE(AudioRecorder::getInstance(), recorder);
    QVERIFY(!recorder->parent());
    QVERIFY(!recorder->isRecording());
    QCOMPARE(audio().built(), 0); // nothing is opened before it is asked to
}

void AudioRecorderTest::blocksAndLevels()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QVector<QByteArray> blocks;
    QVector<double> levels;
    connect(recorder, &AudioRecorder::audioRecorded, this,
            [&blocks](const QByteArray &data) { blocks << data; });
    connect(recorder, &AudioRecorder::levelUpdated, this,
            [&levels](double level) { levels << level; });

    QCOMPARE(audio().hear("lost"), 0);
    recorder->start();
    QVector<QByteArray> sent = {QByteArray(1600, '\0'), QByteArray("\x01\x00", 2),
                                QByteArray("\x00\x80", 2), QByteArray("\x05", 1)};
    for (const QByteArray &block : qAsConst(sent))
        QCOMPARE(audio().hear(block), 1);
    QCOMPARE(blocks, sent);
    QCOMPARE(levels, QVector<double>({0.0, 1 / 32767.0, 1.0, 0.0}));

    recorder->stop();
    audio().hear("late");
    QCOMPARE(blocks, sent);
    QTRY_COMPARE(audio().captures().size(), 0);
    audio().hear("later");
    QCOMPARE(blocks, sent);
    QCOMPARE(levels.size(), 4);
}

void AudioRecorderTest::startTwice()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy started(recorder, &AudioRecorder::recordStarted);
    QVERIFY(recorder->start());
    LogCapture log;
    QVERIFY(recorder->start());
    QCOMPARE(log.take(), QStringList(QStringLiteral("warning|recorder already started")));
    QCOMPARE(started.count(), 1);
    QCOMPARE(audio().built(), 1);
}

void AudioRecorderTest::stopTwice()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    recorder->start();
    LogCapture log;
    recorder->stop();
    QCOMPARE(log.take(), QStringList(QStringLiteral("info|recorder stopped")));
    recorder->stop();
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|recorder already stopped")));
    QCOMPARE(stopped.count(), 1);
}

void AudioRecorderTest::startAfterStop()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    int blocks = 0;
    connect(recorder, &AudioRecorder::audioRecorded, this, [&blocks] { ++blocks; });
    for (int i = 0; i < 100; ++i) {
        recorder->start();
        recorder->stop();
    }
    recorder->start();
    QCOMPARE(audio().built(), 101);
    // Stopped captures are deleted by the event loop; the one that runs stays.
    QTRY_COMPARE(audio().captures().size(), 1);
    audio().hear("ab");
    QCOMPARE(blocks, 1);
}

void AudioRecorderTest::stopFromWithinABlock()
{
    // The backend holds its lock while it writes a block; closing the capture there would end
    // the process.
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    int blocks = 0;
    connect(recorder, &AudioRecorder::audioRecorded, this, [recorder, &blocks] {
        ++blocks;
        recorder->stop();
    });
    recorder->start();
    audio().hear("ab");
    QVERIFY(!recorder->isRecording());
    QCOMPARE(audio().captures().size(), 1);
    QTRY_COMPARE(audio().captures().size(), 0);
    QCOMPARE(blocks, 1);
}

// As a busy machine has them: several blocks wait when the input is called.
void AudioRecorderTest::blocksAfterTheEndAreAcceptedWithoutAWarning()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QVERIFY(recorder->start());
    const QSignalSpy blocks(recorder, &AudioRecorder::audioRecorded);
    connect(recorder, &AudioRecorder::audioRecorded, recorder, &AudioRecorder::stop);
    const testsupport::LogCapture log;
    QCOMPARE(audio().hear(QByteArray(640, '\0')), 1);
    QCOMPARE(audio().hear(QByteArray(640, '\0')), 1);
    QCOMPARE(log.texts(QtWarningMsg), QStringList());
    QCOMPARE(blocks.size(), 1);
}

void AudioRecorderTest::closesInANestedLoop()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    recorder->start();
    int captures = -1;
    runInEventLoop([recorder, &captures] {
        recorder->stop();
        runInEventLoop([] {});
        captures = audio().captures().size();
    });
    QCOMPARE(captures, 0);
}

// A receiver of a block waits in a loop of its own, and what called it must still be there after
// it.
void AudioRecorderTest::waitsForABlockInANestedLoop()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    int captures = 0;
    connect(recorder, &AudioRecorder::audioRecorded, this, [recorder, &captures] {
        recorder->stop();
        runInEventLoop([] {});
        captures = audio().captures().size();
    });
    recorder->start();
    audio().hear("ab");
    QCOMPARE(captures, 1);
    QCOMPARE(audio().captures().size(), 1);
    runInEventLoop([] {});
    QCOMPARE(audio().captures().size(), 0);
}

void AudioRecorderTest::deletedInANestedLoopOfABlock()
{
    audio().setDevices({{"mic", true}});
    QPointer<AudioRecorder> recorder = AudioRecorder::getInstance();
    bool livedOn = false;
    connect(recorder, &AudioRecorder::audioRecorded, this, [&recorder, &livedOn] {
        runInEventLoop([&recorder] {
            recorder->deleteLater();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        });
        livedOn = recorder;
    });
    recorder->start();
    audio().hear("ab");
    QVERIFY(livedOn);
    QTRY_VERIFY(recorder.isNull());
    QTRY_COMPARE(audio().captures().size(), 0);
}

void AudioRecorderTest::stateIsSetWhenReported()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QStringList seen;
    connect(recorder, &AudioRecorder::recordStarted, this, [&seen, recorder] {
        seen << (recorder->isRecording() ? QStringLiteral("on") : QStringLiteral("off"));
    });
    connect(recorder, &AudioRecorder::recordStoped, this, [&seen, recorder] {
        seen << (recorder->isRecording() ? QStringLiteral("on") : QStringLiteral("off"));
    });
    recorder->start();
    recorder->stop();
    QCOMPARE(seen, QStringList({QStringLiteral("on"), QStringLiteral("off")}));
}

void AudioRecorderTest::inputStateIsLogged()
{
    audio().setDevices({{"mic", true}});
    LogCapture log;
    AudioRecorder::getInstance()->start();
    QCOMPARE(log.take(),
             QStringList(QStringLiteral("debug|internal QAudioInput change state: ActiveState")));
}

void AudioRecorderTest::deletedLaterAndBuiltAgain()
{
    audio().setDevices({{"mic", true}});
    TimerTracker tracker;
    QPointer<AudioRecorder> recorder = AudioRecorder::getInstance();
    recorder->deleteLater();
    QCOMPARE(AudioRecorder::getInstance(), recorder.data()); // still there
    QTRY_VERIFY(recorder.isNull());
    QVERIFY(tracker.timers(500).isEmpty());

    AudioRecorder *next = AudioRecorder::getInstance();
    QVERIFY(next);
    QCOMPARE(AudioRecorder::getInstance(), next);
    int blocks = 0;
    connect(next, &AudioRecorder::audioRecorded, this, [&blocks] { ++blocks; });
    next->start();
    audio().hear("ab");
    QCOMPARE(blocks, 1);
}

void AudioRecorderTest::deletedWhileRecording()
{
    audio().setDevices({{"mic", true}});
    QPointer<AudioRecorder> recorder = AudioRecorder::getInstance();
    recorder->start();
    recorder->stop();
    recorder->start();
    QCOMPARE(audio().captures().size(), 2);
    delete recorder.data();
    QCOMPARE(audio().openCaptures().size(), 0);
    QTRY_COMPARE(audio().captures().size(), 0);
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(audio().openCaptures().size(), 1);
}

// Names and order are the interface; the odd spelling too.
void AudioRecorderTest::declaredMembers()
{
    const auto members = [](const QMetaObject &meta) {
        QStringList list;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            list << QString::fromLatin1(meta.method(i).methodSignature());
        return list;
    };
    QCOMPARE(members(AudioRecorder::staticMetaObject),
             QStringList({QStringLiteral("recordStarted()"), QStringLiteral("recordStoped()"),
                          QStringLiteral("audioRecorded(QByteArray)"),
                          QStringLiteral("levelUpdated(double)"), QStringLiteral("checkDevice()"),
                          QStringLiteral("DefaultSourceChanged(QDBusObjectPath)")}));
    QCOMPARE(members(AudioInfo::staticMetaObject),
             QStringList({QStringLiteral("levelUpdated(double)"),
                          QStringLiteral("audioWrite(QByteArray)")}));
}

void AudioRecorderTest::exits()
{
    const auto endsWell = [](const char *way) {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(QStringLiteral(RECORDEREXIT_PROGRAM), {QString::fromLatin1(way)});
        if (!program.waitForFinished())
            return false;
        return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    };
    // A capture that is left open must be noticed, or the other lines prove nothing.
    QVERIFY(!endsWell("foreign capture"));
    for (const char *way : {"unused", "idle", "return", "exit", "quit", "exit inside the loop",
                            "stopped, return", "stopped, exit", "scheduled for deletion, return",
                            "scheduled for deletion, quit", "twice"})
        QVERIFY2(endsWell(way), way);
}

ISOLATED_TEST_CLASS(QCoreApplication, AudioRecorderTest, ScriptedAudio::install())
#include "audiorecorder.moc"
