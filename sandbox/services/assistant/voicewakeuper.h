#pragma once

#include <QObject>
#include <QSettings>

namespace sandbox {

class StateStore;

/**
 * Waking the assistant by voice: contract com.corvane.aiassistant.voicewakeuper.
 *
 * State: "wakeup.enabled" and "wakeup.oneshot" (bool). It lives in the settings store of the
 * wake-up service, which settings pages read and nobody else writes: organisation "corvane",
 * application "TavrenVoiceWakeuper", keys "base/enable" and "base/enableOneshot". The file is
 * written before a call is answered.
 */
class VoiceWakeuper : public QObject
{
    Q_OBJECT

public:
    explicit VoiceWakeuper(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    int enableIvw();
    int disableIvw();
    void enableOneshot();
    void disableOneshot();

private:
    void keepInSettings(const QString &key, const QString &settingsKey);

    StateStore *m_state;
    QSettings m_settings;
};

} // namespace sandbox
