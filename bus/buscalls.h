#pragma once

#include "contracts/contract.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusReply>
#include <QString>
#include <QVariantList>

/**
 * The modes in which services are called, one function each. The mode is part of the contract with
 * a service, so no caller composes a message of its own. No time-outs are set: the bus's own apply.
 */
namespace buscalls {

/**
 * Sends a call and waits for its reply while GUI events are processed. Whatever
 * called this may be gone when it returns.
 */
QDBusMessage callProcessingEvents(const Contract::Method &method,
                                  const QVariantList &arguments = {});

/** Sends a call and waits for its reply; nothing else happens meanwhile. */
QDBusMessage callBlocking(const Contract::Method &method);

/**
 * Waits for the reply to @p call, sent on @p bus; nothing else happens meanwhile. Without a reply
 * the result is an error or, when the bus has gone, an invalid message.
 */
QDBusMessage waitFor(const QDBusConnection &bus, const QDBusPendingCall &call);

/**
 * Sends a call and returns at once; the service is told that no reply is
 * expected. What comes back is an error message only if the call could not be sent.
 */
QDBusMessage sendNoReply(const Contract::Method &method, const QVariantList &arguments = {});

/**
 * The value of a reply, or @p fallback when there is none: an error, a reply of another type, or a
 * wait that ended without a reply.
 */
template <typename T>
T valueOr(const QDBusReply<T> &reply, const T &fallback)
{
    return reply.isValid() ? reply.value() : fallback;
}

} // namespace buscalls
