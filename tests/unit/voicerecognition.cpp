#include "tests/support/testprogram.h"
#include "voice/iatwapper.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

// A hypothesis of the given words; an empty pgs is left out.
QJsonObject hypothesis(const QString &pgs, const QStringList &words)
{
    QJsonArray ws;
    for (const QString &word : words)
        ws.append(QJsonObject{
            {QStringLiteral("cw"), QJsonArray{QJsonObject{{QStringLiteral("w"), word}}}}});
    QJsonObject result{{QStringLiteral("ws"), ws}, {QStringLiteral("ls"), false}};
    if (!pgs.isEmpty())
        result.insert(QStringLiteral("pgs"), pgs);
    return result;
}

QString resultMessage(const QByteArray &text, bool finish = false,
                      const QString &session = QString())
{
    const QJsonObject message{{QStringLiteral("session_id"), session},
                              {QStringLiteral("text"), QString::fromUtf8(text)},
                              {QStringLiteral("finish"), finish}};
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

QString resultMessage(const QString &pgs, const QStringList &words, bool finish = false)
{
    return resultMessage(QJsonDocument(hypothesis(pgs, words)).toJson(), finish);
}

struct Emitted
{
    QString text;
    int type;
    bool finish;
    bool operator==(const Emitted &other) const
    {
        return text == other.text && type == other.type && finish == other.finish;
    }
};

// Everything that the client reports.
class Listener : public QObject
{
public:
    explicit Listener(IatWapper *client)
    {
        connect(client, &IatWapper::onIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    results.append({text, type, finish});
                });
        connect(client, &IatWapper::onIatError, this,
                [this](long code, const QString &info) { errors.append(qMakePair(code, info)); });
    }

    QVector<Emitted> results;
    QVector<QPair<long, QString>> errors;
};

} // namespace

/** The recognition client without a bus: it merges a stream of hypotheses. */
class VoiceRecognitionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mergeExample();
    void appendedPieceIsNotKept();
    void emptyReplaceClearsThePendingText();
    void resultsWithoutMark();
    void resultThatIsNotJson();
    void foreignSession();
    void resultMessages_data();
    void resultMessages();
    void finishIsPassedOn();
    void logLines();
    void errors_data();
    void errors();
    void endDoesNothing();
    void callsWithoutASession();
    void threadIsNeverStarted();
    void declaredMembers();
};

void VoiceRecognitionTest::mergeExample()
{
    IatWapper client;
    Listener listener(&client);
    client.handleResult(resultMessage(QStringLiteral("rpl"), {QStringLiteral("今天")}));
    client.handleResult(
        resultMessage(QStringLiteral("rpl"), {QStringLiteral("今天"), QStringLiteral("天气")}));
    client.handleResult(resultMessage(QStringLiteral("apd"), {QStringLiteral("很好")}));
    client.handleResult(resultMessage(QStringLiteral("rpl"), {QStringLiteral("很好啊")}, true));
    QCOMPARE(listener.results, QVector<Emitted>({{QStringLiteral("今天"), 1, false},
                                                 {QStringLiteral("今天天气"), 1, false},
                                                 {QStringLiteral("今天天气很好"), 2, false},
                                                 {QStringLiteral("今天天气很好啊"), 1, true}}));
}

void VoiceRecognitionTest::appendedPieceIsNotKept()
{
    IatWapper client;
    Listener listener(&client);
    const auto send = [&client](const char *pgs, const char *word) {
        client.handleResult(resultMessage(QString::fromLatin1(pgs), {QString::fromLatin1(word)}));
    };
    send("apd", "a"); // shown once
    send("apd", "b");
    send("rpl", "c");
    send("apd", "d"); // fixes c
    send("apd", "e"); // d is gone
    send("rpl", "f");
    send("rpl", "g");
    QStringList texts;
    for (const Emitted &result : qAsConst(listener.results))
        texts << result.text;
    QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("a b c cd ce cf cg"));
}

void VoiceRecognitionTest::emptyReplaceClearsThePendingText()
{
    IatWapper client;
    Listener listener(&client);
    client.handleResult(resultMessage(QStringLiteral("rpl"), {QStringLiteral("a")}));
    client.handleResult(resultMessage(QByteArray(R"({"pgs":"rpl"})")));
    client.handleResult(resultMessage(QStringLiteral("apd"), {QStringLiteral("b")}));
    QCOMPARE(listener.results, QVector<Emitted>({{QStringLiteral("a"), 1, false},
                                                 {QString(), 1, false},
                                                 {QStringLiteral("b"), 2, false}}));
}

void VoiceRecognitionTest::resultsWithoutMark()
{
    IatWapper client;
    Listener listener(&client);
    client.handleResult(resultMessage(QStringLiteral("rpl"), {QStringLiteral("a")}));
    client.handleResult(resultMessage(QString(), {QStringLiteral("lost")}, true));
    client.handleResult(resultMessage(QStringLiteral("apd"), {QStringLiteral("b")}));
    QCOMPARE(listener.results,
             QVector<Emitted>({{QStringLiteral("a"), 1, false}, {QStringLiteral("ab"), 2, false}}));
}

void VoiceRecognitionTest::resultThatIsNotJson()
{
    IatWapper client;
    Listener listener(&client);
    client.handleResult(resultMessage(QStringLiteral("rpl"), {QStringLiteral("a")}));
    client.handleResult(resultMessage(QByteArray("no json"), true));
    client.handleResult(resultMessage(QStringLiteral("apd"), {QStringLiteral("b")}));
    QCOMPARE(listener.results,
             QVector<Emitted>({{QStringLiteral("a"), 1, false}, {QStringLiteral("ab"), 2, false}}));
}

void VoiceRecognitionTest::foreignSession()
{
    IatWapper client;
    Listener listener(&client);
    QTest::ignoreMessage(QtDebugMsg, "handleResult, sessionId= \"\"");
    QTest::ignoreMessage(QtCriticalMsg, "Iat handleResult error!  \"other\" : \"\"");
    client.handleResult(
        resultMessage(QByteArray(R"({"pgs":"rpl"})"), false, QStringLiteral("other")));
    QVERIFY(listener.results.isEmpty());
}

void VoiceRecognitionTest::resultMessages_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("count");
    QTest::newRow("no fields") << QStringLiteral("{}") << 0;
    QTest::newRow("not JSON") << QStringLiteral("nothing") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("array") << QStringLiteral("[1,2]") << 0;
    QTest::newRow("text is a number") << QStringLiteral(R"({"text":5})") << 0;
    QTest::newRow("text is an object") << QStringLiteral(R"({"text":{"pgs":"rpl"}})") << 0;
    QTest::newRow("session is a number: reads as the empty one")
        << QStringLiteral(R"({"session_id":5,"text":"{\"pgs\":\"rpl\"}"})") << 1;
    QTest::newRow("no finish") << QStringLiteral(R"({"text":"{\"pgs\":\"apd\"}"})") << 1;
}

void VoiceRecognitionTest::resultMessages()
{
    QFETCH(QString, message);
    QFETCH(int, count);
    IatWapper client;
    Listener listener(&client);
    client.handleResult(message);
    QCOMPARE(listener.results.size(), count);
    for (const Emitted &result : qAsConst(listener.results))
        QVERIFY(result.text.isEmpty() && !result.finish);
}

void VoiceRecognitionTest::finishIsPassedOn()
{
    IatWapper client;
    Listener listener(&client);
    for (const char *finish : {"true", "false", "1", "\"true\"", "null"})
        client.handleResult(QStringLiteral(R"({"text":"{\"pgs\":\"rpl\"}","finish":%1})")
                                .arg(QLatin1String(finish)));
    QList<bool> received;
    for (const Emitted &result : qAsConst(listener.results))
        received << result.finish;
    QCOMPARE(received, QList<bool>({true, false, false, false, false}));
}

void VoiceRecognitionTest::logLines()
{
    IatWapper client;
    QTest::ignoreMessage(QtDebugMsg, "handleResult, sessionId= \"\"");
    QTest::ignoreMessage(QtDebugMsg, "result:  \"ab\"  type: 1");
    client.handleResult(
        resultMessage(QStringLiteral("rpl"), {QStringLiteral("a"), QStringLiteral("b")}));
    QTest::ignoreMessage(QtDebugMsg, "paserPgs pgs:  broken");
    QTest::ignoreMessage(QtDebugMsg, "result:  \"\"  type: 0");
    client.handleResult(resultMessage(QByteArray("broken")));
}

void VoiceRecognitionTest::errors_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<long>("code"); // 0: none is reported
    QTest::addColumn<QString>("info");
    QTest::newRow("error") << QStringLiteral(R"({"session_id":"","errCode":7,"errInfo":"bad"})")
                           << 7L << QStringLiteral("bad");
    QTest::newRow("negative") << QStringLiteral(R"({"errCode":-2,"errInfo":"bad"})") << -2L
                              << QStringLiteral("bad");
    QTest::newRow("no text") << QStringLiteral(R"({"errCode":7})") << 7L << QString();
    QTest::newRow("text is a number")
        << QStringLiteral(R"({"errCode":7,"errInfo":1})") << 7L << QString();
    QTest::newRow("other session")
        << QStringLiteral(R"({"session_id":"x","errCode":7,"errInfo":"bad"})") << 0L << QString();
    QTest::newRow("code 0") << QStringLiteral(R"({"errCode":0,"errInfo":"bad"})") << 0L
                            << QString();
    QTest::newRow("code is a text") << QStringLiteral(R"({"errCode":"7"})") << 0L << QString();
    QTest::newRow("no code") << QStringLiteral("{}") << 0L << QString();
    QTest::newRow("not JSON") << QStringLiteral("bad") << 0L << QString();
}

void VoiceRecognitionTest::errors()
{
    QFETCH(QString, message);
    QFETCH(long, code);
    QFETCH(QString, info);
    IatWapper client;
    Listener listener(&client);
    client.handleError(message);
    if (code == 0)
        QVERIFY(listener.errors.isEmpty());
    else
        QCOMPARE(listener.errors, (QVector<QPair<long, QString>>({{code, info}})));
    QVERIFY(listener.results.isEmpty());
}

void VoiceRecognitionTest::endDoesNothing()
{
    IatWapper client;
    Listener listener(&client);
    client.handleEnd();
    QVERIFY(listener.results.isEmpty() && listener.errors.isEmpty());
}

void VoiceRecognitionTest::callsWithoutASession()
{
    IatWapper client;
    QCOMPARE(client.appendAudio(QByteArray("ab")), 0);
    QCOMPARE(client.stopIat(), 0);
}

void VoiceRecognitionTest::threadIsNeverStarted()
{
    IatWapper client;
    client.handleResult(resultMessage(QStringLiteral("rpl"), {QStringLiteral("a")}));
    client.stopIat();
    QVERIFY(!client.isRunning());
    QVERIFY(!client.isFinished());
}

// Names and order are the interface; the odd spellings too.
void VoiceRecognitionTest::declaredMembers()
{
    const QMetaObject &meta = IatWapper::staticMetaObject;
    QStringList members;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        members << QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(members,
             QStringList({QStringLiteral("onIatResult(QString,IatWapper::IatResultType,bool)"),
                          QStringLiteral("onIatError(long,QString)"),
                          QStringLiteral("appendAudio(QByteArray)"), QStringLiteral("handleEnd()"),
                          QStringLiteral("handleError(QString)"),
                          QStringLiteral("handleResult(QString)")}));
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(int(IatWapper::IatResultNone), 0);
    QCOMPARE(int(IatWapper::IatResultReplace), 1);
    QCOMPARE(int(IatWapper::IatResultAppend), 2);
}

TEST_CLASS(QCoreApplication, VoiceRecognitionTest)
#include "voicerecognition.moc"
