#include "contracts/contract.h"
#include "sandbox/services/aiservice/sessionmanager.h"
#include "sandbox/services/common/service.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QCommandLineOption record(
        QStringLiteral("record"),
        QStringLiteral("Write what every session hears to a WAV file in DIR."),
        QStringLiteral("DIR"));
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("aiservice")), {record});
    sandbox::SessionManager sessions(&service, service.arguments().value(record));
    service.publish(Contract::SessionManager::object().path, &sessions);
    return service.run();
}
