#include "bench/suite.h"
#include "proxy/assistantstateproxy.h"
#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <csignal>

namespace {

double writeMs()
{
    return timedMs([] { AssistantStateProxy::setVoiceIatState(true); });
}

// A write while a process is stopped; it runs on before anybody waits for it.
double writeWhileStopped(qint64 process)
{
    kill(pid_t(process), SIGSTOP);
    const double ms = writeMs();
    kill(pid_t(process), SIGCONT);
    return ms;
}

Ratio writing(const QString &name, qint64 stopped)
{
    Comparison what;
    what.name = name;
    what.subject = QStringLiteral("a write");
    what.baseline = QStringLiteral("the same with all that runs");
    what.unit = QStringLiteral("ms");
    what.aim = 2.0;
    what.rounds = 50;
    what.measureSubject = [stopped] {
        return writeWhileStopped(stopped);
    };
    what.measureBaseline = writeMs;
    return compare(what);
}

} // namespace

void benchWrites(const Report &report, testsupport::ServiceProcess &assistant)
{
    const QDBusReply<uint> daemon = QDBusConnection::sessionBus().interface()->servicePid(
        QStringLiteral("org.freedesktop.DBus"));
    report(writing(QStringLiteral("write, service stopped"), assistant.processId()));
    report(writing(QStringLiteral("write, bus stopped"), daemon.value()));
}
