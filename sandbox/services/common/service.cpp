#include "sandbox/services/common/service.h"

#include "sandbox/services/common/calllog.h"
#include "sandbox/services/common/control.h"
#include "sandbox/services/common/publishedobject.h"
#include "sandbox/services/common/scriptedreplies.h"
#include "sandbox/services/common/statestore.h"
#include "sandbox/services/control/servicecontrol.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTextStream>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>

namespace sandbox {

// Turns SIGTERM and SIGINT into a Qt signal, so that a service can end in order. One per process.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    // Somebody asked the process to end.
    void received();

private:
    int m_descriptor; // a signalfd
};

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
    sigset_t signalSet;
    sigemptyset(&signalSet);
    sigaddset(&signalSet, SIGTERM);
    sigaddset(&signalSet, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signalSet, nullptr);
    m_descriptor = signalfd(-1, &signalSet, SFD_CLOEXEC);

    auto *notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info;
        if (read(m_descriptor, &info, sizeof info) == sizeof info)
            Q_EMIT received();
    });
}

TerminationSignals::~TerminationSignals()
{
    close(m_descriptor);
}

Service::Service(const ServiceIdentity &identity, const QList<QCommandLineOption> &options)
    : m_identity(identity)
{
    // Before QtDBus starts its thread, which inherits the signal mask.
    m_signals = new TerminationSignals(this);
    connect(m_signals, &TerminationSignals::received, QCoreApplication::instance(),
            &QCoreApplication::quit);

    QCoreApplication::setApplicationName(QStringLiteral("sandbox-") + identity.name);
    QCoreApplication::setApplicationVersion(QStringLiteral(SANDBOX_VERSION));
    const QString defaultFile =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
        QStringLiteral("/corvane-sandbox/%1.json").arg(identity.name);
    m_arguments.setApplicationDescription(identity.purpose);
    m_arguments.addHelpOption();
    m_arguments.addVersionOption();
    m_arguments.addOption({QStringLiteral("state"), QStringLiteral("Keep the state in FILE."),
                           QStringLiteral("FILE"), defaultFile});
    m_arguments.addOptions(options);
    m_arguments.process(*QCoreApplication::instance());

    m_state = new StateStore(m_arguments.value(QStringLiteral("state")), this);
    connect(m_state, &StateStore::changed, this, [this](QString key, const QVariant &value) {
        key.replace(QLatin1Char('.'), QLatin1Char(' '));
        report(key + QStringLiteral(" -> ") + shownText(value));
    });
    m_log = new CallLog(this);
    m_replies = new ScriptedReplies(connection(), this);
    connect(m_replies, &ScriptedReplies::answered, m_log, &CallLog::setAnswer);
    m_control = new Control(m_identity.busName, connection(), m_state, m_log, m_replies, this);
}

Service::~Service() = default;

const QCommandLineParser &Service::arguments() const
{
    return m_arguments;
}

StateStore *Service::state()
{
    return m_state;
}

void Service::publish(const QString &path, QObject *object, const QString &owner)
{
    new PublishedObject(object, path, owner, connection(), m_log, m_replies);
}

void Service::report(const QString &text) const
{
    QTextStream(stderr) << m_identity.name << ": " << text << '\n';
}

int Service::run()
{
    QDBusConnection bus = connection();
    if (!bus.isConnected()) {
        report(QStringLiteral("the %1 bus cannot be reached: %2")
                   .arg(busWord(), bus.lastError().message()));
        return BusUnreachable;
    }
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                SLOT(busGone()));

    const QString controlName = controlBusName(m_identity.name);
    const QStringList names{controlName, m_identity.busName};
    m_control->publish();
    for (const QString &name : names) {
        if (!bus.registerService(name)) {
            report(QStringLiteral("%1 cannot be owned: %2").arg(name, whyNotOwned(name)));
            return NameTaken;
        }
    }
    QTextStream(stdout) << "ready " << m_identity.busName << ' ' << busWord() << '\n';
    return QCoreApplication::exec();
}

void Service::busGone()
{
    report(QStringLiteral("the bus has gone away"));
    QCoreApplication::quit();
}

QString Service::whyNotOwned(const QString &name) const
{
    const QString problem = connection().lastError().message(); // before the next call replaces it
    const QDBusReply<uint> owner = connection().interface()->servicePid(name);
    return owner.isValid() ? QStringLiteral("process %1 owns it").arg(owner.value()) : problem;
}

QString Service::busWord() const
{
    return m_identity.bus == QDBusConnection::SystemBus ? QStringLiteral("system")
                                                        : QStringLiteral("session");
}

QDBusConnection Service::connection() const
{
    return m_identity.bus == QDBusConnection::SystemBus ? QDBusConnection::systemBus()
                                                        : QDBusConnection::sessionBus();
}

} // namespace sandbox

#include "service.moc"
