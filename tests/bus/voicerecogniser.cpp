// The recognition client against a service in another process: the order and form of its calls, and
// every answer to them.

#include "tests/bus/voiceclients.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QPointer>

using namespace testsupport;
using Client = RecogniserClient;

namespace {

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
    void init();

    void startOnTheWire();
    void parameters();
    void refusedSession();
    void refusedStart();
    void answersThatStart();
    void errorReplyStarts();
    void serviceDiesWhileStarting();
    void serviceIsAbsent();
    void audioOnTheWire();
    void stopOnTheWire();
    void startTwice();

private:
    VoiceService m_service;
};

void VoiceRecogniserTest::init()
{
    QVERIFY(m_service.start());
}

void VoiceRecogniserTest::startOnTheWire()
{
    Client client;
    LogCapture log;
    QVERIFY(client.iat.startIat());
    QCOMPARE(log.take(), QStringList());
    const QList<ServiceCall> calls = m_service.calls();
    QCOMPARE(members(calls), QStringList({createSession, startIat}));
    QCOMPARE(calls.at(0).arguments,
             QJsonArray({QStringLiteral("zde-control-center"), QStringLiteral("iat")}));
    QCOMPARE(calls.at(1).path, iatPath);
    QCOMPARE(calls.at(1).interface, QStringLiteral("com.corvane.aiservice.iat"));
    QCOMPARE(calls.at(1).signature, QStringLiteral("a{sv}"));
    QVERIFY(calls.at(1).replyExpected);
    QVERIFY(!client.iat.isRunning());
}

void VoiceRecogniserTest::parameters()
{
    Client client;
    QVERIFY(client.iat.startIat());
    QCOMPARE(
        m_service.value(QStringLiteral("parameters")).toStringList(),
        QStringList({QStringLiteral("accent QString mandarin"), QStringLiteral("dwa QString wpgs"),
                     QStringLiteral("language QString zh_cn"),
                     QStringLiteral("result_encoding QString utf8"),
                     QStringLiteral("result_type QString json"),
                     QStringLiteral("sample_rate QString 16000"), QStringLiteral("sub QString iat"),
                     QStringLiteral("vad_bos int 10000"), QStringLiteral("vad_eos int 10000")}));
}

void VoiceRecogniserTest::refusedSession()
{
    m_service.setValue(QStringLiteral("code.iat"), 5);
    Client client;
    LogCapture log;
    QVERIFY(!client.iat.startIat());
    QCOMPARE(log.take(), QStringList(QStringLiteral("debug|Iat createSession failed")));
    QVERIFY(client.proxies().isEmpty());
    QCOMPARE(client.iat.appendAudio("ab"), 0);
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList());
    QVERIFY(everythingArrived());
    m_service.setValue(QStringLiteral("code.iat"), 0);
    QVERIFY(client.iat.startIat());
    QCOMPARE(members(m_service.calls()), QStringList({createSession, createSession, startIat}));
}

void VoiceRecogniserTest::refusedStart()
{
    m_service.script(startIat, QStringLiteral("reply"),
                     QStringLiteral(R"({"status":3,"session_id":"s"})"));
    Client client;
    QVERIFY(!client.iat.startIat());
    QVERIFY(m_service.waitForCalls(freeSession));
    QCOMPARE(m_service.value(QStringLiteral("freed")).toStringList(),
             QStringList(QStringLiteral("iat")));

    // Not connected...
    m_service.send(iatPath, recognised(QStringLiteral("s"), "rpl", QStringLiteral("a")));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    // ... but there: stopping sends both calls once more.
    QCOMPARE(client.proxies().size(), 1);
    client.iat.stopIat();
    QVERIFY(m_service.waitForCalls(freeSession, 2));
    QCOMPARE(m_service.calls(stopIat).size(), 1);
}

void VoiceRecogniserTest::answersThatStart()
{
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
        m_service.script(startIat, QStringLiteral("reply"), row.answer);
        Client client;
        QVERIFY2(client.iat.startIat(), row.name);
        const QString path = QStringLiteral("/session/iat/%1").arg(++started);
        m_service.send(path, recognised(row.id, "rpl", QStringLiteral("a")));
        QTRY_VERIFY2(client.heard == QStringList(QStringLiteral("a 1")), row.name);
    }
    QVERIFY(m_service.calls(freeSession).isEmpty());
}

void VoiceRecogniserTest::errorReplyStarts()
{
    // Read as a text, this error would refuse to start.
    m_service.script(startIat, QStringLiteral("error"),
                     QStringLiteral(R"({"status":3,"session_id":"s"})"));
    Client client;
    QVERIFY(client.iat.startIat());
    m_service.send(iatPath, recognised(QString(), "rpl", QStringLiteral("a")));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("a 1")));
}

void VoiceRecogniserTest::serviceDiesWhileStarting()
{
    m_service.script(startIat, QStringLiteral("vanish"));
    Client client;
    QVERIFY(client.iat.startIat());
    QVERIFY(m_service.waitForEnd());
    client.iat.appendAudio("ab");
    client.iat.stopIat();
    QVERIFY(m_service.start());
    QVERIFY(client.iat.startIat());
    m_service.send(iatPath, recognised(idOf(iatPath), "rpl", QStringLiteral("a")));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("a 1")));
}

void VoiceRecogniserTest::serviceIsAbsent()
{
    QVERIFY(m_service.stop());
    Client client;
    LogCapture log;
    QVERIFY(client.iat.startIat());
    QCOMPARE(client.proxies().size(), 1);
    QCOMPARE(client.iat.appendAudio("ab"), 0);
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("info|IatWapper stop iat")));
    QTRY_VERIFY(client.proxies().isEmpty());
}

void VoiceRecogniserTest::audioOnTheWire()
{
    Client client;
    QCOMPARE(client.iat.appendAudio("lost"), 0); // no session yet
    QVERIFY(client.iat.startIat());
    const QByteArray block("\x00\x01\xff\x80", 4);
    QCOMPARE(client.iat.appendAudio(block), 0);
    QCOMPARE(client.iat.appendAudio(QByteArray()), 0);
    QVERIFY(m_service.waitForCalls(putAudio, 2));
    const QList<ServiceCall> calls = m_service.calls(putAudio);
    for (const ServiceCall &call : calls) {
        QCOMPARE(call.path, iatPath);
        QCOMPARE(call.interface, QStringLiteral("com.corvane.aiservice.iat"));
        QCOMPARE(call.signature, QStringLiteral("ayb"));
        QCOMPARE(call.arguments.last(), QJsonValue(false));
    }
    QCOMPARE(m_service.value(QStringLiteral("audio ") + iatPath).toString(),
             QStringLiteral("0001ff80"));
}

void VoiceRecogniserTest::stopOnTheWire()
{
    Client client;
    QVERIFY(client.iat.startIat());
    QPointer<ComCorvaneAiserviceIatInterface> proxy = client.proxies().first();
    m_service.reset();
    // Neither answer is waited for.
    m_service.script(stopIat, QStringLiteral("hold"));
    m_service.script(freeSession, QStringLiteral("hold"));
    LogCapture log;
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList(QStringLiteral("info|IatWapper stop iat")));
    QVERIFY(proxy); // later
    QTRY_VERIFY(!proxy);
    QCOMPARE(client.iat.stopIat(), 0);
    QCOMPARE(log.take(), QStringList());

    QVERIFY(m_service.waitForCalls(freeSession));
    const QList<ServiceCall> calls = m_service.calls();
    QCOMPARE(members(calls), QStringList({stopIat, freeSession}));
    QCOMPARE(calls.at(0).path, iatPath);
    QCOMPARE(calls.at(0).signature, QString());
    QCOMPARE(calls.at(1).path, QStringLiteral("/"));
}

void VoiceRecogniserTest::startTwice()
{
    Client client;
    QVERIFY(client.iat.startIat());
    QVERIFY(client.iat.startIat());
    QCOMPARE(client.proxies().size(), 2); // the first one stays a child until the client goes
    m_service.reset();
    client.iat.appendAudio("ab");
    client.iat.stopIat();
    QVERIFY(m_service.waitForCalls(freeSession));
    QCOMPARE(m_service.calls(putAudio).size(), 1);
    QCOMPARE(m_service.calls(putAudio).first().path, secondIatPath);
    QCOMPARE(m_service.calls(stopIat).size(), 1);
    QCOMPARE(m_service.calls(stopIat).first().path, secondIatPath);
}

ISOLATED_TEST_CLASS(QCoreApplication, VoiceRecogniserTest, )
#include "voicerecogniser.moc"
