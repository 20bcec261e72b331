#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"
#include "voice/aqcwrapper.h"

#include <QtTest>

using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;

/** A voice test on a sound server that has no microphone. */
class MicrophoneNoneTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noSoundIsTheVerdict();
};

void MicrophoneNoneTest::noSoundIsTheVerdict()
{
    VirtualMicrophone microphone;
    QVERIFY(microphone.start(QStringLiteral("none")));
    ServiceProcess aiService(QStringLiteral("aiservice"));
    const QTemporaryDir recordings;
    QVERIFY(aiService.start({QStringLiteral("--record"), recordings.path()}));

    AqcWrapper voiceTest;
    QSignalSpy verdicts(&voiceTest, &AqcWrapper::signalAqcResult);
    QSignalSpy levels(&voiceTest, &AqcWrapper::signalUpdateAudioLevel);
    QCOMPARE(voiceTest.start(), 0);
    QVERIFY(verdicts.wait(20000));

    const QString verdict = verdicts.first().first().toString();
    QVERIFY2(verdict.contains(QStringLiteral("1003")), qPrintable(verdict));
    QCOMPARE(levels.count(), 0);
    const auto files = QDir(recordings.path()).entryInfoList(QDir::Files);
    QCOMPARE(files.size(), 2);
    for (const QFileInfo &file : files)
        QCOMPARE(int(file.size()), sandbox::WavFile::headerBytes);
    QVERIFY(aiService.stop());
    QVERIFY(microphone.stop());
}

QTEST_GUILESS_MAIN(MicrophoneNoneTest)
#include "microphonenone.moc"
