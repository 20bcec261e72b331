#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QJsonArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

#include <memory>

// The processes that a test starts, and the home that they have.

namespace sandbox {
class ServiceControl;
}

namespace testsupport {

/** How long a service may take to start, in ms: on a loaded machine under sanitizers. */
constexpr int startLimitMs = 20000;

/** A process that dies with the thread that started it, so that a killed test leaves nothing
 * behind. */
class ChildProcess : public QProcess
{
public:
    using QProcess::QProcess;

    /**
     * Waits, without processing events, until a whole line has come from standard output and
     * returns it without its line break. Null when the process ends or @p limitMs pass first.
     */
    QByteArray waitForLine(int limitMs);

protected:
    void setupChildProcess() override;
};

/**
 * A home of its own for the test and the processes it starts: HOME and the XDG folders point into a
 * temporary folder that goes with this object, which also puts the variables back.
 *
 * Make it before the application object: Qt remembers where settings live at their first use.
 */
class IsolatedHome
{
public:
    IsolatedHome();
    ~IsolatedHome();

    IsolatedHome(const IsolatedHome &) = delete;
    IsolatedHome &operator=(const IsolatedHome &) = delete;

    /** XDG_CONFIG_HOME / @p relativePath. */
    QString configFile(const QString &relativePath) const;

    /** XDG_DATA_HOME / @p relativePath. */
    QString dataFile(const QString &relativePath) const;

    /** The settings store of the wake-up service. */
    QString wakeupSettingsFile() const;

    /** Writes @p contents to that store, whatever it is; its folder is made if needed. */
    bool writeWakeupSettings(const QByteArray &contents) const;

    /** Removes everything in the home. */
    void clear();

private:
    void makeFolders() const;

    QTemporaryDir m_folder;
    QMap<QByteArray, QByteArray> m_before; // null: the variable was not set
};

/** One call that a service received. */
struct ServiceCall
{
    QString path;
    QString interface;
    QString member;
    QString signature;    ///< D-Bus signature of the arguments, "" without any.
    QJsonArray arguments; ///< A byte array is {"bytes": LENGTH}.
    bool replyExpected = false;
    QString sender; ///< Unique bus name.
};

/**
 * A sandbox service in a process of its own, started and steered by a test.
 *
 *     ServiceProcess dock("dock");
 *     QVERIFY(dock.start());
 *     dock.setValue("hidden", true);
 *     dock.script("getDockHideStatus", "delay", 200);
 *
 * Steering goes over a connection of its own, so that the process-wide session connection carries
 * nothing but what the code under test sends. Every steering call returns when its work is done in
 * the service; one that fails makes the running test fail. The state is kept in a temporary file
 * that lives as long as this object: stop() and start() keep it, a new ServiceProcess starts
 * afresh. The process dies with this object, and with the test if that is killed.
 */
class ServiceProcess : public QObject
{
    Q_OBJECT

public:
    /** @p name as in the program's name, sandbox-NAME: "assistant", "dock", "keybinding"... */
    explicit ServiceProcess(const QString &name, QObject *parent = nullptr);
    ~ServiceProcess() override;

    /** Starts the process and waits until it owns its names. False, with a log line, if it does
     * not. */
    bool start(const QStringList &arguments = {});

    /** Ends it as a session does, with SIGTERM, and waits. True when it ended with exit code 0. */
    bool stop();

    /** Kills it (SIGKILL), and waits. */
    void kill();

    /** Stops it (SIGSTOP): it keeps its names and answers nothing. */
    void suspend();

    /** Lets a suspended or hung one run on. */
    void resume();

    bool isRunning() const;
    qint64 processId() const;

    /** Waits until the process has ended, for instance after the behaviour "vanish". */
    bool waitForEnd();

    /** Lines that it wrote to standard error since its last start, without the line breaks. */
    QStringList errorLines() const;

    /** The bus that it is on, over the connection of this object; not the one of the code under
     * test. */
    QDBusConnection connection() const;

    /** Its state by key; each service documents its keys in the headers of its objects. */
    QVariant value(const QString &key);

    /** Changes its state as if another program had done it. The value's type must be exact. */
    void setValue(const QString &key, const QVariant &value);

    /**
     * Makes the method @p member behave like @p behaviour from now on: "error" (text), "reply" (any
     * one value), "reply-list" (QVariantList of values), "delay" (milliseconds), "hold", "vanish",
     * "hand-over", "answer".
     */
    void script(const QString &member, const QString &behaviour, const QVariant &argument = 0);

    /** Sends the replies on hold for @p member; returns how many. */
    int release(const QString &member);

    /** Forgets scripts, releases what is on hold, clears the log of calls. The state stays. */
    void reset();

    /** Gives up its real bus name, or takes it back; it stays steerable. */
    void leaveBus();
    void joinBus();

    /** Makes it send a signal, with values that need not be those of the contract. */
    void sendSignal(const QString &path, const QString &interface, const QString &member,
                    const QVariantList &values);

    /** Makes it stop itself (SIGSTOP) in order, as suspend() does from outside. */
    void hang();

    /** Makes it kill itself, and waits for the end. */
    void crash();

    /** Every call that its real objects received since the last reset(), oldest first. */
    QList<ServiceCall> calls();

    /** Those to @p member. */
    QList<ServiceCall> calls(const QString &member);

    /**
     * Waits, processing events, until it has received @p count calls to @p member since the last
     * reset(). For writes that nobody waits for. False when the limit passes first.
     */
    bool waitForCalls(const QString &member, int count = 1, int limitMs = 5000);

private:
    void waitUntilStopped() const;
    bool connectControl(QDBusConnection::BusType bus);
    void checkControl(const char *what) const;

    QString m_name;
    QString m_connectionName;
    QTemporaryDir m_folder; // the state file and what the process writes to standard error
    std::unique_ptr<ChildProcess> m_process;
    std::unique_ptr<sandbox::ServiceControl> m_control;
};

} // namespace testsupport
