#include "tests/fuzz/target.h"

#include <QDBusPendingCall>

#include <utility>

namespace fuzz {

namespace {

int criticals = 0;
QtMessageHandler handlerBefore = nullptr;

void count(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtCriticalMsg)
        ++criticals;
    if (type == QtFatalMsg)
        handlerBefore(type, context, text);
}

QList<QDBusMessage> &nextAnswers()
{
    static QList<QDBusMessage> answers;
    return answers;
}

QDBusMessage someCall()
{
    return QDBusMessage::createMethodCall(QStringLiteral("a.b"), QStringLiteral("/"),
                                          QStringLiteral("a.b"), QStringLiteral("c"));
}

} // namespace

QMap<QByteArray, Target> &targets()
{
    static QMap<QByteArray, Target> all;
    return all;
}

void prepare()
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/session");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/system");
    handlerBefore = qInstallMessageHandler(count);
}

int takeCriticals()
{
    return std::exchange(criticals, 0);
}

void setAnswers(const QList<QDBusMessage> &answers)
{
    nextAnswers() = answers;
}

QDBusMessage reply(const QVariantList &values)
{
    return someCall().createReply(values);
}

QDBusMessage errorReply()
{
    return someCall().createErrorReply(QDBusError::Failed, QStringLiteral("failed"));
}

} // namespace fuzz

// Stands in for Qt's in these programs: without a bus every call has ended when it is made, and its
// answer is the target's.
QDBusMessage QDBusPendingCall::reply() const
{
    QList<QDBusMessage> &answers = fuzz::nextAnswers();
    return answers.isEmpty() ? fuzz::errorReply() : answers.takeFirst();
}
