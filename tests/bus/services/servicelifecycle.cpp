#include "sandbox/services/control/servicelist.h"
#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QProcessEnvironment>
#include <QTemporaryFile>
#include <QtTest>

#include <csignal>

using testsupport::ChildProcess;

namespace {

constexpr int limitMs = 20000;

QString programOf(const QString &service)
{
    return QStringLiteral(SANDBOX_SERVICES_DIR "/sandbox-") + service;
}

/** What a run that should end by itself leaves; the exit code is -1 when it does not end in order.
 */
struct Run
{
    int exitCode = -1;
    QByteArray output;
    QByteArray error;
};

Run finish(QProcess &process)
{
    Run run;
    if ((process.state() == QProcess::NotRunning || process.waitForFinished(limitMs)) &&
        process.exitStatus() == QProcess::NormalExit) {
        run.exitCode = process.exitCode();
    }
    run.output = process.readAllStandardOutput();
    run.error = process.readAllStandardError();
    return run;
}

} // namespace

/** How every service starts and ends: exit codes, first line, signals, loss of the bus. */
class ServiceLifecycleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readyLineComesWhenTheNameIsOwned_data();
    void readyLineComesWhenTheNameIsOwned();
    void endsInOrderOnSignals_data();
    void endsInOrderOnSignals();
    void takenNameHasItsOwnExitCode_data();
    void takenNameHasItsOwnExitCode();
    void refusedNameSaysWhatTheBusSays();
    void unreachableBusHasItsOwnExitCode_data();
    void unreachableBusHasItsOwnExitCode();
    void endsWhenTheBusGoesAway();
    void helpAndVersionNeedNoBus_data();
    void helpAndVersionNeedNoBus();
    void unknownOptionIsRefused();
    void unwritableStateIsReportedAndTheServiceRuns();

private:
    void addServices();
};

void ServiceLifecycleTest::addServices()
{
    QTest::addColumn<QString>("service");
    QTest::addColumn<QString>("busName");
    QTest::addColumn<bool>("onSystemBus");
    for (const sandbox::ServiceIdentity &service : sandbox::serviceList()) {
        QTest::newRow(qPrintable(service.name))
            << service.name << service.busName << (service.bus == QDBusConnection::SystemBus);
    }
}

void ServiceLifecycleTest::readyLineComesWhenTheNameIsOwned_data()
{
    addServices();
}

void ServiceLifecycleTest::readyLineComesWhenTheNameIsOwned()
{
    QFETCH(QString, service);
    QFETCH(QString, busName);
    QFETCH(bool, onSystemBus);
    ChildProcess process;
    process.start(programOf(service), QStringList());
    const QByteArray ready = process.waitForLine(limitMs);
    QCOMPARE(ready, "ready " + busName.toUtf8() + (onSystemBus ? " system" : " session"));
    QCOMPARE(QDBusConnection::sessionBus().interface()->isServiceRegistered(busName).value(),
             !onSystemBus);
    QCOMPARE(QDBusConnection::systemBus().interface()->isServiceRegistered(busName).value(),
             onSystemBus);
    process.terminate();
    QCOMPARE(finish(process).exitCode, 0);
}

void ServiceLifecycleTest::endsInOrderOnSignals_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void ServiceLifecycleTest::endsInOrderOnSignals()
{
    QFETCH(int, signalNumber);
    ChildProcess process;
    process.start(programOf("dock"), QStringList());
    QVERIFY(!process.waitForLine(limitMs).isEmpty());
    ::kill(pid_t(process.processId()), signalNumber);
    const Run run = finish(process);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.error, QByteArray());
}

void ServiceLifecycleTest::takenNameHasItsOwnExitCode_data()
{
    addServices();
}

void ServiceLifecycleTest::takenNameHasItsOwnExitCode()
{
    QFETCH(QString, service);
    QFETCH(QString, busName);
    QFETCH(bool, onSystemBus);
    QDBusConnection owner =
        onSystemBus ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
    QVERIFY(owner.registerService(busName));
    ChildProcess process;
    process.start(programOf(service), QStringList());
    const Run run = finish(process);
    QVERIFY(owner.unregisterService(busName));
    QCOMPARE(run.exitCode, 4);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.error, QStringLiteral("%1: %2 cannot be owned: process %3 owns it\n")
                            .arg(service, busName)
                            .arg(QCoreApplication::applicationPid())
                            .toUtf8());
}

void ServiceLifecycleTest::refusedNameSaysWhatTheBusSays()
{
    QTemporaryFile config;
    QVERIFY(config.open());
    config.write("<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>"
                 "<policy context='default'><allow send_destination='*'/>"
                 "<allow receive_sender='*'/>"
                 "<deny own='*'/></policy></busconfig>");
    config.close();
    ChildProcess daemon;
    daemon.start("dbus-daemon",
                 {"--config-file=" + config.fileName(), "--nofork", "--print-address"});
    const QByteArray address = daemon.waitForLine(limitMs);
    QVERIFY(!address.isEmpty());

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", QString::fromLatin1(address));
    ChildProcess process;
    process.setProcessEnvironment(environment);
    process.start(programOf("networkmanager"), QStringList());
    const Run run = finish(process);
    QCOMPARE(run.exitCode, 4);
    QVERIFY2(run.error.contains("cannot be owned: ") &&
                 run.error.contains("not allowed to own the service"),
             run.error.constData());
    daemon.kill();
    QVERIFY(daemon.waitForFinished(limitMs));
}

void ServiceLifecycleTest::unreachableBusHasItsOwnExitCode_data()
{
    addServices();
}

void ServiceLifecycleTest::unreachableBusHasItsOwnExitCode()
{
    QFETCH(QString, service);
    QFETCH(bool, onSystemBus);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(onSystemBus ? "DBUS_SYSTEM_BUS_ADDRESS" : "DBUS_SESSION_BUS_ADDRESS",
                       "unix:path=/nowhere");
    ChildProcess process;
    process.setProcessEnvironment(environment);
    process.start(programOf(service), QStringList());
    const Run run = finish(process);
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.error.contains("bus cannot be reached"), run.error.constData());
}

void ServiceLifecycleTest::endsWhenTheBusGoesAway()
{
    ChildProcess daemon;
    daemon.start("dbus-daemon", {"--config-file=" BUS_CONFIG, "--nofork", "--print-address"});
    const QByteArray address = daemon.waitForLine(limitMs);
    QVERIFY(!address.isEmpty());

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DBUS_SESSION_BUS_ADDRESS", QString::fromLatin1(address));
    ChildProcess process;
    process.setProcessEnvironment(environment);
    process.start(programOf("dock"), QStringList());
    QVERIFY(!process.waitForLine(limitMs).isEmpty());

    daemon.kill();
    QVERIFY(daemon.waitForFinished(limitMs));
    const Run run = finish(process);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.error, QByteArray("dock: the bus has gone away\n"));
}

void ServiceLifecycleTest::helpAndVersionNeedNoBus_data()
{
    addServices();
}

void ServiceLifecycleTest::helpAndVersionNeedNoBus()
{
    QFETCH(QString, service);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    ChildProcess help;
    help.setProcessEnvironment(environment);
    help.start(programOf(service), {"--help"});
    const Run helpRun = finish(help);
    QCOMPARE(helpRun.exitCode, 0);
    QVERIFY(helpRun.output.contains("--state"));

    ChildProcess version;
    version.setProcessEnvironment(environment);
    version.start(programOf(service), {"--version"});
    const Run versionRun = finish(version);
    QCOMPARE(versionRun.exitCode, 0);
    QVERIFY(versionRun.output.startsWith("sandbox-" + service.toUtf8() + ' '));
}

void ServiceLifecycleTest::unknownOptionIsRefused()
{
    ChildProcess process;
    process.start(programOf("dock"), {"--turbo"});
    const Run run = finish(process);
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.error.contains("turbo"));
}

void ServiceLifecycleTest::unwritableStateIsReportedAndTheServiceRuns()
{
    ChildProcess process;
    process.start(programOf("dock"), {"--state", "/proc/nowhere/state.json"});
    QVERIFY(!process.waitForLine(limitMs).isEmpty());
    QDBusMessage call = QDBusMessage::createMethodCall(
        "com.corvane.aiassistant.dock", "/com/corvane/aiassistant/dockIconControl",
        "com.corvane.aiassistant.dock", "setDockHideStatus");
    call << true;
    QCOMPARE(QDBusConnection::sessionBus().call(call).arguments(), QVariantList{true});
    process.terminate();
    const Run run = finish(process);
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.error.contains("cannot be kept in /proc/nowhere/state.json"),
             run.error.constData());
}

QTEST_GUILESS_MAIN(ServiceLifecycleTest)

#include "servicelifecycle.moc"
