// The voice test panel while the real sound server is away, goes, or has no microphone. Each
// function in a process of its own: a process has one connection to the sound server.

#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "tests/support/virtualmicrophone.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <QApplication>
#include <QDeadlineTimer>

#include <memory>

using testsupport::ServiceProcess;
using testsupport::TimerTracker;
using testsupport::VirtualMicrophone;
using testsupport::VoicePage;

namespace {

constexpr int testMs = 10000;
constexpr int someBytes = 6400; // 0.2 s of sound
constexpr int reconnectionMs = 15000;

const QString silence = QStringLiteral("silence");
const QString noSound = QStringLiteral("No sound recorded");

} // namespace

class MicrophoneLostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void serverIsAbsent();
    void serverDiesWhileRecording();
    void serverHasNoMicrophone();

private:
    bool timeIsUp() const;
    bool recordsAgain();

    ServiceProcess m_network{QStringLiteral("networkmanager")};
    ServiceProcess m_aiService{QStringLiteral("aiservice")};
    VirtualMicrophone m_microphone;
    std::unique_ptr<TimerTracker> m_tracker;
    std::unique_ptr<VoicePage> m_page;
    int m_recordedBytes = 0;
};

void MicrophoneLostTest::init()
{
    qputenv("PULSE_SERVER", "unix:/nowhere/pulse"); // until a server is started
    QVERIFY(m_network.start());
    m_network.setValue(QStringLiteral("state"), 70u);
    QVERIFY(m_aiService.start());
    m_tracker = std::make_unique<TimerTracker>();
    m_page = std::make_unique<VoicePage>();
    connect(AudioRecorder::getInstance(), &AudioRecorder::audioRecorded, this,
            [this](const QByteArray &block) { m_recordedBytes += block.size(); });
}

void MicrophoneLostTest::cleanup()
{
    m_page.reset();
    m_tracker.reset();
}

// The ten seconds are over.
bool MicrophoneLostTest::timeIsUp() const
{
    const QList<QTimer *> timers = m_tracker->timers(testMs);
    return timers.size() == 1 && TimerTracker::fire(timers.first());
}

// The user tries until Qt is connected to the server again, which takes it a few seconds.
bool MicrophoneLostTest::recordsAgain()
{
    const QDeadlineTimer deadline(reconnectionMs);
    while (!deadline.hasExpired()) {
        m_recordedBytes = 0;
        if (!m_page->clickLink())
            return false;
        if (QTest::qWaitFor([this] { return m_recordedBytes > someBytes; }, 1000))
            return true;
        QTest::mouseClick(m_page->wave(), Qt::LeftButton);
        testsupport::flushDeferredDeletes();
    }
    return false;
}

// Where Qt finds no server at first it does not look again, so the second run has none either.
void MicrophoneLostTest::serverIsAbsent()
{
    for (int run = 0; run < 2; ++run) {
        QVERIFY(m_page->clickLink());
        QVERIFY(m_page->wave());
        QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
        QVERIFY(m_page->wave());
        QVERIFY(timeIsUp());
        QTRY_COMPARE(m_page->texts().value(2), noSound);
    }
    QCOMPARE(m_recordedBytes, 0);
}

void MicrophoneLostTest::serverDiesWhileRecording()
{
    QVERIFY(m_microphone.start(silence));
    QVERIFY(m_page->clickLink());
    QTRY_VERIFY(m_recordedBytes > someBytes);
    QVERIFY(m_microphone.stop());
    QVERIFY(m_page->wave());
    QVERIFY(timeIsUp());
    QTRY_COMPARE(m_page->texts().value(2), noSound);
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    QVERIFY(m_microphone.start(silence));
    QVERIFY(recordsAgain());
    QVERIFY(timeIsUp());
    QTRY_COMPARE(m_page->texts().value(2), noSound);
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    m_page.reset();
    QVERIFY(m_microphone.stop());
}

void MicrophoneLostTest::serverHasNoMicrophone()
{
    QVERIFY(m_microphone.start(QStringLiteral("none")));
    const QTemporaryDir recordings;
    m_aiService.setValue(QStringLiteral("recordDirectory"), recordings.path());
    QVERIFY(m_page->clickLink());
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(timeIsUp());
    QTRY_COMPARE(m_page->texts().value(2), noSound);
    QCOMPARE(m_recordedBytes, 0);
    const auto files = QDir(recordings.path()).entryInfoList(QDir::Files);
    QCOMPARE(files.size(), 2);
    for (const QFileInfo &file : files)
        QCOMPARE(int(file.size()), sandbox::wavfile::headerBytes);
    m_page.reset();
    QVERIFY(m_aiService.stop());
    QVERIFY(m_microphone.stop());
}

ISOLATED_TEST_CLASS(QApplication, MicrophoneLostTest, )
#include "microphonelost.moc"
