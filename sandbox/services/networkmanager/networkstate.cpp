#include "sandbox/services/networkmanager/networkstate.h"

#include "networkstateadaptor.h"
#include "sandbox/services/common/statestore.h"

namespace sandbox {

namespace {

const uint connectedGlobal = 70; // NM_STATE_CONNECTED_GLOBAL

} // namespace

NetworkState::NetworkState(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new NetworkStateAdaptor(this);
    m_state->declare(QStringLiteral("state"), connectedGlobal, StateStore::ThisRun);
}

uint NetworkState::state() const
{
    return m_state->get<uint>(QStringLiteral("state"));
}

} // namespace sandbox
