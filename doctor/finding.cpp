#include "doctor/finding.h"

namespace doctor {

namespace {

const QString statusKey = QStringLiteral("status");
const QString checkKey = QStringLiteral("check");
const QString subjectKey = QStringLiteral("subject");
const QString textKey = QStringLiteral("finding");
const QString seenKey = QStringLiteral("seen");
const QString remedyKey = QStringLiteral("remedy");

} // namespace

QJsonObject Finding::toJson() const
{
    return {{statusKey, statusWord(status)},
            {checkKey, check},
            {subjectKey, subject},
            {textKey, text},
            {seenKey, seen},
            {remedyKey, remedy}};
}

Finding Finding::fromJson(const QJsonObject &object)
{
    const QString word = object.value(statusKey).toString();
    Finding finding;
    for (const Status status : {Status::Ok, Status::Warning, Status::Failure})
        if (word == statusWord(status))
            finding.status = status;
    finding.check = object.value(checkKey).toString();
    finding.subject = object.value(subjectKey).toString();
    finding.text = object.value(textKey).toString();
    finding.seen = object.value(seenKey).toString();
    finding.remedy = object.value(remedyKey).toString();
    return finding;
}

QString statusWord(Status status)
{
    switch (status) {
    case Status::Ok:
        return QStringLiteral("ok");
    case Status::Warning:
        return QStringLiteral("warning");
    case Status::Failure:
        break;
    }
    return QStringLiteral("failure");
}

} // namespace doctor
