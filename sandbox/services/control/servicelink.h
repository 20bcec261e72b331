#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariant>

#include <memory>

class ComCorvaneSandboxControlInterface;

namespace sandbox {

/** The way to one running service: finds it on the session bus or the system bus. */
class ServiceLink
{
public:
    explicit ServiceLink(const QString &serviceName);
    ~ServiceLink();

    /** Whether the service runs on one of the buses. */
    bool isFound() const;

    ComCorvaneSandboxControlInterface &control();

    /** The process of the service; the bus knows it, so it is there for a hung service too. */
    qint64 processId() const;

private:
    QString m_controlName;
    QDBusConnection m_bus;
    std::unique_ptr<ComCorvaneSandboxControlInterface> m_control;
};

} // namespace sandbox
