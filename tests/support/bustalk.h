#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QEventLoop>

namespace testsupport {

/**
 * Sends @p call and waits for its reply while events are processed. QDBus::BlockWithGui is meant to
 * do that, but up to Qt 5.15 it waits for ever when the reply comes between sending and waiting.
 */
inline QDBusMessage callProcessingEvents(const QDBusConnection &bus, const QDBusMessage &call)
{
    QDBusPendingCallWatcher watcher(bus.asyncCall(call));
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    return watcher.reply();
}

/** A call that every service answers: of the bus daemon itself, or of another connection. */
inline QDBusMessage pingCall(const QString &service = QStringLiteral("org.freedesktop.DBus"))
{
    return QDBusMessage::createMethodCall(service, QStringLiteral("/"),
                                          QStringLiteral("org.freedesktop.DBus.Peer"),
                                          QStringLiteral("Ping"));
}

/**
 * Waits until all signals that @p service has sent to the session bus until now have reached their
 * slots in this process. QtDBus holds signals back until the event loop has run once, and lets go
 * of them at the latest when it reads the second of two answers. False when the service does not
 * answer.
 */
inline bool everythingArrivedFrom(const QString &service)
{
    QCoreApplication::processEvents();
    for (int round = 0; round < 2; ++round)
        if (callProcessingEvents(QDBusConnection::sessionBus(), pingCall(service)).type() !=
            QDBusMessage::ReplyMessage)
            return false;
    QCoreApplication::processEvents();
    return true;
}

/** How many match rules the session bus keeps for this process, as it counts them; -1 when not. */
inline int matchRules()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus.Debug.Stats"), QStringLiteral("GetConnectionStats"));
    call << bus.baseService();
    const QDBusReply<QVariantMap> stats = bus.call(call);
    return stats.value().value(QStringLiteral("MatchRules"), -1).toInt();
}

} // namespace testsupport
