#include "sandbox/services/assistant/texttospeech.h"

#include "sandbox/services/common/statestore.h"
#include "texttospeechadaptor.h"

namespace sandbox {

namespace {

const QString enabledKey = QStringLiteral("tts.enabled");
const QString windowKey = QStringLiteral("tts.window");
const QString speakerKey = QStringLiteral("tts.speaker");

} // namespace

TextToSpeech::TextToSpeech(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new TextToSpeechAdaptor(this);
    m_state->declare(enabledKey, true);
    m_state->declare(windowKey, true);
    m_state->declare(speakerKey, QStringLiteral("x_tovali"));
}

bool TextToSpeech::getTTSEnable() const
{
    return m_state->get<bool>(enabledKey);
}

void TextToSpeech::setTTSEnable(bool enabled)
{
    m_state->set(enabledKey, enabled);
}

bool TextToSpeech::getEnableWindow() const
{
    return m_state->get<bool>(windowKey);
}

void TextToSpeech::setEnableWindow(bool enabled)
{
    m_state->set(windowKey, enabled);
}

QString TextToSpeech::getSpeaker() const
{
    return m_state->get<QString>(speakerKey);
}

void TextToSpeech::setSpeaker(const QString &speaker)
{
    m_state->set(speakerKey, speaker);
}

} // namespace sandbox
