#pragma once

#include "sandbox/services/common/behaviour.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QList>
#include <QObject>

#include <functional>

namespace sandbox {

/**
 * Answers calls the way they are scripted: at once, late, on release, wrongly, or never.
 *
 * A delayed or held call does its work when it arrives; only the answer waits. Scripts are kept by
 * member name, either alone ("putAudio") or behind its interface
 * ("com.corvane.aiservice.iat.putAudio"), which goes first.
 */
class ReplyDesk : public QObject
{
    Q_OBJECT

public:
    explicit ReplyDesk(const QDBusConnection &connection, QObject *parent = nullptr);

    void script(const QString &member, const Behaviour &behaviour);

    /** Answers @p call as scripted; @p work does the call's work and returns its true answer. */
    void answer(const QDBusMessage &call, const std::function<QDBusMessage()> &work);

    /** Sends the answers on hold for @p member; returns how many. */
    int release(const QString &member);

    /** Forgets all scripts and sends every answer on hold. */
    void reset();

private:
    struct Held
    {
        QDBusMessage call;
        QDBusMessage reply;
    };

    Behaviour behaviourOf(const QDBusMessage &call) const;
    void send(const QDBusMessage &call, const QDBusMessage &reply);

    QDBusConnection m_connection;
    QHash<QString, Behaviour> m_scripts;
    QList<Held> m_held;
};

} // namespace sandbox
