#include "sandbox/controlcenter/tour/servicecontrol.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace controlcenter {

ServiceControl::ServiceControl(const QString &name)
    : m_name(name)
{
}

QVariant ServiceControl::value(const QString &key)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("com.corvane.sandbox.") + m_name, QStringLiteral("/sandbox/control"),
        QStringLiteral("com.corvane.sandbox.Control"), QStringLiteral("Value"));
    call.setArguments({key});
    const QDBusMessage reply = QDBusConnection::sessionBus().call(call);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        m_error = QStringLiteral("service %1: %2").arg(m_name, reply.errorMessage());
        return QVariant();
    }
    m_error.clear();
    return qvariant_cast<QDBusVariant>(reply.arguments().value(0)).variant();
}

QString ServiceControl::error() const
{
    return m_error;
}

} // namespace controlcenter
