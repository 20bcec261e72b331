// The recognition client against a service in another process: the order and form of its calls,
// every answer to them, and which signals reach it. Each function in a process of its own.

#include "comcorvaneaiserviceiatinterface.h"
#include "tests/bus/voiceservice.h"
#include "tests/support/isolatedtests.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "voice/aiservicesession.h"
#include "voice/iatwapper.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QTest>

using testsupport::everythingArrived;
using testsupport::everythingIsQueued;
using testsupport::ServiceCall;
using testsupport::ServiceProcess;

namespace {

const QString firstPath = QStringLiteral("/session/iat/1");
const QString secondPath = QStringLiteral("/session/iat/2");

QString idOf(const QString &path)
{
    return QStringLiteral("id of ") + path;
}

// What the service sends for a hypothesis of one word.
QString result(const QString &id, const QString &pgs, const QString &word, bool finish = false)
{
    const QJsonObject candidate{{QStringLiteral("w"), word}};
    const QJsonObject slot{{QStringLiteral("cw"), QJsonArray{candidate}}};
    const QJsonObject hypothesis{{QStringLiteral("pgs"), pgs},
                                 {QStringLiteral("ws"), QJsonArray{slot}}};
    const QByteArray text = QJsonDocument(hypothesis).toJson(QJsonDocument::Compact);
    const QJsonObject message{{QStringLiteral("session_id"), id},
                              {QStringLiteral("text"), QString::fromUtf8(text)},
                              {QStringLiteral("finish"), finish}};
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

// A recognition client with everything that it reports, in order.
class Client : public QObject
{
public:
    Client()
    {
        connect(&iat, &IatWapper::onIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    heard << QStringLiteral("%1 %2%3").arg(text).arg(int(type)).arg(
                        finish ? QStringLiteral(" finish") : QString());
                });
        connect(&iat, &IatWapper::onIatError, this, [this](long code, const QString &info) {
            heard << QStringLiteral("error %1 %2").arg(code).arg(info);
        });
    }

    QList<ComCorvaneAiserviceIatInterface *> proxies() const
    {
        return iat.findChildren<ComCorvaneAiserviceIatInterface *>();
    }

    IatWapper iat;
    QStringList heard;
};

QStringList members(const QList<ServiceCall> &calls)
{
    QStringList list;
    for (const ServiceCall &call : calls)
        list << call.member;
    return list;
}

} // namespace

class VoiceRecogniserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startOnTheWire();
    void parameters();
    void refusedSession();
    void refusedStart();
    void answersThatStart();
    void errorReplyStarts();
    void serviceDiesWhileStarting();
    void serviceIsAbsent();

    void resultsArrive();
    void errorsArrive();
    void endIsConnected();
    void resultsOfAnotherSession();
    void resultsOfAnotherObject();
    void emptyPathHearsNobody();

    void audioOnTheWire();
    void stopOnTheWire();
    void nothingArrivesAfterStop();
    void textsAreClearedByTheNextStart();
    void startTwice();
    void largeResult();
    void deletedWhileRunning();
};

void VoiceRecogniserTest::startOnTheWire()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    testsupport::LogCapture log;
    QVERIFY(client.iat.startIat());
    QCOMPARE(log.take(), QStringList());
    const QList<ServiceCall> calls = service.calls();
    QCOMPARE(members(calls),
             QStringList({QStringLiteral("createSession"), QStringLiteral("startIat")}));
    QCOMPARE(calls.at(0).arguments,
             QJsonArray({QStringLiteral("zde-control-center"), QStringLiteral("iat")}));
    QCOMPARE(calls.at(1).path, firstPath);
    QCOMPARE(calls.at(1).interface, QStringLiteral("com.corvane.aiservice.iat"));
    QCOMPARE(calls.at(1).signature, QStringLiteral("a{sv}"));
    QVERIFY(calls.at(1).replyExpected);
    QVERIFY(!client.iat.isRunning());
}

void VoiceRecogniserTest::parameters()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    QCOMPARE(
        service.value(QStringLiteral("parameters")).toStringList(),
        QStringList({QStringLiteral("accent QString mandarin"), QStringLiteral("dwa QString wpgs"),
                     QStringLiteral("language QString zh_cn"),
                     QStringLiteral("result_encoding QString utf8"),
                     QStringLiteral("result_type QString json"),
                     QStringLiteral("sample_rate QString 16000"), QStringLiteral("sub QString iat"),
                     QStringLiteral("vad_bos int 10000"), QStringLiteral("vad_eos int 10000")}));
}

void VoiceRecogniserTest::refusedSession()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.setValue(QStringLiteral("code.iat"), 5);
    Client client;
    testsupport::LogCapture log;
    QVERIFY(!client.iat.startIat());
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|Iat createSession failed")));
    QVERIFY(client.proxies().isEmpty());
    QCOMPARE(client.iat.appendAudio("ab"), 0);
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList());
    QVERIFY(everythingArrived());
    service.setValue(QStringLiteral("code.iat"), 0);
    QVERIFY(client.iat.startIat());
    QCOMPARE(members(service.calls()),
             QStringList({QStringLiteral("createSession"), QStringLiteral("createSession"),
                          QStringLiteral("startIat")}));
}

void VoiceRecogniserTest::refusedStart()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.script(QStringLiteral("startIat"), QStringLiteral("reply"),
                   QStringLiteral(R"({"status":3,"session_id":"s"})"));
    Client client;
    QVERIFY(!client.iat.startIat());
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
    QCOMPARE(service.value(QStringLiteral("freed")).toStringList(),
             QStringList(QStringLiteral("iat")));

    // Not connected...
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(QStringLiteral("s"), QStringLiteral("rpl"),
                                                    QStringLiteral("a"))}));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    // ... but there: stopping sends both calls once more.
    QCOMPARE(client.proxies().size(), 1);
    client.iat.stopIat();
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession"), 2));
    QCOMPARE(service.calls(QStringLiteral("stopIat")).size(), 1);
}

void VoiceRecogniserTest::answersThatStart()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    const struct
    {
        const char *name;
        QVariant answer;
        QString id;
    } rows[] = {
        {"no status", QStringLiteral(R"({"session_id":"s"})"), QStringLiteral("s")},
        {"no id", QStringLiteral(R"({"status":0})"), QString()},
        {"status is a text", QStringLiteral(R"({"status":"3","session_id":"s"})"),
         QStringLiteral("s")},
        {"id is a number", QStringLiteral(R"({"status":0,"session_id":3})"), QString()},
        {"empty", QString(), QString()},
        {"not JSON", QStringLiteral("yes"), QString()},
        {"array", QStringLiteral("[3]"), QString()},
        {"number instead of a text", 3, QString()},
    };
    int started = 0;
    for (const auto &row : rows) {
        service.script(QStringLiteral("startIat"), QStringLiteral("reply"), row.answer);
        Client client;
        QVERIFY2(client.iat.startIat(), row.name);
        const QString path = QStringLiteral("/session/iat/%1").arg(++started);
        service.setValue(
            QStringLiteral("result"),
            QStringList({path, result(row.id, QStringLiteral("rpl"), QStringLiteral("a"))}));
        QTRY_VERIFY2(client.heard == QStringList(QStringLiteral("a 1")), row.name);
    }
    QVERIFY(service.calls(QStringLiteral("freeSession")).isEmpty());
}

void VoiceRecogniserTest::errorReplyStarts()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    // Read as a text, this error would refuse to start.
    service.script(QStringLiteral("startIat"), QStringLiteral("error"),
                   QStringLiteral(R"({"status":3,"session_id":"s"})"));
    Client client;
    QVERIFY(client.iat.startIat());
    service.setValue(
        QStringLiteral("result"),
        QStringList({firstPath, result(QString(), QStringLiteral("rpl"), QStringLiteral("a"))}));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("a 1")));
}

void VoiceRecogniserTest::serviceDiesWhileStarting()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.script(QStringLiteral("startIat"), QStringLiteral("vanish"));
    Client client;
    QVERIFY(client.iat.startIat());
    QVERIFY(service.waitForEnd());
    client.iat.appendAudio("ab");
    client.iat.stopIat();
    QVERIFY(service.start());
    QVERIFY(client.iat.startIat());
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(idOf(firstPath), QStringLiteral("rpl"),
                                                    QStringLiteral("a"))}));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("a 1")));
}

void VoiceRecogniserTest::serviceIsAbsent()
{
    Client client;
    testsupport::LogCapture log;
    QVERIFY(client.iat.startIat());
    QCOMPARE(client.proxies().size(), 1);
    QCOMPARE(client.iat.appendAudio("ab"), 0);
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("info|IatWapper stop iat")));
    QTRY_VERIFY(client.proxies().isEmpty());
}

void VoiceRecogniserTest::resultsArrive()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    const QString id = idOf(firstPath);
    const auto send = [&](const char *pgs, const QString &word, bool finish = false) {
        service.setValue(QStringLiteral("result"),
                         QStringList({firstPath, result(id, QLatin1String(pgs), word, finish)}));
    };
    send("rpl", QStringLiteral("今天"));
    send("rpl", QStringLiteral("今天天气"));
    send("apd", QStringLiteral("很好"));
    send("rpl", QStringLiteral("很好啊"), true);
    QTRY_COMPARE(client.heard.size(), 4);
    QCOMPARE(client.heard, QStringList({QStringLiteral("今天 1"), QStringLiteral("今天天气 1"),
                                        QStringLiteral("今天天气很好 2"),
                                        QStringLiteral("今天天气很好啊 1 finish")}));
}

void VoiceRecogniserTest::errorsArrive()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    testsupport::LogCapture log;
    const QString error = QStringLiteral(R"({"session_id":"%1","errCode":%2,"errInfo":"bad"})");
    service.setValue(QStringLiteral("error"),
                     QStringList({firstPath, error.arg(QStringLiteral("other")).arg(8)}));
    service.setValue(QStringLiteral("error"),
                     QStringList({firstPath, error.arg(idOf(firstPath)).arg(0)}));
    service.setValue(QStringLiteral("error"),
                     QStringList({firstPath, error.arg(idOf(firstPath)).arg(9)}));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("error 9 bad")));
    QCOMPARE(log.take(), QStringList());
}

// The connections are made by name; a wrong name would fail at run time only.
void VoiceRecogniserTest::endIsConnected()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    service.setValue(QStringLiteral("end"), QStringList({firstPath}));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());

    QCOMPARE(client.proxies().size(), 1);
    ComCorvaneAiserviceIatInterface *proxy = client.proxies().first();
    QVERIFY(disconnect(proxy, SIGNAL(onEnd()), &client.iat, SLOT(handleEnd())));
    QVERIFY(disconnect(proxy, SIGNAL(onError(QString)), &client.iat, SLOT(handleError(QString))));
    QVERIFY(disconnect(proxy, SIGNAL(onResult(QString)), &client.iat, SLOT(handleResult(QString))));
    // Each once.
    QVERIFY(!disconnect(proxy, nullptr, &client.iat, nullptr));
}

void VoiceRecogniserTest::resultsOfAnotherSession()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    testsupport::LogCapture log;
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(QStringLiteral("old"), QStringLiteral("rpl"),
                                                    QStringLiteral("a"))}));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    QCOMPARE(
        log.take(),
        QStringList({QStringLiteral("debug|handleResult, sessionId= \"%1\"").arg(idOf(firstPath)),
                     QStringLiteral("critical|Iat handleResult error!  \"old\" : \"%1\"")
                         .arg(idOf(firstPath))}));
}

void VoiceRecogniserTest::resultsOfAnotherObject()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    testsupport::LogCapture log;
    service.setValue(
        QStringLiteral("result"),
        QStringList({QStringLiteral("/somebody/else"),
                     result(idOf(firstPath), QStringLiteral("rpl"), QStringLiteral("a"))}));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    QCOMPARE(log.take(), QStringList());
}

void VoiceRecogniserTest::emptyPathHearsNobody()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.script(QStringLiteral("createSession"), QStringLiteral("error"),
                   QStringLiteral("no room"));
    Client client;
    QVERIFY(client.iat.startIat());
    QCOMPARE(client.proxies().size(), 1);
    testsupport::LogCapture log;
    service.setValue(QStringLiteral("result"),
                     QStringList({QStringLiteral("/somebody/else"),
                                  result(QString(), QStringLiteral("rpl"), QStringLiteral("a"))}));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    QCOMPARE(log.take(), QStringList());
    QVERIFY(!disconnect(client.proxies().first(), nullptr, &client.iat, nullptr));

    // The next run works.
    client.iat.stopIat();
    service.script(QStringLiteral("createSession"), QStringLiteral("answer"));
    QVERIFY(client.iat.startIat());
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(idOf(firstPath), QStringLiteral("rpl"),
                                                    QStringLiteral("a"))}));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("a 1")));
}

void VoiceRecogniserTest::audioOnTheWire()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QCOMPARE(client.iat.appendAudio("lost"), 0); // no session yet
    QVERIFY(client.iat.startIat());
    const QByteArray block("\x00\x01\xff\x80", 4);
    QCOMPARE(client.iat.appendAudio(block), 0);
    QCOMPARE(client.iat.appendAudio(QByteArray()), 0);
    QVERIFY(service.waitForCalls(QStringLiteral("putAudio"), 2));
    const QList<ServiceCall> calls = service.calls(QStringLiteral("putAudio"));
    for (const ServiceCall &call : calls) {
        QCOMPARE(call.path, firstPath);
        QCOMPARE(call.interface, QStringLiteral("com.corvane.aiservice.iat"));
        QCOMPARE(call.signature, QStringLiteral("ayb"));
        QCOMPARE(call.arguments.last(), QJsonValue(false));
    }
    QCOMPARE(service.value(QStringLiteral("audio ") + firstPath).toString(),
             QStringLiteral("0001ff80"));
}

void VoiceRecogniserTest::stopOnTheWire()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    QPointer<ComCorvaneAiserviceIatInterface> proxy = client.proxies().first();
    service.reset();
    // Neither answer is waited for.
    service.script(QStringLiteral("stopIat"), QStringLiteral("hold"));
    service.script(QStringLiteral("freeSession"), QStringLiteral("hold"));
    testsupport::LogCapture log;
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("info|IatWapper stop iat")));
    QVERIFY(proxy); // later
    QTRY_VERIFY(!proxy);
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList());

    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
    const QList<ServiceCall> calls = service.calls();
    QCOMPARE(members(calls),
             QStringList({QStringLiteral("stopIat"), QStringLiteral("freeSession")}));
    QCOMPARE(calls.at(0).path, firstPath);
    QCOMPARE(calls.at(0).signature, QString());
    QCOMPARE(calls.at(1).path, QStringLiteral("/"));
}

void VoiceRecogniserTest::nothingArrivesAfterStop()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    QVERIFY(everythingArrived());
    // One that was on its way, and one that comes later.
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(idOf(firstPath), QStringLiteral("rpl"),
                                                    QStringLiteral("queued"))}));
    QVERIFY(everythingIsQueued());
    client.iat.stopIat();
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(idOf(firstPath), QStringLiteral("rpl"),
                                                    QStringLiteral("a"), true)}));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
}

void VoiceRecogniserTest::textsAreClearedByTheNextStart()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    const auto send = [&](const QString &path, const QString &id, const char *pgs,
                          const char *word) {
        service.setValue(QStringLiteral("result"),
                         QStringList({path, result(id, QLatin1String(pgs), QLatin1String(word))}));
    };
    send(firstPath, idOf(firstPath), "rpl", "a");
    send(firstPath, idOf(firstPath), "apd", "b");
    send(firstPath, idOf(firstPath), "rpl", "c");
    QTRY_COMPARE(client.heard.size(), 3);
    client.iat.stopIat();

    client.heard.clear();
    QVERIFY(client.iat.startIat());
    send(secondPath, idOf(firstPath), "rpl", "late");
    send(secondPath, idOf(secondPath), "apd", "d");
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("d 2")));
}

void VoiceRecogniserTest::startTwice()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    QVERIFY(client.iat.startIat());
    QCOMPARE(client.proxies().size(), 2); // the first one stays a child until the client goes
    service.reset();
    client.iat.appendAudio("ab");
    client.iat.stopIat();
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
    QCOMPARE(service.calls(QStringLiteral("putAudio")).size(), 1);
    QCOMPARE(service.calls(QStringLiteral("putAudio")).first().path, secondPath);
    QCOMPARE(service.calls(QStringLiteral("stopIat")).size(), 1);
    QCOMPARE(service.calls(QStringLiteral("stopIat")).first().path, secondPath);
}

void VoiceRecogniserTest::largeResult()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    Client client;
    QVERIFY(client.iat.startIat());
    const QString word(10 * 1024 * 1024, QLatin1Char('w'));
    service.setValue(
        QStringLiteral("result"),
        QStringList({firstPath, result(idOf(firstPath), QStringLiteral("rpl"), word)}));
    QTRY_COMPARE_WITH_TIMEOUT(client.heard.size(), 1, 20000);
    QVERIFY(client.heard.first() == word + QStringLiteral(" 1"));
}

void VoiceRecogniserTest::deletedWhileRunning()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    {
        Client client;
        QVERIFY(client.iat.startIat());
    }
    service.setValue(QStringLiteral("result"),
                     QStringList({firstPath, result(idOf(firstPath), QStringLiteral("rpl"),
                                                    QStringLiteral("a"))}));
    QVERIFY(everythingArrived());
    QVERIFY(service.calls(QStringLiteral("stopIat")).isEmpty());
}

ISOLATED_TEST_MAIN(QCoreApplication, VoiceRecogniserTest, )
#include "voicerecogniser.moc"
