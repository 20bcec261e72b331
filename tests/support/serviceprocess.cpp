#include "tests/support/serviceprocess.h"

#include "sandbox/services/control/servicecontrol.h"

#include <QDeadlineTimer>
#include <QDebug>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <QtTest>

#include <sys/prctl.h>
#include <sys/wait.h>

#include <csignal>

namespace testsupport {

namespace {

constexpr int endLimitMs = 10000;
constexpr int controlLimitMs = 10000;

const struct
{
    const char *variable;
    const char *folder;
} places[] = {
    {"HOME", ""},
    {"XDG_CONFIG_HOME", "config"},
    {"XDG_DATA_HOME", "data"},
    {"XDG_CACHE_HOME", "cache"},
};

} // namespace

QByteArray ChildProcess::waitForLine(int limitMs)
{
    const QDeadlineTimer deadline(limitMs);
    while (!canReadLine())
        if (!waitForReadyRead(int(deadline.remainingTime())))
            return {};
    QByteArray line = readLine();
    line.chop(1);
    return line;
}

void ChildProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

IsolatedHome::IsolatedHome()
{
    for (const auto &place : places) {
        m_before.insert(place.variable, qgetenv(place.variable));
        qputenv(place.variable, QFile::encodeName(m_folder.filePath(QLatin1String(place.folder))));
    }
    makeFolders();
}

IsolatedHome::~IsolatedHome()
{
    for (auto variable = m_before.constBegin(); variable != m_before.constEnd(); ++variable)
        if (variable.value().isNull())
            qunsetenv(variable.key().constData());
        else
            qputenv(variable.key().constData(), variable.value());
}

QString IsolatedHome::configFile(const QString &relativePath) const
{
    return m_folder.filePath(QStringLiteral("config/") + relativePath);
}

QString IsolatedHome::dataFile(const QString &relativePath) const
{
    return m_folder.filePath(QStringLiteral("data/") + relativePath);
}

QString IsolatedHome::wakeupSettingsFile() const
{
    return configFile(QStringLiteral("corvane/TavrenVoiceWakeuper.conf"));
}

bool IsolatedHome::writeWakeupSettings(const QByteArray &contents) const
{
    QDir().mkpath(QFileInfo(wakeupSettingsFile()).absolutePath());
    QFile file(wakeupSettingsFile());
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

void IsolatedHome::clear()
{
    QDir home(m_folder.path());
    const QFileInfoList entries =
        home.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries)
        if (entry.isDir() && !entry.isSymLink())
            QDir(entry.filePath()).removeRecursively();
        else
            QFile::remove(entry.filePath());
    makeFolders();
}

void IsolatedHome::makeFolders() const
{
    for (const auto &place : places)
        QDir().mkpath(m_folder.filePath(QLatin1String(place.folder)));
}

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
    const QVariant value = m_control->value(key);
    checkControl("Value");
    return value;
}

void ServiceProcess::setValue(const QString &key, const QVariant &value)
{
    m_control->setValue(key, value);
    checkControl("SetValue");
}

void ServiceProcess::script(const QString &member, const QString &behaviour,
                            const QVariant &argument)
{
    m_control->script(member, behaviour, argument);
    checkControl("Script");
}

int ServiceProcess::release(const QString &member)
{
    const int released = m_control->release(member);
    checkControl("Release");
    return released;
}

void ServiceProcess::reset()
{
    m_control->reset();
    checkControl("Reset");
}

void ServiceProcess::leaveBus()
{
    m_control->leaveBus();
    checkControl("LeaveBus");
}

void ServiceProcess::joinBus()
{
    m_control->joinBus();
    checkControl("JoinBus");
}

void ServiceProcess::sendSignal(const QString &path, const QString &interface,
                                const QString &member, const QVariantList &values)
{
    m_control->sendSignal(path, interface, member, values);
    checkControl("SendSignal");
}

void ServiceProcess::hang()
{
    m_control->hang();
    checkControl("Hang");
    waitUntilStopped();
}

void ServiceProcess::crash()
{
    m_control->crash();
    checkControl("Crash");
    waitForEnd();
}

QList<ServiceCall> ServiceProcess::calls()
{
    QList<ServiceCall> calls;
    const QStringList lines = m_control->calls();
    checkControl("Calls");
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
    connect(m_control.get(), &sandbox::ServiceControl::CallReceived, &loop, &QEventLoop::quit);
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
    m_control = std::make_unique<sandbox::ServiceControl>(m_name, connection);
    m_control->setTimeout(controlLimitMs);
    return connection.isConnected();
}

void ServiceProcess::checkControl(const char *what) const
{
    if (m_control->error().isEmpty())
        return;
    const QString problem = QStringLiteral("steering a service failed: %1: %2")
                                .arg(QLatin1String(what), m_control->error());
    QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
}

} // namespace testsupport
