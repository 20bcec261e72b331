#pragma once

#include <QDBusAbstractInterface>
#include <QMetaMethod>
#include <QObject>
#include <QString>

class QDBusMessage;

/**
 * Brings the signals of a service's object to the proxy for it. Part of ServiceProxy.
 *
 * Does what QtDBus does for a proxy, but never waits: QtDBus asks for the owner of the service's
 * name when a first signal is connected, and ends the program when the bus ends just then.
 */
class SignalRelay : public QObject
{
    Q_OBJECT

public:
    explicit SignalRelay(QDBusAbstractInterface *proxy);

    /** From now on @p signal of the proxy is emitted when the service sends it. */
    void add(const QMetaMethod &signal);

private Q_SLOTS:
    void setOwner(const QString &owner);
    void relay(const QDBusMessage &message);

private:
    QDBusAbstractInterface *m_proxy = nullptr; // our parent
    QString m_owner;                           // whose signals count; empty without the service
};

/**
 * A generated proxy whose signals can be connected whatever becomes of the bus.
 */
template <typename Proxy>
class ServiceProxy : public Proxy
{
public:
    using Proxy::Proxy;

protected:
    void connectNotify(const QMetaMethod &signal) override
    {
        if (!m_relay)
            m_relay = new SignalRelay(this);
        m_relay->add(signal);
    }

private:
    SignalRelay *m_relay = nullptr; // a child; null until a signal is connected
};
