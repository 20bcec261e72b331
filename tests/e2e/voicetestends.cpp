// How voice tests end: by themselves, or with the process.

#include "tests/support/serviceprocess.h"
#include "tests/support/spokenrecording.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualmicrophone.h"
#include "voice/aqcwrapper.h"
#include "voice/audiorecorder.h"

#include <QtTest>

#include <algorithm>
#include <map>

using testsupport::ChildProcess;
using testsupport::QuietMachine;
using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;
namespace spokenrecording = testsupport::spokenrecording;

/** A whole voice test: spoken into the virtual microphone, recorded by the module, judged by the
 * real AI service. */
class WholeVoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tenSecondsOfSpeech();
};

void WholeVoiceTest::tenSecondsOfSpeech()
{
    VirtualMicrophone microphone;
    ServiceProcess audioDaemon(QStringLiteral("audio"));
    ServiceProcess aiService(QStringLiteral("aiservice"));
    QVERIFY(microphone.start(QStringLiteral("speech")));
    QVERIFY(audioDaemon.start());
    QVERIFY(aiService.start());
    const QTemporaryDir recordings;
    aiService.setValue(QStringLiteral("recordDirectory"), recordings.path());

    AqcWrapper voiceTest;
    QSignalSpy verdicts(&voiceTest, &AqcWrapper::signalAqcResult);
    double loudest = 0.0;
    connect(&voiceTest, &AqcWrapper::signalUpdateAudioLevel, this,
            [&](double level) { loudest = qMax(loudest, level); });
    QString words;
    connect(&voiceTest, &AqcWrapper::signaleIatResult, this,
            [&](const QString &result) { words = result; });
    QCOMPARE(voiceTest.start(), 0);
    QElapsedTimer clock;
    clock.start();
    qint64 stoppedMs = 0;
    connect(AudioRecorder::getInstance(), &AudioRecorder::recordStoped, this,
            [&] { stoppedMs = clock.elapsed(); });
    QVERIFY(verdicts.wait(20000));

    // It ends by itself, when its ten seconds are over, and everything with it.
    QVERIFY2(clock.elapsed() < 11000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY2(qAbs(stoppedMs - 10000) < 200, qPrintable(QString::number(stoppedMs)));
    QVERIFY(aiService.waitForCalls(QStringLiteral("freeSession")));
    QCOMPARE(aiService.calls(QStringLiteral("stopAqc")).size(), 1);
    QCOMPARE(aiService.calls(QStringLiteral("stopIat")).size(), 1);

    QCOMPARE(verdicts.count(), 1);
    const QString verdict = verdicts.first().first().toString();
    QVERIFY2(verdict.contains(QStringLiteral("1000")), qPrintable(verdict));
    QCOMPARE(words, QStringLiteral("阿岚帮我预约明天早上10点的视频会议"));
    const QStringList files = QDir(recordings.path()).entryList({QStringLiteral("aqc-*.wav")});
    QCOMPARE(files.size(), 1);
    const auto heard = spokenrecording::read(recordings.filePath(files.first()));
    QVERIFY(!heard.isEmpty());
    const auto peak = *std::max_element(heard.cbegin(), heard.cend(),
                                        [](int a, int b) { return std::abs(a) < std::abs(b); });
    QCOMPARE(loudest, qMin(1.0, std::abs(int(peak)) / 32767.0));

    QVERIFY(aiService.stop());
    QVERIFY(audioDaemon.stop());
    QVERIFY(microphone.stop());
}

TEST_CLASS(QCoreApplication, WholeVoiceTest)

namespace {

constexpr int startLimitMs = 30000;
constexpr int endLimitMs = 60000;
// Sound servers refuse many programs at once, and more than some sixty of them.
constexpr int startingAtOnce = 4;
constexpr int runningAtOnce = 32;

/** What the program is told, one word each; with and without a moment in milliseconds. */
QVector<QStringList> waysToEnd()
{
    QVector<QStringList> ways;
    for (const char *application : {"stack", "heap"}) {
        for (const char *ending : {"close", "quit", "return"})
            ways.append({application, "before", ending});
        for (const char *ending : {"quit", "return"})
            ways.append({application, "kept", ending});
        ways.append({application, "after", "close"}); // Qt lets no visible widget go so late
        ways.append({application, "kept", "exit"});
        ways.append({application, "replaced", "exit"});
    }
    ways.append({"stack", "replaced", "quit"});
    ways.append({"stack", "successor", "quit"});
    ways.append({"kept", "before", "return"});
    ways.append({"kept", "kept", "quit"});

    // The longest first.
    QVector<QStringList> all;
    for (const char *moment : {"9900", "2000", "200"})
        for (const QStringList &way : qAsConst(ways))
            all.append(way + QStringList(QString::fromLatin1(moment)));
    return all + ways;
}

} // namespace

/**
 * The control center's process ends in the middle of a voice test, in every order and at several
 * moments, each in a process of its own, of which many run at the same time.
 */
class VoiceTestEndsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void endsWell_data();
    void endsWell();
    void leavesNoSessionOpen();

private:
    int running() const;

    QuietMachine m_machine;
    std::map<QString, ChildProcess> m_programs;
};

void VoiceTestEndsTest::initTestCase()
{
    QVERIFY(m_machine.start());
    QVector<ChildProcess *> starting;
    for (const QStringList &way : waysToEnd()) {
        if (starting.size() == startingAtOnce) {
            ChildProcess *first = starting.takeFirst();
            QVERIFY2(first->waitForLine(startLimitMs) == "recording",
                     first->readAllStandardError().constData());
        }
        QTRY_VERIFY_WITH_TIMEOUT(running() < runningAtOnce, endLimitMs);
        ChildProcess &program = m_programs[way.join(QLatin1Char(' '))];
        program.start(QStringLiteral(VOICETESTEXIT_PROGRAM), way);
        starting.append(&program);
    }
}

void VoiceTestEndsTest::cleanupTestCase()
{
    m_programs.clear();
    QVERIFY(m_machine.microphone.stop());
}

int VoiceTestEndsTest::running() const
{
    return int(std::count_if(m_programs.cbegin(), m_programs.cend(), [](const auto &program) {
        return program.second.state() != QProcess::NotRunning;
    }));
}

void VoiceTestEndsTest::endsWell_data()
{
    QTest::addColumn<QString>("way");
    for (const QStringList &words : waysToEnd()) {
        const QString way = words.join(QLatin1Char(' '));
        QTest::newRow(qPrintable(way)) << way;
    }
}

void VoiceTestEndsTest::endsWell()
{
    QFETCH(QString, way);
    ChildProcess &program = m_programs.at(way);
    QVERIFY(program.state() == QProcess::NotRunning || program.waitForFinished(endLimitMs));
    const QByteArray output = program.readAllStandardError();
    QVERIFY2(program.exitStatus() == QProcess::NormalExit, output.constData());
    QVERIFY2(program.exitCode() == 0, output.constData());
}

void VoiceTestEndsTest::leavesNoSessionOpen()
{
    // A session is freed as the last thing of a test's end.
    const int tests = int(m_programs.size());
    QTRY_VERIFY(m_machine.aiService.value(QStringLiteral("freed"))
                    .toStringList()
                    .filter(QStringLiteral("iat"))
                    .size() >= tests);
}

TEST_CLASS(QCoreApplication, VoiceTestEndsTest)
#include "voicetestends.moc"
