// Which microphone the process's recorder takes, and what it makes of those that come, go or
// change.

#include "tests/support/logcapture.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "voice/audiorecorder.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QSignalSpy>

using namespace testsupport;

namespace {

const QString audioService = QStringLiteral("com.tavren.daemon.Audio");
const QString audioPath = QStringLiteral("/com/tavren/daemon/Audio");

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
    return everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus"));
}

} // namespace

class AudioDevicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultDeviceFits();
    void lastFittingDeviceWins();
    void noDeviceFits();
    void noDeviceAtAll();
    void aNameAloneIsNoDevice();
    void deviceAppearsWhileIdle();
    void deviceVanishesWhileRecording();
    void anotherDeviceTakesOver();
    void deviceIsCheckedPeriodically();
    void devicesAreAskedWhenTheirListIsNew();
    void defaultDeviceIsChosenAnew();
    void defaultSourceChanges();
    void defaultSourceChangesWhileIdle();
    void foreignSourceSignals();
    void daemonComesLater();
};

void AudioDevicesTest::defaultDeviceFits()
{
    audio().setDevices({{"default", true}, {"second", true}, {"third", false}});
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(openDevice(), QByteArray("default"));
    QCOMPARE(audio().built(), 1);
}

void AudioDevicesTest::lastFittingDeviceWins()
{
    audio().setDevices({{"default", false}, {"second", true}, {"third", true}, {"last", false}});
    LogCapture log;
    QVERIFY(AudioRecorder::getInstance()->start());
    QCOMPARE(openDevice(), QByteArray("third"));
    QCOMPARE(log.take(),
             QStringList(QStringLiteral("debug|internal QAudioInput change state: ActiveState")));
}

void AudioDevicesTest::noDeviceFits()
{
    audio().setDevices({{"default", false}, {"second", false}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy started(recorder, &AudioRecorder::recordStarted);
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    LogCapture log;
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

void AudioDevicesTest::noDeviceAtAll()
{
    audio().setDevices({});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    LogCapture log;
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

// What PipeWire calls the default one where there is none.
void AudioDevicesTest::aNameAloneIsNoDevice()
{
    audio().setDevices({{"@DEFAULT_SOURCE@", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QVERIFY(!recorder->checkDevice());
    LogCapture log;
    QVERIFY(recorder->start());
    QVERIFY(log.take().contains(QStringLiteral("warning|audio recorder device may not be valid")));
    QCOMPARE(audio().built(), 0);
}

void AudioDevicesTest::deviceAppearsWhileIdle()
{
    audio().setDevices({});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QVERIFY(!recorder->checkDevice());
    audio().setDevices({{"mic", true}});
    QVERIFY(recorder->checkDevice());
    QCOMPARE(audio().built(), 0);
}

void AudioDevicesTest::deviceVanishesWhileRecording()
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

void AudioDevicesTest::anotherDeviceTakesOver()
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

void AudioDevicesTest::deviceIsCheckedPeriodically()
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
    LogCapture log;
    QVERIFY(TimerTracker::fire(timer));
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|recorder already stopped")));
    recorder->start();
    recorder->stop();
    QVERIFY(timer->isActive());
}

void AudioDevicesTest::devicesAreAskedWhenTheirListIsNew()
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
    // After a look at the list comes a pause, and on a busy machine it takes noticeable time.
    const auto asks = [&askedByATick](int times) {
        return QTest::qWaitFor([&] { return askedByATick() == times; });
    };
    QVERIFY(asks(2));
    QCOMPARE(askedByATick(), 0);
    audio().setDevices({{"bad", false}, {"good", true}, {"new", true}});
    QVERIFY(asks(1)); // the current one still fits
    QCOMPARE(askedByATick(), 0);

    // An explicit check and a start tell what is true now.
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
    LogCapture log;
    QVERIFY(QTest::qWaitFor([&askedByATick] { return askedByATick() > 0; }));
    QVERIFY(log.take().contains(QStringLiteral("debug|recorder already stopped")));
    QCOMPARE(askedByATick(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|recorder already stopped")));
}

void AudioDevicesTest::defaultDeviceIsChosenAnew()
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

void AudioDevicesTest::defaultSourceChanges()
{
    audio().setDevices({{"mic", true}});
    QDBusConnection daemon =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("daemon"));
    QVERIFY(daemon.registerService(audioService));

    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    recorder->start();
    QVERIFY(busIsQuiet()); // the bus knows by now what the recorder listens to
    LogCapture log;
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

void AudioDevicesTest::defaultSourceChangesWhileIdle()
{
    audio().setDevices({{"mic", true}});
    AudioRecorder *recorder = AudioRecorder::getInstance();
    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    LogCapture log;
    recorder->DefaultSourceChanged(QDBusObjectPath(QStringLiteral("/s")));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral(
                              "info|default record device change to  \"/s\" , need stop record!"),
                          QStringLiteral("debug|recorder already stopped")}));
    QCOMPARE(stopped.count(), 0);
}

void AudioDevicesTest::foreignSourceSignals()
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
        QCOMPARE(callProcessingEvents(sender, pingCall()).type(), QDBusMessage::ReplyMessage);
    QVERIFY(busIsQuiet());
    QVERIFY(recorder->isRecording());

    QSignalSpy stopped(recorder, &AudioRecorder::recordStoped);
    QVERIFY(sourceChangedSignal(daemon, QStringLiteral("/s")));
    QTRY_COMPARE(stopped.count(), 1);
}

void AudioDevicesTest::daemonComesLater()
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

    // Without its name it is any other program, and whoever takes the name is the daemon.
    recorder->start();
    const auto endedByDaemon = [&] {
        const bool sent =
            sourceChangedSignal(daemon, QStringLiteral("/s")) &&
            callProcessingEvents(daemon, pingCall()).type() == QDBusMessage::ReplyMessage;
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

ISOLATED_TEST_CLASS(QCoreApplication, AudioDevicesTest, ScriptedAudio::install())
#include "audiodevices.moc"
