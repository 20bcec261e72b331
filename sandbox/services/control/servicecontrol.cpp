#include "sandbox/services/control/servicecontrol.h"

#include "sandbox/services/control/servicelist.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QHash>

#include <csignal>

namespace sandbox {

const QStringList &Fault::names()
{
    static const QStringList all{
        QStringLiteral("none"),        QStringLiteral("slow"), QStringLiteral("refusing"),
        QStringLiteral("wrong-types"), QStringLiteral("hung"), QStringLiteral("stopped"),
    };
    return all;
}

Fault Fault::ofBehaviour(const QString &behaviour, const QVariant &argument)
{
    if (behaviour == QLatin1String("delay"))
        return {Slow, argument.toInt()};
    for (const Kind kind : {Refusing, WrongTypes})
        if (behaviour == Fault{kind}.behaviour())
            return {kind};
    return {};
}

QString Fault::behaviour() const
{
    switch (kind) {
    case Slow:
        return QStringLiteral("delay");
    case Refusing:
        return QStringLiteral("error");
    case WrongTypes:
        return QStringLiteral("reply");
    case None:
    case Hung:
    case Stopped:
        break;
    }
    return QStringLiteral("answer");
}

QVariant Fault::argument() const
{
    switch (kind) {
    case Slow:
        return delayMs;
    case WrongTypes:
        return 0.5; // no contract has a double
    default:
        return QStringLiteral("refused by request");
    }
}

namespace {

QVariant converted(const QString &text, int type)
{
    if (type == QMetaType::Bool) {
        return text == QLatin1String("true")    ? QVariant(true)
               : text == QLatin1String("false") ? QVariant(false)
                                                : QVariant();
    }
    QVariant value(text);
    return value.convert(type) ? value : QVariant();
}

} // namespace

QVariant valueLike(const QVariant &like, const QStringList &words)
{
    if (like.userType() == QMetaType::QStringList)
        return words;
    return words.size() == 1 ? converted(words.constFirst(), like.userType()) : QVariant();
}

QVariant typedValue(const QString &word)
{
    static const QHash<QString, int> types{{QStringLiteral("bool"), QMetaType::Bool},
                                           {QStringLiteral("int"), QMetaType::Int},
                                           {QStringLiteral("uint"), QMetaType::UInt},
                                           {QStringLiteral("double"), QMetaType::Double},
                                           {QStringLiteral("string"), QMetaType::QString}};
    const int colon = word.indexOf(QLatin1Char(':'));
    const auto type = types.constFind(word.left(colon));
    if (colon < 0 || type == types.constEnd())
        return word;
    return converted(word.mid(colon + 1), *type);
}

QString shownText(const QVariant &value, const QString &separator)
{
    return value.userType() == QMetaType::QStringList ? value.toStringList().join(separator)
                                                      : value.toString();
}

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

bool ServiceControl::sendSignal(const QString &path, const QString &interface,
                                const QString &member, const QVariantList &values)
{
    return done(SendSignal(QDBusObjectPath(path), interface, member, values));
}

bool ServiceControl::hang()
{
    return done(Hang());
}

bool ServiceControl::crash()
{
    return done(Crash());
}

// A service works off its messages in their order, so only the last of them is waited for.
QDBusPendingCallWatcher *ServiceControl::cause(const Fault &fault)
{
    const int number = ++m_causes;
    resume();
    JoinBus();
    QDBusPendingCall last =
        Script(QStringLiteral("*"), fault.behaviour(), QDBusVariant(fault.argument()));
    if (fault.kind == Fault::Stopped)
        last = LeaveBus();
    auto *watcher = new QDBusPendingCallWatcher(last, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, fault, number, watcher] {
        watcher->deleteLater();
        if (fault.kind == Fault::Hung && number == m_causes)
            suspend();
    });
    return watcher;
}

bool ServiceControl::suspend()
{
    return signalProcess(SIGSTOP);
}

bool ServiceControl::resume()
{
    return signalProcess(SIGCONT);
}

QString ServiceControl::error() const
{
    return m_error;
}

qint64 ServiceControl::processId() const
{
    return connection().interface()->servicePid(service());
}

bool ServiceControl::signalProcess(int number) const
{
    const qint64 process = processId();
    return process > 0 && ::kill(pid_t(process), number) == 0;
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
