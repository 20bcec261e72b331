#pragma once

#include <QObject>

namespace sandbox {

class StateStore;

/**
 * The one answer of NetworkManager that the module asks for: contract
 * org.freedesktop.NetworkManager.
 *
 * State: "state" (uint, an NMState of NetworkManager's D-Bus API: 70 is global connectivity, 60
 * site, 50 local, 20 disconnected). Like the real one it starts afresh with the process, with 70.
 */
class NetworkState : public QObject
{
    Q_OBJECT

public:
    explicit NetworkState(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    uint state() const;

private:
    StateStore *m_state;
};

} // namespace sandbox
