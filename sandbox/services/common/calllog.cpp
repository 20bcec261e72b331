#include "sandbox/services/common/calllog.h"

#include "sandbox/services/common/jsonvalue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace sandbox {

namespace {

constexpr int maximumLines = 10000;

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
