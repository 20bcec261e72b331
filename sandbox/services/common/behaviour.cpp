#include "sandbox/services/common/behaviour.h"

#include <QDBusArgument>

namespace sandbox {

Behaviour Behaviour::parse(const QString &name, const QVariant &argument, QString *error)
{
    if (name == QLatin1String("answer"))
        return {};
    if (name == QLatin1String("hold"))
        return {Hold, {}};
    if (name == QLatin1String("vanish"))
        return {Vanish, {}};
    if (name == QLatin1String("error"))
        return {Error, argument.toString()};
    if (name == QLatin1String("reply"))
        return {Reply, argument};
    if (name == QLatin1String("reply-list")) {
        if (argument.userType() == qMetaTypeId<QDBusArgument>())
            return {ReplyList, qdbus_cast<QVariantList>(argument)};
        if (argument.userType() == QMetaType::QVariantList)
            return {ReplyList, argument};
        *error = QStringLiteral("reply-list takes an array of variants");
        return {};
    }
    if (name == QLatin1String("delay")) {
        bool isNumber = false;
        const int milliseconds = argument.toInt(&isNumber);
        if (isNumber && milliseconds >= 0)
            return {Delay, milliseconds};
        *error = QStringLiteral("delay takes a number of milliseconds");
        return {};
    }
    *error = QStringLiteral("there is no behaviour \"%1\"").arg(name);
    return {};
}

} // namespace sandbox
