#pragma once

#include <QDBusMessage>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QStringList>

namespace sandbox {

/**
 * The calls that a service's real objects received, oldest first: each one a line of JSON as the
 * control interface documents it. It holds the latest 10,000; a long session drops the oldest.
 */
class CallLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Returns the number of @p call, which tells it from all others. */
    int append(const QDBusMessage &call);

    /** The call with that number was answered; with no message, by somebody else. */
    void setAnswer(int number, const QDBusMessage &reply);

    void clear();
    QStringList lines() const;

Q_SIGNALS:
    /** A call to @p member was appended. */
    void appended(const QString &member);

    /** A call was appended or answered; @p line as in lines(). */
    void logged(const QString &line);

private:
    QList<QJsonObject> m_records; // numbered without a gap
    int m_latest = 0;
};

} // namespace sandbox
