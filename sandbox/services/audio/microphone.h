#pragma once

#include <QObject>
#include <QStringList>

namespace sandbox {

class SoundServer;
class StateStore;

/**
 * The sandbox's virtual microphone (sandbox/microphone/start), whose folder the variable
 * SANDBOX_MICROPHONE names.
 *
 * State, not kept, and only where there is such a microphone: "microphone.sound" (string), what the
 * next program that records hears: "speech", "noise", "loud", "quiet" or "silence"; other words
 * are refused. "microphone.plugged" (bool), whether programs find it.
 */
class Microphone : public QObject
{
public:
    /** Both outlive it. */
    Microphone(StateStore *state, SoundServer *server, QObject *parent = nullptr);

private:
    QString file(const QString &name) const;
    QString sound() const;
    QStringList sounds() const;
    void setSound(const QString &sound);
    void setPlugged(bool plugged);

    QString m_folder;
    bool m_plugged = true;
};

} // namespace sandbox
