#include "proxy/buscalls.h"

#include "proxy/dynamicinterface.h"

namespace BusCalls {

namespace {

QDBusMessage methodCall(const ServiceNames::Endpoint &endpoint, const QString &method)
{
    return QDBusMessage::createMethodCall(endpoint.service, endpoint.path, endpoint.interface,
                                          method);
}

} // namespace

QDBusMessage callProcessingEvents(const ServiceNames::Endpoint &endpoint, const QString &method,
                                  const QVariantList &arguments)
{
    QDBusMessage call = methodCall(endpoint, method);
    call.setArguments(arguments);
    return QDBusConnection::sessionBus().call(call, QDBus::BlockWithGui);
}

QDBusMessage callBlocking(const QDBusConnection &bus, const ServiceNames::Endpoint &endpoint,
                          const QString &method)
{
    return bus.call(methodCall(endpoint, method), QDBus::Block);
}

QDBusMessage sendNoReply(const ServiceNames::Endpoint &endpoint, const QString &method,
                         const QVariantList &arguments)
{
    DynamicInterface proxy(endpoint, QDBusConnection::sessionBus());
    return proxy.callWithArgumentList(QDBus::NoBlock, method, arguments);
}

} // namespace BusCalls
