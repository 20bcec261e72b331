#include "sandbox/services/common/service.h"
#include "sandbox/services/dock/dockicon.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service({QStringLiteral("dock"),
                              QStringLiteral("com.corvane.aiassistant.dock"),
                              QDBusConnection::SessionBus,
                              QStringLiteral("Shows or hides the assistant's icon in the dock.")});
    sandbox::DockIcon icon(service.state());
    service.publish(QStringLiteral("/com/corvane/aiassistant/dockIconControl"), &icon);
    return service.run();
}
