#include "sandbox/services/aiservice/hypothesis.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace sandbox {

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

QString Hypothesis::toJson(const QString &sessionId) const
{
    QJsonArray wordSlots;
    for (const QString &word : words) {
        const QJsonObject candidate{{QStringLiteral("w"), word}};
        wordSlots.append(QJsonObject{{QStringLiteral("cw"), QJsonArray{candidate}}});
    }
    const QJsonObject text{
        {QStringLiteral("pgs"), kind == Replace ? QStringLiteral("rpl") : QStringLiteral("apd")},
        {QStringLiteral("sn"), number},
        {QStringLiteral("ls"), last},
        {QStringLiteral("ws"), wordSlots},
    };
    return compact({{QStringLiteral("session_id"), sessionId},
                    {QStringLiteral("text"), compact(text)},
                    {QStringLiteral("finish"), last}});
}

} // namespace sandbox
