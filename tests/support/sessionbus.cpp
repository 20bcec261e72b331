#include "tests/support/sessionbus.h"

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDir>
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

PrivateBus::PrivateBus(QDBusConnection::BusType type)
    : m_type(type)
{
}

PrivateBus::~PrivateBus()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

bool PrivateBus::start(int replyLimitMs)
{
    QFile usual(QStringLiteral(BUS_CONFIG));
    QFile config(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!QDir(m_folder.path()).mkdir(QStringLiteral("services")) ||
        !usual.open(QIODevice::ReadOnly) || !config.open(QIODevice::WriteOnly))
        return false;
    QString text = QString::fromUtf8(usual.readAll());
    QString more = QStringLiteral("<servicedir>%1/services</servicedir>").arg(m_folder.path());
    if (replyLimitMs > 0)
        more += QStringLiteral("<limit name=\"reply_timeout\">%1</limit>").arg(replyLimitMs);
    const QString end = QStringLiteral("</busconfig>");
    config.write(text.replace(end, more + end).toUtf8());
    config.close();
    m_daemon.setStandardErrorFile(m_folder.filePath(QStringLiteral("log"))); // failed starts
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                    QStringLiteral("--config-file=") + config.fileName()});
    const QByteArray address = m_daemon.waitForLine(startLimitMs);
    m_address = QString::fromLatin1(address);
    return !address.isEmpty() &&
           qputenv(m_type == QDBusConnection::SystemBus ? "DBUS_SYSTEM_BUS_ADDRESS"
                                                        : "DBUS_SESSION_BUS_ADDRESS",
                   address);
}

bool PrivateBus::startFails(const QString &service)
{
    QFile file(m_folder.filePath(QStringLiteral("services/%1.service").arg(service)));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(QStringLiteral("[D-BUS Service]\nName=%1\nExec=/bin/false\n").arg(service).toUtf8());
    file.close();
    return reload();
}

bool PrivateBus::startNothing()
{
    QDir services(m_folder.filePath(QStringLiteral("services")));
    const QStringList files = services.entryList(QDir::Files);
    for (const QString &file : files)
        services.remove(file);
    return files.isEmpty() || reload();
}

// Otherwise the daemon would look some time later.
bool PrivateBus::reload()
{
    const QString name = QStringLiteral("reload ") + m_address;
    const QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReloadConfig"));
    const QDBusMessage reply = QDBusConnection::connectToBus(m_address, name).call(call);
    QDBusConnection::disconnectFromBus(name);
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace testsupport
