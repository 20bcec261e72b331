#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QVector>

namespace doctor {

/** No check takes longer. */
constexpr int checkLimitMs = 2000;

/**
 * Calls that are all under way at once, and their answers. None starts a service, and none is
 * waited for beyond one limit that all share.
 */
class Questions
{
public:
    explicit Questions(const QDBusConnection &bus);

    /** Sends a call and returns its number. */
    int ask(QDBusMessage call);
    int ask(const QString &service, const QString &path, const QString &interface,
            const QString &member, const QVariantList &arguments = {});
    /** Asks what is at @p path. */
    int introspect(const QString &service, const QString &path);
    /** Asks the bus daemon itself. */
    int askDaemon(const QString &member, const QVariantList &arguments = {});

    /** Returns when each has its answer, an error among them. */
    void wait();

    const QDBusMessage &answer(int number) const { return m_answers.at(number).message; }
    /** How long it took. */
    qint64 milliseconds(int number) const { return m_answers.at(number).milliseconds; }
    /** It waited to the end of the limit. */
    bool timedOut(int number) const { return m_answers.at(number).late; }
    /** An answer that is not an error. */
    bool answered(int number) const;

private:
    struct Answer
    {
        QDBusMessage message;
        qint64 milliseconds = 0;
        bool late = false;
    };

    QDBusConnection m_bus;
    QDeadlineTimer m_deadline{checkLimitMs};
    QElapsedTimer m_clock;
    QVector<Answer> m_answers;
    int m_waiting = 0;
};

} // namespace doctor
