#include "sandbox/services/assistant/speechtotext.h"

#include "sandbox/services/common/statestore.h"
#include "speechtotextadaptor.h"

namespace sandbox {

namespace {

const QString enabledKey = QStringLiteral("iat.enabled");
const QString languageKey = QStringLiteral("iat.language");

} // namespace

SpeechToText::SpeechToText(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new SpeechToTextAdaptor(this);
    m_state->declare(enabledKey, true);
    m_state->declare(languageKey, QStringLiteral("zh_cn"));
}

bool SpeechToText::getIatEnable() const
{
    return m_state->get<bool>(enabledKey);
}

void SpeechToText::setIatEnable(bool enabled)
{
    m_state->set(enabledKey, enabled);
}

QString SpeechToText::getIatLanguage() const
{
    return m_state->get<QString>(languageKey);
}

void SpeechToText::setIatLanguage(const QString &language)
{
    m_state->set(languageKey, language);
}

} // namespace sandbox
