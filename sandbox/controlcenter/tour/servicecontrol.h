#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariant>

namespace controlcenter {

/** Reads and steers a sandbox service over its control interface. */
class ServiceControl
{
public:
    /** @p name is the service's short name, such as "assistant"; @p bus is where the service lives.
     */
    explicit ServiceControl(const QString &name,
                            const QDBusConnection &bus = QDBusConnection::sessionBus());

    /** The state under @p key; invalid, with error() set, when the service does not tell. */
    QVariant value(const QString &key);

    /** Changes the state under @p key; false, with error() set, when the service refuses. */
    bool setValue(const QString &key, const QVariant &value);

    /** Scripts the method @p member; see the control interface for @p behaviour and @p argument. */
    bool script(const QString &member, const QString &behaviour, const QVariant &argument);

    /** Takes all scripts back. */
    bool reset();

    /** What went wrong in the latest call; empty when nothing did. */
    QString error() const;

private:
    QVariantList call(const QString &method, const QVariantList &arguments);

    QDBusConnection m_bus;
    QString m_name;
    QString m_error;
};

} // namespace controlcenter
