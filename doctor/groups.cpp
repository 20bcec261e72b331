#include "doctor/groups.h"

#include "doctor/checks.h"
#include "doctor/questions.h"
#include "doctor/soundsource.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace doctor {

namespace {

// More than any check takes by itself, for what cannot be interrupted from inside.
constexpr int groupLimitMs = checkLimitMs + 1000;
constexpr int listeningLimitMs = 2 * groupLimitMs;

const QString microphoneGroup = QStringLiteral("microphone");

struct Group
{
    QString name;
    QString seen; // when it does not end
    std::function<QList<Finding>(const Wishes &)> run;
};

const std::vector<Group> &groups()
{
    static const std::vector<Group> all{
        {QStringLiteral("module"),
         QStringLiteral("The control center hangs or ends when it loads the module."),
         [](const Wishes &wishes) {
             return QList<Finding>{checkPlugin(wishes.plugin), checkCatalogue()};
         }},
        {QStringLiteral("session-bus"),
         QStringLiteral("The window stands still for the bus's time-outs."),
         [](const Wishes &) {
             return checkServices(QDBusConnection::SessionBus);
         }},
        {QStringLiteral("system-bus"),
         QStringLiteral("The window stands still when a voice test is asked for."),
         [](const Wishes &) {
             return checkServices(QDBusConnection::SystemBus);
         }},
        {QStringLiteral("sessions"),
         QStringLiteral("The window stands still when a voice test begins."),
         [](const Wishes &wishes) {
             return wishes.session ? checkSessions() : QList<Finding>();
         }},
        {microphoneGroup,
         QStringLiteral("The control center hangs or ends when \"Desktop AI Assistant\" opens."),
         [](const Wishes &wishes) {
             QList<Finding> findings{checkMicrophone()};
             if (wishes.listen)
                 findings.append(listenToMicrophone());
             return findings;
         }},
    };
    return all;
}

// A group in its process.
class RunningGroup
{
public:
    RunningGroup(const Group &group, const Wishes &wishes)
        : m_group(group)
        , m_limitMs(wishes.listen && group.name == microphoneGroup ? listeningLimitMs
                                                                   : groupLimitMs)
    {
        m_limit.setSingleShot(true);
        QObject::connect(&m_limit, &QTimer::timeout, &m_process, [this] {
            m_late = true;
            m_process.kill();
        });
        // The time begins when the program does.
        QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_limit, [this] {
            if (!m_limit.isActive())
                m_limit.start(m_limitMs);
        });
        m_process.setStandardErrorFile(QProcess::nullDevice()); // of libraries, mostly
        m_process.start(QCoreApplication::applicationFilePath(),
                        wishes.arguments() + QStringList{QStringLiteral("--group"), group.name});
    }

    QProcess *process() { return &m_process; }

    QList<Finding> findings()
    {
        QList<Finding> findings;
        const QJsonDocument told = QJsonDocument::fromJson(m_process.readAllStandardOutput());
        const QJsonArray all = told.array();
        for (const QJsonValue &finding : all)
            findings.append(Finding::fromJson(finding.toObject()));
        if (!told.isArray()) {
            findings.append(
                {Status::Failure, QStringLiteral("group"), m_group.name,
                 m_late ? QStringLiteral("does not end within %1 s").arg(m_limitMs / 1000)
                        : QStringLiteral("ends before it has a result: %1")
                              .arg(m_process.errorString()),
                 m_group.seen,
                 QStringLiteral("See why: run this again with --group %1.").arg(m_group.name)});
        }
        return findings;
    }

private:
    const Group &m_group;
    const int m_limitMs;
    QProcess m_process;
    QTimer m_limit;
    bool m_late = false;
};

} // namespace

QStringList Wishes::arguments() const
{
    QStringList arguments{QStringLiteral("--plugin"), plugin};
    if (listen)
        arguments.append(QStringLiteral("--listen"));
    if (session)
        arguments.append(QStringLiteral("--session"));
    return arguments;
}

QList<Finding> runGroups(const Wishes &wishes)
{
    const auto soundFolder = temporarySoundFolder();
    std::vector<std::unique_ptr<RunningGroup>> running;
    for (const Group &group : groups())
        running.push_back(std::make_unique<RunningGroup>(group, wishes));
    QEventLoop loop;
    for (const auto &group : running)
        while (group->process()->state() != QProcess::NotRunning)
            loop.processEvents(QEventLoop::WaitForMoreEvents);

    QList<Finding> findings;
    for (const auto &group : running)
        findings += group->findings();
    return findings;
}

void runGroup(const QString &name, const Wishes &wishes)
{
    QTextStream out(stdout);
    for (const Group &group : groups()) {
        if (group.name != name)
            continue;
        out << '\n';
        out.flush();
        QJsonArray findings;
        const QList<Finding> found = group.run(wishes);
        for (const Finding &finding : found)
            findings.append(finding.toJson());
        out << QJsonDocument(findings).toJson();
        out.flush();
        // The result is out: what was loaded for it needs no orderly end, which may crash.
        std::_Exit(0);
    }
}

} // namespace doctor
