#pragma once

#include <QObject>
#include <QVector>

namespace controlcenter {

class ServiceWatch;

/** The watches of all services, in their order. */
class ServiceWatches : public QObject
{
    Q_OBJECT

public:
    /** Asks every service at once how it is. */
    explicit ServiceWatches(QObject *parent = nullptr);

    const QVector<ServiceWatch *> &all() const { return m_all; }

    /** The one of the service with that short name, which must be there. */
    ServiceWatch *named(const QString &service) const;

    /** Whether every service has said how it is. After a short while those that have not count. */
    bool isKnown() const { return m_known; }

Q_SIGNALS:
    /** All is known from now on. */
    void known();

private:
    void setKnown();

    QVector<ServiceWatch *> m_all;
    bool m_known = false;
};

} // namespace controlcenter
