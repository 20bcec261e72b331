#include "sandbox/services/common/service.h"
#include "tests/bus/voiceservice/sessions.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service({QStringLiteral("voicescript"),
                              QStringLiteral("com.corvane.aiservice"), QDBusConnection::SessionBus,
                              QStringLiteral("An AI service that follows a test's script.")});
    voicescript::Sessions sessions(&service);
    service.publish(QStringLiteral("/"), &sessions);
    return service.run();
}
