#pragma once

#include <QDBusAbstractInterface>
#include <QDBusObjectPath>

#if defined(ZFRAMEWORKDBUS_BUILD)
#define ZFRAMEWORKDBUS_EXPORT Q_DECL_EXPORT
#else
#define ZFRAMEWORKDBUS_EXPORT Q_DECL_IMPORT
#endif

/**
 * Proxy of the desktop's audio daemon ("com.tavren.daemon.Audio" on the session bus, object path
 * "/com/tavren/daemon/Audio").
 *
 * It never introspects the daemon. The class name is the framework's.
 */
class ZFRAMEWORKDBUS_EXPORT __Audio : public QDBusAbstractInterface
{
    Q_OBJECT

public:
    static const char *staticInterfaceName() { return "com.tavren.daemon.Audio"; }

    explicit __Audio(const QString &service, const QString &path, const QDBusConnection &connection,
                     QObject *parent = nullptr);
    ~__Audio() override;

Q_SIGNALS:
    /** The sound server records from another source by default; @p path is that source's object. */
    void DefaultSourceChanged(const QDBusObjectPath &path);
};
