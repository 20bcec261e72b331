#include "tests/support/busrecorder.h"

#include "tests/support/serviceprocess.h"

#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QJsonObject>
#include <QtTest>

using testsupport::BusMessage;
using testsupport::BusRecorder;
using testsupport::ServiceProcess;

namespace {

QDBusMessage messageTo(const QString &destination, const QString &member,
                       const QVariantList &arguments = {})
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(destination, "/object", "com.corvane.tests.Thing", member);
    message.setArguments(arguments);
    return message;
}

} // namespace

/** The recorder sees what the code under test sent, down to the flags, and all of it. */
class BusRecorderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsThatNobodyReceivesAreRecorded();
    void replyFlagIsTheOneOnTheWire();
    void argumentsOfAllTypesAreRecorded();
    void introspectionIsRecorded();
    void callsToTheBusItselfAreLeftOut();
    void otherConnectionsAreToldApart();
    void repliesAreRecordedToo();
    void manyCallsAreRecordedInOrder();
    void sessionAndSystemBusAreTwo();
    void clearForgets();
};

void BusRecorderTest::callsThatNobodyReceivesAreRecorded()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "doIt"));
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(),
             QStringList{"com.corvane.nobody /object com.corvane.tests.Thing.doIt()"});
}

void BusRecorderTest::replyFlagIsTheOneOnTheWire()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "one", {true}),
                                       QDBus::NoBlock);
    QDBusConnection::sessionBus().asyncCall(messageTo("com.corvane.nobody", "two", {1, "x"}));
    QDBusConnection::sessionBus().send(messageTo("com.corvane.nobody", "three"));
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(),
             (QStringList{"com.corvane.nobody /object com.corvane.tests.Thing.one(b) no-reply",
                          "com.corvane.nobody /object com.corvane.tests.Thing.two(is)",
                          "com.corvane.nobody /object com.corvane.tests.Thing.three() no-reply"}));
}

void BusRecorderTest::argumentsOfAllTypesAreRecorded()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    const QByteArray audio("\0\1\x80\xff", 4);
    const QVariantMap map{{"rate", 16000}, {"name", "iat"}, {"on", true}};
    QDBusConnection::sessionBus().call(
        messageTo("com.corvane.nobody", "all",
                  {true, 7, 7u, qlonglong(1) << 60, 0.5, "text", audio, QStringList{"a", "b"}, map,
                   QVariant::fromValue(QDBusObjectPath("/a/b"))}));
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.calls().size(), 1);
    const BusMessage call = recorder.calls().constFirst();
    QCOMPARE(call.signature, QStringLiteral("biuxdsayasa{sv}o"));
    QCOMPARE(call.bytes(6), audio);
    QJsonArray arguments = call.arguments;
    arguments.removeAt(6);
    QCOMPARE(arguments,
             (QJsonArray{true, 7, 7, "1152921504606846976", 0.5, "text", QJsonArray{"a", "b"},
                         QJsonObject::fromVariantMap(map), "/a/b"}));
}

void BusRecorderTest::introspectionIsRecorded()
{
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    BusRecorder recorder;
    QVERIFY(recorder.start());
    const QDBusInterface introspecting("com.corvane.aiassistant.dock",
                                       "/com/corvane/aiassistant/dockIconControl",
                                       "com.corvane.aiassistant.dock");
    QVERIFY(introspecting.isValid());
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.calls().size(), 1);
    QCOMPARE(recorder.calls().constFirst().member, QStringLiteral("Introspect"));
}

void BusRecorderTest::callsToTheBusItselfAreLeftOut()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    QDBusConnection::sessionBus().interface()->isServiceRegistered("com.corvane.nobody");
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(), QStringList());
    bool seen = false;
    const QList<BusMessage> messages = recorder.messages();
    for (const BusMessage &message : messages)
        seen = seen || message.member == QLatin1String("NameHasOwner");
    QVERIFY(seen);
}

void BusRecorderTest::otherConnectionsAreToldApart()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    dock.setValue("hidden", true);
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "mine"));
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.calls().size(), 1);
    const QList<BusMessage> steering = recorder.callsFrom(dock.connection().baseService());
    QCOMPARE(steering.size(), 1);
    QCOMPARE(steering.constFirst().member, QStringLiteral("SetValue"));
    QCOMPARE(steering.constFirst().arguments, (QJsonArray{"hidden", true}));
}

void BusRecorderTest::repliesAreRecordedToo()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "doIt"));
    QVERIFY(recorder.sync());
    const quint32 serial = recorder.calls().constFirst().serial;
    QStringList errors;
    const QList<BusMessage> messages = recorder.messages();
    for (const BusMessage &message : messages)
        if (message.type == BusMessage::Error && message.replySerial == serial)
            errors.append(message.errorName);
    QCOMPARE(errors, QStringList{"org.freedesktop.DBus.Error.ServiceUnknown"});
}

void BusRecorderTest::manyCallsAreRecordedInOrder()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    const int count = 2000; // more than a pipe holds
    for (int i = 0; i < count; ++i) {
        QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "number", {i}),
                                           QDBus::NoBlock);
    }
    QVERIFY(recorder.sync());
    const QList<BusMessage> calls = recorder.calls();
    QCOMPARE(calls.size(), count);
    for (int i = 0; i < count; ++i)
        QCOMPARE(calls.at(i).arguments, QJsonArray{i});
}

void BusRecorderTest::sessionAndSystemBusAreTwo()
{
    BusRecorder session;
    BusRecorder system(QDBusConnection::SystemBus);
    QVERIFY(session.start());
    QVERIFY(system.start());
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "onSession"));
    QDBusConnection::systemBus().call(messageTo("com.corvane.nobody", "onSystem"));
    QVERIFY(session.sync());
    QVERIFY(system.sync());
    QCOMPARE(session.calls().size(), 1);
    QCOMPARE(session.calls().constFirst().member, QStringLiteral("onSession"));
    QCOMPARE(system.calls().size(), 1);
    QCOMPARE(system.calls().constFirst().member, QStringLiteral("onSystem"));
}

void BusRecorderTest::clearForgets()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "before"), QDBus::NoBlock);
    QVERIFY(recorder.clear());
    QDBusConnection::sessionBus().call(messageTo("com.corvane.nobody", "after"), QDBus::NoBlock);
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.calls().size(), 1);
    QCOMPARE(recorder.calls().constFirst().member, QStringLiteral("after"));
}

QTEST_GUILESS_MAIN(BusRecorderTest)

#include "busrecorder.moc"
