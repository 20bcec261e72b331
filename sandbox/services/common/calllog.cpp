#include "sandbox/services/common/calllog.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusSignature>
#include <QDBusVariant>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace sandbox {

namespace {

constexpr int maximumLines = 10000;

QJsonValue jsonValue(const QVariant &argument);
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
        const QString key = jsonValue(argument.asVariant()).toVariant().toString();
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
            return jsonValue(argument.asVariant());
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
        return jsonValue(argument.asVariant());
    }
}

// An argument of a bus message as JSON. Byte arrays become their length in an object,
// {"bytes": 1600}, since logs of audio would drown everything else.
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

QString describe(const QDBusMessage &call)
{
    QJsonArray arguments;
    const QVariantList values = call.arguments();
    for (const QVariant &value : values)
        arguments.append(jsonValue(value));
    const QJsonObject record{
        {QStringLiteral("path"), call.path()},
        {QStringLiteral("interface"), call.interface()},
        {QStringLiteral("member"), call.member()},
        {QStringLiteral("signature"), call.signature()},
        {QStringLiteral("arguments"), arguments},
        {QStringLiteral("replyExpected"), call.isReplyRequired()},
        {QStringLiteral("sender"), call.service()},
    };
    return QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact));
}

} // namespace

void CallLog::append(const QDBusMessage &call)
{
    if (m_lines.size() == maximumLines)
        m_lines.removeFirst();
    m_lines.append(describe(call));
    Q_EMIT appended(call.member());
}

void CallLog::clear()
{
    m_lines.clear();
}

QStringList CallLog::lines() const
{
    return m_lines;
}

} // namespace sandbox
