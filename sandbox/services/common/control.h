#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QObject>
#include <QStringList>
#include <QVariantList>

namespace sandbox {

class CallLog;
class ScriptedReplies;
class StateStore;

/**
 * The control interface of a service: what com.corvane.sandbox.Control.xml describes, behind the
 * adaptor generated from it.
 */
class Control : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    /** Steers the service called @p busName; the three helpers are its own and outlive this. */
    Control(const QString &busName, const QDBusConnection &connection, StateStore *state,
            CallLog *log, ScriptedReplies *replies, QObject *parent);

    /** Makes it reachable at its path. */
    void publish();

    // NOLINTBEGIN(readability-identifier-naming): the contract's names
public Q_SLOTS:
    QStringList Keys() const;
    QDBusVariant Value(const QString &key);
    void SetValue(const QString &key, const QDBusVariant &value);
    void Script(const QString &member, const QString &behaviour, const QDBusVariant &argument);
    QString Behaviour(const QString &member, QDBusVariant &argument) const;
    int Release(const QString &member);
    void Reset();
    QStringList Calls() const;
    void LeaveBus();
    void JoinBus();
    void SendSignal(const QDBusObjectPath &path, const QString &interface, const QString &member,
                    const QVariantList &values);
    void Hang();
    void Crash();
    uint ProcessId() const;

Q_SIGNALS:
    void Changed();
    void CallLogged(const QString &call);
    void CallReceived(const QString &member);
    // NOLINTEND(readability-identifier-naming)

private:
    void refuse(const QString &reason);
    void answerNow();

    QString m_busName;
    QDBusConnection m_connection;
    StateStore *m_state;
    CallLog *m_log;
    ScriptedReplies *m_replies;
};

} // namespace sandbox
