#include "sandbox/services/common/publishedobject.h"

#include "sandbox/services/common/calllog.h"
#include "sandbox/services/common/scriptedreplies.h"

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QMetaMethod>
#include <QScopedValueRollback>

namespace sandbox {

namespace {

QString callerName; // services answer on one thread only

QString classInfo(const QObject *object, const char *name)
{
    const QMetaObject *meta = object->metaObject();
    return QString::fromUtf8(meta->classInfo(meta->indexOfClassInfo(name)).value());
}

// The generated adaptors take in-arguments by value or const reference and give further
// out-arguments by plain reference, behind all in-arguments.
struct Parameters
{
    QList<int> in;
    QList<int> out;
};

Parameters parametersOf(const QMetaMethod &method)
{
    Parameters parameters;
    const QList<QByteArray> types = method.parameterTypes();
    for (const QByteArray &type : types)
        if (type.endsWith('&'))
            parameters.out.append(QMetaType::type(type.chopped(1)));
        else
            parameters.in.append(QMetaType::type(type));
    return parameters;
}

QString signatureOf(const QList<int> &types)
{
    QString signature;
    for (const int type : types)
        signature += QLatin1String(QDBusMetaType::typeToSignature(type));
    return signature;
}

QVariant converted(const QVariant &argument, int type)
{
    if (argument.userType() != qMetaTypeId<QDBusArgument>())
        return argument;
    QVariant value(type, nullptr);
    QDBusMetaType::demarshall(argument.value<QDBusArgument>(), type, value.data());
    return value;
}

QVariantList run(QDBusAbstractAdaptor *adaptor, const QMetaMethod &method,
                 const Parameters &parameters, const QVariantList &arguments)
{
    QVariantList values; // the in-arguments, then the out-arguments
    for (int i = 0; i < parameters.in.size(); ++i)
        values.append(converted(arguments.at(i), parameters.in.at(i)));
    for (const int type : parameters.out)
        values.append(QVariant(type, nullptr));
    const bool returns = method.returnType() != QMetaType::Void;
    QVariant result = returns ? QVariant(method.returnType(), nullptr) : QVariant();

    QVector<void *> cells{returns ? result.data() : nullptr};
    for (QVariant &value : values)
        cells.append(value.data());
    adaptor->qt_metacall(QMetaObject::InvokeMetaMethod, method.methodIndex(), cells.data());

    QVariantList reply = values.mid(parameters.in.size());
    if (returns)
        reply.prepend(result);
    return reply;
}

} // namespace

QString interfaceOf(const QDBusAbstractAdaptor *adaptor)
{
    return classInfo(adaptor, "D-Bus Interface");
}

QString introspectionOf(const QDBusAbstractAdaptor *adaptor)
{
    return classInfo(adaptor, "D-Bus Introspection");
}

QString caller()
{
    return callerName;
}

QDBusMessage dispatch(const QDBusMessage &call, QObject *object)
{
    const QScopedValueRollback<QString> guard(callerName, call.service());
    const auto adaptors =
        object->findChildren<QDBusAbstractAdaptor *>(QString(), Qt::FindDirectChildrenOnly);
    for (QDBusAbstractAdaptor *adaptor : adaptors) {
        if (!call.interface().isEmpty() && call.interface() != interfaceOf(adaptor))
            continue;
        const QMetaObject *meta = adaptor->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.methodType() != QMetaMethod::Slot ||
                call.member() != QLatin1String(method.name())) {
                continue;
            }
            const Parameters parameters = parametersOf(method);
            if (signatureOf(parameters.in) == call.signature())
                return call.createReply(run(adaptor, method, parameters, call.arguments()));
        }
    }
    return call.createErrorReply(
        QDBusError::UnknownMethod,
        QStringLiteral("%1 has no method %2.%3 that takes \"%4\"")
            .arg(call.path(), call.interface(), call.member(), call.signature()));
}

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
