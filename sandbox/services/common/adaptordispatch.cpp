#include "sandbox/services/common/adaptordispatch.h"

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusError>
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

} // namespace sandbox
