#pragma once

#include "comcorvanesandboxcontrolinterface.h"
#include "sandbox/services/control/fault.h"

#include <QDBusPendingCallWatcher>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace sandbox {

/**
 * Reads and steers a running service over its control interface, which
 * com.corvane.sandbox.Control.xml describes.
 *
 * The functions of the generated proxy return at once with a pending reply. Those declared here
 * wait for it; then error() says what went wrong, and the value of a call that failed is empty.
 */
class ServiceControl : public ComCorvaneSandboxControlInterface
{
public:
    /** @p service is the service's short name, such as "assistant"; @p bus is where it lives. */
    explicit ServiceControl(const QString &service,
                            const QDBusConnection &bus = QDBusConnection::sessionBus(),
                            QObject *parent = nullptr);

    QStringList keys();

    /** The state under @p key. */
    QVariant value(const QString &key);
    bool setValue(const QString &key, const QVariant &value);

    /** See the interface for @p behaviour and @p argument. */
    bool script(const QString &member, const QString &behaviour, const QVariant &argument);

    /** How many replies were on hold. */
    int release(const QString &member);
    bool reset();
    QStringList calls();
    bool leaveBus();
    bool joinBus();
    bool sendSignal(const QString &path, const QString &interface, const QString &member,
                    const QVariantList &values);
    bool hang();
    bool crash();

    /**
     * Makes the service fail in that way, and in no other, from now on. Returns at once; the
     * watcher, which belongs to this object, has finished when it has taken effect. Of several
     * causes the latest counts.
     */
    QDBusPendingCallWatcher *cause(const Fault &fault);

    /** Stops the process, and lets it run on. False when there is none. */
    bool suspend();
    bool resume();

    /** What went wrong in the latest of these calls; empty when nothing did. */
    QString error() const;

    /** The process of the service; the bus knows it, so a hung service has one too. 0 without. */
    qint64 processId() const;

private:
    bool done(QDBusPendingCall call);
    template <typename T>
    T answer(const QDBusPendingReply<T> &reply);
    bool signalProcess(int number) const;

    QString m_error;
    int m_causes = 0;
};

} // namespace sandbox
