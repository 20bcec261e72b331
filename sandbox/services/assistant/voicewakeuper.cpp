#include "sandbox/services/assistant/voicewakeuper.h"

#include "sandbox/services/common/statestore.h"
#include "voicewakeuperadaptor.h"

namespace sandbox {

namespace {

const QString enabledKey = QStringLiteral("wakeup.enabled");
const QString oneshotKey = QStringLiteral("wakeup.oneshot");
constexpr int done = 0;

} // namespace

VoiceWakeuper::VoiceWakeuper(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
    , m_settings(QStringLiteral("corvane"), QStringLiteral("TavrenVoiceWakeuper"))
{
    new VoiceWakeuperAdaptor(this);
    keepInSettings(enabledKey, QStringLiteral("base/enable"));
    keepInSettings(oneshotKey, QStringLiteral("base/enableOneshot"));
}

int VoiceWakeuper::enableIvw()
{
    m_state->set(enabledKey, true);
    return done;
}

int VoiceWakeuper::disableIvw()
{
    m_state->set(enabledKey, false);
    return done;
}

void VoiceWakeuper::enableOneshot()
{
    m_state->set(oneshotKey, true);
}

void VoiceWakeuper::disableOneshot()
{
    m_state->set(oneshotKey, false);
}

// Reads the file anew each time: a person may have edited it meanwhile.
void VoiceWakeuper::keepInSettings(const QString &key, const QString &settingsKey)
{
    m_state->declareElsewhere(
        key,
        [this, settingsKey] {
            m_settings.sync();
            return m_settings.value(settingsKey, false).toBool();
        },
        [this, settingsKey](const QVariant &value) {
            m_settings.setValue(settingsKey, value);
            m_settings.sync();
        });
}

} // namespace sandbox
