#include "sandbox/services/keybinding/keybindings.h"

#include "contracts/contract.h"
#include "keybindingsadaptor.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace sandbox {

namespace {

constexpr int systemType = 0;

} // namespace

Keybindings::Keybindings(StateStore *state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
    new KeybindingsAdaptor(this);
    for (const SystemShortcut &shortcut : systemShortcuts) {
        m_state->declare(QLatin1String(shortcut.id),
                         QStringList{QLatin1String(shortcut.accelerator)});
    }
}

QString Keybindings::GetShortcut(const QString &id, int type) const
{
    for (const SystemShortcut &shortcut : systemShortcuts) {
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

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("keybinding")));
    sandbox::Keybindings keybindings(service.state());
    service.publish(Contract::Keybinding::object().path, &keybindings);
    return service.run();
}
