// Which of a recognition service's signals reach the client, and what it makes of them.

#include "tests/bus/voiceclients.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>

using namespace testsupport;
using Client = RecogniserClient;

class VoiceResultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void resultsArrive();
    void errorsArrive();
    void endIsConnected();
    void resultsOfAnotherSession();
    void resultsOfAnotherObject();
    void emptyPathReceivesNothing();
    void nothingArrivesAfterStop();
    void textsAreClearedByTheNextStart();
    void largeResult();
    void deletedWhileRunning();

private:
    VoiceService m_service;
};

void VoiceResultsTest::init()
{
    QVERIFY(m_service.start());
}

void VoiceResultsTest::resultsArrive()
{
    Client client;
    QVERIFY(client.iat.startIat());
    const QString id = idOf(iatPath);
    const auto send = [&](const char *pgs, const QString &word, bool finish = false) {
        m_service.send(iatPath, recognised(id, pgs, word, finish));
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

void VoiceResultsTest::errorsArrive()
{
    Client client;
    QVERIFY(client.iat.startIat());
    LogCapture log;
    const QString error = QStringLiteral(R"({"session_id":"%1","errCode":%2,"errInfo":"bad"})");
    m_service.setValue(QStringLiteral("error"),
                       QStringList({iatPath, error.arg(QStringLiteral("other")).arg(8)}));
    m_service.setValue(QStringLiteral("error"),
                       QStringList({iatPath, error.arg(idOf(iatPath)).arg(0)}));
    m_service.setValue(QStringLiteral("error"),
                       QStringList({iatPath, error.arg(idOf(iatPath)).arg(9)}));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("error 9 bad")));
    QCOMPARE(log.take(), QStringList());
}

// The connections are made by name; a wrong name would fail at run time only.
void VoiceResultsTest::endIsConnected()
{
    Client client;
    QVERIFY(client.iat.startIat());
    m_service.setValue(QStringLiteral("end"), QStringList({iatPath}));
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

void VoiceResultsTest::resultsOfAnotherSession()
{
    Client client;
    QVERIFY(client.iat.startIat());
    LogCapture log;
    m_service.send(iatPath, recognised(QStringLiteral("old"), "rpl", QStringLiteral("a")));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    QCOMPARE(
        log.take(),
        QStringList({QStringLiteral("debug|handleResult, sessionId= \"%1\"").arg(idOf(iatPath)),
                     QStringLiteral("critical|Iat handleResult error!  \"old\" : \"%1\"")
                         .arg(idOf(iatPath))}));
}

void VoiceResultsTest::resultsOfAnotherObject()
{
    Client client;
    QVERIFY(client.iat.startIat());
    LogCapture log;
    m_service.send(QStringLiteral("/somebody/else"),
                   recognised(idOf(iatPath), "rpl", QStringLiteral("a")));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    QCOMPARE(log.take(), QStringList());
}

void VoiceResultsTest::emptyPathReceivesNothing()
{
    m_service.script(createSession, QStringLiteral("error"), QStringLiteral("no room"));
    Client client;
    QVERIFY(client.iat.startIat());
    QCOMPARE(client.proxies().size(), 1);
    LogCapture log;
    m_service.send(QStringLiteral("/somebody/else"),
                   recognised(QString(), "rpl", QStringLiteral("a")));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
    QCOMPARE(log.take(), QStringList());
    QVERIFY(!disconnect(client.proxies().first(), nullptr, &client.iat, nullptr));

    // The next run works.
    client.iat.stopIat();
    m_service.script(createSession, QStringLiteral("answer"));
    QVERIFY(client.iat.startIat());
    m_service.send(iatPath, recognised(idOf(iatPath), "rpl", QStringLiteral("a")));
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("a 1")));
}

void VoiceResultsTest::nothingArrivesAfterStop()
{
    Client client;
    QVERIFY(client.iat.startIat());
    QVERIFY(everythingArrived());
    // One that was on its way, and one that comes later.
    m_service.send(iatPath, recognised(idOf(iatPath), "rpl", QStringLiteral("queued")));
    QVERIFY(everythingIsQueued());
    client.iat.stopIat();
    m_service.send(iatPath, recognised(idOf(iatPath), "rpl", QStringLiteral("a"), true));
    QVERIFY(everythingArrived());
    QCOMPARE(client.heard, QStringList());
}

void VoiceResultsTest::textsAreClearedByTheNextStart()
{
    Client client;
    QVERIFY(client.iat.startIat());
    const auto send = [&](const QString &path, const QString &id, const char *pgs,
                          const char *word) {
        m_service.send(path, recognised(id, pgs, QLatin1String(word)));
    };
    send(iatPath, idOf(iatPath), "rpl", "a");
    send(iatPath, idOf(iatPath), "apd", "b");
    send(iatPath, idOf(iatPath), "rpl", "c");
    QTRY_COMPARE(client.heard.size(), 3);
    client.iat.stopIat();

    client.heard.clear();
    QVERIFY(client.iat.startIat());
    send(secondIatPath, idOf(iatPath), "rpl", "late");
    send(secondIatPath, idOf(secondIatPath), "apd", "d");
    QTRY_COMPARE(client.heard, QStringList(QStringLiteral("d 2")));
}

void VoiceResultsTest::largeResult()
{
    Client client;
    QVERIFY(client.iat.startIat());
    const QString word(10 * 1024 * 1024, QLatin1Char('w'));
    m_service.send(iatPath, recognised(idOf(iatPath), "rpl", word));
    QTRY_COMPARE_WITH_TIMEOUT(client.heard.size(), 1, 20000);
    QVERIFY(client.heard.first() == word + QStringLiteral(" 1"));
}

void VoiceResultsTest::deletedWhileRunning()
{
    {
        Client client;
        QVERIFY(client.iat.startIat());
    }
    m_service.send(iatPath, recognised(idOf(iatPath), "rpl", QStringLiteral("a")));
    QVERIFY(everythingArrived());
    QVERIFY(m_service.calls(stopIat).isEmpty());
}

ISOLATED_TEST_CLASS(QCoreApplication, VoiceResultsTest, )
#include "voiceresults.moc"
