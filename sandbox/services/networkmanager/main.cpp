#include "sandbox/services/common/service.h"
#include "sandbox/services/networkmanager/networkstate.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(
        {QStringLiteral("networkmanager"), QStringLiteral("org.freedesktop.NetworkManager"),
         QDBusConnection::SystemBus,
         QStringLiteral("Answers for NetworkManager on a system bus that has none.")});
    sandbox::NetworkState network(service.state());
    service.publish(QStringLiteral("/org/freedesktop/NetworkManager"), &network);
    return service.run();
}
