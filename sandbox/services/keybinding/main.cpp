#include "sandbox/services/common/service.h"
#include "sandbox/services/keybinding/keybindings.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(
        {QStringLiteral("keybinding"), QStringLiteral("com.tavren.daemon.Keybinding"),
         QDBusConnection::SessionBus, QStringLiteral("Knows the desktop's keyboard shortcuts.")});
    sandbox::Keybindings keybindings(service.state());
    service.publish(QStringLiteral("/com/tavren/daemon/Keybinding"), &keybindings);
    return service.run();
}
