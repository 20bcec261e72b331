#pragma once

#include <QDBusMessage>
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

    void append(const QDBusMessage &call);
    void clear();
    QStringList lines() const;

Q_SIGNALS:
    /** A call to @p member was appended. */
    void appended(const QString &member);

private:
    QStringList m_lines;
};

} // namespace sandbox
