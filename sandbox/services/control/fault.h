#pragma once

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

} // namespace sandbox
