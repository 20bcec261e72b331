#include "contracts/contract.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/keybinding/keybindings.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("keybinding")));
    sandbox::Keybindings keybindings(service.state());
    service.publish(Contract::Keybinding::object().path, &keybindings);
    return service.run();
}
