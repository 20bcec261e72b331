#include "sandbox/services/control/servicecontrol.h"

#include "sandbox/services/control/servicelist.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>

namespace sandbox {

ServiceControl::ServiceControl(const QString &service, const QDBusConnection &bus, QObject *parent)
    : ComCorvaneSandboxControlInterface(controlBusName(service), controlPath(), bus, parent)
{
}

QStringList ServiceControl::keys()
{
    return answer(Keys());
}

QVariant ServiceControl::value(const QString &key)
{
    return answer(Value(key)).variant();
}

bool ServiceControl::setValue(const QString &key, const QVariant &value)
{
    return done(SetValue(key, QDBusVariant(value)));
}

bool ServiceControl::script(const QString &member, const QString &behaviour,
                            const QVariant &argument)
{
    return done(Script(member, behaviour, QDBusVariant(argument)));
}

int ServiceControl::release(const QString &member)
{
    return answer(Release(member));
}

bool ServiceControl::reset()
{
    return done(Reset());
}

QStringList ServiceControl::calls()
{
    return answer(Calls());
}

bool ServiceControl::leaveBus()
{
    return done(LeaveBus());
}

bool ServiceControl::joinBus()
{
    return done(JoinBus());
}

bool ServiceControl::hang()
{
    return done(Hang());
}

bool ServiceControl::crash()
{
    return done(Crash());
}

QString ServiceControl::error() const
{
    return m_error;
}

qint64 ServiceControl::processId() const
{
    return connection().interface()->servicePid(service());
}

bool ServiceControl::done(QDBusPendingCall call)
{
    call.waitForFinished();
    m_error = call.isError() ? call.error().message() : QString();
    return !call.isError();
}

template <typename T>
T ServiceControl::answer(const QDBusPendingReply<T> &reply)
{
    return done(reply) ? reply.value() : T();
}

} // namespace sandbox
