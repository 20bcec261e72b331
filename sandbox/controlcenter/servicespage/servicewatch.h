#pragma once

#include "sandbox/services/control/servicelist.h"

#include <QDBusConnection>
#include <QMap>
#include <QObject>
#include <QString>

namespace sandbox {
class ServiceControl;
}

namespace controlcenter {

/**
 * The state of one sandbox service, followed while it changes. Everything is asked asynchronously:
 * a service that hangs never blocks the window.
 */
class ServiceWatch : public QObject
{
    Q_OBJECT

public:
    enum State {
        Unknown, ///< The bus has not answered yet.
        Running, ///< Somebody owns the service's bus name.
        Missing, ///< Nobody does.
    };

    explicit ServiceWatch(const sandbox::ServiceIdentity &service, QObject *parent = nullptr);

    /** Asks for everything anew; changed() follows where the answers differ from what is known. */
    void refresh();

    QString busName() const;

    State state() const;

    /** The service's values, as text, by key. */
    QMap<QString, QString> values() const;

Q_SIGNALS:
    void changed();

private:
    void setState(State state);
    void queryOwner();
    void queryValue(const QString &key);

    QString m_busName;
    QDBusConnection m_bus;
    sandbox::ServiceControl *m_control;
    State m_state = Unknown;
    QMap<QString, QString> m_values;
};

} // namespace controlcenter
