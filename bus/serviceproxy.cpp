#include "bus/serviceproxy.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>

SignalRelay::SignalRelay(QDBusAbstractInterface *proxy)
    : QObject(proxy)
    , m_proxy(proxy)
{
    auto *watcher = new QDBusServiceWatcher(proxy->service(), proxy->connection(),
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { setOwner(owner); });

    QDBusMessage ask = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    ask << proxy->service();
    proxy->connection().callWithCallback(ask, this, SLOT(setOwner(QString)));
}

void SignalRelay::add(const QMetaMethod &signal)
{
    // No name of a service, which would make QtDBus ask for its owner.
    if (signal.enclosingMetaObject() == m_proxy->metaObject())
        m_proxy->connection().connect(QString(), m_proxy->path(), m_proxy->interface(),
                                      QString::fromLatin1(signal.name()), this,
                                      SLOT(relay(QDBusMessage)));
}

void SignalRelay::setOwner(const QString &owner)
{
    m_owner = owner;
}

void SignalRelay::relay(const QDBusMessage &message)
{
    if (message.service() != m_owner)
        return;
    // The signals of the contracts have one value or none.
    const QVariant value = message.arguments().value(0);
    const QByteArray type = value.isValid() ? value.typeName() : "";
    const QMetaObject *meta = m_proxy->metaObject();
    const int index = meta->indexOfSignal(message.member().toLatin1() + '(' + type + ')');
    if (index >= 0 && message.arguments().size() <= 1)
        meta->method(index).invoke(m_proxy, Qt::DirectConnection,
                                   QGenericArgument(type.constData(), value.constData()));
}
