#pragma once

#include "tests/bus/badworldrows.h"
#include "tests/support/busrecorder.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"
#include "tests/support/turnwatch.h"

#include <functional>
#include <map>
#include <memory>

namespace badworlds {

/** The buses with their services, and the worlds that they can be. */
class Stage
{
public:
    /** With the sandbox's services of these names; @p prepare gives them their usual state. */
    Stage(const QStringList &services, int replyLimitMs, std::function<void(Stage &)> prepare);

    /** False, with a log line, when something does not start. */
    bool start();

    testsupport::ServiceProcess &service(const QString &name) { return *m_services.at(name); }

    /**
     * Does @p action while @p subject of it is bad in the way of @p world, and then once more when
     * all is well again. Says what is not as it should be; empty when nothing is.
     */
    QString play(const Action &action, const Subject &subject, doctor::World world);

    // For actions, which do what the services do while they are acted.
    /** The service on which the action goes on runs, and owns its name or has just lost it. */
    bool serviceSpeaks() const;
    /** Sends the signal that the action is about, as the world has it. */
    void sendSignal(const Subject &subject, const QString &path);

private:
    struct Outcome
    {
        QStringList lines;      // of the page
        QStringList complaints; // of the log
        QStringList remarks;    // of the log at lower levels
        QStringList calls;
        testsupport::Standstill standstill;
    };

    QStringList usualLines(const Action &action);
    Outcome run(const Action &action, const std::function<void()> &before);
    void enter(const Subject &subject, doctor::World world);
    bool leave(const Subject &subject, doctor::World world, const QStringList &calls);

    const QStringList m_names;
    const int m_replyLimitMs;
    const std::function<void(Stage &)> m_prepare;
    testsupport::PrivateBus m_session{QDBusConnection::SessionBus};
    testsupport::PrivateBus m_system{QDBusConnection::SystemBus};
    std::map<QString, std::unique_ptr<testsupport::ServiceProcess>> m_services;
    testsupport::BusRecorder m_sessionCalls{QDBusConnection::SessionBus};
    testsupport::BusRecorder m_systemCalls{QDBusConnection::SystemBus};
    std::map<QString, QStringList> m_usual;      // by action
    doctor::World m_world = doctor::World::Late; // in which the action is acted
    bool m_isBad = false;                        // and not as usual
};

} // namespace badworlds
