#include "sandbox/services/audio/audiodaemon.h"
#include "sandbox/services/audio/soundserver.h"
#include "sandbox/services/common/service.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service({QStringLiteral("audio"), QStringLiteral("com.tavren.daemon.Audio"),
                              QDBusConnection::SessionBus,
                              QStringLiteral("Tells of changes of the default microphone.")});
    sandbox::SoundServer server;
    sandbox::AudioDaemon daemon(service.state(), &server);
    service.publish(QStringLiteral("/com/tavren/daemon/Audio"), &daemon);
    return service.run();
}
