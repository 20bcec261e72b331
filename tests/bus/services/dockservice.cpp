#include "sandbox/services/control/servicecontrol.h"
#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QtTest>

using testsupport::ServiceCall;
using testsupport::ServiceProcess;

namespace {

const QString serviceName = QStringLiteral("com.corvane.aiassistant.dock");
const QString objectPath = QStringLiteral("/com/corvane/aiassistant/dockIconControl");

QDBusMessage callTo(const char *member, const QVariantList &arguments = {})
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(serviceName, objectPath, serviceName, QLatin1String(member));
    message.setArguments(arguments);
    return message;
}

QDBusMessage answerOf(const char *member, const QVariantList &arguments = {})
{
    return QDBusConnection::sessionBus().call(callTo(member, arguments));
}

} // namespace

/** The dock-icon service, and with it what all services have from their common base. */
class DockServiceTest : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void dockHideChange(bool hide);

private Q_SLOTS:
    void init();
    void cleanup();

    void writtenStateIsReadBack();
    void stateSurvivesARestart();
    void changeSignalFollowsEveryRealChange();
    void scriptedError();
    void scriptedReplyOfAnyType_data();
    void scriptedReplyOfAnyType();
    void scriptedReplyOfSeveralValues();
    void delayedAnswerIsTrueAndLate();
    void heldAnswersAreSentOnRelease();
    void vanishingServiceEndsWithoutAnswer();
    void hungServiceKeepsItsNameAndAnswersLater();
    void crashedServiceIsGone();
    void serviceThatLeftItsNameIsStillSteered();
    void callsAreLogged();
    void callsThatFitNoMethodAreLoggedToo();
    void resetForgetsScriptsAndCallsButNotState();
    void wrongControlCallsAreRefused_data();
    void wrongControlCallsAreRefused();
    void secondServiceOfThatNameDoesNotStart();
    void endsOnRequestWithExitCodeZero();

private:
    std::unique_ptr<ServiceProcess> m_dock;
};

void DockServiceTest::init()
{
    m_dock = std::make_unique<ServiceProcess>("dock");
    QVERIFY(m_dock->start());
}

void DockServiceTest::cleanup()
{
    m_dock.reset();
}

void DockServiceTest::writtenStateIsReadBack()
{
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{false});
    QCOMPARE(answerOf("setDockHideStatus", {true}).arguments(), QVariantList{true});
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{true});
    QCOMPARE(m_dock->value("hidden"), QVariant(true));
}

void DockServiceTest::stateSurvivesARestart()
{
    answerOf("setDockHideStatus", {true});
    QVERIFY(m_dock->stop());
    QVERIFY(m_dock->start());
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{true});

    m_dock->setValue("hidden", false);
    m_dock->kill();
    QVERIFY(m_dock->start());
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{false});
}

void DockServiceTest::changeSignalFollowsEveryRealChange()
{
    QDBusConnection::sessionBus().connect(serviceName, objectPath, serviceName, "dockHideChange",
                                          this, SIGNAL(dockHideChange(bool)));
    QSignalSpy changes(this, &DockServiceTest::dockHideChange);

    answerOf("setDockHideStatus", {true});
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0), QVariant(true));

    // The same again changes nothing; the next change shows that no signal was on its way.
    answerOf("setDockHideStatus", {true});
    m_dock->setValue("hidden", false);
    QTRY_COMPARE(changes.count(), 2);
    QCOMPARE(changes.at(1).at(0), QVariant(false));
    QCOMPARE(m_dock->errorLines(), (QStringList{"dock: hidden -> true", "dock: hidden -> false"}));
}

void DockServiceTest::scriptedError()
{
    m_dock->script("setDockHideStatus", "error", "no dock here");
    const QDBusMessage reply = answerOf("setDockHideStatus", {true});
    QCOMPARE(reply.type(), QDBusMessage::ErrorMessage);
    QCOMPARE(reply.errorMessage(), QStringLiteral("no dock here"));
    QCOMPARE(m_dock->value("hidden"), QVariant(false));

    m_dock->script("setDockHideStatus", "answer");
    QCOMPARE(answerOf("setDockHideStatus", {true}).arguments(), QVariantList{true});
}

void DockServiceTest::scriptedReplyOfAnyType_data()
{
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("signature");
    QTest::newRow("bool") << QVariant(true) << "b";
    QTest::newRow("text") << QVariant("true") << "s";
    QTest::newRow("int") << QVariant(7) << "i";
    QTest::newRow("uint") << QVariant(7u) << "u";
    QTest::newRow("list of texts") << QVariant(QStringList{"a", "b"}) << "as";
    QTest::newRow("10 MB of text") << QVariant(QString(10 * 1024 * 1024, QLatin1Char('x'))) << "s";
}

void DockServiceTest::scriptedReplyOfAnyType()
{
    QFETCH(QVariant, argument);
    QFETCH(QString, signature);
    m_dock->script("getDockHideStatus", "reply", argument);
    const QDBusMessage reply = answerOf("getDockHideStatus");
    QCOMPARE(reply.signature(), signature);
    QCOMPARE(reply.arguments(), QVariantList{argument});
}

void DockServiceTest::scriptedReplyOfSeveralValues()
{
    m_dock->script("getDockHideStatus", "reply-list", QVariantList{true, QStringLiteral("more")});
    QCOMPARE(answerOf("getDockHideStatus").arguments(), (QVariantList{true, "more"}));
    m_dock->script("getDockHideStatus", "reply-list", QVariantList());
    const QDBusMessage empty = answerOf("getDockHideStatus");
    QCOMPARE(empty.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(empty.signature(), QString());
}

void DockServiceTest::delayedAnswerIsTrueAndLate()
{
    m_dock->setValue("hidden", true);
    m_dock->script("getDockHideStatus", "delay", 120);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{true});
    QVERIFY2(timer.elapsed() >= 120, qPrintable(QString::number(timer.elapsed())));
}

void DockServiceTest::heldAnswersAreSentOnRelease()
{
    m_dock->script("setDockHideStatus", "hold");
    QDBusPendingCallWatcher first(
        QDBusConnection::sessionBus().asyncCall(callTo("setDockHideStatus", {true})));
    QDBusPendingCallWatcher second(
        QDBusConnection::sessionBus().asyncCall(callTo("setDockHideStatus", {false})));
    QVERIFY(m_dock->waitForCalls("setDockHideStatus", 2));
    QVERIFY(!first.isFinished() && !second.isFinished());

    QCOMPARE(m_dock->release("getDockHideStatus"), 0);
    QCOMPARE(m_dock->release("setDockHideStatus"), 2);
    QTRY_VERIFY(first.isFinished() && second.isFinished());
    QVERIFY(!first.isError() && !second.isError());
    QCOMPARE(m_dock->release("setDockHideStatus"), 0);
}

void DockServiceTest::vanishingServiceEndsWithoutAnswer()
{
    m_dock->script("getDockHideStatus", "vanish");
    const QDBusMessage reply = answerOf("getDockHideStatus");
    QCOMPARE(reply.errorName(), QStringLiteral("org.freedesktop.DBus.Error.NoReply"));
    QVERIFY(m_dock->waitForEnd());
}

void DockServiceTest::hungServiceKeepsItsNameAndAnswersLater()
{
    m_dock->hang();
    QDBusPendingCallWatcher pending(
        QDBusConnection::sessionBus().asyncCall(callTo("getDockHideStatus")));
    QVERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(serviceName));
    QVERIFY(!pending.isFinished());
    m_dock->resume();
    QTRY_VERIFY(pending.isFinished());
    QVERIFY(!pending.isError());
}

void DockServiceTest::crashedServiceIsGone()
{
    m_dock->crash();
    QVERIFY(!m_dock->isRunning());
    QCOMPARE(answerOf("getDockHideStatus").errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown"));
}

void DockServiceTest::serviceThatLeftItsNameIsStillSteered()
{
    m_dock->leaveBus();
    QCOMPARE(answerOf("getDockHideStatus").errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown"));
    m_dock->setValue("hidden", true);
    m_dock->joinBus();
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{true});
}

void DockServiceTest::callsAreLogged()
{
    QDBusConnection::sessionBus().call(callTo("setDockHideStatus", {true}), QDBus::NoBlock);
    answerOf("getDockHideStatus");
    QVERIFY(m_dock->waitForCalls("setDockHideStatus"));

    const QList<ServiceCall> calls = m_dock->calls();
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.at(0).path, objectPath);
    QCOMPARE(calls.at(0).interface, serviceName);
    QCOMPARE(calls.at(0).member, QStringLiteral("setDockHideStatus"));
    QCOMPARE(calls.at(0).signature, QStringLiteral("b"));
    QCOMPARE(calls.at(0).arguments, QJsonArray{true});
    QCOMPARE(calls.at(0).replyExpected, false);
    QCOMPARE(calls.at(0).sender, QDBusConnection::sessionBus().baseService());
    QCOMPARE(calls.at(1).member, QStringLiteral("getDockHideStatus"));
    QCOMPARE(calls.at(1).signature, QString());
    QCOMPARE(calls.at(1).replyExpected, true);
}

void DockServiceTest::callsThatFitNoMethodAreLoggedToo()
{
    QCOMPARE(answerOf("setDockHideStatus", {QStringLiteral("true")}).errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    QCOMPARE(answerOf("setDockHideStatus").errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    QCOMPARE(answerOf("noSuchMethod").errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));

    const QList<ServiceCall> calls = m_dock->calls();
    QCOMPARE(calls.size(), 3);
    QCOMPARE(calls.at(0).signature, QStringLiteral("s"));
    QCOMPARE(calls.at(1).signature, QString());
    QCOMPARE(calls.at(2).member, QStringLiteral("noSuchMethod"));
    QCOMPARE(m_dock->value("hidden"), QVariant(false));
}

void DockServiceTest::resetForgetsScriptsAndCallsButNotState()
{
    m_dock->setValue("hidden", true);
    m_dock->script("getDockHideStatus", "error", "gone");
    answerOf("getDockHideStatus");
    m_dock->script("getDockHideStatus", "hold");
    QDBusPendingCallWatcher held(
        QDBusConnection::sessionBus().asyncCall(callTo("getDockHideStatus")));
    QVERIFY(m_dock->waitForCalls("getDockHideStatus", 2));

    m_dock->reset();
    QTRY_VERIFY(held.isFinished());
    QCOMPARE(held.reply().arguments(), QVariantList{true});
    QVERIFY(m_dock->calls().isEmpty());
    QCOMPARE(answerOf("getDockHideStatus").arguments(), QVariantList{true});
}

void DockServiceTest::wrongControlCallsAreRefused_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariantList>("arguments");
    const auto boxed = [](const QVariant &value) {
        return QVariant::fromValue(QDBusVariant(value));
    };
    QTest::newRow("read an unknown key") << "Value" << QVariantList{"shown"};
    QTest::newRow("write an unknown key") << "SetValue" << QVariantList{"shown", boxed(true)};
    QTest::newRow("write another type") << "SetValue" << QVariantList{"hidden", boxed("true")};
    QTest::newRow("unknown behaviour")
        << "Script" << QVariantList{"getDockHideStatus", "explode", boxed(0)};
    QTest::newRow("delay without a number")
        << "Script" << QVariantList{"getDockHideStatus", "delay", boxed("soon")};
    QTest::newRow("negative delay")
        << "Script" << QVariantList{"getDockHideStatus", "delay", boxed(-1)};
    QTest::newRow("list without a list")
        << "Script" << QVariantList{"getDockHideStatus", "reply-list", boxed(1)};
    QTest::newRow("join while joined by another") << "JoinBus" << QVariantList();
}

void DockServiceTest::wrongControlCallsAreRefused()
{
    QFETCH(QString, member);
    QFETCH(QVariantList, arguments);
    QDBusConnection bus = m_dock->connection();
    if (member == QLatin1String("JoinBus")) {
        m_dock->leaveBus();
        QVERIFY(bus.registerService(serviceName));
    }
    sandbox::ServiceControl control(QStringLiteral("dock"), bus);
    QCOMPARE(control.callWithArgumentList(QDBus::Block, member, arguments).errorName(),
             QStringLiteral("com.corvane.sandbox.Error.Refused"));
    QCOMPARE(m_dock->value("hidden"), QVariant(false));
}

void DockServiceTest::secondServiceOfThatNameDoesNotStart()
{
    QProcess second;
    second.start(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(m_dock->processId())),
                 QStringList());
    QVERIFY(second.waitForFinished(10000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 4);
    QCOMPARE(second.readAllStandardOutput(), QByteArray());
    QVERIFY(second.readAllStandardError().contains("cannot be owned"));
}

void DockServiceTest::endsOnRequestWithExitCodeZero()
{
    QVERIFY(m_dock->stop());
    QCOMPARE(answerOf("getDockHideStatus").errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown"));
}

QTEST_GUILESS_MAIN(DockServiceTest)

#include "dockservice.moc"
