#pragma once

#include <QObject>

namespace sandbox {

class StateStore;

/**
 * The assistant's icon in the dock: contract com.corvane.aiassistant.dock.
 *
 * State: "hidden" (bool). Clients are told of every change, whether a client or the control
 * interface made it, and only of changes.
 */
class DockIcon : public QObject
{
    Q_OBJECT

public:
    explicit DockIcon(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    bool getDockHideStatus() const;
    bool setDockHideStatus(bool hide);

Q_SIGNALS:
    void dockHideChange(bool hide);

private:
    StateStore *m_state;
};

} // namespace sandbox
