#include "sandbox/services/control/verbs.h"

#include "sandbox/services/control/servicecontrol.h"
#include "sandbox/services/control/textvalue.h"

#include <limits>

namespace sandbox {

namespace {

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

} // namespace

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

} // namespace sandbox
