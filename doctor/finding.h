#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>

namespace doctor {

/** Warnings are for integrators; of failures the person in front of the module sees something. */
enum class Status { Ok, Warning, Failure };

/** One line of the report. */
struct Finding
{
    Status status = Status::Ok;
    QString check;   ///< What was looked at, in one word: "service".
    QString subject; ///< Which one: "com.corvane.aiassistant".
    QString text;    ///< What was found.
    QString seen;    ///< What people see in the module because of it; empty when it is ok.
    QString remedy;  ///< What to do about it; empty when it is ok.

    QJsonObject toJson() const;
    static Finding fromJson(const QJsonObject &object);
};

/** "ok", "warning" or "failure". */
QString statusWord(Status status);

} // namespace doctor
