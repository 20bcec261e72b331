#include "doctor/contractuse.h"
#include "doctor/failures.h"
#include "doctor/groups.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

#include <algorithm>

using namespace doctor;

namespace {

enum ExitCode {
    Well = 0,
    Noticed = 1, // by the person in front of the module
    WrongUsage = 2,
};

const QString program = QStringLiteral("assistant-control-doctor");
const QString version = QStringLiteral(DOCTOR_VERSION);

Status worst(const QList<Finding> &findings)
{
    Status status = Status::Ok;
    for (const Finding &finding : findings)
        status = std::max(status, finding.status);
    return status;
}

QByteArray json(const QList<Finding> &findings)
{
    QJsonArray checks;
    for (const Finding &finding : findings)
        checks.append(finding.toJson());
    return QJsonDocument(QJsonObject{{QStringLiteral("program"), program},
                                     {QStringLiteral("version"), version},
                                     {QStringLiteral("status"), statusWord(worst(findings))},
                                     {QStringLiteral("checks"), checks}})
        .toJson();
}

QString text(const QList<Finding> &findings)
{
    constexpr int statusWidth = 9;
    constexpr int checkWidth = 11;
    const QString indent(statusWidth + checkWidth, QLatin1Char(' '));
    QString text;
    for (const Finding &finding : findings) {
        text += statusWord(finding.status).leftJustified(statusWidth) +
                finding.check.leftJustified(checkWidth) + finding.subject + QLatin1Char(' ') +
                finding.text + QLatin1Char('\n');
        if (!finding.seen.isEmpty())
            text += indent + QStringLiteral("Seen: ") + finding.seen + QLatin1Char('\n');
        if (!finding.remedy.isEmpty())
            text += indent + QStringLiteral("Do:   ") + finding.remedy + QLatin1Char('\n');
    }
    const auto count = [&](Status status) {
        return std::count_if(findings.cbegin(), findings.cend(),
                             [&](const Finding &finding) { return finding.status == status; });
    };
    return text + QStringLiteral("\nok: %1, warnings: %2, failures: %3\n")
                      .arg(count(Status::Ok))
                      .arg(count(Status::Warning))
                      .arg(count(Status::Failure));
}

int usageError(const QString &text)
{
    QTextStream(stderr) << program << ": " << text << "; see --help\n";
    return WrongUsage;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    out.setCodec("UTF-8");

    const QDir programFolder(QCoreApplication::applicationDirPath());
    const QCommandLineOption plugin(
        QStringLiteral("plugin"), QStringLiteral("The module's file."), QStringLiteral("FILE"),
        QDir::cleanPath(programFolder.filePath(QStringLiteral(DOCTOR_PLUGIN))));
    const QCommandLineOption listen(
        QStringLiteral("listen"),
        QStringLiteral("Open the microphone, and say what two seconds of it are like."));
    const QCommandLineOption session(
        QStringLiteral("session"),
        QStringLiteral("Open a session of each kind at the AI service, and free it."));
    const QCommandLineOption asJson(QStringLiteral("json"),
                                    QStringLiteral("Write the report as JSON."));
    const QCommandLineOption contract(
        QStringLiteral("contract"),
        QStringLiteral("Write what the module uses on the buses, in Markdown, and check nothing."));
    const QCommandLineOption failures(
        QStringLiteral("failures"),
        QStringLiteral("Write what becomes of each call when it fails, and check nothing."));
    const QCommandLineOption help(QStringLiteral("help"), QStringLiteral("Show this text."));
    const QCommandLineOption versionOption(QStringLiteral("version"),
                                           QStringLiteral("Show the version."));
    QCommandLineOption group(QStringLiteral("group"), QString(), QStringLiteral("NAME"));
    group.setFlags(QCommandLineOption::HiddenFromHelp); // for the program's own use

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Says what the settings module of the voice assistant needs on this machine, what is\n"
        "missing, what people see because of it, and what to do. Changes nothing.\n\n"
        "Exit code: 0 nothing that people notice, 1 something they notice, 2 wrong usage."));
    parser.addOptions(
        {plugin, listen, session, asJson, contract, failures, help, versionOption, group});
    if (!parser.parse(QCoreApplication::arguments()))
        return usageError(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return usageError(
            QStringLiteral("unknown argument '%1'").arg(parser.positionalArguments().constFirst()));

    if (parser.isSet(help)) {
        out << parser.helpText();
        return Well;
    }
    if (parser.isSet(versionOption)) {
        out << program << ' ' << version << '\n';
        return Well;
    }
    if (parser.isSet(contract)) {
        out << contractDocument();
        return Well;
    }
    if (parser.isSet(failures)) {
        out << failureDocument();
        return Well;
    }

    const Wishes wishes{parser.value(plugin), parser.isSet(listen), parser.isSet(session)};
    if (parser.isSet(group)) {
        runGroup(parser.value(group), wishes);
        return usageError(QStringLiteral("unknown group '%1'").arg(parser.value(group)));
    }
    if (wishes.listen)
        QTextStream(stderr) << "Speak for two seconds.\n";
    const QList<Finding> findings = runGroups(wishes);
    if (parser.isSet(asJson))
        out << QString::fromUtf8(json(findings));
    else
        out << text(findings);
    return worst(findings) == Status::Failure ? Noticed : Well;
}
