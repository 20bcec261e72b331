#include "sandbox/services/common/scriptedreplies.h"

#include <QDBusArgument>
#include <QTimer>

#include <cstdlib>

namespace sandbox {

namespace {

const char errorName[] = "com.corvane.sandbox.Error.Scripted";
const QString everyMember = QStringLiteral("*");

// By kind.
const QStringList behaviourNames{
    QStringLiteral("answer"),     QStringLiteral("error"),     QStringLiteral("reply"),
    QStringLiteral("reply-list"), QStringLiteral("delay"),     QStringLiteral("hold"),
    QStringLiteral("vanish"),     QStringLiteral("hand-over"),
};

QString qualifiedName(const QDBusMessage &call)
{
    return call.interface() + QLatin1Char('.') + call.member();
}

} // namespace

Behaviour Behaviour::parse(const QString &name, const QVariant &argument, QString *error)
{
    const int index = behaviourNames.indexOf(name);
    if (index < 0) {
        *error = QStringLiteral("there is no behaviour \"%1\"").arg(name);
        return {};
    }
    const Kind kind = Kind(index);
    switch (kind) {
    case Answer:
    case Hold:
    case Vanish:
    case HandOver:
        return {kind, {}};
    case Error:
        return {kind, argument.toString()};
    case Reply:
        return {kind, argument};
    case ReplyList:
        if (argument.userType() == qMetaTypeId<QDBusArgument>())
            return {kind, qdbus_cast<QVariantList>(argument)};
        if (argument.userType() == QMetaType::QVariantList)
            return {kind, argument};
        *error = QStringLiteral("reply-list takes an array of variants");
        return {};
    case Delay: {
        bool isNumber = false;
        const int milliseconds = argument.toInt(&isNumber);
        if (isNumber && milliseconds >= 0)
            return {kind, milliseconds};
        *error = QStringLiteral("delay takes a number of milliseconds");
        break;
    }
    }
    return {};
}

QString Behaviour::name() const
{
    return behaviourNames.at(kind);
}

ScriptedReplies::ScriptedReplies(const QDBusConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection)
{
}

void ScriptedReplies::script(const QString &member, const Behaviour &behaviour)
{
    m_scripts.insert(member, behaviour);
    Q_EMIT changed();
}

Behaviour ScriptedReplies::behaviour(const QString &member) const
{
    return m_scripts.value(member);
}

void ScriptedReplies::answer(const QDBusMessage &call, int number,
                             const std::function<QDBusMessage()> &work)
{
    const Behaviour behaviour = behaviourOf(call);
    switch (behaviour.kind) {
    case Behaviour::Answer:
        send(call, number, work());
        return;
    case Behaviour::Error:
        send(call, number,
             call.createErrorReply(QLatin1String(errorName), behaviour.argument.toString()));
        return;
    case Behaviour::Reply:
        send(call, number, call.createReply(behaviour.argument));
        return;
    case Behaviour::ReplyList:
        send(call, number, call.createReply(behaviour.argument.toList()));
        return;
    case Behaviour::Delay: {
        const QDBusMessage reply = work();
        QTimer::singleShot(behaviour.argument.toInt(), this,
                           [this, call, number, reply] { send(call, number, reply); });
        return;
    }
    case Behaviour::Hold:
        m_held.append({call, number, work()});
        return;
    case Behaviour::HandOver:
        Q_EMIT handsOver();
        send(call, number, work());
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
            send(held.call, held.number, held.reply);
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
        send(held.call, held.number, held.reply);
    m_held.clear();
    Q_EMIT changed();
}

Behaviour ScriptedReplies::behaviourOf(const QDBusMessage &call) const
{
    const auto qualified = m_scripts.constFind(qualifiedName(call));
    if (qualified != m_scripts.constEnd())
        return *qualified;
    return m_scripts.value(call.member(), m_scripts.value(everyMember));
}

void ScriptedReplies::send(const QDBusMessage &call, int number, const QDBusMessage &reply)
{
    if (!call.isReplyRequired())
        return;
    m_connection.send(reply);
    Q_EMIT answered(number, reply);
}

} // namespace sandbox
