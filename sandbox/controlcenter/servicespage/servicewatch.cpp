#include "sandbox/controlcenter/servicespage/servicewatch.h"

#include "sandbox/services/control/servicecontrol.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace controlcenter {
namespace {

constexpr int pauseMs = 100;
constexpr int patienceMs = 1500;

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

bool isSilence(const QDBusError &error)
{
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::TimedOut;
}

} // namespace

ServiceWatch::ServiceWatch(const sandbox::ServiceIdentity &service, QObject *parent)
    : QObject(parent)
    , m_name(service.name)
    , m_busName(service.busName)
    , m_bus(service.bus == QDBusConnection::SystemBus ? QDBusConnection::systemBus()
                                                      : QDBusConnection::sessionBus())
    , m_control(new sandbox::ServiceControl(service.name, m_bus, this))
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(&m_pause, &QTimer::timeout, this, &ServiceWatch::askIfDue);
    m_patience.setSingleShot(true);
    m_patience.setInterval(patienceMs);
    connect(&m_patience, &QTimer::timeout, this, [this] { setState(Silent); });

    auto *names = new QDBusServiceWatcher(m_busName, m_bus,
                                          QDBusServiceWatcher::WatchForRegistration |
                                              QDBusServiceWatcher::WatchForUnregistration,
                                          this);
    connect(names, &QDBusServiceWatcher::serviceRegistered, this, [this] { onOwned(true); });
    connect(names, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        onOwned(false);
        refresh(); // it may still be steered
    });
    const auto onNews = [this] {
        m_stale = true;
        askIfDue();
    };
    connect(m_control, &sandbox::ServiceControl::CallReceived, this, onNews);
    connect(m_control, &sandbox::ServiceControl::Changed, this, onNews);
}

void ServiceWatch::refresh()
{
    m_stale = true;
    m_wanted = true;
    askIfDue();
}

void ServiceWatch::setFollowing(bool following)
{
    m_followers += following ? 1 : -1;
    askIfDue();
}

QString ServiceWatch::name() const
{
    return m_name;
}

QString ServiceWatch::busName() const
{
    return m_busName;
}

ServiceWatch::State ServiceWatch::state() const
{
    return m_state;
}

ServiceWatch::Values ServiceWatch::values() const
{
    return m_state == Missing ? Values() : m_values;
}

bool ServiceWatch::isSteerable() const
{
    return m_steerable;
}

sandbox::Fault ServiceWatch::fault() const
{
    switch (m_state) {
    case Silent:
        return {sandbox::Fault::Hung};
    case Missing:
        return {sandbox::Fault::Stopped};
    case Unknown:
    case Running:
        break;
    }
    return m_script;
}

// Of several the latest counts. Qt may deliver their answers in another order: one that came before
// it was waited for takes one turn of the event loop more.
void ServiceWatch::cause(const sandbox::Fault &fault)
{
    ++m_causing;
    ++m_causes;
    m_caused = fault;
    connect(m_control->cause(fault), &QDBusPendingCallWatcher::finished, this,
            [this](const QDBusPendingCallWatcher *done) {
                if (--m_causing > 0)
                    return;
                if (!done->isError())
                    onCaused();
                refresh();
            });
}

bool ServiceWatch::isCausing() const
{
    return m_causing > 0;
}

sandbox::ServiceControl *ServiceWatch::control() const
{
    return m_control;
}

// What was asked before does not count any more.
void ServiceWatch::onCaused()
{
    using sandbox::Fault;
    endRound();
    m_script = Fault::ofBehaviour(m_caused.behaviour(), m_caused.argument());
    m_state = m_caused.kind == Fault::Hung      ? Silent
              : m_caused.kind == Fault::Stopped ? Missing
                                                : Running;
    Q_EMIT changed();
}

void ServiceWatch::onOwned(bool owned)
{
    endRound();
    m_keys.clear(); // another program may have other ones
    if (owned)
        refresh();
    else
        setState(Missing);
}

void ServiceWatch::askIfDue()
{
    if (!m_stale || !(m_followers > 0 || m_wanted) || m_asking || m_pause.isActive())
        return;
    m_asking = true;
    m_stale = false;
    m_wanted = false;
    m_pause.start();
    m_patience.start();
    const int round = ++m_round;
    askForFault();

    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question.setArguments({m_busName});
    whenAnswered(m_bus.asyncCall(question), this, [this, round](const QDBusPendingCall &call) {
        const QDBusPendingReply<bool> owned = call;
        if (round != m_round)
            return;
        if (owned.isError() || !owned.value())
            onOwned(false);
        else if (!m_keys.isEmpty())
            askForValues();
        else
            whenAnswered(m_control->Keys(), this, [this, round](const QDBusPendingCall &answer) {
                if (round != m_round)
                    return;
                const QDBusPendingReply<QStringList> keys = answer;
                if (isSilence(keys.error())) {
                    askAgain();
                    return;
                }
                m_keys = keys.value();
                askForValues();
            });
    });
}

// Apart from the other questions: a service that has left its bus answers this one all the same.
void ServiceWatch::askForFault()
{
    whenAnswered(m_control->Behaviour(QStringLiteral("*")), this,
                 [this, causes = m_causes](const QDBusPendingCall &call) {
                     const QDBusPendingReply<QString, QDBusVariant> reply = call;
                     if (isSilence(reply.error()) || causes != m_causes)
                         return;
                     const bool steerable = !reply.isError();
                     const sandbox::Fault script =
                         steerable ? sandbox::Fault::ofBehaviour(reply.argumentAt<0>(),
                                                                 reply.argumentAt<1>().variant())
                                   : sandbox::Fault();
                     if (steerable == m_steerable && script == m_script)
                         return;
                     m_steerable = steerable;
                     m_script = script;
                     Q_EMIT changed();
                 });
}

// What is shown changes when all answers are there, so that no row comes before another.
void ServiceWatch::askForValues()
{
    if (m_keys.isEmpty()) {
        onValues({});
        return;
    }
    struct Answers
    {
        Values values;
        int missing;
        bool silence;
    };
    const auto answers = std::make_shared<Answers>();
    answers->missing = m_keys.size();
    answers->silence = false;
    for (const QString &key : qAsConst(m_keys))
        answers->values.append({key, QString()});
    for (int i = 0; i < m_keys.size(); ++i) {
        whenAnswered(m_control->Value(m_keys.at(i)), this,
                     [this, answers, i, round = m_round](const QDBusPendingCall &call) {
                         const QDBusPendingReply<QDBusVariant> value = call;
                         if (!value.isError())
                             answers->values[i].second =
                                 sandbox::shownText(value.value().variant());
                         answers->silence |= isSilence(value.error());
                         if (--answers->missing > 0 || round != m_round)
                             return;
                         if (answers->silence)
                             askAgain();
                         else
                             onValues(answers->values);
                     });
    }
}

void ServiceWatch::onValues(const Values &values)
{
    endRound();
    if (values != m_values) {
        m_values = values;
        m_state = Running;
        Q_EMIT changed();
    } else {
        setState(Running);
    }
    Q_EMIT answered();
    askIfDue();
}

// A service that hangs is asked until it goes on.
void ServiceWatch::askAgain()
{
    m_asking = false;
    m_stale = true;
    m_pause.start();
}

void ServiceWatch::endRound()
{
    ++m_round;
    m_asking = false;
    m_patience.stop();
}

void ServiceWatch::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT changed();
}

namespace {

// Nobody waits longer for rows to be drawn.
constexpr int longestWaitMs = 300;

} // namespace

ServiceWatches::ServiceWatches(QObject *parent)
    : QObject(parent)
{
    for (const sandbox::ServiceIdentity &service : sandbox::serviceList()) {
        auto *watch = new ServiceWatch(service, this);
        m_all.append(watch);
        connect(watch, &ServiceWatch::changed, this, [this] {
            if (std::none_of(m_all.cbegin(), m_all.cend(), [](const ServiceWatch *each) {
                    return each->state() == ServiceWatch::Unknown;
                }))
                setKnown();
        });
        watch->refresh();
    }
    QTimer::singleShot(longestWaitMs, this, &ServiceWatches::setKnown);
}

ServiceWatch *ServiceWatches::named(const QString &service) const
{
    return *std::find_if(m_all.cbegin(), m_all.cend(),
                         [&](const ServiceWatch *watch) { return watch->name() == service; });
}

void ServiceWatches::setKnown()
{
    if (m_known)
        return;
    m_known = true;
    Q_EMIT known();
}

} // namespace controlcenter
