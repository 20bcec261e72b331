#include "sandbox/services/common/calllog.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusSignature>
#include <QDBusVariant>
#include <QDateTime>
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

QJsonArray argumentsOf(const QDBusMessage &message)
{
    QJsonArray arguments;
    const QVariantList values = message.arguments();
    for (const QVariant &value : values)
        arguments.append(jsonValue(value));
    return arguments;
}

QJsonObject describe(const QDBusMessage &call, int number)
{
    return {
        {QStringLiteral("number"), number},
        {QStringLiteral("time"), QDateTime::currentMSecsSinceEpoch()},
        {QStringLiteral("path"), call.path()},
        {QStringLiteral("interface"), call.interface()},
        {QStringLiteral("member"), call.member()},
        {QStringLiteral("signature"), call.signature()},
        {QStringLiteral("arguments"), argumentsOf(call)},
        {QStringLiteral("replyExpected"), call.isReplyRequired()},
        {QStringLiteral("sender"), call.service()},
    };
}

QString lineOf(const QJsonObject &record)
{
    return QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact));
}

} // namespace

int CallLog::append(const QDBusMessage &call)
{
    if (m_records.size() == maximumLines)
        m_records.removeFirst();
    m_records.append(describe(call, ++m_latest));
    Q_EMIT appended(call.member());
    Q_EMIT logged(lineOf(m_records.constLast()));
    return m_latest;
}

void CallLog::setAnswer(int number, const QDBusMessage &reply)
{
    const int index = m_records.size() - 1 - (m_latest - number);
    if (index < 0)
        return; // forgotten meanwhile
    QJsonObject answer;
    if (reply.type() == QDBusMessage::ErrorMessage)
        answer.insert(QStringLiteral("error"), reply.errorMessage());
    else if (reply.type() == QDBusMessage::ReplyMessage)
        answer.insert(QStringLiteral("arguments"), argumentsOf(reply));
    m_records[index].insert(QStringLiteral("answer"), answer);
    Q_EMIT logged(lineOf(m_records.at(index)));
}

void CallLog::clear()
{
    m_records.clear();
}

QStringList CallLog::lines() const
{
    QStringList lines;
    lines.reserve(m_records.size());
    for (const QJsonObject &record : m_records)
        lines.append(lineOf(record));
    return lines;
}

} // namespace sandbox
