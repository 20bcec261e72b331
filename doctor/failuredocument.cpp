#include "doctor/failures.h"
#include "doctor/markdown.h"

namespace doctor {

namespace {

QString worldText(World world, bool isSignal)
{
    switch (world) {
    case World::Absent:
        return QStringLiteral("is not there");
    case World::StartFails:
        return QStringLiteral("cannot be started");
    case World::Error:
        return QStringLiteral("answers with an error");
    case World::WrongType:
        return QStringLiteral("%1 another type");
    case World::TooFewValues:
        return QStringLiteral("%1 too few values");
    case World::TooManyValues:
        return QStringLiteral("%1 more values");
    case World::EmptyValue:
        return QStringLiteral("%1 an empty value");
    case World::TenMegabytes:
        return QStringLiteral("%1 10 MB");
    case World::Late:
        return QStringLiteral("answers 1 s late");
    case World::TooLate:
        return QStringLiteral("answers too late for the bus");
    case World::Hung:
        return QStringLiteral("hangs");
    case World::Ends:
        return isSignal ? QStringLiteral("ends") : QStringLiteral("ends before it answers");
    case World::Replaced:
        return isSignal ? QStringLiteral("is replaced")
                        : QStringLiteral("is replaced before it answers");
    case World::BusEnds:
        break;
    }
    return QStringLiteral("loses the bus");
}

QString textOf(World world, Mode mode)
{
    const bool isSignal = mode == Mode::Heard;
    const QString text = worldText(world, isSignal);
    return text.contains(QLatin1String("%1"))
               ? text.arg(isSignal ? QLatin1String("sends") : QLatin1String("answers with"))
               : text;
}

QString stillText(const Failure &failure)
{
    if (!failure.standsStill)
        return QStringLiteral("no");
    return failure.wait == Wait::ForAnswer ? QStringLiteral("until the answer")
                                           : QStringLiteral("25 s");
}

// The level, and how the line begins.
QString logText(const QString &log)
{
    const int level = log.indexOf(QLatin1Char('|'));
    return level < 0
               ? QString()
               : QStringLiteral("%1: %2").arg(log.left(level), markdown::code(log.mid(level + 1)));
}

bool sameToRead(const Failure &a, const Failure &b)
{
    return a.seen == b.seen && a.log == b.log && stillText(a) == stillText(b);
}

// A row for each thing that can come of it, with all worlds in which it does.
QStringList rowsOf(const MemberUse &member)
{
    QVector<Failure> failures;
    QVector<QStringList> causes;
    for (const World world : worlds()) {
        const Failure failure = failureOf(member, world);
        if (failure.effect == Effect::NotPossible)
            continue;
        int index = 0;
        while (index < failures.size() && !sameToRead(failures.at(index), failure))
            ++index;
        if (index == failures.size()) {
            failures.append(failure);
            causes.append(QStringList());
        }
        causes[index].append(textOf(world, member.mode));
    }
    QStringList rows;
    for (int i = 0; i < failures.size(); ++i)
        rows.append(markdown::row({causes.at(i).join(QStringLiteral("; ")), failures.at(i).seen,
                                   stillText(failures.at(i)), logText(failures.at(i).log)}));
    return rows;
}

QString failuresOf(const ObjectUse &object)
{
    // Members of which the same can be said stand together.
    QVector<QStringList> tables;
    QVector<QStringList> names;
    for (const MemberUse &member : object.members) {
        const QStringList rows = rowsOf(member);
        int index = tables.indexOf(rows);
        if (index < 0) {
            index = tables.size();
            tables.append(rows);
            names.append(QStringList());
        }
        names[index].append(markdown::code(member.name));
    }
    QString text = QStringLiteral("\n## %1\n").arg(object.object.interface);
    for (int i = 0; i < tables.size(); ++i) {
        text += QStringLiteral("\n%1:\n\n").arg(names.at(i).join(QStringLiteral(", ")));
        text += markdown::head({QStringLiteral("the service"), QStringLiteral("people see"),
                                QStringLiteral("the window stands still"),
                                QStringLiteral("log line begins with")});
        text += tables.at(i).join(QString());
    }
    return text;
}

QString failuresOfSound()
{
    QString text = QStringLiteral("\n## The sound server\n\n") +
                   markdown::head({QStringLiteral("the server"), QStringLiteral("people see"),
                                   QStringLiteral("the window stands still"),
                                   QStringLiteral("log line begins with")});
    for (const SoundFailure &failure : soundFailures())
        text += markdown::row(
            {failure.when, failure.seen,
             failure.standsStill ? QStringLiteral("until it goes on") : QStringLiteral("no"),
             logText(failure.log)});
    return text;
}

} // namespace

QString failureDocument()
{
    QString text = QStringLiteral(
        "# Failures\n\n"
        "What people see when a service, its answers, its signals or its bus are bad; how long the "
        "window stands\n"
        "still; and the line to look for in the log. Written by `assistant-control-doctor "
        "--failures` from\n"
        "`doctor/contractuse.cpp` and `doctor/failures.cpp`; change those, and then:\n\n"
        "    cmake --build build/dev --target update-contract\n\n"
        "What is called when, and how, stands in [contract](contract.md). The bus's time-out is "
        "25 seconds for\n"
        "each call. The module takes up a service that comes back with the next call.\n");
    for (const ObjectUse &object : contractUses())
        text += failuresOf(object);
    return text + failuresOfSound();
}

} // namespace doctor
