#pragma once

#include <QString>
#include <QVariant>

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
    };

    Kind kind = Answer;
    QVariant argument;

    /**
     * The behaviour called @p name with @p argument as it came from the bus. When there is none of
     * that name, or the argument does not suit it, @p error gets a text that says so.
     */
    static Behaviour parse(const QString &name, const QVariant &argument, QString *error);
};

} // namespace sandbox
