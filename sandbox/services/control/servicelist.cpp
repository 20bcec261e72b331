#include "sandbox/services/control/servicelist.h"

#include "contracts/contract.h"

#include <algorithm>

namespace sandbox {

namespace {

ServiceIdentity service(const QString &name, const Contract::Object &object, const QString &purpose)
{
    return {name, object.service, object.bus, purpose};
}

} // namespace

const QList<ServiceIdentity> &serviceList()
{
    static const QList<ServiceIdentity> all{
        service(QStringLiteral("assistant"), Contract::MainWindow::object(),
                QStringLiteral("Holds the settings of the assistant's features.")),
        service(QStringLiteral("dock"), Contract::DockIcon::object(),
                QStringLiteral("Shows or hides the assistant's icon in the dock.")),
        service(QStringLiteral("keybinding"), Contract::Keybinding::object(),
                QStringLiteral("Knows the desktop's keyboard shortcuts.")),
        service(QStringLiteral("aiservice"), Contract::SessionManager::object(),
                QStringLiteral("Checks the quality of speech and recognises the test phrase.")),
        service(QStringLiteral("audio"), Contract::AudioDaemon::object(),
                QStringLiteral("Tells of changes of the default microphone.")),
        service(QStringLiteral("networkmanager"), Contract::NetworkManager::object(),
                QStringLiteral("Answers for NetworkManager on a system bus that has none.")),
    };
    return all;
}

ServiceIdentity serviceNamed(const QString &name)
{
    const QList<ServiceIdentity> &all = serviceList();
    const auto found = std::find_if(all.cbegin(), all.cend(), [&](const ServiceIdentity &service) {
        return service.name == name;
    });
    Q_ASSERT(found != all.cend());
    return *found;
}

QString controlBusName(const QString &name)
{
    return QStringLiteral("com.corvane.sandbox.") + name;
}

QString controlPath()
{
    return QStringLiteral("/sandbox/control");
}

} // namespace sandbox
