#pragma once

#include "doctor/failures.h"
#include "tests/support/busrecorder.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"

#include <QMetaType>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <vector>

// What a person does with the module while a service, its answers or its signals are bad. What is
// to come of it stands in doctor/failures.cpp, of which docs/failures.md is written.

namespace badworlds {

/** A call or signal, and the line of the page that tells what became of it. */
struct Subject
{
    doctor::ObjectUse object;
    doctor::MemberUse use;
    QString service;     ///< Of the sandbox: "assistant", "dock"...
    QVariantList answer; ///< The true one, or what the signal carries.
    QString usual;       ///< The line when all is well.
    QString failed;      ///< When there is no answer.
    QString senseless;   ///< When its value means nothing.
};

/** One whose answer the page shows. */
Subject shown(const Contract::Method &method, const char *service, const QVariant &answer,
              const QString &usual, const QString &failed, const QString &senseless);
/** One of which the page shows what the person did, whatever becomes of it. */
Subject sent(const Contract::Method &method, const char *service, const QString &line,
             const QVariantList &answer = {});

/** What a person does, and everything that it is about. */
struct Action
{
    const char *name;
    std::function<std::unique_ptr<QWidget>()> open; ///< The page.
    std::function<void(QWidget *)> act; ///< On the open page; none: to open it is what is tried.
    QStringList calls;                  ///< On the wire: "getIatEnable()".
    std::vector<Subject> subjects;      ///< In the order in which they are called.
};

/** Everything that assistive technologies read on @p page, a line each: "Language: English". */
QStringList readOut(QWidget *page);

/** How long the event loop made no turn. */
struct Standstill
{
    qint64 ms = 0;
    qint64 ownMs = 0; ///< But for the time in which other programs had the processor.
};

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

private:
    struct Outcome
    {
        QStringList lines;      // of the page
        QStringList complaints; // of the log
        QStringList remarks;    // of the log at lower levels
        QStringList calls;
        Standstill standstill;
    };

    QStringList usualLines(const Action &action);
    Outcome run(const Action &action, const std::function<void()> &before);
    void enter(const Subject &subject, doctor::World world);
    bool leave(const Subject &subject, doctor::World world);

    const QStringList m_names;
    const int m_replyLimitMs;
    const std::function<void(Stage &)> m_prepare;
    testsupport::PrivateBus m_session{QDBusConnection::SessionBus};
    testsupport::PrivateBus m_system{QDBusConnection::SystemBus};
    std::map<QString, std::unique_ptr<testsupport::ServiceProcess>> m_services;
    testsupport::BusRecorder m_sessionCalls{QDBusConnection::SessionBus};
    testsupport::BusRecorder m_systemCalls{QDBusConnection::SystemBus};
    std::map<QString, QStringList> m_usual; // by action
};

/** Rows for a test: every subject of every action in each of @p worlds that it can meet. */
void addRows(const std::vector<Action> &actions, const QVector<doctor::World> &worlds);

/** The patient worlds, and those that last as long as the bus waits. */
QVector<doctor::World> shortWorlds();
QVector<doctor::World> endlessWorlds();

} // namespace badworlds

Q_DECLARE_METATYPE(badworlds::Action)
Q_DECLARE_METATYPE(doctor::World)
