#include "bus/buscalls.h"

#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QThread>

#include <algorithm>

namespace BusCalls {

namespace {

QDBusMessage methodCall(const Endpoint &endpoint, const QString &method,
                        const QVariantList &arguments = {})
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(endpoint.service, endpoint.path, endpoint.interface, method);
    call.setArguments(arguments);
    return call;
}

} // namespace

QDBusMessage callProcessingEvents(const Endpoint &endpoint, const QString &method,
                                  const QVariantList &arguments)
{
    // What QDBus::BlockWithGui does, but for its flaw (up to Qt 5.15): it waits for ever when the
    // reply comes between sending and waiting. The watcher tells of such a reply too.
    const QDBusPendingCall pending =
        QDBusConnection::sessionBus().asyncCall(methodCall(endpoint, method, arguments));
    QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return pending.reply();
}

QDBusMessage callBlocking(const QDBusConnection &bus, const Endpoint &endpoint,
                          const QString &method)
{
    return waitFor(bus, bus.asyncCall(methodCall(endpoint, method)));
}

QDBusMessage waitFor(const QDBusConnection &bus, const QDBusPendingCall &call)
{
    // Not with waitForFinished(): until the event loop has run for the first time after a bus was
    // connected, QtDBus holds the news of its end back, and that wait would never end. The pauses
    // grow with the time that has passed.
    constexpr unsigned long longestPauseUs = 10000;
    unsigned long pauseUs = 50;
    while (!call.isFinished() && bus.isConnected()) {
        QThread::usleep(pauseUs);
        pauseUs = std::min(pauseUs + pauseUs / 8, longestPauseUs);
    }
    return call.isFinished() ? call.reply() : QDBusMessage();
}

QDBusMessage sendNoReply(const Endpoint &endpoint, const QString &method,
                         const QVariantList &arguments)
{
    return QDBusConnection::sessionBus().call(methodCall(endpoint, method, arguments),
                                              QDBus::NoBlock);
}

} // namespace BusCalls
