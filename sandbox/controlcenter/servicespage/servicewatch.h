#pragma once

#include "sandbox/services/control/servicecontrol.h"
#include "sandbox/services/control/servicelist.h"

#include <QDBusConnection>
#include <QObject>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVector>

namespace sandbox {
class ServiceControl;
}

namespace controlcenter {

/**
 * The state of one sandbox service, followed while it changes. Everything is asked asynchronously:
 * a service that hangs never blocks the window. However often the service changes, its values are
 * asked for at most ten times a second, and only while somebody looks.
 */
class ServiceWatch : public QObject
{
    Q_OBJECT

public:
    enum State {
        Unknown, ///< The bus has not answered yet.
        Running, ///< Somebody owns the service's bus name, and answers.
        Silent,  ///< Somebody owns it, and has not answered for a while.
        Missing, ///< Nobody does.
    };

    /** Keys with their values as text, in the order in which the service lists them. */
    using Values = QVector<QPair<QString, QString>>;

    explicit ServiceWatch(const sandbox::ServiceIdentity &service, QObject *parent = nullptr);

    /** Asks for everything once; changed() follows where the answers differ from what is known. */
    void refresh();

    /**
     * One more follows the changes from now on, or one less. Those of before are caught up with.
     */
    void setFollowing(bool following);

    QString name() const; ///< the short one
    QString busName() const;

    /** Whether it can be steered, on its bus or not. */
    bool isSteerable() const;

    /** How it fails, as far as it has said so. */
    sandbox::Fault fault() const;

    /** Makes the service fail in that way; isCausing() until that has come about. */
    void cause(const sandbox::Fault &fault);
    bool isCausing() const;

    /** What else is done with it. The watch owns it. */
    sandbox::ServiceControl *control() const;

    State state() const;

    /** What the service said last; empty while it is missing. */
    Values values() const;

Q_SIGNALS:
    void changed();

    /** The values are what the service says now, changed or not. */
    void answered();

private:
    void onCaused();
    void onOwned(bool owned);
    void askIfDue();
    void askForFault();
    void askForValues();
    void onValues(const Values &values);
    void askAgain();
    void endRound();
    void setState(State state);

    QString m_name;
    QString m_busName;
    QDBusConnection m_bus;
    sandbox::ServiceControl *m_control;
    State m_state = Unknown;
    bool m_steerable = false;
    int m_causing = 0;       // how many faults are on their way
    int m_causes = 0;        // how many ever were: answers of before one are ignored
    sandbox::Fault m_caused; // the latest of them
    sandbox::Fault m_script; // what its methods do
    QStringList m_keys;
    Values m_values;
    QTimer m_pause;    // between two rounds of questions
    QTimer m_patience; // until a service without an answer counts as silent
    int m_followers = 0;
    bool m_wanted = false; // once, although nobody follows
    bool m_stale = true;   // something may have changed since the last round began
    int m_round = 0;       // answers to an earlier one are ignored
    bool m_asking = false;
};

/** The watches of all services, in their order. */
class ServiceWatches : public QObject
{
    Q_OBJECT

public:
    /** Asks every service at once how it is. */
    explicit ServiceWatches(QObject *parent = nullptr);

    const QVector<ServiceWatch *> &all() const { return m_all; }

    /** The one of the service with that short name, which must be there. */
    ServiceWatch *named(const QString &service) const;

    /** Whether every service has said how it is. After a short while those that have not count. */
    bool isKnown() const { return m_known; }

Q_SIGNALS:
    /** All is known from now on. */
    void known();

private:
    void setKnown();

    QVector<ServiceWatch *> m_all;
    bool m_known = false;
};

} // namespace controlcenter
