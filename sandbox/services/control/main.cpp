#include "sandbox/services/control/servicecontrol.h"
#include "sandbox/services/control/servicelist.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <functional>
#include <limits>

namespace sandbox {

namespace {

// What came of a verb: text for standard output, or a problem for standard error.
struct VerbResult
{
    QString output;
    QString problem;
};

// One thing that the tool can do with a service.
struct Verb
{
    QString name;
    QString arguments;    // For the usage text.
    QString description;  // One line.
    int minimumArguments; // How many words must follow.
    int maximumArguments; // How many may follow.
    std::function<VerbResult(ServiceControl &, const QStringList &)> run;
};

constexpr int anyNumber = std::numeric_limits<int>::max();
const QString lineBreak = QStringLiteral("\n");

VerbResult problem(const QString &text)
{
    return {QString(), text};
}

// The outcome of a control call; its value, if it has one, is shown.
template <typename Reply>
VerbResult outcome(Reply reply)
{
    reply.waitForFinished();
    if (reply.isError())
        return problem(reply.error().message());
    const QVariantList values = reply.reply().arguments();
    return {values.isEmpty() ? QString() : shownText(values.constFirst(), lineBreak), QString()};
}

VerbResult list(ServiceControl &service, const QStringList &)
{
    const QStringList keys = service.keys();
    VerbResult result{QString(), service.error()};
    for (const QString &key : keys) {
        const QString text = shownText(service.value(key), QStringLiteral(" "));
        if (!service.error().isEmpty())
            result.problem = service.error();
        result.output += key + QStringLiteral(" = ") + text + QLatin1Char('\n');
    }
    result.output.chop(1);
    return result;
}

VerbResult get(ServiceControl &service, const QStringList &words)
{
    const QVariant value = service.value(words.at(0));
    return {shownText(value, lineBreak), service.error()};
}

VerbResult set(ServiceControl &service, const QStringList &words)
{
    const QVariant current = service.value(words.at(0));
    if (!service.error().isEmpty())
        return problem(service.error());
    const QVariant value = valueLike(current, words.mid(1));
    if (!value.isValid()) {
        return problem(QStringLiteral("\"%1\" holds a %2")
                           .arg(words.at(0), QLatin1String(current.typeName())));
    }
    return outcome(service.SetValue(words.at(0), QDBusVariant(value)));
}

VerbResult script(ServiceControl &service, const QStringList &words)
{
    const QString behaviour = words.at(1);
    QVariantList values;
    for (const QString &word : words.mid(2)) {
        const QVariant value = typedValue(word);
        if (!value.isValid())
            return problem(QStringLiteral("\"%1\" is no value of its type").arg(word));
        values.append(value);
    }
    const QVariant argument = behaviour == QLatin1String("reply-list") ? QVariant(values)
                              : values.isEmpty()                       ? QVariant(QString())
                                                                       : values.constFirst();
    return outcome(service.Script(words.at(0), behaviour, QDBusVariant(argument)));
}

VerbResult signalled(bool done)
{
    return done ? VerbResult() : problem(QStringLiteral("the process cannot be reached"));
}

VerbResult fault(ServiceControl &service, const QStringList &words)
{
    const int kind = Fault::names().indexOf(words.at(0));
    bool isNumber = false;
    const int delayMs = words.value(1).toInt(&isNumber);
    if (kind < 0 || isNumber != (kind == Fault::Slow) || isNumber != (words.size() == 2)) {
        return problem(QStringLiteral("the fault is one of %1, and slow by how many milliseconds")
                           .arg(Fault::names().join(QStringLiteral(", "))));
    }
    QDBusPendingCallWatcher *watcher = service.cause({Fault::Kind(kind), isNumber ? delayMs : 0});
    watcher->waitForFinished();
    return watcher->isError() ? problem(watcher->error().message()) : VerbResult();
}

// All of them, in the order of the usage text.
const QList<Verb> &verbs()
{
    using Words = QStringList;
    static const QList<Verb> all{
        {"list", "", "Print the service's state.", 0, 0, list},
        {"get", "KEY", "Print one value.", 1, 1, get},
        {"set", "KEY VALUE...", "Change one value, as another program would.", 1, anyNumber, set},
        {"script", "MEMBER BEHAVIOUR [VALUE...]", "Change how a method is answered; see below.", 2,
         anyNumber, script},
        {"fault", "FAULT [MS]", "Make all methods fail; see below.", 1, 2, fault},
        {"release", "MEMBER", "Send the replies on hold; print how many.", 1, 1,
         [](ServiceControl &service, const Words &words) {
             return outcome(service.Release(words.at(0)));
         }},
        {"reset", "", "Forget scripts and the log of calls.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return outcome(service.Reset());
         }},
        {"calls", "", "Print the calls received, one JSON object per line.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return outcome(service.Calls());
         }},
        {"leave", "", "Give up the bus name.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return outcome(service.LeaveBus());
         }},
        {"join", "", "Take the bus name back.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return outcome(service.JoinBus());
         }},
        {"hang", "", "Stop the process; it keeps its name and answers nothing.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return signalled(service.suspend());
         }},
        {"resume", "", "Let a hung process run on.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return signalled(service.resume());
         }},
        {"crash", "", "Kill the process.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return outcome(service.Crash());
         }},
        {"pid", "", "Print the process id.", 0, 0,
         [](ServiceControl &service, const Words &) {
             return VerbResult{QString::number(service.processId()), QString()};
         }},
    };
    return all;
}

} // namespace

} // namespace sandbox

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
