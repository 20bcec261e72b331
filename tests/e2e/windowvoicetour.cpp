#include "tests/e2e/windowprogram.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using testsupport::failureOf;
using testsupport::runTour;
using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;
using testsupport::Warnings;
using testsupport::WindowRun;

/** The part of the tour that speaks into a microphone: whole voice tests and their verdicts. */
class WindowVoiceTourTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyVoiceTestEndsWithTheRightVerdict();
    void withoutAVirtualMicrophoneTheTourFails();
};

void WindowVoiceTourTest::everyVoiceTestEndsWithTheRightVerdict()
{
    VirtualMicrophone microphone;
    QVERIFY(microphone.start(QStringLiteral("speech")));
    qputenv("SANDBOX_MICROPHONE",
            QFileInfo(microphone.recordingFile(QStringLiteral("speech"))).path().toLocal8Bit());
    ServiceProcess ai(QStringLiteral("aiservice"));
    ServiceProcess audio(QStringLiteral("audio"));
    ServiceProcess assistant(QStringLiteral("assistant"));
    ServiceProcess dock(QStringLiteral("dock"));
    ServiceProcess network(QStringLiteral("networkmanager"));
    for (ServiceProcess *service : {&ai, &audio, &assistant, &dock, &network})
        QVERIFY(service->start());

    const QTemporaryDir pictures;
    const WindowRun run =
        runTour(pictures.path(), {QStringLiteral("--section"), QStringLiteral("voice")});
    const QString problem = failureOf(run, pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

// Nobody's room is recorded by a tour.
void WindowVoiceTourTest::withoutAVirtualMicrophoneTheTourFails()
{
    qunsetenv("SANDBOX_MICROPHONE");
    const QTemporaryDir pictures;
    const WindowRun run = runTour(
        pictures.path(), {QStringLiteral("--section"), QStringLiteral("voice")}, Warnings::Allowed);
    QCOMPARE(run.exitCode, 1);
    QVERIFY(!run.lines.filter(QStringLiteral("no virtual microphone")).isEmpty());
}

QTEST_GUILESS_MAIN(WindowVoiceTourTest)
#include "windowvoicetour.moc"
