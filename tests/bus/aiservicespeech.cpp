#include "tests/bus/aiserviceclient.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QDBusError>
#include <QJsonArray>
#include <QtTest>

#include <unistd.h>

#include <memory>

using namespace testsupport;

namespace {

/** Memory that the process really takes; 0 when that cannot be read. */
qint64 residentBytes(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/statm").arg(process));
    return file.open(QIODevice::ReadOnly)
               ? file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE)
               : 0;
}

/** The words of a recognition result, joined. */
QString wordsOf(const QString &result)
{
    const QJsonObject text = parsed(parsed(result).value(QStringLiteral("text")).toString());
    QString words;
    const QJsonArray places = text.value(QStringLiteral("ws")).toArray();
    for (const QJsonValue &place : places) {
        const QJsonValue candidate = place.toObject().value(QStringLiteral("cw")).toArray().at(0);
        words += candidate.toObject().value(QStringLiteral("w")).toString();
    }
    return words;
}

} // namespace

/** The sandbox's AI service on the bus: recognition. */
class AiServiceSpeechTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void phraseIsRecognised();
    void lastResultComesAfterFreeToo();
    void secondRecognitionOfASession();
    void unsupportedParameters_data();
    void unsupportedParameters();
    void startedTwice();
    void modelsThatCannotBeWritten();
    void busIsNotStalled();
    void endsWhileRecognising();
    void memoryDoesNotGrow();

private:
    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<AiServiceClient> m_client;
};

void AiServiceSpeechTest::init()
{
    m_service = std::make_unique<ServiceProcess>(QStringLiteral("aiservice"));
    QVERIFY(m_service->start());
    m_client = std::make_unique<AiServiceClient>(QStringLiteral("client"));
}

void AiServiceSpeechTest::cleanup()
{
    m_client.reset();
    m_service.reset();
}

void AiServiceSpeechTest::phraseIsRecognised()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    // As the module sends them.
    const QJsonObject answer =
        parsed(startRecognition(m_client.get(), path,
                                {{QStringLiteral("sub"), QStringLiteral("iat")},
                                 {QStringLiteral("dwa"), QStringLiteral("wpgs")},
                                 {QStringLiteral("language"), QStringLiteral("zh_cn")},
                                 {QStringLiteral("accent"), QStringLiteral("mandarin")},
                                 {QStringLiteral("sample_rate"), QStringLiteral("16000")},
                                 {QStringLiteral("vad_eos"), 10000},
                                 {QStringLiteral("vad_bos"), 10000},
                                 {QStringLiteral("result_type"), QStringLiteral("json")},
                                 {QStringLiteral("result_encoding"), QStringLiteral("utf8")}}));
    QCOMPARE(answer.value(QStringLiteral("status")), QJsonValue(0));
    const QJsonValue id = answer.value(QStringLiteral("session_id"));
    QVERIFY(!id.toString().isEmpty());

    m_client->putAudio(path, QStringLiteral("iat"), spokenPhrase());
    m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));
    QTRY_COMPARE_WITH_TIMEOUT(m_client->signalsOf(QStringLiteral("onEnd")).size(), 1, 30000);

    const QStringList results = m_client->signalsOf(QStringLiteral("onResult"));
    QVERIFY(results.size() > 3);
    for (int i = 0; i < results.size(); ++i) {
        const QJsonObject result = parsed(results[i]);
        QCOMPARE(result.value(QStringLiteral("session_id")), id);
        QCOMPARE(result.value(QStringLiteral("finish")), QJsonValue(i == results.size() - 1));
        const QJsonObject text = parsed(result.value(QStringLiteral("text")).toString());
        QCOMPARE(text.value(QStringLiteral("pgs")), QJsonValue(QStringLiteral("rpl")));
        QCOMPARE(text.value(QStringLiteral("sn")), QJsonValue(i + 1));
    }
    QCOMPARE(wordsOf(results.last()), QStringLiteral("阿岚帮我预约明天早上10点的视频会议"));
    QVERIFY2(parsed(parsed(results.last()).value(QStringLiteral("text")).toString())
                 .value(QStringLiteral("ls"))
                 .toBool(),
             qPrintable(results.last()));
    QCOMPARE(m_client->signalsOf(QStringLiteral("onError")), QStringList());
}

void AiServiceSpeechTest::lastResultComesAfterFreeToo()
{
    // The order of the module: it stops, and frees at once.
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    startRecognition(m_client.get(), path);
    m_client->putAudio(path, QStringLiteral("iat"), spokenPhrase());
    m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));
    QCOMPARE(m_client->free(QStringLiteral("iat")), 0);

    QTRY_COMPARE_WITH_TIMEOUT(m_client->signalsOf(QStringLiteral("onEnd")).size(), 1, 30000);
    QVERIFY(parsed(m_client->signalsOf(QStringLiteral("onResult")).last())
                .value(QStringLiteral("finish"))
                .toBool());
    QTRY_COMPARE(m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat")).errorName(),
                 QDBusError::errorString(QDBusError::UnknownObject));
}

void AiServiceSpeechTest::secondRecognitionOfASession()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    QStringList ids;
    for (int run = 1; run <= 2; ++run) {
        ids << parsed(startRecognition(m_client.get(), path))
                   .value(QStringLiteral("session_id"))
                   .toString();
        m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));
        QTRY_COMPARE(m_client->signalsOf(QStringLiteral("onEnd")).size(), run);
    }
    QVERIFY(ids.first() != ids.last());
    QCOMPARE(parsed(m_client->signalsOf(QStringLiteral("onResult")).last())
                 .value(QStringLiteral("session_id"))
                 .toString(),
             ids.last());
}

void AiServiceSpeechTest::unsupportedParameters_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("English") << "language" << QVariant(QStringLiteral("en_us"));
    QTest::newRow("8000 Hz") << "sample_rate" << QVariant(QStringLiteral("8000"));
    QTest::newRow("plain results") << "result_type" << QVariant(QStringLiteral("plain"));
    QTest::newRow("another encoding") << "result_encoding" << QVariant(QStringLiteral("gb2312"));
    QTest::newRow("another service") << "sub" << QVariant(QStringLiteral("tts"));
}

void AiServiceSpeechTest::unsupportedParameters()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);

    const QString path = m_client->open(QStringLiteral("iat"));
    const QJsonObject answer = parsed(startRecognition(m_client.get(), path, {{key, value}}));
    QCOMPARE(answer.value(QStringLiteral("status")), QJsonValue(2));

    QCOMPARE(parsed(startRecognition(m_client.get(), path)).value(QStringLiteral("status")),
             QJsonValue(0));
}

void AiServiceSpeechTest::startedTwice()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QCOMPARE(parsed(startRecognition(m_client.get(), path)).value(QStringLiteral("status")),
             QJsonValue(0));
    QCOMPARE(parsed(startRecognition(m_client.get(), path)).value(QStringLiteral("status")),
             QJsonValue(1));
}

void AiServiceSpeechTest::modelsThatCannotBeWritten()
{
    QVERIFY(m_service->stop());
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // nobody can write there
    const bool started = m_service->start();
    qputenv("TMPDIR", temporary); // where it is empty, it counts as unset
    QVERIFY(started);
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    const QString id = parsed(startRecognition(m_client.get(), path))
                           .value(QStringLiteral("session_id"))
                           .toString();

    QTRY_COMPARE(m_client->signalsOf(QStringLiteral("onEnd")).size(), 1);
    const QStringList errors = m_client->signalsOf(QStringLiteral("onError"));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(parsed(errors.first()).value(QStringLiteral("session_id")).toString(), id);
    QCOMPARE(parsed(errors.first()).value(QStringLiteral("errCode")), QJsonValue(1));
    QVERIFY(!parsed(errors.first()).value(QStringLiteral("errInfo")).toString().isEmpty());
}

void AiServiceSpeechTest::busIsNotStalled()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    startRecognition(m_client.get(), path);
    QByteArray audio;
    for (int i = 0; i < 15; ++i)
        audio += spokenPhrase();
    m_client->putAudio(path, QStringLiteral("iat"), audio); // two minutes: seconds of decoding
    m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));

    QElapsedTimer decoding;
    decoding.start();
    int calls = 0;
    qint64 slowest = 0;
    while (m_client->signalsOf(QStringLiteral("onEnd")).isEmpty()) {
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(m_client->free(QStringLiteral("aqc")), 4);
        slowest = qMax(slowest, clock.elapsed());
        ++calls;
        QCoreApplication::processEvents();
    }
    QVERIFY2(calls > 100, qPrintable(QString::number(calls)));
    // One that waits for the decoder waits for all of it.
    QVERIFY2(slowest < decoding.elapsed() / 4, qPrintable(QString::number(slowest)));
}

void AiServiceSpeechTest::endsWhileRecognising()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    startRecognition(m_client.get(), path);
    m_client->putAudio(path, QStringLiteral("iat"), spokenPhrase() + spokenPhrase());
    QTRY_VERIFY(!m_client->signalsOf(QStringLiteral("onResult")).isEmpty());
    QVERIFY(m_service->stop());
}

void AiServiceSpeechTest::memoryDoesNotGrow()
{
    const QByteArray audio = spokenPhrase().left(64000); // 2 s
    int ends = 0;
    const auto runs = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const QString path = m_client->open(QStringLiteral("iat"));
            if (!m_client->listen(path))
                return false;
            startRecognition(m_client.get(), path);
            m_client->putAudio(path, QStringLiteral("iat"), audio, true);
            ++ends;
            const auto ended = [&] {
                return m_client->signalsOf(QStringLiteral("onEnd")).size() == ends;
            };
            if (!QTest::qWaitFor(ended, 30000))
                return false;
        }
        m_service->reset(); // the log of calls
        return true;
    };
    QVERIFY(runs(10));
    const qint64 before = residentBytes(m_service->processId());
    QVERIFY(before > 0);
    QVERIFY(runs(30));
    const qint64 growth = residentBytes(m_service->processId()) - before;

    // One recogniser alone takes 17 MB.
    QVERIFY2(growth < 5000000, qPrintable(QString::number(growth)));
}

TEST_CLASS(QCoreApplication, AiServiceSpeechTest)
#include "aiservicespeech.moc"
