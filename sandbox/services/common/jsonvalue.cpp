#include "sandbox/services/common/jsonvalue.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusSignature>
#include <QDBusVariant>
#include <QJsonArray>
#include <QJsonObject>

namespace sandbox {

namespace {

QJsonValue jsonValue(const QDBusArgument &argument);

QJsonArray jsonElements(const QDBusArgument &argument)
{
    QJsonArray elements;
    while (!argument.atEnd())
        elements.append(jsonValue(argument));
    return elements;
}

QJsonObject jsonMap(const QDBusArgument &argument)
{
    QJsonObject map;
    while (!argument.atEnd()) {
        argument.beginMapEntry();
        const QString key = sandbox::jsonValue(argument.asVariant()).toVariant().toString();
        map.insert(key, jsonValue(argument));
        argument.endMapEntry();
    }
    return map;
}

// Values of compound types come unread; reading moves on to the next element.
QJsonValue jsonValue(const QDBusArgument &argument)
{
    QJsonValue value;
    switch (argument.currentType()) {
    case QDBusArgument::ArrayType:
        if (argument.currentSignature() == QLatin1String("ay"))
            return sandbox::jsonValue(argument.asVariant());
        argument.beginArray();
        value = jsonElements(argument);
        argument.endArray();
        return value;
    case QDBusArgument::StructureType:
        argument.beginStructure();
        value = jsonElements(argument);
        argument.endStructure();
        return value;
    case QDBusArgument::MapType:
        argument.beginMap();
        value = jsonMap(argument);
        argument.endMap();
        return value;
    case QDBusArgument::UnknownType:
        return value;
    default:
        return sandbox::jsonValue(argument.asVariant());
    }
}

} // namespace

QJsonValue jsonValue(const QVariant &argument)
{
    const int type = argument.userType();
    if (type == QMetaType::QByteArray)
        return QJsonObject{{QStringLiteral("bytes"), argument.toByteArray().size()}};
    if (type == qMetaTypeId<QDBusArgument>())
        return jsonValue(argument.value<QDBusArgument>());
    if (type == qMetaTypeId<QDBusVariant>())
        return jsonValue(argument.value<QDBusVariant>().variant());
    if (type == qMetaTypeId<QDBusObjectPath>())
        return argument.value<QDBusObjectPath>().path();
    if (type == qMetaTypeId<QDBusSignature>())
        return argument.value<QDBusSignature>().signature();
    return QJsonValue::fromVariant(argument);
}

} // namespace sandbox
