#include "sandbox/controlcenter/shortcutspage/shortcutstore.h"

#include "comtavrendaemonkeybindinginterface.h"
#include "contracts/contract.h"
#include "sandbox/services/control/servicecontrol.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace controlcenter {
namespace {

constexpr int systemType = 0; // the daemon's type of the shortcuts that come with the desktop

QString firstAccelerator(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8())
        .object()
        .value(QLatin1String("Accels"))
        .toArray()
        .at(0)
        .toString();
}

} // namespace

ShortcutStore::ShortcutStore(QObject *parent)
    : QObject(parent)
    , m_daemon(new ComTavrenDaemonKeybindingInterface(Contract::Keybinding::object().service,
                                                      Contract::Keybinding::object().path,
                                                      QDBusConnection::sessionBus(), this))
    , m_control(new sandbox::ServiceControl(QStringLiteral("keybinding"),
                                            QDBusConnection::sessionBus(), this))
{
}

void ShortcutStore::read(const QString &id)
{
    whenAnswered(m_daemon->GetShortcut(id, systemType), id,
                 [this, id](const QDBusPendingCall &call) {
                     const QDBusPendingReply<QString> reply = call;
                     Q_EMIT known(id, firstAccelerator(reply.value()));
                 });
}

void ShortcutStore::write(const QString &id, const QString &accelerator)
{
    QStringList accelerators;
    if (!accelerator.isEmpty())
        accelerators.append(accelerator);
    whenAnswered(m_control->SetValue(id, QDBusVariant(accelerators)), id,
                 [this, id](const QDBusPendingCall &) { read(id); });
}

template <typename Then>
void ShortcutStore::whenAnswered(const QDBusPendingCall &call, const QString &id, Then then)
{
    auto *watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, id, then] {
        watcher->deleteLater();
        if (watcher->isError())
            Q_EMIT failed(id, watcher->error().message());
        else
            then(*watcher);
    });
}

} // namespace controlcenter
