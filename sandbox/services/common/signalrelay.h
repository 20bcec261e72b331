#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>

namespace sandbox {

/**
 * Sends every signal of an adaptor over the bus, from the path at which its object is published.
 * It belongs to the adaptor.
 *
 * It has no slots of its own but one for each signal, numbered like the signals, so it does its own
 * meta-call instead of having one made by moc.
 */
class SignalRelay : public QObject
{
public:
    /** @p owner is the unique name of the one client to send to; empty: whoever listens. */
    SignalRelay(QDBusAbstractAdaptor *adaptor, const QString &path, const QString &owner,
                const QDBusConnection &connection);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QDBusAbstractAdaptor *m_adaptor;
    QString m_path;
    QString m_owner;
    QDBusConnection m_connection;
};

} // namespace sandbox
