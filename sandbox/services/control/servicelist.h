#pragma once

#include <QDBusConnection>
#include <QList>
#include <QString>

namespace sandbox {

/** What a service is called and where it is found. */
struct ServiceIdentity
{
    QString name;                 ///< Short name: "dock" for the program sandbox-dock.
    QString busName;              ///< The well-known name that clients call.
    QDBusConnection::BusType bus; ///< SessionBus or SystemBus.
    QString purpose;              ///< One sentence for --help.
};

/** Every service of the sandbox. */
const QList<ServiceIdentity> &serviceList();

/** The one with the short name @p name, which must be in the list. */
ServiceIdentity serviceNamed(const QString &name);

/** Where the service with the short name @p name offers its control interface. */
QString controlBusName(const QString &name);
QString controlPath();

} // namespace sandbox
