#include "sandbox/services/dock/dockicon.h"

#include "contracts/contract.h"
#include "dockiconadaptor.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"

#include <QCoreApplication>

namespace sandbox {

namespace {

const QString hiddenKey = QStringLiteral("hidden");

} // namespace

DockIcon::DockIcon(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new DockIconAdaptor(this);
    m_state->declare(hiddenKey, false);
    connect(m_state, &StateStore::changed, this, [this](const QString &key, const QVariant &value) {
        if (key == hiddenKey)
            Q_EMIT dockHideChange(value.toBool());
    });
}

bool DockIcon::getDockHideStatus() const
{
    return m_state->get<bool>(hiddenKey);
}

bool DockIcon::setDockHideStatus(bool hide)
{
    return m_state->set(hiddenKey, hide);
}

} // namespace sandbox

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("dock")));
    sandbox::DockIcon icon(service.state());
    service.publish(Contract::DockIcon::object().path, &icon);
    return service.run();
}
