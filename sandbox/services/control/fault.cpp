#include "sandbox/services/control/fault.h"

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

} // namespace sandbox
