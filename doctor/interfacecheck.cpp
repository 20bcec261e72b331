#include "doctor/interfacecheck.h"

#include "doctor/questions.h"
#include "doctor/servicevalues.h"

#include <QDBusError>
#include <QSet>

#include <algorithm>

namespace doctor {

namespace {

bool isForeign(const InterfaceDescription &description)
{
    return description.name.startsWith(QLatin1String("org.freedesktop.DBus."));
}

template <typename List>
const InterfaceDescription *named(const List &descriptions, const QString &name)
{
    const auto found =
        std::find_if(descriptions.cbegin(), descriptions.cend(),
                     [&](const InterfaceDescription &it) { return it.name == name; });
    return found == descriptions.cend() ? nullptr : &*found;
}

} // namespace

// What is wrong with one interface, as it comes to light; nothing is said twice of a member.
class InterfaceCheck::Judgement
{
public:
    Judgement(const ObjectUse &use, const QString &path)
        : m_use(use)
        , m_path(path)
        , m_contract(contractOf(use.object.interface))
    {
    }

    const InterfaceDescription &contract() const { return m_contract; }
    QList<Finding> findings() const { return m_findings; }

    void add(Status status, const QString &text, const QString &seen, const QString &remedy)
    {
        m_findings.append(
            {status, QStringLiteral("interface"), m_use.object.interface, text, seen, remedy});
    }

    void missingObject()
    {
        add(m_use.noticed ? Status::Failure : Status::Warning,
            QStringLiteral("the service has no such interface at %1").arg(m_path), m_use.seen,
            QStringLiteral("Install the version of the service that has it."));
    }

    void withoutDescription()
    {
        add(Status::Warning, QStringLiteral("cannot be introspected, so it was not compared"),
            QStringLiteral("Nothing, if the service keeps its contract."),
            QStringLiteral("Compare it by hand with the installed contract."));
    }

    // Its calls, in reply or arguments, are others than those that the module makes.
    void wrongMember(const Member &member, Status status, const QString &text)
    {
        if (m_wrong.contains(member.name))
            return;
        m_wrong.insert(member.name);
        const auto use = std::find_if(m_use.members.cbegin(), m_use.members.cend(),
                                      [&](const MemberUse &it) { return it.name == member.name; });
        add(m_use.noticed ? status : Status::Warning, text,
            use == m_use.members.cend() ? QString() : use->seen,
            QStringLiteral("Install the version of the service that has %1.")
                .arg(member.declaration));
    }

    void compare(const InterfaceDescription &found)
    {
        for (const Member &member : m_contract.members) {
            const auto other =
                std::find_if(found.members.cbegin(), found.members.cend(),
                             [&](const Member &it) { return it.isNamesake(member); });
            if (other == found.members.cend())
                missingMember(member);
            else
                compare(member, *other);
        }
        m_extra = int(found.members.size()) - int(m_contract.members.size());
    }

    QList<Finding> okOrFindings()
    {
        if (m_findings.isEmpty()) {
            const QString more =
                m_extra > 0 ? QStringLiteral("; members beyond it: %1").arg(m_extra) : QString();
            add(Status::Ok, QStringLiteral("is as in its contract") + more, QString(), QString());
        }
        return m_findings;
    }

private:
    // Services may send signals that they do not describe.
    void missingMember(const Member &member)
    {
        wrongMember(member, member.isSignal ? Status::Warning : Status::Failure,
                    QStringLiteral("%1 %2 is missing")
                        .arg(member.isSignal ? QStringLiteral("signal") : QStringLiteral("method"),
                             member.name));
    }

    void compare(const Member &wanted, const Member &found)
    {
        if (wanted.arguments != found.arguments) {
            wrongMember(wanted, Status::Failure,
                        QStringLiteral("%1 has the arguments \"%2\", not \"%3\"")
                            .arg(wanted.name, found.arguments, wanted.arguments));
        } else if (wanted.reply != found.reply) {
            wrongMember(wanted, readsReply(wanted) ? Status::Failure : Status::Warning,
                        QStringLiteral("%1 replies \"%2\", not \"%3\"")
                            .arg(wanted.name, found.reply, wanted.reply));
        }
    }

    bool readsReply(const Member &member) const
    {
        return std::any_of(m_use.members.cbegin(), m_use.members.cend(), [&](const MemberUse &it) {
            return it.name == member.name && !it.fallback.isEmpty();
        });
    }

    const ObjectUse &m_use;
    const QString m_path;
    const InterfaceDescription m_contract;
    QSet<QString> m_wrong;
    QList<Finding> m_findings;
    int m_extra = 0;
};

InterfaceCheck::InterfaceCheck(const ObjectUse &use, const QString &path)
    : m_use(&use)
    , m_path(path)
{
}

void InterfaceCheck::ask(Questions &questions)
{
    const Contract::Object &object = m_use->object;
    m_introspection = questions.introspect(object.service, m_path);
    for (const MemberUse &member : m_use->members) {
        for (const QVariantList &arguments : member.questions) {
            m_asked.append(
                {&member, arguments,
                 questions.ask(object.service, m_path, object.interface, member.name, arguments)});
        }
    }
}

qint64 InterfaceCheck::slowestAnswer(const Questions &questions) const
{
    QVector<int> numbers{m_introspection};
    for (const Asked &asked : m_asked)
        numbers.append(asked.number);
    qint64 slowest = -1;
    for (const int number : qAsConst(numbers))
        if (!questions.timedOut(number))
            slowest = std::max(slowest, questions.milliseconds(number));
    return slowest;
}

bool InterfaceCheck::anyAnswer(const Questions &questions) const
{
    return std::any_of(m_asked.cbegin(), m_asked.cend(),
                       [&](const Asked &asked) { return questions.answered(asked.number); });
}

QList<Finding> InterfaceCheck::judge(const Questions &questions) const
{
    Judgement judgement(*m_use, m_path);
    const QDBusMessage &introspection = questions.answer(m_introspection);
    const QVector<InterfaceDescription> described =
        describedInterfaces(introspection.arguments().value(0).toString());
    const InterfaceDescription *own = named(described, m_use->object.interface);
    if (own) {
        judgement.compare(*own);
    } else if (!anyAnswer(questions) &&
               (QDBusError(introspection).type() == QDBusError::UnknownObject ||
                !std::all_of(described.cbegin(), described.cend(), isForeign))) {
        judgement.missingObject();
        return judgement.findings();
    } else {
        judgement.withoutDescription();
    }

    QList<Finding> values;
    for (const Asked &asked : m_asked) {
        const auto member = std::find_if(
            judgement.contract().members.cbegin(), judgement.contract().members.cend(),
            [&](const Member &it) { return it.name == asked.member->name && !it.isSignal; });
        const QDBusMessage &answer = questions.answer(asked.number);
        if (questions.timedOut(asked.number)) {
            judgement.wrongMember(*member, Status::Failure,
                                  QStringLiteral("%1 does not answer within %2 s")
                                      .arg(member->name)
                                      .arg(checkLimitMs / 1000));
        } else if (!questions.answered(asked.number)) {
            judgement.wrongMember(
                *member, Status::Failure,
                QStringLiteral("%1 fails: %2").arg(member->name, answer.errorMessage()));
        } else if (answer.signature() != member->reply) {
            judgement.wrongMember(*member, Status::Failure,
                                  QStringLiteral("%1 answers \"%2\", not \"%3\"")
                                      .arg(member->name, answer.signature(), member->reply));
        } else {
            values += checkValue({m_use->object, member->name}, asked.arguments,
                                 answer.arguments().value(0));
        }
    }
    return judgement.okOrFindings() + values;
}

} // namespace doctor
