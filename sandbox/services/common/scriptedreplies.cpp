#include "sandbox/services/common/scriptedreplies.h"

#include <QDBusArgument>
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

Behaviour Behaviour::parse(const QString &name, const QVariant &argument, QString *error)
{
    if (name == QLatin1String("answer"))
        return {};
    if (name == QLatin1String("hold"))
        return {Hold, {}};
    if (name == QLatin1String("vanish"))
        return {Vanish, {}};
    if (name == QLatin1String("error"))
        return {Error, argument.toString()};
    if (name == QLatin1String("reply"))
        return {Reply, argument};
    if (name == QLatin1String("reply-list")) {
        if (argument.userType() == qMetaTypeId<QDBusArgument>())
            return {ReplyList, qdbus_cast<QVariantList>(argument)};
        if (argument.userType() == QMetaType::QVariantList)
            return {ReplyList, argument};
        *error = QStringLiteral("reply-list takes an array of variants");
        return {};
    }
    if (name == QLatin1String("delay")) {
        bool isNumber = false;
        const int milliseconds = argument.toInt(&isNumber);
        if (isNumber && milliseconds >= 0)
            return {Delay, milliseconds};
        *error = QStringLiteral("delay takes a number of milliseconds");
        return {};
    }
    *error = QStringLiteral("there is no behaviour \"%1\"").arg(name);
    return {};
}

ScriptedReplies::ScriptedReplies(const QDBusConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection)
{
}

void ScriptedReplies::script(const QString &member, const Behaviour &behaviour)
{
    m_scripts.insert(member, behaviour);
}

void ScriptedReplies::answer(const QDBusMessage &call, const std::function<QDBusMessage()> &work)
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

int ScriptedReplies::release(const QString &member)
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

void ScriptedReplies::reset()
{
    m_scripts.clear();
    for (const Held &held : qAsConst(m_held))
        send(held.call, held.reply);
    m_held.clear();
}

Behaviour ScriptedReplies::behaviourOf(const QDBusMessage &call) const
{
    const auto qualified = m_scripts.constFind(qualifiedName(call));
    return qualified != m_scripts.constEnd() ? *qualified : m_scripts.value(call.member());
}

void ScriptedReplies::send(const QDBusMessage &call, const QDBusMessage &reply)
{
    if (call.isReplyRequired())
        m_connection.send(reply);
}

} // namespace sandbox
