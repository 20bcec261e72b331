#include "sandbox/controlcenter/servicespage/servicewatch.h"

#include "sandbox/services/control/servicecontrol.h"
#include "sandbox/services/control/textvalue.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

namespace controlcenter {
namespace {

// Calls a function with the reply to a call, unless the owner is gone when it comes.
template <typename Then>
void whenAnswered(const QDBusPendingCall &call, QObject *owner, Then then)
{
    auto *watcher = new QDBusPendingCallWatcher(call, owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner,
                     [then](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         then(*finished);
                     });
}

} // namespace

ServiceWatch::ServiceWatch(const sandbox::ServiceIdentity &service, QObject *parent)
    : QObject(parent)
    , m_busName(service.busName)
    , m_bus(service.bus == QDBusConnection::SystemBus ? QDBusConnection::systemBus()
                                                      : QDBusConnection::sessionBus())
    , m_control(new sandbox::ServiceControl(service.name, m_bus, this))
{
    auto *names = new QDBusServiceWatcher(m_busName, m_bus,
                                          QDBusServiceWatcher::WatchForRegistration |
                                              QDBusServiceWatcher::WatchForUnregistration,
                                          this);
    connect(names, &QDBusServiceWatcher::serviceRegistered, this, &ServiceWatch::refresh);
    connect(names, &QDBusServiceWatcher::serviceUnregistered, this, [this] { setState(Missing); });
    connect(m_control, &sandbox::ServiceControl::CallReceived, this, &ServiceWatch::refresh);
}

void ServiceWatch::refresh()
{
    queryOwner();
    whenAnswered(m_control->Keys(), this, [this](const QDBusPendingCall &call) {
        const QDBusPendingReply<QStringList> keys = call;
        if (keys.isError())
            return;
        for (const QString &key : keys.value())
            queryValue(key);
    });
}

QString ServiceWatch::busName() const
{
    return m_busName;
}

ServiceWatch::State ServiceWatch::state() const
{
    return m_state;
}

QMap<QString, QString> ServiceWatch::values() const
{
    return m_values;
}

void ServiceWatch::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT changed();
}

void ServiceWatch::queryOwner()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question.setArguments({m_busName});
    whenAnswered(m_bus.asyncCall(question), this, [this](const QDBusPendingCall &call) {
        const QDBusPendingReply<bool> owned = call;
        setState(!owned.isError() && owned.value() ? Running : Missing);
    });
}

void ServiceWatch::queryValue(const QString &key)
{
    whenAnswered(m_control->Value(key), this, [this, key](const QDBusPendingCall &call) {
        const QDBusPendingReply<QDBusVariant> value = call;
        if (value.isError())
            return;
        const QString text = sandbox::shownText(value.value().variant());
        if (m_values.contains(key) && m_values.value(key) == text)
            return;
        m_values.insert(key, text);
        Q_EMIT changed();
    });
}

} // namespace controlcenter
