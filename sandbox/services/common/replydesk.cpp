#include "sandbox/services/common/replydesk.h"

#include <QTimer>

#include <cstdlib>

namespace sandbox {

namespace {

const char errorName[] = "com.corvane.sandbox.Error.Scripted";

QString qualifiedName(const QDBusMessage &call)
{
    return call.interface() + QLatin1Char('.') + call.member();
}

} // namespace

ReplyDesk::ReplyDesk(const QDBusConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection)
{
}

void ReplyDesk::script(const QString &member, const Behaviour &behaviour)
{
    m_scripts.insert(member, behaviour);
}

void ReplyDesk::answer(const QDBusMessage &call, const std::function<QDBusMessage()> &work)
{
    const Behaviour behaviour = behaviourOf(call);
    switch (behaviour.kind) {
    case Behaviour::Answer:
        send(call, work());
        return;
    case Behaviour::Error:
        send(call, call.createErrorReply(QLatin1String(errorName), behaviour.argument.toString()));
        return;
    case Behaviour::Reply:
        send(call, call.createReply(behaviour.argument));
        return;
    case Behaviour::ReplyList:
        send(call, call.createReply(behaviour.argument.toList()));
        return;
    case Behaviour::Delay: {
        const QDBusMessage reply = work();
        QTimer::singleShot(behaviour.argument.toInt(), this,
                           [this, call, reply] { send(call, reply); });
        return;
    }
    case Behaviour::Hold:
        m_held.append({call, work()});
        return;
    case Behaviour::Vanish:
        std::_Exit(EXIT_SUCCESS);
    }
}

int ReplyDesk::release(const QString &member)
{
    int released = 0;
    QList<Held> kept;
    for (const Held &held : qAsConst(m_held)) {
        if (held.call.member() == member || qualifiedName(held.call) == member) {
            send(held.call, held.reply);
            ++released;
        } else {
            kept.append(held);
        }
    }
    m_held = kept;
    return released;
}

void ReplyDesk::reset()
{
    m_scripts.clear();
    for (const Held &held : qAsConst(m_held))
        send(held.call, held.reply);
    m_held.clear();
}

Behaviour ReplyDesk::behaviourOf(const QDBusMessage &call) const
{
    const auto qualified = m_scripts.constFind(qualifiedName(call));
    return qualified != m_scripts.constEnd() ? *qualified : m_scripts.value(call.member());
}

void ReplyDesk::send(const QDBusMessage &call, const QDBusMessage &reply)
{
    if (call.isReplyRequired())
        m_connection.send(reply);
}

} // namespace sandbox
