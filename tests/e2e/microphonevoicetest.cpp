#include "tests/support/serviceprocess.h"
#include "tests/support/spokenrecording.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualmicrophone.h"
#include "voice/aqcwrapper.h"
#include "voice/audiorecorder.h"

#include <QtTest>

#include <algorithm>

using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;
namespace spokenrecording = testsupport::spokenrecording;

namespace {

const QString phrase = QStringLiteral("阿岚帮我预约明天早上10点的视频会议");

} // namespace

/** A whole voice test: spoken into the virtual microphone, recorded by the module, judged by the
 * real AI service. */
class MicrophoneVoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tenSecondsOfSpeech();
};

void MicrophoneVoiceTest::tenSecondsOfSpeech()
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
    QCOMPARE(words, phrase);
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

TEST_CLASS(QCoreApplication, MicrophoneVoiceTest)
#include "microphonevoicetest.moc"
