#pragma once

#include <QObject>

namespace sandbox {

/** A shortcut that comes with the desktop. */
struct SystemShortcut
{
    const char *id;
    const char *name;
    const char *accelerator; ///< as long as nobody has changed it
};

constexpr SystemShortcut systemShortcuts[] = {
    {"speech-to-text", "Speech to Text", "<Control><Alt>I"},
    {"text-to-speech", "Text to Speech", "<Control><Alt>P"},
    {"translation", "Translation", "<Control><Alt>T"},
};

class StateStore;

/**
 * The desktop's system shortcuts: contract com.tavren.daemon.Keybinding.
 *
 * State: "speech-to-text", "text-to-speech" and "translation", each the list of its accelerators
 * (string list; empty: no shortcut).
 */
class Keybindings : public QObject
{
    Q_OBJECT

public:
    explicit Keybindings(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    /** Empty for a shortcut that there is not. */
    QString GetShortcut(const QString &id, int type) const;

private:
    StateStore *m_state;
};

} // namespace sandbox
