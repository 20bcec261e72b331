#include "tests/support/serviceprocess.h"

#include "comcorvanesandboxcontrolinterface.h"
#include "tests/support/childprocess.h"

#include <QDBusPendingReply>
#include <QDeadlineTimer>
#include <QDebug>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <QtTest>

#include <sys/wait.h>

#include <csignal>

namespace testsupport {

namespace {

constexpr int startLimitMs = 20000; // a loaded machine under sanitizers
constexpr int endLimitMs = 10000;
constexpr int controlLimitMs = 10000;

template <typename Reply>
Reply finished(Reply reply, const char *what)
{
    reply.waitForFinished();
    if (reply.isError()) {
        const QString problem = QStringLiteral("steering a service failed: %1: %2")
                                    .arg(QLatin1String(what), reply.error().message());
        QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
    }
    return reply;
}

} // namespace

ServiceProcess::ServiceProcess(const QString &name, QObject *parent)
    : QObject(parent)
    , m_name(name)
{
    static int serial = 0;
    m_connectionName = QStringLiteral("service-process-%1").arg(++serial);
}

ServiceProcess::~ServiceProcess()
{
    if (isRunning()) {
        resume(); // a suspended one could not end in order
        if (!stop())
            kill();
    }
    m_control.reset();
    QDBusConnection::disconnectFromBus(m_connectionName);
}

bool ServiceProcess::start(const QStringList &arguments)
{
    m_process = std::make_unique<ChildProcess>();
    m_process->setStandardErrorFile(m_folder.filePath(QStringLiteral("stderr")));
    m_process->start(
        QStringLiteral(SANDBOX_SERVICES_DIR "/sandbox-") + m_name,
        QStringList{QStringLiteral("--state"), m_folder.filePath(QStringLiteral("state.json"))} +
            arguments);
    const QByteArray ready = m_process->waitForLine(startLimitMs);
    if (!ready.startsWith("ready ")) {
        qWarning() << "sandbox service" << m_name
                   << "did not get ready:" << m_process->errorString() << errorLines();
        return false;
    }
    return connectControl(ready.endsWith(" system") ? QDBusConnection::SystemBus
                                                    : QDBusConnection::SessionBus);
}

bool ServiceProcess::stop()
{
    if (!isRunning())
        return false;
    m_process->terminate();
    return m_process->waitForFinished(endLimitMs) &&
           m_process->exitStatus() == QProcess::NormalExit && m_process->exitCode() == 0;
}

void ServiceProcess::kill()
{
    if (isRunning()) {
        m_process->kill();
        m_process->waitForFinished(endLimitMs);
    }
}

void ServiceProcess::suspend()
{
    ::kill(pid_t(processId()), SIGSTOP);
    waitUntilStopped();
}

void ServiceProcess::resume()
{
    ::kill(pid_t(processId()), SIGCONT);
}

bool ServiceProcess::isRunning() const
{
    return m_process && m_process->state() == QProcess::Running;
}

qint64 ServiceProcess::processId() const
{
    return m_process->processId();
}

bool ServiceProcess::waitForEnd()
{
    return !isRunning() || m_process->waitForFinished(endLimitMs);
}

QStringList ServiceProcess::errorLines() const
{
    QFile file(m_folder.filePath(QStringLiteral("stderr")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines;
}

QDBusConnection ServiceProcess::connection() const
{
    return QDBusConnection(m_connectionName);
}

QVariant ServiceProcess::value(const QString &key)
{
    return finished(m_control->Value(key), "Value").value().variant();
}

void ServiceProcess::setValue(const QString &key, const QVariant &value)
{
    finished(m_control->SetValue(key, QDBusVariant(value)), "SetValue");
}

void ServiceProcess::script(const QString &member, const QString &behaviour,
                            const QVariant &argument)
{
    finished(m_control->Script(member, behaviour, QDBusVariant(argument)), "Script");
}

int ServiceProcess::release(const QString &member)
{
    return finished(m_control->Release(member), "Release").value();
}

void ServiceProcess::reset()
{
    finished(m_control->Reset(), "Reset");
}

void ServiceProcess::leaveBus()
{
    finished(m_control->LeaveBus(), "LeaveBus");
}

void ServiceProcess::joinBus()
{
    finished(m_control->JoinBus(), "JoinBus");
}

void ServiceProcess::hang()
{
    finished(m_control->Hang(), "Hang");
    waitUntilStopped();
}

void ServiceProcess::crash()
{
    finished(m_control->Crash(), "Crash");
    waitForEnd();
}

QList<ServiceCall> ServiceProcess::calls()
{
    QList<ServiceCall> calls;
    const QStringList lines = finished(m_control->Calls(), "Calls").value();
    for (const QString &line : lines) {
        const QJsonObject record = QJsonDocument::fromJson(line.toUtf8()).object();
        calls.append({record.value(QStringLiteral("path")).toString(),
                      record.value(QStringLiteral("interface")).toString(),
                      record.value(QStringLiteral("member")).toString(),
                      record.value(QStringLiteral("signature")).toString(),
                      record.value(QStringLiteral("arguments")).toArray(),
                      record.value(QStringLiteral("replyExpected")).toBool(),
                      record.value(QStringLiteral("sender")).toString()});
    }
    return calls;
}

QList<ServiceCall> ServiceProcess::calls(const QString &member)
{
    QList<ServiceCall> matching;
    const QList<ServiceCall> all = calls();
    for (const ServiceCall &call : all)
        if (call.member == member)
            matching.append(call);
    return matching;
}

bool ServiceProcess::waitForCalls(const QString &member, int count, int limitMs)
{
    QEventLoop loop;
    connect(m_control.get(), &ComCorvaneSandboxControlInterface::CallReceived, &loop,
            &QEventLoop::quit);
    const QDeadlineTimer deadline(limitMs);
    while (calls(member).size() < count) {
        if (deadline.hasExpired())
            return false;
        // The signal arrives through this loop, so one that is sent before it runs is not lost.
        QTimer::singleShot(int(deadline.remainingTime()), &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

// Continuing it before it has stopped would be lost. It is our child, so the kernel tells; its end,
// if that comes instead, is left for QProcess to collect.
void ServiceProcess::waitUntilStopped() const
{
    siginfo_t info;
    waitid(P_PID, id_t(processId()), &info, WSTOPPED | WEXITED | WNOWAIT);
}

bool ServiceProcess::connectControl(QDBusConnection::BusType bus)
{
    if (m_control)
        return true;
    const QDBusConnection connection = QDBusConnection::connectToBus(bus, m_connectionName);
    m_control = std::make_unique<ComCorvaneSandboxControlInterface>(
        QStringLiteral("com.corvane.sandbox.") + m_name, QStringLiteral("/sandbox/control"),
        connection);
    m_control->setTimeout(controlLimitMs);
    return connection.isConnected();
}

} // namespace testsupport
