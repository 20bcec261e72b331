#include "contracts/contract.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/dock/dockicon.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("dock")));
    sandbox::DockIcon icon(service.state());
    service.publish(Contract::DockIcon::object().path, &icon);
    return service.run();
}
