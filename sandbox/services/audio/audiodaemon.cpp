#include "sandbox/services/audio/audiodaemon.h"

#include "audiodaemonadaptor.h"
#include "sandbox/services/audio/soundserver.h"
#include "sandbox/services/common/statestore.h"

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
