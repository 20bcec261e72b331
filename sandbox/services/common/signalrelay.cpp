#include "sandbox/services/common/signalrelay.h"

#include "sandbox/services/common/adaptordispatch.h"

#include <QDBusMessage>
#include <QMetaMethod>

namespace sandbox {

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

} // namespace sandbox
