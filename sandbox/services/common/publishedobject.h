#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

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

class CallLog;
class ScriptedReplies;

/**
 * Publishes an object at a path and sees every call to it first, whatever its member and argument
 * types: writes it to the log and lets the scripts decide how it is answered. The work itself is
 * done by the object's generated adaptors. It belongs to the object.
 *
 * An object with an owner, a client's unique bus name, is that client's alone: others are denied,
 * and only the owner gets its signals.
 */
class PublishedObject : public QDBusVirtualObject
{
    Q_OBJECT

public:
    PublishedObject(QObject *object, const QString &path, const QString &owner,
                    const QDBusConnection &connection, CallLog *log, ScriptedReplies *replies);
    ~PublishedObject() override;

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    QString introspect(const QString &path) const override;

private:
    QObject *m_object;
    QString m_path;
    QString m_owner; // empty: everybody's
    QDBusConnection m_connection;
    CallLog *m_log;
    ScriptedReplies *m_replies;
};

} // namespace sandbox
