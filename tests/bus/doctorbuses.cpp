// The doctor on a bus that is not as it should be, or not there.

#include "tests/support/doctorrun.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <csignal>

using namespace testsupport;

namespace {

const QString startableName = QStringLiteral("com.corvane.aiassistant.dock");
const QString sessionAddress = QStringLiteral("DBUS_SESSION_BUS_ADDRESS");

/** A bus of this test's own, which knows how to start a dock service. */
class OwnBus
{
public:
    bool start()
    {
        const QString services = QStringLiteral("<servicedir>%1</servicedir>").arg(m_folder.path());
        const bool written =
            write("dock.service", QStringLiteral("[D-BUS Service]\nName=%1\nExec=/bin/touch %2\n")
                                      .arg(startableName, startedFile())) &&
            write("bus.conf", textOf("tests/support/bus.conf")
                                  .replace("</busconfig>", services + "</busconfig>"));
        m_daemon.start("dbus-daemon", {"--nofork", "--print-address", "--config-file",
                                       m_folder.filePath("bus.conf")});
        m_address = QString::fromUtf8(m_daemon.waitForLine(10000));
        return written && !m_address.isEmpty();
    }

    ~OwnBus()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    Environment environment() const { return {{sessionAddress, m_address}}; }
    void hang() { ::kill(pid_t(m_daemon.processId()), SIGSTOP); }
    QString startedFile() const { return m_folder.filePath("started"); }

private:
    bool write(const QString &name, const QString &text)
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) == text.size();
    }

    QTemporaryDir m_folder;
    ChildProcess m_daemon;
    QString m_address;
};

} // namespace

class DoctorBusesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceThatTheBusCanStart();
    void busThatHangs();
    void noBus();
};

void DoctorBusesTest::serviceThatTheBusCanStart()
{
    OwnBus bus;
    QVERIFY(bus.start());
    const Run result = examine(bus.environment());
    QCOMPARE(result.of("service", startableName),
             QStringLiteral("warning: does not run; the bus can start it"));
    QVERIFY(result.of("service", "com.corvane.aiservice").startsWith("failure"));
    QVERIFY(!QFile::exists(bus.startedFile()));
}

void DoctorBusesTest::busThatHangs()
{
    OwnBus bus;
    QVERIFY(bus.start());
    ServiceProcess network("networkmanager");
    QVERIFY(network.start());
    bus.hang();
    const Run result = examine(bus.environment());
    QCOMPARE(result.of("group", "session-bus"), QStringLiteral("failure: does not end within 3 s"));
    QVERIFY(result.of("network").startsWith("ok"));
    QCOMPARE(result.exitCode, 1);
}

void DoctorBusesTest::noBus()
{
    const QString nowhere = QStringLiteral("unix:path=/nonexistent/bus");
    const Run result = examine({{sessionAddress, nowhere}, {"DBUS_SYSTEM_BUS_ADDRESS", nowhere}});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.of("plugin").startsWith("ok"));
    QCOMPARE(result.of("bus").count("failure: cannot be reached: "), 2);
    QCOMPARE(result.of("service").count(": cannot be asked without the bus"), 6);
}

TEST_CLASS(QCoreApplication, DoctorBusesTest)
#include "doctorbuses.moc"
