#include "sandbox/services/control/verbs.h"

#include "comcorvanesandboxcontrolinterface.h"
#include "sandbox/services/control/servicelink.h"
#include "sandbox/services/control/textvalue.h"

#include <QDBusArgument>

#include <csignal>
#include <limits>

namespace sandbox {

namespace {

constexpr int anyNumber = std::numeric_limits<int>::max();

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
    return {values.isEmpty() ? QString() : shownText(values.constFirst()), QString()};
}

// The value of a key; invalid, with a text, when the service has no such key.
QVariant currentValue(ServiceLink &link, const QString &key, QString *error)
{
    auto reply = link.control().Value(key);
    reply.waitForFinished();
    if (reply.isError()) {
        *error = reply.error().message();
        return {};
    }
    const QVariant value = reply.value().variant();
    return value.userType() == qMetaTypeId<QDBusArgument>() ? qdbus_cast<QStringList>(value)
                                                            : value;
}

VerbResult list(ServiceLink &link, const QStringList &)
{
    auto reply = link.control().Keys();
    reply.waitForFinished();
    if (reply.isError())
        return problem(reply.error().message());
    VerbResult result;
    const QStringList keys = reply.value();
    for (const QString &key : keys) {
        const QString text = shownText(currentValue(link, key, &result.problem));
        result.output += key + QStringLiteral(" = ") +
                         QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')) +
                         QLatin1Char('\n');
    }
    result.output.chop(1);
    return result;
}

VerbResult get(ServiceLink &link, const QStringList &words)
{
    VerbResult result;
    result.output = shownText(currentValue(link, words.at(0), &result.problem));
    return result;
}

VerbResult set(ServiceLink &link, const QStringList &words)
{
    QString error;
    const QVariant current = currentValue(link, words.at(0), &error);
    if (!error.isEmpty())
        return problem(error);
    const QVariant value = valueLike(current, words.mid(1));
    if (!value.isValid()) {
        return problem(QStringLiteral("\"%1\" holds a %2")
                           .arg(words.at(0), QLatin1String(current.typeName())));
    }
    return outcome(link.control().SetValue(words.at(0), QDBusVariant(value)));
}

VerbResult script(ServiceLink &link, const QStringList &words)
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
    return outcome(link.control().Script(words.at(0), behaviour, QDBusVariant(argument)));
}

VerbResult signalled(ServiceLink &link, int number)
{
    return ::kill(pid_t(link.processId()), number) == 0
               ? VerbResult()
               : problem(QStringLiteral("the process cannot be reached"));
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
        {"release", "MEMBER", "Send the replies on hold; print how many.", 1, 1,
         [](ServiceLink &link, const Words &words) {
             return outcome(link.control().Release(words.at(0)));
         }},
        {"reset", "", "Forget scripts and the log of calls.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return outcome(link.control().Reset());
         }},
        {"calls", "", "Print the calls received, one JSON object per line.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return outcome(link.control().Calls());
         }},
        {"leave", "", "Give up the bus name.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return outcome(link.control().LeaveBus());
         }},
        {"join", "", "Take the bus name back.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return outcome(link.control().JoinBus());
         }},
        {"hang", "", "Stop the process; it keeps its name and answers nothing.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return signalled(link, SIGSTOP);
         }},
        {"resume", "", "Let a hung process run on.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return signalled(link, SIGCONT);
         }},
        {"crash", "", "Kill the process.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return outcome(link.control().Crash());
         }},
        {"pid", "", "Print the process id.", 0, 0,
         [](ServiceLink &link, const Words &) {
             return VerbResult{QString::number(link.processId()), QString()};
         }},
    };
    return all;
}

} // namespace sandbox
