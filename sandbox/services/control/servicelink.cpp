#include "sandbox/services/control/servicelink.h"

#include "comcorvanesandboxcontrolinterface.h"

#include <QDBusConnectionInterface>

namespace sandbox {

namespace {

constexpr int hungAfterMs = 5000;

QDBusConnection busOf(const QString &name)
{
    QDBusConnection session = QDBusConnection::sessionBus();
    if (session.isConnected() && session.interface()->isServiceRegistered(name))
        return session;
    return QDBusConnection::systemBus();
}

} // namespace

ServiceLink::ServiceLink(const QString &serviceName)
    : m_controlName(QStringLiteral("com.corvane.sandbox.") + serviceName)
    , m_bus(busOf(m_controlName))
    , m_control(std::make_unique<ComCorvaneSandboxControlInterface>(
          m_controlName, QStringLiteral("/sandbox/control"), m_bus))
{
    m_control->setTimeout(hungAfterMs);
}

ServiceLink::~ServiceLink() = default;

bool ServiceLink::isFound() const
{
    return m_bus.isConnected() && m_bus.interface()->isServiceRegistered(m_controlName);
}

ComCorvaneSandboxControlInterface &ServiceLink::control()
{
    return *m_control;
}

qint64 ServiceLink::processId() const
{
    return m_bus.interface()->servicePid(m_controlName);
}

} // namespace sandbox
