#include "sandbox/services/keybinding/keybindings.h"

#include "keybindingsadaptor.h"
#include "sandbox/services/common/statestore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace sandbox {

namespace {

constexpr int systemType = 0;

struct Shortcut
{
    const char *id;
    const char *name;
    const char *accelerator;
};

const Shortcut shortcuts[] = {
    {"speech-to-text", "Speech to Text", "<Control><Alt>I"},
    {"text-to-speech", "Text to Speech", "<Control><Alt>P"},
    {"translation", "Translation", "<Control><Alt>T"},
};

} // namespace

Keybindings::Keybindings(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new KeybindingsAdaptor(this);
    for (const Shortcut &shortcut : shortcuts) {
        m_state->declare(QLatin1String(shortcut.id),
                         QStringList{QLatin1String(shortcut.accelerator)});
    }
}

QString Keybindings::GetShortcut(const QString &id, int type) const
{
    for (const Shortcut &shortcut : shortcuts) {
        if (type == systemType && id == QLatin1String(shortcut.id)) {
            const QJsonObject reply{
                {QStringLiteral("Id"), id},
                {QStringLiteral("Type"), type},
                {QStringLiteral("Name"), QLatin1String(shortcut.name)},
                {QStringLiteral("Accels"),
                 QJsonArray::fromStringList(m_state->get<QStringList>(id))},
            };
            return QString::fromUtf8(QJsonDocument(reply).toJson(QJsonDocument::Compact));
        }
    }
    return {};
}

} // namespace sandbox
