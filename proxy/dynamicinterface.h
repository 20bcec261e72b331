#pragma once

#include "proxy/servicenames.h"

#include <QDBusAbstractInterface>
#include <QDBusConnection>

/**
 * A proxy object for an endpoint known at run time, made for one call.
 *
 * Unlike QDBusInterface it never introspects the service: that would be a second call on the bus
 * and, with a service that hangs, block the window for the bus's whole time-out.
 */
class DynamicInterface : public QDBusAbstractInterface
{
public:
    DynamicInterface(const ServiceNames::Endpoint &endpoint, const QDBusConnection &connection)
        : DynamicInterface(endpoint, endpoint.interface.toLatin1(), connection)
    {
    }

private:
    // The base copies the name before the temporary that holds it goes away.
    DynamicInterface(const ServiceNames::Endpoint &endpoint, const QByteArray &interface,
                     const QDBusConnection &connection)
        : QDBusAbstractInterface(endpoint.service, endpoint.path, interface.constData(), connection,
                                 nullptr)
    {
    }
};
