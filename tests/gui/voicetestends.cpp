#include "tests/support/serviceprocess.h"

#include <QProcess>
#include <QtTest>

using testsupport::ServiceProcess;

/** The control center's process ends, or loses the page, in the middle of a voice test. */
class VoiceTestEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsWell_data();
    void endsWell();
};

void VoiceTestEnds::endsWell_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way :
         {"the application goes before the page", "the page goes before the application",
          "the event loop ends", "the frame replaces the page",
          "the replaced page's successor runs a test, too", "the window is closed",
          "exit with the page", "exit without the page"}) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

void VoiceTestEnds::endsWell()
{
    QFETCH(QString, way);
    ServiceProcess network(QStringLiteral("networkmanager"));
    QVERIFY(network.start());
    network.setValue(QStringLiteral("state"), 70u);
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());

    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    // exit() never destroys the application object, so Qt keeps all that it has.
    if (way.startsWith(QLatin1String("exit"))) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        program.setProcessEnvironment(environment);
    }
    program.start(QStringLiteral(VOICETESTEXIT_PROGRAM), {way});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    // Nothing of the test was left at the service.
    QVERIFY(service.waitForCalls(QStringLiteral("startIat")));
    QVERIFY(service.waitForCalls(QStringLiteral("stopAqc")));
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
}

QTEST_GUILESS_MAIN(VoiceTestEnds)
#include "voicetestends.moc"
