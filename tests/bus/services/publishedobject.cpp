#include "sandbox/services/common/publishedobject.h"

#include "comcorvaneaiserviceiatinterface.h"
#include "comcorvaneaiservicesessioninterface.h"
#include "publishedobjectiatadaptor.h"
#include "publishedobjectsessionadaptor.h"
#include "sandbox/services/common/calllog.h"
#include "sandbox/services/common/scriptedreplies.h"
#include "tests/bus/services/recognitionstub.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QtTest>

QDBusObjectPath RecognitionStub::createSession(const QString &appId, const QString &ability,
                                               int &errorcode)
{
    errorcode = ability.size();
    return QDBusObjectPath(QLatin1Char('/') + appId);
}

int RecognitionStub::freeSession(const QString &, const QString &ability)
{
    return -int(ability.size());
}

QString RecognitionStub::startIat(const QVariantMap &params)
{
    parameters = params;
    return QStringLiteral("started");
}

void RecognitionStub::stopIat()
{
    Q_EMIT onEnd();
}

void RecognitionStub::putAudio(const QByteArray &data, bool finish)
{
    audio += data;
    finished = finish;
}

/**
 * Calls go through a published object to generated adaptors and back, with every type of the
 * contracts, and the adaptors' signals go out.
 *
 * Service and client are two connections of this process, so calls are never waited for outside the
 * event loop here.
 */
class PublishedObjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void severalValuesComeBack();
    void dictionaryArrivesWhole();
    void bytesArriveAndAreLoggedByLength();
    void signalsGoOut();
    void introspectionIsTheContracts();
    void scriptsTellInterfacesApart();
    void oneScriptIsForEveryMethodWithoutItsOwn();
    void answersAreLogged();
    void deletedObjectIsWithdrawn();
    void ownedObjectIsItsClientsAlone();

private:
    template <typename... Values>
    QDBusMessage finished(const QDBusPendingReply<Values...> &reply);

    std::unique_ptr<sandbox::CallLog> m_log;
    std::unique_ptr<sandbox::ScriptedReplies> m_replies;
    std::unique_ptr<RecognitionStub> m_stub;
    std::unique_ptr<ComCorvaneAiserviceSessionInterface> m_sessions;
    std::unique_ptr<ComCorvaneAiserviceIatInterface> m_recognition;
};

template <typename... Values>
QDBusMessage PublishedObjectTest::finished(const QDBusPendingReply<Values...> &reply)
{
    QDBusPendingCallWatcher watcher(reply);
    const bool inTime = QTest::qWaitFor([&watcher] { return watcher.isFinished(); }, 5000);
    return inTime ? watcher.reply() : QDBusMessage();
}

void PublishedObjectTest::init()
{
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "service");
    m_log = std::make_unique<sandbox::CallLog>();
    m_replies = std::make_unique<sandbox::ScriptedReplies>(bus);
    connect(m_replies.get(), &sandbox::ScriptedReplies::answered, m_log.get(),
            &sandbox::CallLog::setAnswer);
    m_stub = std::make_unique<RecognitionStub>();
    new SessionsAdaptor(m_stub.get());
    new RecognitionAdaptor(m_stub.get());
    new sandbox::PublishedObject(m_stub.get(), "/stub", QString(), bus, m_log.get(),
                                 m_replies.get());

    m_sessions = std::make_unique<ComCorvaneAiserviceSessionInterface>(
        bus.baseService(), "/stub", QDBusConnection::sessionBus());
    m_recognition = std::make_unique<ComCorvaneAiserviceIatInterface>(
        bus.baseService(), "/stub", QDBusConnection::sessionBus());
}

void PublishedObjectTest::cleanup()
{
    m_recognition.reset();
    m_sessions.reset();
    m_stub.reset();
    m_replies.reset();
    QDBusConnection::disconnectFromBus("service");
}

void PublishedObjectTest::severalValuesComeBack()
{
    const QDBusMessage reply = finished(m_sessions->createSession("app", "iat"));
    QCOMPARE(reply.signature(), QStringLiteral("oi"));
    QCOMPARE(reply.arguments().at(0).value<QDBusObjectPath>().path(), QStringLiteral("/app"));
    QCOMPARE(reply.arguments().at(1), QVariant(3));
    QCOMPARE(finished(m_sessions->freeSession("app", "iat")).arguments(), QVariantList{-3});
}

void PublishedObjectTest::dictionaryArrivesWhole()
{
    const QVariantMap parameters{{"rate", 16000}, {"name", "x"}, {"on", true}};
    QCOMPARE(finished(m_recognition->startIat(parameters)).arguments(), QVariantList{"started"});
    QCOMPARE(m_stub->parameters, parameters);
    const QJsonObject line = QJsonDocument::fromJson(m_log->lines().constFirst().toUtf8()).object();
    QCOMPARE(line.value("signature").toString(), QStringLiteral("a{sv}"));
    QCOMPARE(line.value("arguments").toArray().at(0).toObject(),
             QJsonObject::fromVariantMap(parameters));
}

void PublishedObjectTest::bytesArriveAndAreLoggedByLength()
{
    const QByteArray audio("\0\1\x80\xff", 4);
    QCOMPARE(finished(m_recognition->putAudio(audio, true)).signature(), QString());
    QCOMPARE(m_stub->audio, audio);
    QVERIFY(m_stub->finished);
    const QJsonObject line = QJsonDocument::fromJson(m_log->lines().constFirst().toUtf8()).object();
    QCOMPARE(line.value("arguments").toArray(), (QJsonArray{QJsonObject{{"bytes", 4}}, true}));
}

void PublishedObjectTest::signalsGoOut()
{
    QSignalSpy results(m_recognition.get(), &ComCorvaneAiserviceIatInterface::onResult);
    QSignalSpy ends(m_recognition.get(), &ComCorvaneAiserviceIatInterface::onEnd);
    Q_EMIT m_stub->onResult("{}");
    finished(m_recognition->stopIat());
    QTRY_COMPARE(ends.count(), 1);
    QCOMPARE(results.count(), 1);
    QCOMPARE(results.at(0), QVariantList{"{}"});
}

void PublishedObjectTest::introspectionIsTheContracts()
{
    const QDBusMessage call = QDBusMessage::createMethodCall(
        m_sessions->service(), "/stub", "org.freedesktop.DBus.Introspectable", "Introspect");
    const QDBusMessage reply =
        finished(QDBusPendingReply<QString>(QDBusConnection::sessionBus().asyncCall(call)));
    const QString xml = reply.arguments().value(0).toString();
    QVERIFY(xml.contains("<interface name=\"com.corvane.aiservice.session\">"));
    QVERIFY(xml.contains("<interface name=\"com.corvane.aiservice.iat\">"));
}

void PublishedObjectTest::scriptsTellInterfacesApart()
{
    m_replies->script("com.corvane.aiservice.iat.startIat", {sandbox::Behaviour::Error, "busy"});
    m_replies->script("com.corvane.aiservice.aqc.stopIat", {sandbox::Behaviour::Error, "busy"});
    QCOMPARE(finished(m_recognition->startIat({})).errorMessage(), QStringLiteral("busy"));
    QCOMPARE(finished(m_recognition->stopIat()).type(), QDBusMessage::ReplyMessage);
}

void PublishedObjectTest::oneScriptIsForEveryMethodWithoutItsOwn()
{
    m_replies->script("*", {sandbox::Behaviour::Error, "busy"});
    m_replies->script("stopIat", {sandbox::Behaviour::Reply, 7});
    QCOMPARE(finished(m_recognition->startIat({})).errorMessage(), QStringLiteral("busy"));
    QCOMPARE(finished(m_sessions->freeSession("app", "iat")).errorMessage(),
             QStringLiteral("busy"));
    QCOMPARE(finished(m_recognition->stopIat()).arguments(), QVariantList{7});
    m_replies->script("*", {});
    QCOMPARE(finished(m_recognition->startIat({})).arguments(), QVariantList{"started"});
}

void PublishedObjectTest::answersAreLogged()
{
    QSignalSpy logged(m_log.get(), &sandbox::CallLog::logged);
    const auto record = [](const QString &line) {
        return QJsonDocument::fromJson(line.toUtf8()).object();
    };
    const auto line = [&](int number) {
        return record(m_log->lines().value(number - 1));
    };
    const QString answer = QStringLiteral("answer");
    m_replies->script("startIat", {sandbox::Behaviour::Hold, {}});
    const auto held = m_recognition->startIat({});
    finished(m_sessions->freeSession("app", "iat"));
    m_replies->script("stopIat", {sandbox::Behaviour::Error, "busy"});
    finished(m_recognition->stopIat());
    QCOMPARE(m_log->lines().size(), 3);
    QVERIFY(!line(1).contains(answer));
    const QJsonObject freed{{"arguments", QJsonArray{-3}}};
    QCOMPARE(line(2).value(answer).toObject(), freed);
    QCOMPARE(line(3).value(answer).toObject().value("error").toString(), QStringLiteral("busy"));
    for (int number = 1; number <= 3; ++number)
        QCOMPARE(line(number).value("number").toInt(), number);

    m_replies->release("startIat");
    finished(held);
    QCOMPARE(line(1).value(answer).toObject().value("arguments").toArray(), QJsonArray{"started"});
    // Each once when it came, and once when it was answered.
    QStringList told;
    for (const QList<QVariant> &signal : qAsConst(logged)) {
        const QJsonObject call = record(signal.constFirst().toString());
        told.append(QString::number(call.value("number").toInt()) +
                    (call.contains(answer) ? "+" : "-"));
    }
    QCOMPARE(told, QStringList({"1-", "2-", "2+", "3-", "3+", "1+"}));

    m_log->clear();
    finished(m_recognition->stopIat());
    QCOMPARE(line(1).value("number").toInt(), 4);
    QVERIFY(line(1).contains(answer));
}

void PublishedObjectTest::deletedObjectIsWithdrawn()
{
    m_stub.reset();
    QCOMPARE(finished(m_recognition->stopIat()).errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.UnknownObject"));
}

void PublishedObjectTest::ownedObjectIsItsClientsAlone()
{
    QDBusConnection stranger =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, "stranger");
    RecognitionStub owned;
    new RecognitionAdaptor(&owned);
    new sandbox::PublishedObject(&owned, "/owned", QDBusConnection::sessionBus().baseService(),
                                 QDBusConnection("service"), m_log.get(), m_replies.get());
    const QString service = QDBusConnection("service").baseService();
    ComCorvaneAiserviceIatInterface mine(service, "/owned", QDBusConnection::sessionBus());
    ComCorvaneAiserviceIatInterface theirs(service, "/owned", stranger);
    QSignalSpy myEnds(&mine, &ComCorvaneAiserviceIatInterface::onEnd);
    QSignalSpy theirEnds(&theirs, &ComCorvaneAiserviceIatInterface::onEnd);

    QCOMPARE(finished(theirs.startIat({{"rate", 1}})).errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"));
    QVERIFY(owned.parameters.isEmpty());
    QCOMPARE(finished(mine.startIat({{"rate", 2}})).type(), QDBusMessage::ReplyMessage);

    finished(mine.stopIat());
    QTRY_COMPARE(myEnds.count(), 1);
    finished(theirs.stopIat()); // a round trip behind which a signal to them would have arrived
    QCOMPARE(theirEnds.count(), 0);
    QDBusConnection::disconnectFromBus("stranger");
}

QTEST_GUILESS_MAIN(PublishedObjectTest)

#include "publishedobject.moc"
