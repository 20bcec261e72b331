#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace sandbox {

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
