#include "tests/support/sessionbus.h"

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QEventLoop>
#include <QFile>

namespace testsupport {

QDBusMessage callProcessingEvents(const QDBusConnection &bus, const QDBusMessage &call)
{
    QDBusPendingCallWatcher watcher(bus.asyncCall(call));
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    return watcher.reply();
}

QDBusMessage pingCall(const QString &service)
{
    return QDBusMessage::createMethodCall(service, QStringLiteral("/"),
                                          QStringLiteral("org.freedesktop.DBus.Peer"),
                                          QStringLiteral("Ping"));
}

bool everythingArrivedFrom(const QString &service)
{
    QCoreApplication::processEvents();
    for (int round = 0; round < 2; ++round)
        if (callProcessingEvents(QDBusConnection::sessionBus(), pingCall(service)).type() !=
            QDBusMessage::ReplyMessage)
            return false;
    QCoreApplication::processEvents();
    return true;
}

int matchRules()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus.Debug.Stats"), QStringLiteral("GetConnectionStats"));
    call << bus.baseService();
    const QDBusReply<QVariantMap> stats = bus.call(call);
    return stats.value().value(QStringLiteral("MatchRules"), -1).toInt();
}

ImpatientBus::~ImpatientBus()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

bool ImpatientBus::start()
{
    QFile usual(QStringLiteral(BUS_CONFIG));
    QFile config(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!usual.open(QIODevice::ReadOnly) || !config.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = usual.readAll();
    const QByteArray end = "</busconfig>";
    text.replace(end, "<limit name=\"reply_timeout\">1000</limit>" + end);
    config.write(text);
    config.close();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                    QStringLiteral("--config-file=") + config.fileName()});
    const QByteArray address = m_daemon.waitForLine(startLimitMs);
    return !address.isEmpty() && qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

} // namespace testsupport
