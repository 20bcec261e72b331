#pragma once

#include <QObject>

namespace sandbox {

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
