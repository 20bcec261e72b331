// When the microphone is open, as the sound server sees it. Each function in a process of its own:
// a process has one connection to the sound server.

#include "pages/voiceiatsettingwidget.h"
#include "plugin/tavrenaiassitantcontrolplugin.h"
#include "tests/support/doctorrun.h"
#include "tests/support/fakeframe.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "tests/support/virtualmicrophone.h"
#include "tests/support/voicepage.h"
#include "voice/audiorecorder.h"

#include <QApplication>
#include <QAudioDeviceInfo>
#include <QCoreApplication>
#include <QLibraryInfo>

#include <algorithm>

using testsupport::ChildProcess;
using testsupport::QuietMachine;
using testsupport::RecordingStreams;
using testsupport::ServiceProcess;
using testsupport::TimerTracker;
using testsupport::VoicePage;

namespace {

constexpr int checkMs = 500;
constexpr int testMs = 10000;
constexpr int ticks = 20; // of the check

constexpr qint64 askingLimitMs = checkMs; // some milliseconds where nothing else runs
constexpr qint64 closingLimitMs = 100;
constexpr int waitingLimitMs = 5000;

int deviceCount()
{
    return QAudioDeviceInfo::availableDevices(QAudio::AudioInput).size();
}

/** Everybody was asked once at most, and only for a moment. */
bool onlyAsked(const QVector<RecordingStreams::Stream> &streams)
{
    const auto brief = [](const RecordingStreams::Stream &stream) {
        return stream.closedMs >= 0 && stream.closedMs - stream.openedMs < askingLimitMs;
    };
    return streams.size() <= deviceCount() && std::all_of(streams.cbegin(), streams.cend(), brief);
}

/** How long each was open. */
QString text(const QVector<RecordingStreams::Stream> &streams)
{
    QStringList times;
    for (const RecordingStreams::Stream &stream : streams)
        times << QString::number(stream.closedMs - stream.openedMs);
    return QStringLiteral("open for ") + times.join(QLatin1String(" ms, ")) + QStringLiteral(" ms");
}

} // namespace

class MicrophoneOpenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void openedToAskOnly();
    void openedToAskOnlyWithAlsa();
    void cancelled();
    void timeIsUp();
    void verdictArrives();
    void pageReplaced();
    void pageDestroyed();
    void pageDestroyedBeforeAnotherWaits();
    void pageDestroyedWhileAnotherWaits();
    void programExits();
    void programAborts();

private:
    enum Moment { BeforeTheWait, DuringTheWait };

    void checkIdleTicks(bool askingOpens);
    void startVoiceTest(const VoicePage &page);
    void checkClosed(qint64 endedMs);
    void checkPageDestroyed(Moment moment);
    void checkProgram(const char *ending);

    QuietMachine m_machine;
    RecordingStreams m_streams;
    TimerTracker m_tracker;
};

void MicrophoneOpenTest::init()
{
    QVERIFY(m_machine.start());
    QVERIFY(m_streams.start());
}

void MicrophoneOpenTest::cleanup()
{
    QVERIFY(!QTest::currentTestFailed());
}

void MicrophoneOpenTest::checkIdleTicks(bool askingOpens)
{
    const VoicePage page;
    const QList<QTimer *> timers = m_tracker.timers(checkMs);
    QCOMPARE(timers.size(), 1);
    const auto tick = [&timers] {
        for (int i = 0; i < ticks; ++i)
            TimerTracker::fire(timers.first());
    };
    tick();
    QVERIFY(deviceCount() > 0);
    QVERIFY2(onlyAsked(m_streams.streams()), qPrintable(text(m_streams.streams())));
    QCOMPARE(!m_streams.streams().isEmpty(), askingOpens);

    // And once more when there is another device.
    m_streams.clear();
    const QStringList another = {QStringLiteral("load-module"), QStringLiteral("module-null-sink")};
    QCOMPARE(QProcess::execute(QStringLiteral("pactl"), another), 0);
    tick();
    QVERIFY2(onlyAsked(m_streams.streams()), qPrintable(text(m_streams.streams())));
}

void MicrophoneOpenTest::openedToAskOnly()
{
    checkIdleTicks(false); // PulseAudio's plugin has no need to
}

// Where Qt has only its ALSA plugin, and ALSA has devices that are the sound server's.
void MicrophoneOpenTest::openedToAskOnlyWithAlsa()
{
    const QTemporaryDir folder;
    QFile configuration(folder.filePath(QStringLiteral("alsa.conf")));
    QVERIFY(configuration.open(QIODevice::WriteOnly));
    for (const char *device : {"default", "second"})
        configuration.write(QByteArray("pcm.") + device +
                            " { type pulse hint { show on description microphone } }\n");
    configuration.close();
    qputenv("ALSA_CONFIG_PATH", QFile::encodeName(configuration.fileName()));

    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("audio")));
    const QString plugin = QStringLiteral("/audio/libqtaudio_alsa.so");
    QVERIFY(QFile::link(QLibraryInfo::location(QLibraryInfo::PluginsPath) + plugin,
                        folder.path() + plugin));
    QCoreApplication::setLibraryPaths({folder.path()});
    checkIdleTicks(true);
}

void MicrophoneOpenTest::startVoiceTest(const VoicePage &page)
{
    m_streams.clear();
    QVERIFY(page.clickLink());
    QTRY_COMPARE(m_streams.open(), 1);
}

void MicrophoneOpenTest::checkClosed(qint64 endedMs)
{
    QTRY_COMPARE(m_streams.open(), 0);
    const qint64 took = m_streams.streams().last().closedMs - endedMs;
    QVERIFY2(took <= closingLimitMs, qPrintable(QString::number(took)));
}

void MicrophoneOpenTest::cancelled()
{
    const VoicePage page;
    startVoiceTest(page);
    QTest::mouseClick(page.wave(), Qt::LeftButton);
    checkClosed(RecordingStreams::now());
}

void MicrophoneOpenTest::timeIsUp()
{
    const VoicePage page;
    startVoiceTest(page);
    QVERIFY(TimerTracker::fire(m_tracker.timers(testMs).first()));
    checkClosed(RecordingStreams::now());
}

void MicrophoneOpenTest::verdictArrives()
{
    const VoicePage page;
    startVoiceTest(page);
    m_machine.aiService.setValue(
        QStringLiteral("notify"),
        QStringList({QStringLiteral("/session/aqc/1"), QStringLiteral("1000")}));
    checkClosed(RecordingStreams::now());
    QVERIFY(page.link());
}

void MicrophoneOpenTest::pageReplaced()
{
    testsupport::FakeFrame frame;
    TavrenAIAssitantControlPlugin module;
    module.setFrameProxy(&frame);
    module.active();
    QVERIFY(frame.showActive());
    frame.page()->findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
    QTRY_COMPARE(m_streams.open(), 1);
    module.load(QStringLiteral("Speech to Text"));
    checkClosed(RecordingStreams::now());
}

void MicrophoneOpenTest::pageDestroyed()
{
    VoicePage page;
    startVoiceTest(page);
    page.destroy();
    checkClosed(RecordingStreams::now());
}

void MicrophoneOpenTest::pageDestroyedBeforeAnotherWaits()
{
    checkPageDestroyed(BeforeTheWait);
}

void MicrophoneOpenTest::pageDestroyedWhileAnotherWaits()
{
    checkPageDestroyed(DuringTheWait);
}

// The other page's service hangs, until the microphone is closed.
void MicrophoneOpenTest::checkPageDestroyed(Moment moment)
{
    ServiceProcess keybinding(QStringLiteral("keybinding"));
    QVERIFY(keybinding.start());
    VoicePage page;
    startVoiceTest(page);
    keybinding.hang();

    qint64 destroyedMs = 0;
    const auto destroy = [&] {
        page.destroy();
        destroyedMs = RecordingStreams::now();
    };
    bool closed = false;
    const QDeadlineTimer deadline(waitingLimitMs);
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        closed = destroyedMs > 0 && m_streams.open() == 0;
        if (closed || deadline.hasExpired()) {
            look.stop();
            keybinding.resume();
        }
    });
    look.start(1);
    QEventLoop loop;
    QTimer::singleShot(0, this, [&] {
        if (moment == BeforeTheWait)
            destroy();
        else
            QTimer::singleShot(0, this, destroy);
        const VoiceIatSettingWidget other(nullptr);
        loop.quit();
    });
    loop.exec();
    QVERIFY(closed);
    checkClosed(destroyedMs);
}

void MicrophoneOpenTest::checkProgram(const char *ending)
{
    ChildProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QStringLiteral(VOICETESTEXIT_PROGRAM),
                  {QStringLiteral("stack"), QStringLiteral("kept"), QLatin1String(ending),
                   QStringLiteral("1000")});
    QCOMPARE(program.waitForLine(waitingLimitMs), QByteArray("recording"));
    QTRY_COMPARE(m_streams.open(), 1);
    const qint64 ended = program.waitForLine(waitingLimitMs).toLongLong();
    QVERIFY(ended > 0);
    checkClosed(ended);
    QVERIFY(program.state() == QProcess::NotRunning || program.waitForFinished());
}

void MicrophoneOpenTest::programExits()
{
    checkProgram("exit");
}

void MicrophoneOpenTest::programAborts()
{
    checkProgram("abort");
}

ISOLATED_TEST_CLASS(QApplication, MicrophoneOpenTest, )

using testsupport::examine;
using testsupport::Run;
using testsupport::runDoctor;
using testsupport::VirtualMicrophone;

// The doctor on a machine with a microphone: it opens none unless it is told to.
class DoctorMicrophoneTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void opensItOnlyToListen();
    void hears_data();
    void hears();
    void muted();
    void speakersSound();

private:
    bool soundServer(const QStringList &command);

    VirtualMicrophone m_microphone;
    RecordingStreams m_streams;
};

void DoctorMicrophoneTest::initTestCase()
{
    QVERIFY(m_microphone.start("speech"));
    QVERIFY(m_streams.start());
}

bool DoctorMicrophoneTest::soundServer(const QStringList &command)
{
    return QProcess::execute("pactl", command) == 0;
}

void DoctorMicrophoneTest::opensItOnlyToListen()
{
    QCOMPARE(examine().of("microphone", "microphone"),
             QStringLiteral("ok: is the default one, not muted, and has the format"));
    QCOMPARE(m_streams.streams().size(), 0);

    const Run result = runDoctor({"--json", "--listen"});
    QVERIFY2(result.of("listen", "microphone").startsWith("ok: was heard for 2."),
             qPrintable(result.of("listen")));
    QCOMPARE(m_streams.streams().size(), 1);
    QCOMPARE(m_streams.open(), 0);
    QCOMPARE(result.error, QByteArray("Speak for two seconds.\n"));
}

void DoctorMicrophoneTest::hears_data()
{
    // No noise: the room falls silent for the moment in which somebody begins to record.
    QTest::addColumn<QString>("verdict");
    QTest::newRow("loud") << "Turn down the input volume and try again";
    QTest::newRow("quiet") << "Turn up the input volume and try again";
    QTest::newRow("silence") << "No sound recorded";
}

void DoctorMicrophoneTest::hears()
{
    QFETCH(QString, verdict);
    QVERIFY(m_microphone.changeKind(QTest::currentDataTag()));
    const Run result = runDoctor({"--listen"});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.output.contains("ends with \"" + verdict.toUtf8() + '"'),
             result.output.constData());
}

void DoctorMicrophoneTest::muted()
{
    QVERIFY(soundServer({"set-source-mute", "microphone", "1"}));
    QCOMPARE(examine().of("microphone", "microphone"),
             QStringLiteral("failure: is the default one, and is muted"));
    QVERIFY(soundServer({"set-source-mute", "microphone", "0"}));
}

void DoctorMicrophoneTest::speakersSound()
{
    QVERIFY(soundServer({"set-default-source", "room.monitor"}));
    QCOMPARE(examine().of("microphone", "room.monitor"),
             QStringLiteral("failure: is the default one, and is what a speaker plays"));
    QVERIFY(soundServer({"set-default-source", "microphone"}));
}

TEST_CLASS(QCoreApplication, DoctorMicrophoneTest)

#include "microphoneopen.moc"
