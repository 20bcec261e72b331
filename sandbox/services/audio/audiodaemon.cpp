#include "sandbox/services/audio/audiodaemon.h"

#include "audiodaemonadaptor.h"
#include "contracts/contract.h"
#include "sandbox/services/audio/microphone.h"
#include "sandbox/services/audio/soundserver.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"

#include <QCoreApplication>

#include <utility>

namespace sandbox {

AudioDaemon::AudioDaemon(StateStore *state, SoundServer *server, QObject *parent)
    : QObject(parent)
{
    new AudioDaemonAdaptor(this);
    connect(server, &SoundServer::defaultSource, this, &AudioDaemon::update);
    state->declareElsewhere(
        QStringLiteral("defaultSource"), [this] { return QVariant(m_name); },
        [server](const QVariant &name) { server->setDefaultSource(name.toString()); });
}

void AudioDaemon::update(const QString &name, quint32 index)
{
    const bool first = !std::exchange(m_known, true);
    const bool changed = std::exchange(m_name, name) != name;
    if (changed && !first) {
        Q_EMIT DefaultSourceChanged(QDBusObjectPath(
            name.isEmpty() ? QStringLiteral("/")
                           : QStringLiteral("/com/tavren/daemon/Audio/Source%1").arg(index)));
    }
}

} // namespace sandbox

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
