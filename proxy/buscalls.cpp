#include "proxy/buscalls.h"

#include "proxy/dynamicinterface.h"

#include <QDBusPendingCall>
#include <QEventLoop>

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

    // What QDBus::BlockWithGui does, but for its flaw (up to Qt 5.15): it waits for ever when the
    // reply comes between sending and waiting. The watcher tells of such a reply too.
    const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(call);
    QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    return pending.reply();
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
