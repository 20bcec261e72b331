#include "sandbox/services/control/servicecontrol.h"
#include "sandbox/services/control/servicelist.h"
#include "sandbox/services/control/verbs.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QTextStream>

namespace {

enum ExitCode {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    NoSuchService = 3,
};

constexpr int hungAfterMs = 5000;

QString usage()
{
    QStringList names;
    for (const sandbox::ServiceIdentity &service : sandbox::serviceList())
        names.append(service.name);
    QString text = QStringLiteral("Usage: sandbox-control SERVICE VERB [ARGUMENT...]\n\n"
                                  "Steers a running sandbox service:\n%1,\n"
                                  "and whatever else runs as sandbox-SERVICE.\n\n")
                       .arg(names.join(QStringLiteral(", ")));
    for (const sandbox::Verb &verb : sandbox::verbs()) {
        text += QStringLiteral("  %1 %2\n")
                    .arg((verb.name + QLatin1Char(' ') + verb.arguments).leftJustified(35),
                         verb.description);
    }
    return text +
           QStringLiteral(
               "\nBEHAVIOUR is one of:\n"
               "  error TEXT          an error reply\n"
               "  reply VALUE         a reply with any value: bool:true, int:7, uint:7,\n"
               "                      double:0.5, string:TEXT, or just TEXT\n"
               "  reply-list VALUE... a reply with several values, or with none\n"
               "  delay MS            the true answer, MS milliseconds late\n"
               "  hold                the true answer, on release\n"
               "  vanish              no answer: the process ends\n"
               "  hand-over           the true answer, after giving up the bus name\n"
               "  answer              the true answer again\n"
               "MEMBER \"*\" is every method that has no script of its own.\n\n"
               "FAULT is one of none, slow (by MS milliseconds), refusing, wrong-types, hung and\n"
               "stopped; each ends the one before.\n\n"
               "Examples:\n"
               "  sandbox-control dock set hidden true\n"
               "  sandbox-control keybinding set translation '<Super>t'\n"
               "  sandbox-control networkmanager set state 20\n"
               "  sandbox-control assistant script getIatEnable delay 3000\n\n"
               "Exit code: 0 done, 1 the service refused, 2 wrong usage, 3 no such service.\n");
}

bool runsOn(const QDBusConnection &bus, const QString &service)
{
    return bus.isConnected() &&
           bus.interface()->isServiceRegistered(sandbox::controlBusName(service));
}

int fail(ExitCode code, const QString &text)
{
    QTextStream(stderr) << "sandbox-control: " << text << '\n';
    return code;
}

int runVerb(const sandbox::Verb &verb, const QString &service, const QStringList &words)
{
    if (words.size() < verb.minimumArguments || words.size() > verb.maximumArguments) {
        return fail(
            WrongUsage,
            QStringLiteral("the verb is used like this: %1 %2").arg(verb.name, verb.arguments));
    }
    const QDBusConnection session = QDBusConnection::sessionBus();
    const QDBusConnection bus = runsOn(session, service) ? session : QDBusConnection::systemBus();
    if (!runsOn(bus, service)) {
        return fail(NoSuchService,
                    QStringLiteral("no service \"%1\" runs on these buses; what started the "
                                   "sandbox says which are its own")
                        .arg(service));
    }
    sandbox::ServiceControl control(service, bus);
    control.setTimeout(hungAfterMs);
    const sandbox::VerbResult result = verb.run(control, words);
    if (!result.problem.isEmpty())
        return fail(Failed, result.problem);
    if (!result.output.isEmpty())
        QTextStream(stdout) << result.output << '\n';
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.contains(QStringLiteral("--help"))) {
        QTextStream(stdout) << usage();
        return Done;
    }
    if (words.contains(QStringLiteral("--version"))) {
        QTextStream(stdout) << "sandbox-control " SANDBOX_VERSION "\n";
        return Done;
    }
    if (words.size() < 2) {
        QTextStream(stderr) << usage();
        return WrongUsage;
    }
    for (const sandbox::Verb &verb : sandbox::verbs())
        if (verb.name == words.at(1))
            return runVerb(verb, words.at(0), words.mid(2));
    return fail(WrongUsage, QStringLiteral("there is no verb \"%1\"; see --help").arg(words.at(1)));
}
