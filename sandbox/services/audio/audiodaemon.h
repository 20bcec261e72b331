#pragma once

#include <QDBusObjectPath>
#include <QObject>

namespace sandbox {

class SoundServer;
class StateStore;

/**
 * The desktop's audio daemon: contract com.tavren.daemon.Audio. Tells which source the sound server
 * records from by default whenever that changes; "/" when there is none any more.
 *
 * State, not kept: "defaultSource" (string), the sound server's name of the default source, empty
 * when there is none. Setting it makes another source the sound server's default.
 */
class AudioDaemon : public QObject
{
    Q_OBJECT

public:
    AudioDaemon(StateStore *state, SoundServer *server, QObject *parent = nullptr);

Q_SIGNALS:
    void DefaultSourceChanged(const QDBusObjectPath &path);

private:
    void update(const QString &name, quint32 index);

    bool m_known = false; // something has been heard of the server
    QString m_name;       // of the default source
};

} // namespace sandbox
