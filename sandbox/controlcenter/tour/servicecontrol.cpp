#include "sandbox/controlcenter/tour/servicecontrol.h"

#include <QDBusMessage>
#include <QDBusVariant>

namespace controlcenter {

ServiceControl::ServiceControl(const QString &name, const QDBusConnection &bus)
    : m_bus(bus)
    , m_name(name)
{
}

QVariant ServiceControl::value(const QString &key)
{
    const QVariantList reply = call(QStringLiteral("Value"), {key});
    return qvariant_cast<QDBusVariant>(reply.value(0)).variant();
}

bool ServiceControl::setValue(const QString &key, const QVariant &value)
{
    call(QStringLiteral("SetValue"), {key, QVariant::fromValue(QDBusVariant(value))});
    return m_error.isEmpty();
}

bool ServiceControl::script(const QString &member, const QString &behaviour,
                            const QVariant &argument)
{
    call(QStringLiteral("Script"),
         {member, behaviour, QVariant::fromValue(QDBusVariant(argument))});
    return m_error.isEmpty();
}

bool ServiceControl::reset()
{
    call(QStringLiteral("Reset"), {});
    return m_error.isEmpty();
}

QVariantList ServiceControl::call(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("com.corvane.sandbox.") + m_name, QStringLiteral("/sandbox/control"),
        QStringLiteral("com.corvane.sandbox.Control"), method);
    message.setArguments(arguments);
    const QDBusMessage reply = m_bus.call(message);
    m_error = reply.type() == QDBusMessage::ReplyMessage
                  ? QString()
                  : QStringLiteral("service %1: %2").arg(m_name, reply.errorMessage());
    return m_error.isEmpty() ? reply.arguments() : QVariantList();
}

QString ServiceControl::error() const
{
    return m_error;
}

} // namespace controlcenter
