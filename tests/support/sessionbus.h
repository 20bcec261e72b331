#pragma once

#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTemporaryDir>

namespace testsupport {

/**
 * Sends @p call and waits for its reply while events are processed. QDBus::BlockWithGui is meant to
 * do that, but up to Qt 5.15 it waits for ever when the reply comes between sending and waiting.
 */
QDBusMessage callProcessingEvents(const QDBusConnection &bus, const QDBusMessage &call);

/** A call that every service answers: of the bus daemon itself, or of another connection. */
QDBusMessage pingCall(const QString &service = QStringLiteral("org.freedesktop.DBus"));

/**
 * Waits until all signals that @p service has sent to the session bus until now have reached their
 * slots in this process. QtDBus holds signals back until the event loop has run once, and lets go
 * of them at the latest when it reads the second of two answers. False when the service does not
 * answer.
 */
bool everythingArrivedFrom(const QString &service);

/** How many match rules the session bus keeps for this process, as it counts them; -1 when not. */
int matchRules();

/**
 * A bus of its own. Becomes the process's session or system bus; start it before anything connects
 * to one.
 */
class PrivateBus
{
public:
    explicit PrivateBus(QDBusConnection::BusType type = QDBusConnection::SessionBus);
    ~PrivateBus();

    /** It answers for services which keep a caller waiting for longer; 0: as long as they like. */
    bool start(int replyLimitMs = 0);

    /** From now on it starts @p service when that is called, and the program ends at once. */
    bool startFails(const QString &service);
    /** It starts nothing any more. */
    bool startNothing();

private:
    bool reload();

    const QDBusConnection::BusType m_type;
    QTemporaryDir m_folder;
    ChildProcess m_daemon;
    QString m_address;
};

/** A session bus that answers for services after a second, where the usual limit is 25. */
class ImpatientBus : public PrivateBus
{
public:
    bool start() { return PrivateBus::start(1000); }
};

} // namespace testsupport
