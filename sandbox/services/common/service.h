#pragma once

#include "sandbox/services/common/statestore.h"
#include "sandbox/services/control/servicelist.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QDBusConnection>
#include <QObject>

namespace sandbox {

class CallLog;
class Control;
class ScriptedReplies;
class StateStore;
class TerminationSignals;

/**
 * One service process: arguments, bus connection, state, control interface, start and end.
 *
 * A service's main() builds a QCoreApplication, a Service, and its objects; declares the keys of
 * its state; publishes the objects; and returns run(). An object is a plain QObject with one slot
 * per method of its contract and, if the contract has signals, the same signals; it creates its
 * generated adaptor in its constructor (`new DockIconAdaptor(this)`) and never talks to the bus
 * itself. Where all methods only read or write the state, a table takes the object's place
 * (StoredMethods).
 *
 * Every service has the options --state FILE, --version and --help, prints the line
 * "ready BUSNAME session" (or "system") on standard output when its names are owned, one line per
 * change of its state on standard error, and ends on SIGTERM, SIGINT, or when the bus goes away.
 */
class Service : public QObject
{
    Q_OBJECT

public:
    enum ExitCode {
        Ended = 0,
        BusUnreachable = 3,
        NameTaken = 4, ///< Another process, perhaps the real service, owns the bus name, or the bus
                       ///< does not let this one own it.
    };

    /** Reads the arguments of the process, to which @p options are added; ends it on --help etc. */
    explicit Service(const ServiceIdentity &identity,
                     const QList<QCommandLineOption> &options = {});
    ~Service() override;

    /** The arguments, for the service's own options. */
    const QCommandLineParser &arguments() const;

    /** The state, kept in the file of --state or in XDG_DATA_HOME/corvane-sandbox/NAME.json. */
    StateStore *state();

    /**
     * Offers @p object, with the adaptors it has now, at @p path. Calls to it are logged and can be
     * scripted. It is withdrawn when it is deleted. With an @p owner, the unique name of a client,
     * only that client can call it and gets its signals.
     */
    void publish(const QString &path, QObject *object, const QString &owner = QString());

    /** Offers an object whose methods, those of the generated @p Adaptor, are all @p stored. */
    template <typename Adaptor>
    void publish(const Contract::Object &where, const StoredMethods *stored)
    {
        auto *object = new QObject(this);
        new StoredAdaptor<Adaptor>(object, stored);
        publish(where.path, object);
    }

    /** Writes "NAME: TEXT" to standard error. */
    void report(const QString &text) const;

    /** Takes the bus name, serves until the end, and returns an ExitCode. */
    int run();

private Q_SLOTS:
    void busGone();

private:
    QString whyNotOwned(const QString &name) const;
    QString busWord() const;
    QDBusConnection connection() const;

    ServiceIdentity m_identity;
    QCommandLineParser m_arguments;
    StateStore *m_state = nullptr;
    CallLog *m_log = nullptr;
    ScriptedReplies *m_replies = nullptr;
    Control *m_control = nullptr;
    TerminationSignals *m_signals = nullptr;
};

} // namespace sandbox
