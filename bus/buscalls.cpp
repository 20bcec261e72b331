#include "bus/buscalls.h"

#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

#include <algorithm>

namespace buscalls {

namespace {

QDBusConnection busOf(const Contract::Method &method)
{
    return method.object.bus == QDBusConnection::SystemBus ? QDBusConnection::systemBus()
                                                           : QDBusConnection::sessionBus();
}

QDBusMessage methodCall(const Contract::Method &method, const QVariantList &arguments = {})
{
    const Contract::Object &object = method.object;
    QDBusMessage call =
        QDBusMessage::createMethodCall(object.service, object.path, object.interface, method.name);
    call.setArguments(arguments);
    return call;
}

} // namespace

QDBusMessage callProcessingEvents(const Contract::Method &method, const QVariantList &arguments)
{
    // What QDBus::BlockWithGui does, but for its flaw (up to Qt 5.15): it waits for ever when the
    // reply comes between sending and waiting. The watcher tells of such a reply too.
    const QDBusPendingCall pending = busOf(method).asyncCall(methodCall(method, arguments));
    QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return pending.reply();
}

QDBusMessage callBlocking(const Contract::Method &method)
{
    const QDBusConnection bus = busOf(method);
    return waitFor(bus, bus.asyncCall(methodCall(method)));
}

QDBusMessage waitFor(const QDBusConnection &bus, const QDBusPendingCall &call)
{
    // Not with waitForFinished(): until the event loop has run for the first time after a bus was
    // connected, QtDBus holds the news of its end back, and that wait would never end. Most replies
    // come sooner than the shortest sleep would end; after that the sleeps grow with the time that
    // has passed.
    constexpr qint64 withoutSleepUs = 1000;
    constexpr qint64 longestSleepUs = 10000;
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (!call.isFinished()) {
        const qint64 us = sinceStart.nsecsElapsed() / 1000;
        if (us < withoutSleepUs)
            QThread::yieldCurrentThread();
        else if (bus.isConnected())
            QThread::usleep(static_cast<unsigned long>(std::min(us / 8, longestSleepUs)));
        else
            break;
    }
    return call.isFinished() ? call.reply() : QDBusMessage();
}

QDBusMessage sendNoReply(const Contract::Method &method, const QVariantList &arguments)
{
    return busOf(method).call(methodCall(method, arguments), QDBus::NoBlock);
}

} // namespace buscalls
