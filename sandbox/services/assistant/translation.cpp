#include "sandbox/services/assistant/translation.h"

#include "sandbox/services/common/statestore.h"
#include "translationadaptor.h"

namespace sandbox {

namespace {

const QString enabledKey = QStringLiteral("trans.enabled");
const QString languageKey = QStringLiteral("trans.language");

} // namespace

Translation::Translation(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new TranslationAdaptor(this);
    m_state->declare(enabledKey, true);
    m_state->declare(languageKey, QStringLiteral("en|cn"));
}

bool Translation::getTransEnable() const
{
    return m_state->get<bool>(enabledKey);
}

void Translation::setTransEnable(bool enabled)
{
    m_state->set(enabledKey, enabled);
}

QString Translation::getTransLanguage() const
{
    return m_state->get<QString>(languageKey);
}

void Translation::setTransLanguage(const QString &language)
{
    m_state->set(languageKey, language);
}

} // namespace sandbox
