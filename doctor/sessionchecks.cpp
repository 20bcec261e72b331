#include "doctor/checks.h"
#include "doctor/interfacecheck.h"
#include "doctor/questions.h"

#include <QDBusObjectPath>

#include <algorithm>

using Contract::SessionManager::createSession;
using Contract::SessionManager::freeSession;

namespace doctor {

namespace {

// Not the control center's, whose sessions go on.
QString applicationId()
{
    return QStringLiteral("assistant-control-doctor");
}

// One of the two kinds of sessions that a voice test opens.
struct Kind
{
    QString ability;
    QString interface; // of the session's object
    QString seenWhenRefused;
};

const QVector<Kind> &kinds()
{
    static const QVector<Kind> all{
        {QStringLiteral("aqc"), Contract::QualityCheck::object().interface,
         QStringLiteral("A voice test ends at once: \"Service exception\".")},
        {QStringLiteral("iat"), Contract::Recognition::object().interface,
         QStringLiteral("A voice test shows no words.")},
    };
    return all;
}

const ObjectUse &useOf(const QString &interface)
{
    const QVector<ObjectUse> &uses = contractUses();
    return *std::find_if(uses.cbegin(), uses.cend(),
                         [&](const ObjectUse &use) { return use.object.interface == interface; });
}

// A session on its way.
class Session
{
public:
    Session(const Kind &kind, Questions &questions)
        : m_kind(kind)
        , m_opening(call(createSession(), questions))
    {
    }

    /** When it is known whether it was opened. Freed in any case: it may be opened late. */
    void lookAndFree(Questions &questions)
    {
        const QVariantList values = questions.answer(m_opening).arguments();
        m_path = qvariant_cast<QDBusObjectPath>(values.value(0)).path();
        m_code = values.value(1).toInt();
        if (isOpen()) {
            m_check = InterfaceCheck(useOf(m_kind.interface), m_path);
            m_check.ask(questions);
        }
        m_freeing = call(freeSession(), questions);
    }

    QList<Finding> judge(const Questions &questions) const
    {
        if (!isOpen())
            return {notOpened(questions)};
        const bool freed = questions.answer(m_freeing).arguments().value(0) == QVariant(0);
        const Finding finding{
            freed ? Status::Ok : Status::Warning,
            QStringLiteral("session"),
            m_kind.ability,
            QStringLiteral("was opened at ") + m_path +
                (freed ? QStringLiteral(" and freed") : QStringLiteral(", and freeing it failed")),
            freed ? QString() : QStringLiteral("Nothing."),
            freed ? QString() : QStringLiteral("See whether the service keeps sessions.")};
        return QList<Finding>{finding} + m_check.judge(questions);
    }

private:
    int call(const Contract::Method &method, Questions &questions) const
    {
        const Contract::Object &object = method.object;
        return questions.ask(object.service, object.path, object.interface, method.name,
                             {applicationId(), m_kind.ability});
    }

    bool isOpen() const { return m_code == 0 && !m_path.isEmpty(); }

    Finding notOpened(const Questions &questions) const
    {
        const bool refused = m_code != 0;
        QString text = QStringLiteral("is refused with the code %1").arg(m_code);
        if (questions.timedOut(m_opening))
            text = QStringLiteral("is not opened within %1 s").arg(checkLimitMs / 1000);
        else if (!questions.answered(m_opening))
            text =
                QStringLiteral("cannot be opened: ") + questions.answer(m_opening).errorMessage();
        else if (!refused)
            text = QStringLiteral("was opened without an object");
        return {Status::Failure,
                QStringLiteral("session"),
                m_kind.ability,
                text,
                refused ? m_kind.seenWhenRefused : useOf(m_kind.interface).seen,
                QStringLiteral("See what the AI service says of it.")};
    }

    Kind m_kind;
    int m_opening;
    int m_freeing = -1;
    QString m_path;
    int m_code = 0;
    InterfaceCheck m_check{useOf(m_kind.interface), QString()};
};

} // namespace

QList<Finding> checkSessions()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    QList<Finding> findings;
    if (!bus.isConnected()) // and the group of its services says so
        return findings;

    Questions questions(bus);
    QVector<Session> sessions;
    for (const Kind &kind : kinds())
        sessions.append(Session(kind, questions));
    questions.wait();
    for (Session &session : sessions)
        session.lookAndFree(questions);
    questions.wait();
    for (const Session &session : qAsConst(sessions))
        findings += session.judge(questions);
    return findings;
}

} // namespace doctor
