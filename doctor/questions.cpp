#include "doctor/questions.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>

#include <algorithm>

namespace doctor {

namespace {

constexpr int timerErrorMs = 200; // QtDBus waits with coarse timers

} // namespace

Questions::Questions(const QDBusConnection &bus)
    : m_bus(bus)
{
    m_clock.start();
}

int Questions::ask(QDBusMessage call)
{
    call.setAutoStartService(false);
    const int number = m_answers.size();
    const qint64 sent = m_clock.elapsed();
    m_answers.append(Answer());
    ++m_waiting;
    const int limit = std::max(1, int(m_deadline.remainingTime()));
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, limit));
    QObject::connect(
        watcher, &QDBusPendingCallWatcher::finished, watcher, [this, watcher, number, sent, limit] {
            const qint64 took = m_clock.elapsed() - sent;
            // The bus says the same, but sooner, when a service goes.
            const bool late = QDBusError(watcher->reply()).type() == QDBusError::NoReply &&
                              took >= limit - timerErrorMs;
            m_answers[number] = Answer{watcher->reply(), took, late};
            --m_waiting;
            watcher->deleteLater();
        });
    return number;
}

int Questions::ask(const QString &service, const QString &path, const QString &interface,
                   const QString &member, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, member);
    call.setArguments(arguments);
    return ask(call);
}

int Questions::introspect(const QString &service, const QString &path)
{
    return ask(service, path, QStringLiteral("org.freedesktop.DBus.Introspectable"),
               QStringLiteral("Introspect"));
}

int Questions::askDaemon(const QString &member, const QVariantList &arguments)
{
    const QString daemon = QStringLiteral("org.freedesktop.DBus");
    return ask(daemon, QStringLiteral("/org/freedesktop/DBus"), daemon, member, arguments);
}

void Questions::wait()
{
    QEventLoop loop;
    while (m_waiting > 0)
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

bool Questions::answered(int number) const
{
    return answer(number).type() == QDBusMessage::ReplyMessage;
}

} // namespace doctor
