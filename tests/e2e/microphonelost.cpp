#include "doctor/failures.h"
#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/processpause.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "tests/support/turnwatch.h"
#include "tests/support/virtualmicrophone.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QtTest>

#include <functional>
#include <memory>

// What the voice test panel makes of a real sound server that is not there, hangs or dies.

using doctor::SoundWorld;
using testsupport::ServiceProcess;
using testsupport::TimerTracker;
using testsupport::VirtualMicrophone;
using testsupport::VoicePage;

namespace {

constexpr int testMs = 10000;
constexpr int someBytes = 6400; // 0.2 s of sound
constexpr int reconnectionMs = 15000;
constexpr int hungMs = 1500;

const QString silence = QStringLiteral("silence");
const QString noSound = QStringLiteral("No sound recorded");

/** The warning that the table has for it. */
QByteArray logOf(SoundWorld world)
{
    return doctor::soundFailures().at(int(world)).log.section(QLatin1Char('|'), 1).toUtf8();
}

} // namespace

/** The panel without a microphone. Each function in a process of its own: a process has one
 * connection to the sound server. */
class MicrophoneLostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void serverIsAbsent();
    void serverDiesWhileRecording();
    void serverHasNoMicrophone();
    void serverHangsAtTheFirstLook();
    void serverHangsLater();

private:
    bool timeIsUp() const;
    bool recordsAgain();
    void cancel() const;
    QString whileServerHangs(SoundWorld world, const std::function<void()> &act);

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
        cancel();
    }
    return false;
}

// The test that runs, if one does.
void MicrophoneLostTest::cancel() const
{
    if (m_page->wave())
        QTest::mouseClick(m_page->wave(), Qt::LeftButton);
    testsupport::flushDeferredDeletes();
}

// Where Qt finds no server at first it does not look again, so the second run has none either.
void MicrophoneLostTest::serverIsAbsent()
{
    for (int run = 0; run < 2; ++run) {
        QTest::ignoreMessage(QtWarningMsg, logOf(SoundWorld::Absent).constData());
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
    QTest::ignoreMessage(QtWarningMsg, logOf(SoundWorld::Absent).constData());
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

// Whether the window stands still while it hangs, and works afterwards, as the table says.
QString MicrophoneLostTest::whileServerHangs(SoundWorld world, const std::function<void()> &act)
{
    testsupport::TurnWatch turns;
    testsupport::ProcessPause pause;
    const QDeadlineTimer over(hungMs);
    pause.stop(m_microphone.serverProcesses(), hungMs);
    act();
    if (!QTest::qWaitFor([&] { return over.hasExpired(); }, 2 * hungMs))
        return QStringLiteral("it does not return");
    const qint64 ms = turns.longest().ms;
    if (doctor::soundFailures().at(int(world)).standsStill ? ms < hungMs / 2 : ms > hungMs / 3)
        return QStringLiteral("it stood still for %1 ms").arg(ms);
    if (!m_page)
        m_page = std::make_unique<VoicePage>();
    cancel();
    return recordsAgain() ? QString() : QStringLiteral("it does not record any more");
}

// Qt's plugin connects to the server when the devices are first looked at.
void MicrophoneLostTest::serverHangsAtTheFirstLook()
{
    QVERIFY(m_microphone.start(silence));
    QCOMPARE(whileServerHangs(SoundWorld::HangsAtFirst, [] {}), QString());
}

void MicrophoneLostTest::serverHangsLater()
{
    QVERIFY(m_microphone.start(silence));
    QVERIFY(recordsAgain());
    QCOMPARE(whileServerHangs(SoundWorld::HangsAtEnd, [this] { timeIsUp(); }), QString());
    QCOMPARE(whileServerHangs(SoundWorld::HangsAtEnd, [this] { m_page.reset(); }), QString());
    QCOMPARE(whileServerHangs(SoundWorld::HangsAtEnd, [this] { cancel(); }), QString());
    QCOMPARE(whileServerHangs(SoundWorld::HangsAlong, [] {}), QString());
    cancel();
    QCOMPARE(whileServerHangs(SoundWorld::HangsAlong, [] {}), QString());
    cancel();
    bool clicked = false;
    QCOMPARE(whileServerHangs(SoundWorld::HangsAtStart, [&] { clicked = m_page->clickLink(); }),
             QString());
    QVERIFY(clicked);
}

ISOLATED_TEST_CLASS(QApplication, MicrophoneLostTest, )
#include "microphonelost.moc"
