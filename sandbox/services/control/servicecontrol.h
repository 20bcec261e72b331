#pragma once

#include "comcorvanesandboxcontrolinterface.h"

#include <QDBusPendingCallWatcher>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace sandbox {

/** How a service fails, in all of its methods at once. */
struct Fault
{
    enum Kind {
        None,
        Slow,       ///< The true answer, delayMs late.
        Refusing,   ///< An error for an answer.
        WrongTypes, ///< An answer of a type that no method of the contracts has.
        Hung,       ///< The process stands still.
        Stopped,    ///< The service is not on its bus.
    };

    Kind kind = None;
    int delayMs = 0;

    /** What the tool calls the kinds, in their order. */
    static const QStringList &names();

    /** The fault of a service whose methods were all scripted so, see ServiceControl::script(). */
    static Fault ofBehaviour(const QString &behaviour, const QVariant &argument);

    /** How the methods are scripted for it. */
    QString behaviour() const;
    QVariant argument() const;
};

inline bool operator==(const Fault &a, const Fault &b)
{
    return a.kind == b.kind && a.delayMs == b.delayMs;
}

inline bool operator!=(const Fault &a, const Fault &b)
{
    return !(a == b);
}

/**
 * The value that @p words mean to somebody who wants a value of the type of @p like: "true" and
 * "false", a number, one word, or any number of words for a list. Invalid when they mean none.
 */
QVariant valueLike(const QVariant &like, const QStringList &words);

/**
 * The value of a word "TYPE:VALUE", where TYPE is bool, int, uint, double or string; without a TYPE
 * it is a string. Invalid when VALUE is none of that type.
 */
QVariant typedValue(const QString &word);

/** A value as people read it; @p separator stands between the words of a list. */
QString shownText(const QVariant &value, const QString &separator = QStringLiteral(", "));

/**
 * Reads and steers a running service over its control interface, which
 * com.corvane.sandbox.Control.xml describes.
 *
 * The functions of the generated proxy return at once with a pending reply. Those declared here
 * wait for it; then error() says what went wrong, and the value of a call that failed is empty.
 */
class ServiceControl : public ComCorvaneSandboxControlInterface
{
public:
    /** @p service is the service's short name, such as "assistant"; @p bus is where it lives. */
    explicit ServiceControl(const QString &service,
                            const QDBusConnection &bus = QDBusConnection::sessionBus(),
                            QObject *parent = nullptr);

    QStringList keys();

    /** The state under @p key. */
    QVariant value(const QString &key);
    bool setValue(const QString &key, const QVariant &value);

    /** See the interface for @p behaviour and @p argument. */
    bool script(const QString &member, const QString &behaviour, const QVariant &argument);

    /** How many replies were on hold. */
    int release(const QString &member);
    bool reset();
    QStringList calls();
    bool leaveBus();
    bool joinBus();
    bool sendSignal(const QString &path, const QString &interface, const QString &member,
                    const QVariantList &values);
    bool hang();
    bool crash();

    /**
     * Makes the service fail in that way, and in no other, from now on. Returns at once; the
     * watcher, which belongs to this object, has finished when it has taken effect. Of several
     * causes the latest counts.
     */
    QDBusPendingCallWatcher *cause(const Fault &fault);

    /** Stops the process, and lets it run on. False when there is none. */
    bool suspend();
    bool resume();

    /** What went wrong in the latest of these calls; empty when nothing did. */
    QString error() const;

    /** The process of the service; the bus knows it, so a hung service has one too. 0 without. */
    qint64 processId() const;

private:
    bool done(QDBusPendingCall call);
    template <typename T>
    T answer(const QDBusPendingReply<T> &reply);
    bool signalProcess(int number) const;

    QString m_error;
    int m_causes = 0;
};

} // namespace sandbox
