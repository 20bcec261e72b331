#include "doctor/groups.h"

#include "doctor/checks.h"
#include "doctor/questions.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTextStream>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace doctor {

namespace {

// More than any check takes by itself, for what cannot be interrupted from inside.
constexpr int groupLimitMs = checkLimitMs + 1000;

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
    };
    return all;
}

// A group in its process.
class RunningGroup
{
public:
    RunningGroup(const Group &group, const Wishes &wishes)
        : m_group(group)
    {
        m_limit.setSingleShot(true);
        QObject::connect(&m_limit, &QTimer::timeout, &m_process, [this] {
            m_late = true;
            m_process.kill();
        });
        // The time begins when the program does.
        QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_limit, [this] {
            if (!m_limit.isActive())
                m_limit.start(groupLimitMs);
        });
        m_process.setStandardErrorFile(QProcess::nullDevice()); // of libraries, mostly
        m_process.start(QCoreApplication::applicationFilePath(),
                        wishes.arguments() + QStringList{QStringLiteral("--group"), group.name});
    }

    QProcess *process() { return &m_process; }

    QList<Finding> findings()
    {
        QList<Finding> findings;
        const QJsonArray told = QJsonDocument::fromJson(m_process.readAllStandardOutput()).array();
        for (const QJsonValue &finding : told)
            findings.append(Finding::fromJson(finding.toObject()));
        if (findings.isEmpty()) {
            findings.append(
                {Status::Failure, QStringLiteral("group"), m_group.name,
                 m_late ? QStringLiteral("does not end within %1 s").arg(groupLimitMs / 1000)
                        : QStringLiteral("ends before it has a result: %1")
                              .arg(m_process.errorString()),
                 m_group.seen,
                 QStringLiteral("See why: run this again with --group %1.").arg(m_group.name)});
        }
        return findings;
    }

private:
    const Group &m_group;
    QProcess m_process;
    QTimer m_limit;
    bool m_late = false;
};

} // namespace

QStringList Wishes::arguments() const
{
    return {QStringLiteral("--plugin"), plugin};
}

QList<Finding> runGroups(const Wishes &wishes)
{
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

bool runGroup(const QString &name, const Wishes &wishes)
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
        return true;
    }
    return false;
}

} // namespace doctor
