#pragma once

#include <QString>
#include <QVariant>

namespace controlcenter {

/** Reads the state of a sandbox service over its control interface on the session bus. */
class ServiceControl
{
public:
    /** @p name is the service's short name, such as "assistant". */
    explicit ServiceControl(const QString &name);

    /** The state under @p key; invalid, with error() set, when the service does not tell. */
    QVariant value(const QString &key);

    QString error() const;

private:
    QString m_name;
    QString m_error;
};

} // namespace controlcenter
