#include "contracts/contract.h"
#include "sandbox/services/audio/audiodaemon.h"
#include "sandbox/services/audio/microphone.h"
#include "sandbox/services/audio/soundserver.h"
#include "sandbox/services/common/service.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("audio")));
    sandbox::SoundServer server;
    sandbox::AudioDaemon daemon(service.state(), &server);
    const sandbox::Microphone microphone(service.state(), &server);
    service.publish(Contract::AudioDaemon::object().path, &daemon);
    return service.run();
}
