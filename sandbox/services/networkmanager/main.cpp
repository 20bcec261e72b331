#include "networkmanageradaptor.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"

#include <QCoreApplication>

namespace {

constexpr uint connectedGlobal =
    70; // NM_STATE_CONNECTED_GLOBAL; 60 site, 50 local, 20 disconnected

} // namespace

/** The one answer of NetworkManager that the module asks for. Like the real one it starts afresh.
 */
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("networkmanager")));
    const QString key = QStringLiteral("state");
    service.state()->declare(key, connectedGlobal, sandbox::StateStore::ThisRun);
    const sandbox::StoredMethods stored(service.state(),
                                        {{Contract::NetworkManager::state(), key}});
    service.publish<NetworkManagerAdaptor>(Contract::NetworkManager::object(), &stored);
    return service.run();
}
