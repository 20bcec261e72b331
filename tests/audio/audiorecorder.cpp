// The process's recorder on scripted microphones: which device it takes, what it hands on, when it
// ends. Each function in a process of its own.

#include "voice/audiorecorder.h"

#include "tests/fakeaudio/scriptedaudio.h"
#include "tests/support/bustalk.h"
#include "tests/support/isolatedtests.h"
#include "tests/support/logcapture.h"
#include "tests/support/timertracker.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using testsupport::ScriptedAudio;
using testsupport::TimerTracker;

namespace {

const QString audioService = QStringLiteral("com.tavren.daemon.Audio");
const QString audioPath = QStringLiteral("/com/tavren/daemon/Audio");

ScriptedAudio &audio()
{
    return ScriptedAudio::instance();
}

QByteArray openDevice()
{
    const auto open = audio().openCaptures();
    return open.size() == 1 ? open.first()->device()
                            : QByteArrayLiteral("open: ") + QByteArray::number(open.size());
}

bool sourceChangedSignal(const QDBusConnection &daemon, const QString &source)
{
    QDBusMessage signal =
        QDBusMessage::createSignal(audioPath, audioService, QStringLiteral("DefaultSourceChanged"));
    signal << QVariant::fromValue(QDBusObjectPath(source));
    return daemon.send(signal);
}

// Waits until everything that the bus had for this connection when called has arrived. The first
// round lets QtDBus begin: it holds signals back until the event loop has run once.
bool busIsQuiet()
{
    return testsupport::everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus"));
}

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
    void defaultDeviceFits();
    void lastFittingDeviceWins();
    void noDeviceFits();
    void noDeviceAtAll();
    void deviceAppearsWhileIdle();
    void deviceVanishesWhileRecording();
    void anotherDeviceTakesOver();
    void deviceIsCheckedAllTheTime();
    void devicesAreAskedWhenTheirListIsNew();
    void defaultDeviceIsChosenAnew();
    void blocksAndLevels();
    void startTwice();
    void stopTwice();
    void startAfterStop();
    void stopFromWithinABlock();
    void blocksAfterTheEndAreTakenQuietly();
    void closesInANestedLoop();
    void waitsForABlockInANestedLoop();
    void deletedInANestedLoopOfABlock();
    void stateIsSetWhenReported();
    void inputStateIsLogged();
    void defaultSourceChanges();
    void defaultSourceChangesWhileIdle();
    void foreignSourceSignals();
    void daemonComesLater();
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

void AudioRecorderTest::defaultDeviceFits()
{
    audio().setDevices({{"default", true}, {"second", true}, {"third", false}});
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(openDevice(), QByteArray("default"));
    QCOMPARE(audio().built(), 1);
}

void AudioRecorderTest::lastFittingDeviceWins()
{
    audio().setDevices({{"default", false}, {"second", true}, {"third", true}, {"last", false}});
    testsupport::LogCapture log;
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(openDevice(), QByteArray("third"));
    QCOMPARE(log.take(),
             QStringList(QStringLiteral("debug|internal QAudioInput change state: ActiveState")));
}

void AudioRecorderTest::noDeviceFits()
{
    audio().setDevices({{"default", false}, {"second", false}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy started(recorder, &AudioRecorder::recordStarted);
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    testsupport::LogCapture log;
    QVERIFY(recorder->start());
    const QStringList lines = log.take();
    QCOMPARE(lines.mid(0, 2),
             QStringList({QStringLiteral("debug|recorder already stopped"),
                          QStringLiteral("warning|audio recorder device may not be valid")}));
    QCOMPARE(started.count(), 1);
    QVERIFY(recorder->isRecording());
    QCOMPARE(audio().built(), 0); // the null device is tried
    // The next check ends it.
    QTRY_COMPARE(stopped.count(), 1);
    QVERIFY(!recorder->isRecording());
}

void AudioRecorderTest::noDeviceAtAll()
{
    audio().setDevices({});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    testsupport::LogCapture log;
    QVERIFY(!recorder->checkDevice());
    QVERIFY(recorder->start());
    QVERIFY(recorder->isRecording());
    QVERIFY(log.take().contains(QStringLiteral("warning|audio recorder device may not be valid")));
    recorder->stop();
    QVERIFY(!recorder->isRecording());
    // And the next recording works.
    audio().setDevices({{"plugged in", true}});
    QVERIFY(recorder->start());
    QCOMPARE(openDevice(), QByteArray("plugged in"));
}

void AudioRecorderTest::deviceAppearsWhileIdle()
{
    audio().setDevices({});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QVERIFY(!recorder->checkDevice());
    audio().setDevices({{"mic", true}});
    QVERIFY(recorder->checkDevice());
    QCOMPARE(audio().built(), 0);
}

void AudioRecorderTest::deviceVanishesWhileRecording()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    recorder->start();
    audio().setDevices({});
    QElapsedTimer time;
    time.start();
    QTRY_COMPARE_WITH_TIMEOUT(stopped.count(), 1, 1000);
    QVERIFY2(time.elapsed() < 700, qPrintable(QString::number(time.elapsed())));
    QVERIFY(!recorder->isRecording());
    QTRY_COMPARE(audio().captures().size(), 0);
    QCOMPARE(stopped.count(), 1);
}

void AudioRecorderTest::anotherDeviceTakesOver()
{
    audio().setDevices({{"mic", true}});
    TimerTracker tracker;
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    recorder->start();
    audio().setDevices({{"bad", false}, {"other", true}});
    QCOMPARE(tracker.timers(500).size(), 1);
    QVERIFY(TimerTracker::fire(tracker.timers(500).first()));
    // The capture that runs is left as it is.
    QVERIFY(recorder->isRecording());
    QCOMPARE(stopped.count(), 0);
    QCOMPARE(openDevice(), QByteArray("mic"));
    QCOMPARE(audio().built(), 1);
}

void AudioRecorderTest::deviceIsCheckedAllTheTime()
{
    audio().setDevices({});
    TimerTracker tracker;
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QCOMPARE(tracker.timers(500).size(), 1);
    QTimer *timer = tracker.timers(500).first();
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    QVERIFY(!timer->parent());
    // Idle without a device, each check says so.
    testsupport::LogCapture log;
    QVERIFY(TimerTracker::fire(timer));
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|recorder already stopped")));
    recorder->start();
    recorder->stop();
    QVERIFY(timer->isActive());
}

void AudioRecorderTest::devicesAreAskedWhenTheirListIsNew()
{
    audio().setDevices({{"bad", false}, {"good", true}});
    TimerTracker tracker;
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QTimer *timer = tracker.timers(500).first();
    const auto askedByATick = [timer] {
        const int before = audio().asked();
        TimerTracker::fire(timer);
        return audio().asked() - before;
    };
    // A look at the list is followed by a rest, which a busy machine makes longer than nothing.
    const auto asks = [&askedByATick](int times) {
        return QTest::qWaitFor([&] { return askedByATick() == times; });
    };
    QVERIFY(asks(2));
    QCOMPARE(askedByATick(), 0);
    audio().setDevices({{"bad", false}, {"good", true}, {"new", true}});
    QVERIFY(asks(1)); // the current one still fits
    QCOMPARE(askedByATick(), 0);

    // Who asks himself, and whoever records, is told what is true now.
    audio().setDevices({{"bad", false}, {"good", false}, {"new", false}});
    QCOMPARE(askedByATick(), 0);
    QVERIFY(!recorder->checkDevice());
    QCOMPARE(askedByATick(), 0);
    audio().setDevices({{"bad", false}, {"good", true}, {"new", false}});
    QVERIFY(recorder->checkDevice());
    recorder->start();
    QVERIFY(askedByATick() > 0);
    QVERIFY(askedByATick() > 0);
    recorder->stop();
    QCOMPARE(askedByATick(), 0);

    // Without a device that fits, a tick says so whether or not it asks.
    audio().setDevices({{"bad", false}});
    QVERIFY(!recorder->checkDevice());
    audio().setDevices({{"bad", false}, {"worse", false}});
    testsupport::LogCapture log;
    QVERIFY(QTest::qWaitFor([&askedByATick] { return askedByATick() > 0; }));
    QVERIFY(log.take().contains(QStringLiteral("debug|recorder already stopped")));
    QCOMPARE(askedByATick(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|recorder already stopped")));
}

void AudioRecorderTest::defaultDeviceIsChosenAnew()
{
    audio().setDevices({{"first", true}, {"second", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    recorder->start();
    QCOMPARE(openDevice(), QByteArray("first"));
    recorder->stop();
    QTRY_COMPARE(audio().captures().size(), 0);
    audio().setDevices({{"second", true}, {"first", true}});
    recorder->start();
    QCOMPARE(openDevice(), QByteArray("second"));
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
    testsupport::LogCapture log;
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
    testsupport::LogCapture log;
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
    // Retired captures go with the event loop; the one that runs stays.
    QTRY_COMPARE(audio().captures().size(), 1);
    audio().hear("ab");
    QCOMPARE(blocks, 1);
}

void AudioRecorderTest::stopFromWithinABlock()
{
    // The backend holds its lock while it writes a block; closing the capture there would end us.
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
void AudioRecorderTest::blocksAfterTheEndAreTakenQuietly()
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
    testsupport::LogCapture log;
    AudioRecorder::getInstance()->start();
    QCOMPARE(log.take(),
             QStringList(QStringLiteral("debug|internal QAudioInput change state: ActiveState")));
}

void AudioRecorderTest::defaultSourceChanges()
{
    audio().setDevices({{"mic", true}});
    QDBusConnection daemon =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("daemon"));
    QVERIFY(daemon.registerService(audioService));

    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    recorder->start();
    QVERIFY(busIsQuiet()); // the bus knows by now what the recorder listens to
    testsupport::LogCapture log;
    QVERIFY(sourceChangedSignal(daemon, QStringLiteral("/com/tavren/daemon/Audio/Source3")));
    QTRY_COMPARE(stopped.count(), 1);
    QCOMPARE(
        log.take(),
        QStringList({QStringLiteral("info|default record device change to  "
                                    "\"/com/tavren/daemon/Audio/Source3\" , need stop record!"),
                     QStringLiteral("info|recorder stopped")}));
    QVERIFY(!recorder->isRecording()); // and it is not started again
    recorder->start();
    QVERIFY(recorder->isRecording());
}

void AudioRecorderTest::defaultSourceChangesWhileIdle()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    testsupport::LogCapture log;
    recorder->DefaultSourceChanged(QDBusObjectPath(QStringLiteral("/s")));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral(
                              "info|default record device change to  \"/s\" , need stop record!"),
                          QStringLiteral("debug|recorder already stopped")}));
    QCOMPARE(stopped.count(), 0);
}

void AudioRecorderTest::foreignSourceSignals()
{
    audio().setDevices({{"mic", true}});
    QDBusConnection daemon =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("daemon"));
    QVERIFY(daemon.registerService(audioService));
    QDBusConnection stranger =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));

    AudioRecorder *recorder = AudioRecorder::getInstance();
    recorder->start();
    QVERIFY(busIsQuiet()); // the bus knows by now what the recorder listens to
    // Not from the daemon, and not of the daemon's object.
    QVERIFY(sourceChangedSignal(stranger, QStringLiteral("/s")));
    QDBusMessage elsewhere = QDBusMessage::createSignal(QStringLiteral("/elsewhere"), audioService,
                                                        QStringLiteral("DefaultSourceChanged"));
    elsewhere << QVariant::fromValue(QDBusObjectPath(QStringLiteral("/s")));
    QVERIFY(daemon.send(elsewhere));
    // Wrong type.
    QDBusMessage text =
        QDBusMessage::createSignal(audioPath, audioService, QStringLiteral("DefaultSourceChanged"));
    text << QStringLiteral("/s");
    QVERIFY(daemon.send(text));

    // Each sender's signals are on the bus when its own call is answered.
    for (const QDBusConnection &sender : {daemon, stranger})
        QCOMPARE(testsupport::callProcessingEvents(sender, testsupport::pingCall()).type(),
                 QDBusMessage::ReplyMessage);
    QVERIFY(busIsQuiet());
    QVERIFY(recorder->isRecording());

    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    QVERIFY(sourceChangedSignal(daemon, QStringLiteral("/s")));
    QTRY_COMPARE(stopped.count(), 1);
}

void AudioRecorderTest::daemonComesLater()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    recorder->start();
    QDBusConnection daemon =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("daemon"));
    QVERIFY(daemon.registerService(audioService));
    QVERIFY(busIsQuiet()); // the bus knows by now what the recorder listens to
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    QVERIFY(sourceChangedSignal(daemon, QStringLiteral("/s")));
    QTRY_COMPARE(stopped.count(), 1);

    // Without its name it is a stranger, and whoever takes the name is the daemon.
    recorder->start();
    const auto endedByDaemon = [&] {
        const bool sent =
            sourceChangedSignal(daemon, QStringLiteral("/s")) &&
            testsupport::callProcessingEvents(daemon, testsupport::pingCall()).type() ==
                QDBusMessage::ReplyMessage;
        return !sent || !busIsQuiet() || !recorder->isRecording();
    };
    QVERIFY(daemon.unregisterService(audioService));
    QVERIFY(!endedByDaemon());
    QDBusConnection successor =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("successor"));
    QVERIFY(successor.registerService(audioService));
    QVERIFY(!endedByDaemon());
    QVERIFY(sourceChangedSignal(successor, QStringLiteral("/s")));
    QTRY_COMPARE(stopped.count(), 2);
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

ISOLATED_TEST_MAIN(QCoreApplication, AudioRecorderTest, ScriptedAudio::install())
#include "audiorecorder.moc"
