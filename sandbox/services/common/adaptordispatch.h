#pragma once

#include <QDBusMessage>

class QDBusAbstractAdaptor;

namespace sandbox {

/** The interface that a generated adaptor implements. */
QString interfaceOf(const QDBusAbstractAdaptor *adaptor);

/** The introspection XML of that interface, as it stands in its contract. */
QString introspectionOf(const QDBusAbstractAdaptor *adaptor);

/**
 * Runs the method that @p call names on the adaptors of @p object and returns the reply, which is
 * an error reply when no adaptor has that method with those argument types.
 *
 * Qt itself does this only for objects that it also filters; going through here lets a service see
 * calls first, also those that fit no method.
 */
QDBusMessage dispatch(const QDBusMessage &call, QObject *object);

/** The unique bus name of the client whose call is being dispatched now; empty outside of a call.
 */
QString caller();

} // namespace sandbox
