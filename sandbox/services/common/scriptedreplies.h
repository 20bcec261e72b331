#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>

namespace sandbox {

/** How a scripted method behaves; see Script in com.corvane.sandbox.Control.xml. */
struct Behaviour
{
    enum Kind {
        Answer,    ///< The true answer.
        Error,     ///< An error reply with the text `argument`; the work is not done.
        Reply,     ///< A reply with the one value `argument`; the work is not done.
        ReplyList, ///< A reply with the values of the list `argument`; the work is not done.
        Delay,     ///< The true answer, `argument` milliseconds late.
        Hold,      ///< The true answer, when it is released.
        Vanish,    ///< No answer: the process ends.
        HandOver,  ///< The true answer, after the service has given up its name.
    };

    Kind kind = Answer;
    QVariant argument;

    /** What parse() takes for it. */
    QString name() const;

    /**
     * The behaviour called @p name with @p argument as it came from the bus. When there is none of
     * that name, or the argument does not suit it, @p error gets a text that says so.
     */
    static Behaviour parse(const QString &name, const QVariant &argument, QString *error);
};

/**
 * Answers calls the way they are scripted: at once, late, on release, wrongly, or never.
 *
 * A delayed or held call does its work when it arrives; only the answer waits. Scripts are kept by
 * member name, either alone ("putAudio") or behind its interface
 * ("com.corvane.aiservice.iat.putAudio"), which goes first; "*" is every member without a script.
 */
class ScriptedReplies : public QObject
{
    Q_OBJECT

public:
    explicit ScriptedReplies(const QDBusConnection &connection, QObject *parent = nullptr);

    void script(const QString &member, const Behaviour &behaviour);

    /** As it was scripted. */
    Behaviour behaviour(const QString &member) const;

    /**
     * Answers @p call as scripted; @p work does the call's work and returns its true answer. The
     * call's @p number comes back with answered().
     */
    void answer(const QDBusMessage &call, int number, const std::function<QDBusMessage()> &work);

    /** Sends the answers on hold for @p member; returns how many. */
    int release(const QString &member);

    /** Forgets all scripts and sends every answer on hold. */
    void reset();

Q_SIGNALS:
    /** Some method behaves in another way now. */
    void changed();

    /** The service's name is to be given up now. */
    void handsOver();

    /** @p reply was sent. */
    void answered(int number, const QDBusMessage &reply);

private:
    struct Held
    {
        QDBusMessage call;
        int number;
        QDBusMessage reply;
    };

    Behaviour behaviourOf(const QDBusMessage &call) const;
    void send(const QDBusMessage &call, int number, const QDBusMessage &reply);

    QDBusConnection m_connection;
    QHash<QString, Behaviour> m_scripts;
    QList<Held> m_held;
};

} // namespace sandbox
