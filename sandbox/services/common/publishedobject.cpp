#include "sandbox/services/common/publishedobject.h"

#include "sandbox/services/common/adaptordispatch.h"
#include "sandbox/services/common/calllog.h"
#include "sandbox/services/common/scriptedreplies.h"

#include <QDBusAbstractAdaptor>
#include <QDBusError>
#include <QDBusMessage>
#include <QMetaMethod>

namespace sandbox {

namespace {

QList<QDBusAbstractAdaptor *> adaptorsOf(const QObject *object)
{
    return object->findChildren<QDBusAbstractAdaptor *>(QString(), Qt::FindDirectChildrenOnly);
}

// Sends every signal of an adaptor over the bus, from the path at which its object is published.
// It belongs to the adaptor.
//
// It has no slots of its own but one for each signal, numbered like the signals, so it does its own
// meta-call instead of having one made by moc.
class SignalRelay : public QObject
{
public:
    // owner is the unique name of the one client to send to; empty: whoever listens.
    SignalRelay(QDBusAbstractAdaptor *adaptor, const QString &path, const QString &owner,
                const QDBusConnection &connection);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QDBusAbstractAdaptor *m_adaptor;
    QString m_path;
    QString m_owner;
    QDBusConnection m_connection;
};

SignalRelay::SignalRelay(QDBusAbstractAdaptor *adaptor, const QString &path, const QString &owner,
                         const QDBusConnection &connection)
    : QObject(adaptor)
    , m_adaptor(adaptor)
    , m_path(path)
    , m_owner(owner)
    , m_connection(connection)
{
    const QMetaObject *meta = adaptor->metaObject();
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            QMetaObject::connect(adaptor, i, this, firstSlot + i, Qt::DirectConnection);
}

int SignalRelay::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const QMetaMethod emitted = m_adaptor->metaObject()->method(id);
    QVariantList values;
    for (int i = 0; i < emitted.parameterCount(); ++i)
        values.append(QVariant(emitted.parameterType(i), arguments[i + 1]));
    const QString interface = interfaceOf(m_adaptor);
    const QString name = QString::fromLatin1(emitted.name());
    QDBusMessage message =
        m_owner.isEmpty() ? QDBusMessage::createSignal(m_path, interface, name)
                          : QDBusMessage::createTargetedSignal(m_owner, m_path, interface, name);
    message.setArguments(values);
    m_connection.send(message);
    return -1;
}

} // namespace

PublishedObject::PublishedObject(QObject *object, const QString &path, const QString &owner,
                                 const QDBusConnection &connection, CallLog *log,
                                 ScriptedReplies *replies)
    : QDBusVirtualObject(object)
    , m_object(object)
    , m_path(path)
    , m_owner(owner)
    , m_connection(connection)
    , m_log(log)
    , m_replies(replies)
{
    const auto adaptors = adaptorsOf(object);
    for (QDBusAbstractAdaptor *adaptor : adaptors)
        new SignalRelay(adaptor, path, owner, connection);
    m_connection.registerVirtualObject(m_path, this);
}

PublishedObject::~PublishedObject()
{
    m_connection.unregisterObject(m_path);
}

bool PublishedObject::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    const int number = m_log->append(message);
    if (message.interface().startsWith(QLatin1String("org.freedesktop.DBus."))) {
        m_log->setAnswer(number, QDBusMessage());
        return false; // introspection and the like: Qt's own answer
    }
    const bool denied = !m_owner.isEmpty() && message.service() != m_owner;
    m_replies->answer(message, number, [&] {
        return denied ? message.createErrorReply(
                            QDBusError::AccessDenied,
                            QStringLiteral("%1 belongs to another client").arg(m_path))
                      : dispatch(message, m_object);
    });
    return true;
}

QString PublishedObject::introspect(const QString &) const
{
    QString xml;
    const auto adaptors = adaptorsOf(m_object);
    for (const QDBusAbstractAdaptor *adaptor : adaptors)
        xml += introspectionOf(adaptor);
    return xml;
}

} // namespace sandbox
