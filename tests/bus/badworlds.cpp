#include "tests/bus/badworlds.h"

#include "tests/support/logcapture.h"
#include "tests/support/turnwatch.h"

#include <QDBusConnectionInterface>
#include <QHash>
#include <QtTest>

#include <algorithm>

using doctor::Effect;
using doctor::Failure;
using doctor::World;
using testsupport::ServiceProcess;

namespace badworlds {

namespace {

constexpr int lateMs = 1000;
constexpr int busLimitMs = 25000; // of QtDBus, where the bus has none
constexpr int busyMs = 500;       // no turn of the event loop takes longer
constexpr int hugeMs = 3000;      // with ten megabytes, which several programs read
constexpr int answerMs =
    busLimitMs / 2; // but where it waits for services, which others may hold up

bool isSame(const Subject &a, const Subject &b)
{
    return a.use.name == b.use.name && a.object.object.interface == b.object.object.interface;
}

/** A connection that waits for the names of services. */
QString heirOn(QDBusConnection::BusType bus)
{
    return bus == QDBusConnection::SystemBus ? QStringLiteral("heir on the system bus")
                                             : QStringLiteral("heir");
}

bool isServiceWide(World world)
{
    return world == World::Absent || world == World::StartFails || world == World::Hung;
}

QString lineOf(const Subject &subject, Effect effect)
{
    switch (effect) {
    case Effect::None:
        return subject.failed;
    case Effect::Senseless:
        return subject.senseless;
    default:
        return subject.usual;
    }
}

// Of Qt, where windows have no frame.
const QString offscreenRemark = QStringLiteral("This plugin does not support");

QStringList linesOf(const testsupport::LogCapture &log, const QHash<int, QString> &levels)
{
    QStringList lines;
    const QList<testsupport::LogRecord> records = log.records();
    for (const testsupport::LogRecord &record : records)
        if (levels.contains(record.type) && !record.text.startsWith(offscreenRemark))
            lines.append(levels.value(record.type) + QLatin1Char('|') + record.text);
    return lines;
}

bool holdsBeginning(const QStringList &lines, const QString &beginning)
{
    return std::any_of(lines.cbegin(), lines.cend(),
                       [&](const QString &line) { return line.startsWith(beginning); });
}

QString difference(const char *what, const QStringList &actual, const QStringList &expected)
{
    return QStringLiteral("%1:\n  %2\nnot\n  %3\n")
        .arg(QLatin1String(what), actual.join(QLatin1String("\n  ")),
             expected.join(QLatin1String("\n  ")));
}

// "getIatEnable()", "setIatEnable(b) no-reply": objects and services are looked at elsewhere.
QStringList shortCalls(const testsupport::BusRecorder &recorder)
{
    QStringList calls = recorder.callSummaries();
    for (QString &call : calls)
        call = call.mid(call.lastIndexOf(QLatin1Char('.')) + 1);
    return calls;
}

} // namespace

Stage::Stage(const QStringList &services, int replyLimitMs, std::function<void(Stage &)> prepare)
    : m_names(services)
    , m_replyLimitMs(replyLimitMs)
    , m_prepare(std::move(prepare))
{
}

bool Stage::start()
{
    // Some lines have ten megabytes.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    if (!m_session.start(m_replyLimitMs) || !m_system.start(m_replyLimitMs) ||
        !m_sessionCalls.start() || !m_systemCalls.start())
        return false;
    for (const auto bus : {QDBusConnection::SessionBus, QDBusConnection::SystemBus})
        QDBusConnection::connectToBus(bus, heirOn(bus));
    for (const QString &name : m_names) {
        m_services[name] = std::make_unique<ServiceProcess>(name);
        if (!service(name).start())
            return false;
    }
    m_prepare(*this);
    return true;
}

QString Stage::play(const Action &action, const Subject &subject, World world)
{
    const QStringList usual = usualLines(action);
    const Result result = action.result(subject, world);
    Outcome expected{
        usual, {}, {}, result.calls, {0, world == World::TenMegabytes ? hugeMs : busyMs}};
    bool behind = false;
    for (const Subject &other : action.subjects) {
        const bool itself = isSame(other, subject);
        const bool gone = behind && (world == World::Ends || world == World::Replaced);
        behind = behind || itself;
        if (other.service != subject.service || !(itself || gone || isServiceWide(world)))
            continue;
        const Failure failure = doctor::failureOf(other.use, gone ? World::Absent : world);
        const QString line = result.line.isEmpty() ? lineOf(other, failure.effect) : result.line;
        expected.lines.replace(usual.indexOf(other.usual), line);
        if (failure.standsStill)
            expected.standstill.ms = failure.wait == doctor::Wait::ForAnswer ? lateMs
                                     : m_replyLimitMs > 0                    ? m_replyLimitMs
                                                                             : busLimitMs;
        if (other.use.mode == doctor::Mode::WaitProcessingNothing)
            expected.standstill.ownMs = expected.standstill.ms + answerMs;
        if (!failure.log.isEmpty())
            (failure.log.startsWith(QLatin1String("debug|")) ? expected.remarks
                                                             : expected.complaints)
                .append(failure.log);
    }

    const Outcome outcome = run(action, [&] { enter(subject, world); });
    if (!leave(subject, world, outcome.calls))
        return QStringLiteral("the services do not come back");
    QString problem;
    if (outcome.lines != expected.lines)
        problem += difference("the page", outcome.lines, expected.lines);
    if (outcome.calls != expected.calls)
        problem += difference("the calls", outcome.calls, expected.calls);
    const bool allLogged =
        outcome.complaints.size() == expected.complaints.size() &&
        std::all_of(expected.complaints.cbegin(), expected.complaints.cend(),
                    [&](const QString &line) { return holdsBeginning(outcome.complaints, line); });
    if (!allLogged)
        problem += difference("the log", outcome.complaints, expected.complaints);
    for (const QString &line : qAsConst(expected.remarks))
        if (!holdsBeginning(outcome.remarks, line))
            problem += difference("the log", outcome.remarks, {line});
    // Timers of the services and the bus may be a little early.
    if (outcome.standstill.ms < expected.standstill.ms * 9 / 10 ||
        outcome.standstill.ownMs > expected.standstill.ownMs)
        problem += QStringLiteral("the event loop stood still for %1 ms, of them %2 by itself, not "
                                  "%3 and at most %4\n")
                       .arg(outcome.standstill.ms)
                       .arg(outcome.standstill.ownMs)
                       .arg(expected.standstill.ms)
                       .arg(expected.standstill.ownMs);

    if (outcome.lines != usual) {
        const QStringList afterwards = run(action, nullptr).lines;
        if (afterwards != usual)
            problem += difference("afterwards", afterwards, usual);
    }
    return problem;
}

// As it is when all is well; each subject's line is one of them.
QStringList Stage::usualLines(const Action &action)
{
    QStringList &lines = m_usual[QLatin1String(action.name)];
    if (lines.isEmpty()) {
        lines = run(action, nullptr).lines;
        for (const Subject &subject : action.subjects)
            if (!lines.contains(subject.usual))
                QTest::qFail(qPrintable(difference(action.name, lines, {subject.usual})), __FILE__,
                             __LINE__);
    }
    return lines;
}

Stage::Outcome Stage::run(const Action &action, const std::function<void()> &before)
{
    std::unique_ptr<QWidget> page;
    if (action.act) {
        m_prepare(*this); // it changes something
        page = action.open();
    }
    if (before) {
        if (!m_sessionCalls.clear() || !m_systemCalls.clear())
            QTest::qFail("the buses cannot be watched", __FILE__, __LINE__);
        before();
    }
    m_isBad = bool(before);

    Outcome outcome;
    const testsupport::LogCapture log;
    testsupport::TurnWatch turns;
    if (action.act)
        action.act(page.get());
    else
        page = action.open();
    outcome.standstill = turns.longest();
    outcome.complaints = linesOf(log, {{QtWarningMsg, QStringLiteral("warning")},
                                       {QtCriticalMsg, QStringLiteral("critical")}});
    outcome.remarks = linesOf(log, {{QtDebugMsg, QStringLiteral("debug")}});
    page->show();
    outcome.lines = readOut(page.get());
    if (action.tell)
        outcome.lines.append(action.tell());
    if (before) {
        if (!m_sessionCalls.sync() || !m_systemCalls.sync())
            QTest::qFail("the buses cannot be watched", __FILE__, __LINE__);
        outcome.calls = shortCalls(m_systemCalls) + shortCalls(m_sessionCalls);
    }
    return outcome;
}

bool Stage::serviceSpeaks() const
{
    return !m_isBad || (m_world != World::Absent && m_world != World::StartFails &&
                        m_world != World::Hung && m_world != World::Ends);
}

void Stage::sendSignal(const Subject &subject, const QString &path)
{
    const Contract::Object &object = subject.object.object;
    const QString &member = subject.use.name;
    ServiceProcess &process = service(subject.service);
    if (!m_isBad) {
        process.sendSignal(path, object.interface, member, subject.answer);
    } else if (m_world == World::Replaced && subject.use.seenWithoutSession.isEmpty()) {
        QDBusMessage signal = QDBusMessage::createSignal(path, object.interface, member);
        signal.setArguments(subject.answer);
        QDBusConnection(heirOn(object.bus)).send(signal);
        QDBusConnection(heirOn(object.bus)).call(testsupport::pingCall());
    } else if (m_world != World::Hung && m_world != World::Ends) {
        process.sendSignal(path, object.interface, member,
                           valuesIn(m_world, subject.use, subject.answer));
    }
    if (!testsupport::everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus")))
        QTest::qFail("the bus does not answer", __FILE__, __LINE__);
}

void Stage::enter(const Subject &subject, World world)
{
    m_world = world;
    const bool isSignal = subject.use.mode == doctor::Mode::Heard;
    ServiceProcess &process = service(subject.service);
    const Contract::Object &object = subject.object.object;
    const QString member = object.interface + QLatin1Char('.') + subject.use.name;
    switch (world) {
    case World::StartFails:
        QVERIFY((object.bus == QDBusConnection::SystemBus ? m_system : m_session)
                    .startFails(object.service));
        process.leaveBus();
        break;
    case World::Absent:
        process.leaveBus();
        break;
    case World::Error:
        process.script(member, QStringLiteral("error"), QStringLiteral("true"));
        break;
    case World::Late:
        process.script(member, QStringLiteral("delay"), lateMs);
        break;
    case World::TooLate:
        process.script(member, QStringLiteral("hold"));
        break;
    case World::Hung:
        process.suspend();
        break;
    case World::Ends:
        if (isSignal)
            process.kill();
        else
            process.script(member, QStringLiteral("vanish"));
        break;
    case World::Replaced:
        QDBusConnection(heirOn(object.bus))
            .interface()
            ->registerService(object.service, QDBusConnectionInterface::QueueService);
        if (isSignal)
            process.leaveBus();
        else
            process.script(member, QStringLiteral("hand-over"));
        break;
    default:
        process.script(member, QStringLiteral("reply-list"),
                       valuesIn(world, subject.use, subject.answer));
        break;
    }
}

bool Stage::leave(const Subject &subject, World world, const QStringList &calls)
{
    ServiceProcess &process = service(subject.service);
    const Contract::Object &object = subject.object.object;
    if (world == World::Ends)
        return process.waitForEnd() && process.start();
    if (world == World::Hung) {
        process.resume();
        // What waited for it reaches it now.
        if (holdsBeginning(calls, subject.use.name + QLatin1Char('(')) &&
            !process.waitForCalls(subject.use.name))
            return false;
    }
    if (world == World::Replaced)
        QDBusConnection(heirOn(object.bus)).unregisterService(object.service);
    if (!m_session.startNothing() || !m_system.startNothing())
        return false;
    process.reset();
    process.joinBus();
    // Ten megabytes that nobody waits for are not to hold up the next row.
    return testsupport::everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus"));
}

} // namespace badworlds
