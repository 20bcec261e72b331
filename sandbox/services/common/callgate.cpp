#include "sandbox/services/common/callgate.h"

#include "sandbox/services/common/adaptordispatch.h"
#include "sandbox/services/common/calllog.h"
#include "sandbox/services/common/replydesk.h"
#include "sandbox/services/common/signalrelay.h"

#include <QDBusAbstractAdaptor>
#include <QDBusError>
#include <QDBusMessage>

namespace sandbox {

namespace {

QList<QDBusAbstractAdaptor *> adaptorsOf(const QObject *object)
{
    return object->findChildren<QDBusAbstractAdaptor *>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

CallGate::CallGate(QObject *object, const QString &path, const QString &owner,
                   const QDBusConnection &connection, CallLog *log, ReplyDesk *desk)
    : QDBusVirtualObject(object)
    , m_object(object)
    , m_path(path)
    , m_owner(owner)
    , m_connection(connection)
    , m_log(log)
    , m_desk(desk)
{
    const auto adaptors = adaptorsOf(object);
    for (QDBusAbstractAdaptor *adaptor : adaptors)
        new SignalRelay(adaptor, path, owner, connection);
    m_connection.registerVirtualObject(m_path, this);
}

CallGate::~CallGate()
{
    m_connection.unregisterObject(m_path);
}

bool CallGate::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    m_log->append(message);
    if (message.interface().startsWith(QLatin1String("org.freedesktop.DBus.")))
        return false; // introspection and the like: Qt's own answer
    const bool denied = !m_owner.isEmpty() && message.service() != m_owner;
    m_desk->answer(message, [&] {
        return denied ? message.createErrorReply(
                            QDBusError::AccessDenied,
                            QStringLiteral("%1 belongs to another client").arg(m_path))
                      : dispatch(message, m_object);
    });
    return true;
}

QString CallGate::introspect(const QString &) const
{
    QString xml;
    const auto adaptors = adaptorsOf(m_object);
    for (const QDBusAbstractAdaptor *adaptor : adaptors)
        xml += introspectionOf(adaptor);
    return xml;
}

} // namespace sandbox
