#include "sandbox/services/common/control.h"

#include "controladaptor.h"
#include "sandbox/services/common/calllog.h"
#include "sandbox/services/common/scriptedreplies.h"
#include "sandbox/services/common/statestore.h"
#include "sandbox/services/control/servicelist.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnectionInterface>

#include <csignal>

namespace sandbox {

namespace {

// Values of compound types come unread from the bus; the only one that a state holds is a list of
// strings.
QVariant plainValue(const QDBusVariant &value)
{
    const QVariant variant = value.variant();
    if (variant.userType() == qMetaTypeId<QDBusArgument>() &&
        variant.value<QDBusArgument>().currentSignature() == QLatin1String("as")) {
        return qdbus_cast<QStringList>(variant);
    }
    return variant;
}

} // namespace

Control::Control(const QString &busName, const QDBusConnection &connection, StateStore *state,
                 CallLog *log, ScriptedReplies *replies, QObject *parent)
    : QObject(parent)
    , m_busName(busName)
    , m_connection(connection)
    , m_state(state)
    , m_log(log)
    , m_replies(replies)
{
    new ControlAdaptor(this);
    connect(log, &CallLog::appended, this, &Control::CallReceived);
    connect(log, &CallLog::logged, this, &Control::CallLogged);
    connect(state, &StateStore::changed, this, &Control::Changed);
    connect(replies, &ScriptedReplies::changed, this, &Control::Changed);
    connect(replies, &ScriptedReplies::handsOver, this,
            [this] { m_connection.unregisterService(m_busName); });
}

void Control::publish()
{
    m_connection.registerObject(controlPath(), this, QDBusConnection::ExportAdaptors);
}

QStringList Control::Keys() const
{
    return m_state->keys();
}

QDBusVariant Control::Value(const QString &key)
{
    if (!m_state->contains(key)) {
        refuse(QStringLiteral("there is no key \"%1\"").arg(key));
        return QDBusVariant(QString());
    }
    return QDBusVariant(m_state->value(key));
}

void Control::SetValue(const QString &key, const QDBusVariant &value)
{
    const QVariant plain = plainValue(value);
    if (!m_state->set(key, plain))
        refuse(m_state->problem(key, plain));
}

void Control::Script(const QString &member, const QString &behaviour, const QDBusVariant &argument)
{
    QString error;
    const sandbox::Behaviour parsed =
        sandbox::Behaviour::parse(behaviour, argument.variant(), &error);
    if (error.isEmpty())
        m_replies->script(member, parsed);
    else
        refuse(error);
}

QString Control::Behaviour(const QString &member, QDBusVariant &argument) const
{
    const sandbox::Behaviour behaviour = m_replies->behaviour(member);
    argument = QDBusVariant(behaviour.argument.isValid() ? behaviour.argument : QString());
    return behaviour.name();
}

int Control::Release(const QString &member)
{
    return m_replies->release(member);
}

void Control::Reset()
{
    m_replies->reset();
    m_log->clear();
}

QStringList Control::Calls() const
{
    return m_log->lines();
}

void Control::LeaveBus()
{
    if (!m_connection.unregisterService(m_busName))
        refuse(QStringLiteral("%1 is not owned").arg(m_busName));
    Q_EMIT Changed();
}

void Control::JoinBus()
{
    if (!m_connection.registerService(m_busName))
        refuse(QStringLiteral("%1 cannot be owned").arg(m_busName));
    Q_EMIT Changed();
}

void Control::SendSignal(const QDBusObjectPath &path, const QString &interface,
                         const QString &member, const QVariantList &values)
{
    QDBusMessage signal = QDBusMessage::createSignal(path.path(), interface, member);
    signal.setArguments(values);
    m_connection.send(signal);
}

void Control::Hang()
{
    answerNow();
    std::raise(SIGSTOP);
}

void Control::Crash()
{
    answerNow();
    std::raise(SIGKILL);
}

uint Control::ProcessId() const
{
    return uint(QCoreApplication::applicationPid());
}

void Control::refuse(const QString &reason)
{
    sendErrorReply(QStringLiteral("com.corvane.sandbox.Error.Refused"), reason);
}

// Sends the empty reply and waits until the bus has it: a round trip comes back behind it.
void Control::answerNow()
{
    setDelayedReply(true);
    m_connection.send(message().createReply());
    m_connection.interface()->isServiceRegistered(m_busName);
}

} // namespace sandbox
