#include "tests/support/serviceprocess.h"
#include "tests/support/spokenrecording.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <unistd.h>

#include <memory>

using testsupport::ServiceProcess;
namespace SpokenRecording = testsupport::SpokenRecording;

namespace {

const QString service = QStringLiteral("com.corvane.aiservice");
const QString sessionsKey = QStringLiteral("sessions");

QByteArray bytes(const QVector<qint16> &samples)
{
    return QByteArray(reinterpret_cast<const char *>(samples.constData()),
                      samples.size() * int(sizeof(qint16)));
}

/** The phrase and a pause after it, 8 s. */
QByteArray spokenPhrase()
{
    return bytes(SpokenRecording::make(QStringLiteral("speech"), {}, QString(), 8.0));
}

QJsonObject parsed(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

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

/** A program on the bus that uses the AI service, over a connection of its own. */
class Client : public QObject
{
    Q_OBJECT

public:
    explicit Client(const QString &name)
        : m_name(name)
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name))
    {
    }
    ~Client() override { QDBusConnection::disconnectFromBus(m_name); }

    QDBusMessage call(const QString &path, const QString &interface, const QString &member,
                      const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            service, path, service + QLatin1Char('.') + interface, member);
        message.setArguments(arguments);
        return m_bus.call(message);
    }

    QDBusMessage create(const QString &ability, const QString &application = applicationName())
    {
        return call(QStringLiteral("/"), QStringLiteral("session"), QStringLiteral("createSession"),
                    {application, ability});
    }

    /** The path of a new session; empty when it is refused. */
    QString open(const QString &ability, const QString &application = applicationName())
    {
        const QDBusMessage reply = create(ability, application);
        return reply.arguments().value(1) == 0
                   ? reply.arguments().first().value<QDBusObjectPath>().path()
                   : QString();
    }

    int free(const QString &ability)
    {
        return call(QStringLiteral("/"), QStringLiteral("session"), QStringLiteral("freeSession"),
                    {applicationName(), ability})
            .arguments()
            .value(0)
            .toInt();
    }

    /** Listens to every signal from @p path, whatever its interface; see signalsOf(). */
    bool listen(const QString &path)
    {
        bool connected = true;
        for (const char *name : {"onNotify", "onResult", "onError", "onEnd"}) {
            connected = m_bus.connect(QString(), path, QString(), QLatin1String(name), this,
                                      SLOT(take(QDBusMessage))) &&
                        connected;
        }
        return connected;
    }

    /** The first arguments of the signals @p name that have arrived. */
    QStringList signalsOf(const QString &name) const
    {
        QStringList texts;
        for (const QDBusMessage &message : m_signals)
            if (message.member() == name)
                texts << message.arguments().value(0).toString();
        return texts;
    }

    void putAudio(const QString &path, const QString &interface, const QByteArray &audio,
                  bool finish = false)
    {
        constexpr int blockBytes = 1600;
        for (int begin = 0; begin < audio.size(); begin += blockBytes) {
            const bool last = begin + blockBytes >= audio.size();
            QDBusMessage message = QDBusMessage::createMethodCall(
                service, path, service + QLatin1Char('.') + interface, QStringLiteral("putAudio"));
            message << audio.mid(begin, blockBytes) << (finish && last);
            m_bus.send(message);
        }
    }

    /** Returns when everything that the bus had for this client has arrived. */
    void catchUp()
    {
        m_bus.call(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        QCoreApplication::processEvents();
    }

    static QString applicationName() { return QStringLiteral("zde-control-center"); }

public Q_SLOTS:
    void take(const QDBusMessage &message) { m_signals << message; }

private:
    QString m_name;
    QDBusConnection m_bus;
    QList<QDBusMessage> m_signals;
};

/** The sandbox's AI service on the bus. */
class AiServiceSessionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everySessionIsAnObject();
    void abilities_data();
    void abilities();
    void limitOfSessions();
    void refusalOnRequest();
    void freedSessionIsGone();
    void newSessionReplacesTheOld();
    void sessionsGoWithTheirClient();
    void sessionIsItsClientsAlone();

    void oneVerdictPerCheck();
    void onlyAudioOfTheCheckCounts();
    void markedAudioEndsTheCheck();

    void phraseIsRecognised();
    void lastResultComesAfterFreeToo();
    void secondRecognitionOfASession();
    void unsupportedParameters_data();
    void unsupportedParameters();
    void startedTwice();
    void missingModels();
    void busIsNotStalled();
    void endsWhileRecognising();

    void recordsWhatItHears();
    void memoryStaysFlat();

private:
    QString startRecognition(const QString &path, const QVariantMap &parameters = {});

    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<Client> m_client;
};

void AiServiceSessionsTest::init()
{
    m_service = std::make_unique<ServiceProcess>(QStringLiteral("aiservice"));
    QVERIFY(m_service->start());
    m_client = std::make_unique<Client>(QStringLiteral("client"));
}

void AiServiceSessionsTest::cleanup()
{
    m_client.reset();
    m_service.reset();
}

QString AiServiceSessionsTest::startRecognition(const QString &path, const QVariantMap &parameters)
{
    return m_client
        ->call(path, QStringLiteral("iat"), QStringLiteral("startIat"), {QVariant(parameters)})
        .arguments()
        .value(0)
        .toString();
}

void AiServiceSessionsTest::everySessionIsAnObject()
{
    const QDBusMessage reply = m_client->create(QStringLiteral("aqc"));
    QCOMPARE(reply.signature(), QStringLiteral("oi"));
    const QString check = reply.arguments().first().value<QDBusObjectPath>().path();
    const QString recognition = m_client->open(QStringLiteral("iat"));

    QVERIFY(!check.isEmpty() && !recognition.isEmpty() && check != recognition);
    QCOMPARE(m_client->call(check, QStringLiteral("aqc"), QStringLiteral("startAqc")).signature(),
             QStringLiteral("s"));
    QCOMPARE(m_client->call(check, QStringLiteral("iat"), QStringLiteral("stopIat")).type(),
             QDBusMessage::ErrorMessage);
    QCOMPARE(
        m_client->call(recognition, QStringLiteral("iat"), QStringLiteral("stopIat")).signature(),
        QString());
    QCOMPARE(m_service->value(sessionsKey).toStringList().size(), 2);
}

void AiServiceSessionsTest::abilities_data()
{
    QTest::addColumn<QString>("ability");
    QTest::addColumn<int>("code");

    QTest::newRow("quality check") << "aqc" << 0;
    QTest::newRow("recognition") << "iat" << 0;
    QTest::newRow("known, but not here: tts") << "tts" << 2;
    QTest::newRow("known, but not here: trans") << "trans" << 2;
    QTest::newRow("known, but not here: record") << "record" << 2;
    QTest::newRow("unknown") << "xyz" << 1;
    QTest::newRow("empty") << "" << 1;
    QTest::newRow("capitals") << "AQC" << 1;
}

void AiServiceSessionsTest::abilities()
{
    QFETCH(QString, ability);
    QFETCH(int, code);

    const QVariantList reply = m_client->create(ability).arguments();
    QCOMPARE(reply.value(1), QVariant(code));
    QCOMPARE(reply.first().value<QDBusObjectPath>().path() == QLatin1String("/"), code != 0);
    QCOMPARE(m_service->value(sessionsKey).toStringList().size(), code == 0 ? 1 : 0);
}

void AiServiceSessionsTest::limitOfSessions()
{
    m_service->setValue(QStringLiteral("sessionLimit"), 2);
    Client other(QStringLiteral("other"));
    QVERIFY(!m_client->open(QStringLiteral("aqc")).isEmpty());
    QVERIFY(!m_client->open(QStringLiteral("iat")).isEmpty());
    QCOMPARE(other.create(QStringLiteral("aqc")).arguments().value(1), QVariant(3));

    // A client at the limit may still renew a session of its own.
    QVERIFY(!m_client->open(QStringLiteral("aqc")).isEmpty());
    QCOMPARE(m_client->free(QStringLiteral("iat")), 0);
    QVERIFY(!other.open(QStringLiteral("aqc")).isEmpty());
}

void AiServiceSessionsTest::refusalOnRequest()
{
    m_service->setValue(QStringLiteral("createSession.errorcode"), 5);
    QCOMPARE(m_client->create(QStringLiteral("aqc")).arguments().value(1), QVariant(5));

    m_service->setValue(QStringLiteral("createSession.errorcode"), 0);
    QVERIFY(!m_client->open(QStringLiteral("aqc")).isEmpty());
}

void AiServiceSessionsTest::freedSessionIsGone()
{
    const QString path = m_client->open(QStringLiteral("aqc"));
    QCOMPARE(m_client->free(QStringLiteral("aqc")), 0);

    QCOMPARE(m_client->call(path, QStringLiteral("aqc"), QStringLiteral("startAqc")).errorName(),
             QDBusError::errorString(QDBusError::UnknownObject));
    QCOMPARE(m_client->free(QStringLiteral("aqc")), 4);
    QCOMPARE(m_client->free(QStringLiteral("iat")), 4);
}

void AiServiceSessionsTest::newSessionReplacesTheOld()
{
    const QString first = m_client->open(QStringLiteral("aqc"));
    const QString second = m_client->open(QStringLiteral("aqc"));
    const QString another = m_client->open(QStringLiteral("aqc"), QStringLiteral("other program"));

    QVERIFY(first != second);
    QCOMPARE(m_service->value(sessionsKey).toStringList().toSet(),
             (QSet<QString>{second, another}));
    QCOMPARE(m_client->call(first, QStringLiteral("aqc"), QStringLiteral("stopAqc")).errorName(),
             QDBusError::errorString(QDBusError::UnknownObject));
}

void AiServiceSessionsTest::sessionsGoWithTheirClient()
{
    const QString kept = m_client->open(QStringLiteral("aqc"));
    {
        Client other(QStringLiteral("other"));
        QVERIFY(!other.open(QStringLiteral("aqc")).isEmpty());
        const QString recognition = other.open(QStringLiteral("iat"));
        other.call(recognition, QStringLiteral("iat"), QStringLiteral("startIat"),
                   {QVariant(QVariantMap())});
        other.putAudio(recognition, QStringLiteral("iat"), spokenPhrase());
        QCOMPARE(m_service->value(sessionsKey).toStringList().size(), 3);
    }
    QTRY_COMPARE(m_service->value(sessionsKey).toStringList(), QStringList(kept));
}

void AiServiceSessionsTest::sessionIsItsClientsAlone()
{
    const QString path = m_client->open(QStringLiteral("aqc"));
    QVERIFY(m_client->listen(path));
    Client other(QStringLiteral("other"));
    QVERIFY(other.listen(path));
    QCOMPARE(other.call(path, QStringLiteral("aqc"), QStringLiteral("startAqc")).errorName(),
             QDBusError::errorString(QDBusError::AccessDenied));
    QCOMPARE(other.free(QStringLiteral("aqc")), 4);

    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("stopAqc"));
    QTRY_COMPARE(m_client->signalsOf(QStringLiteral("onNotify")).size(), 1);
    other.catchUp();
    QCOMPARE(other.signalsOf(QStringLiteral("onNotify")), QStringList());
}

void AiServiceSessionsTest::oneVerdictPerCheck()
{
    const QString path = m_client->open(QStringLiteral("aqc"));
    QVERIFY(m_client->listen(path));
    const auto verdicts = [this] {
        return m_client->signalsOf(QStringLiteral("onNotify"));
    };
    const QByteArray audio = spokenPhrase();

    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("stopAqc"));
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->putAudio(path, QStringLiteral("aqc"), audio);
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("stopAqc"));
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("stopAqc"));
    QTRY_COMPARE(verdicts().size(), 1);
    QVERIFY2(verdicts().first().contains(QStringLiteral("1000")), qPrintable(verdicts().first()));

    // The next check knows nothing of the one before.
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("stopAqc"));
    QTRY_COMPARE(verdicts().size(), 2);
    QVERIFY2(verdicts().last().contains(QStringLiteral("1003")), qPrintable(verdicts().last()));
}

void AiServiceSessionsTest::onlyAudioOfTheCheckCounts()
{
    const QString path = m_client->open(QStringLiteral("aqc"));
    QVERIFY(m_client->listen(path));
    m_client->putAudio(path, QStringLiteral("aqc"), spokenPhrase());
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("stopAqc"));
    m_client->putAudio(path, QStringLiteral("aqc"), spokenPhrase(), true);

    const auto verdicts = [this] {
        return m_client->signalsOf(QStringLiteral("onNotify"));
    };
    QTRY_VERIFY(!verdicts().isEmpty());
    QVERIFY2(verdicts().first().contains(QStringLiteral("1003")), qPrintable(verdicts().first()));
    QVERIFY(m_service->waitForCalls(QStringLiteral("putAudio"), 320)); // twice 8 s
    m_client->catchUp();
    QCOMPARE(verdicts().size(), 1);
}

void AiServiceSessionsTest::markedAudioEndsTheCheck()
{
    const QString path = m_client->open(QStringLiteral("aqc"));
    QVERIFY(m_client->listen(path));
    m_client->call(path, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->putAudio(path, QStringLiteral("aqc"), spokenPhrase(), true);

    QTRY_COMPARE(m_client->signalsOf(QStringLiteral("onNotify")).size(), 1);
    QCOMPARE(parsed(m_client->signalsOf(QStringLiteral("onNotify")).first())
                 .value(QStringLiteral("code")),
             QJsonValue(QStringLiteral("1000")));
}

void AiServiceSessionsTest::phraseIsRecognised()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    // As the module sends them.
    const QJsonObject answer = parsed(
        startRecognition(path, {{QStringLiteral("sub"), QStringLiteral("iat")},
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

void AiServiceSessionsTest::lastResultComesAfterFreeToo()
{
    // The order of the module: it stops, and frees at once.
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    startRecognition(path);
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

void AiServiceSessionsTest::secondRecognitionOfASession()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    QStringList ids;
    for (int run = 1; run <= 2; ++run) {
        ids << parsed(startRecognition(path)).value(QStringLiteral("session_id")).toString();
        m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));
        QTRY_COMPARE(m_client->signalsOf(QStringLiteral("onEnd")).size(), run);
    }
    QVERIFY(ids.first() != ids.last());
    QCOMPARE(parsed(m_client->signalsOf(QStringLiteral("onResult")).last())
                 .value(QStringLiteral("session_id"))
                 .toString(),
             ids.last());
}

void AiServiceSessionsTest::unsupportedParameters_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("English") << "language" << QVariant(QStringLiteral("en_us"));
    QTest::newRow("8000 Hz") << "sample_rate" << QVariant(QStringLiteral("8000"));
    QTest::newRow("plain results") << "result_type" << QVariant(QStringLiteral("plain"));
    QTest::newRow("another encoding") << "result_encoding" << QVariant(QStringLiteral("gb2312"));
    QTest::newRow("another service") << "sub" << QVariant(QStringLiteral("tts"));
}

void AiServiceSessionsTest::unsupportedParameters()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);

    const QString path = m_client->open(QStringLiteral("iat"));
    const QJsonObject answer = parsed(startRecognition(path, {{key, value}}));
    QCOMPARE(answer.value(QStringLiteral("status")), QJsonValue(2));

    QCOMPARE(parsed(startRecognition(path)).value(QStringLiteral("status")), QJsonValue(0));
}

void AiServiceSessionsTest::startedTwice()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QCOMPARE(parsed(startRecognition(path)).value(QStringLiteral("status")), QJsonValue(0));
    QCOMPARE(parsed(startRecognition(path)).value(QStringLiteral("status")), QJsonValue(1));
}

void AiServiceSessionsTest::missingModels()
{
    const QTemporaryDir empty;
    QVERIFY(m_service->stop());
    QVERIFY(m_service->start({QStringLiteral("--model"), empty.path()}));
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    const QString id =
        parsed(startRecognition(path)).value(QStringLiteral("session_id")).toString();

    QTRY_COMPARE(m_client->signalsOf(QStringLiteral("onEnd")).size(), 1);
    const QStringList errors = m_client->signalsOf(QStringLiteral("onError"));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(parsed(errors.first()).value(QStringLiteral("session_id")).toString(), id);
    QCOMPARE(parsed(errors.first()).value(QStringLiteral("errCode")), QJsonValue(1));
    QVERIFY(!parsed(errors.first()).value(QStringLiteral("errInfo")).toString().isEmpty());
}

void AiServiceSessionsTest::busIsNotStalled()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    startRecognition(path);
    QByteArray audio;
    for (int i = 0; i < 15; ++i)
        audio += spokenPhrase();
    m_client->putAudio(path, QStringLiteral("iat"), audio); // two minutes: seconds of decoding
    m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));

    int calls = 0;
    qint64 slowest = 0;
    while (m_client->signalsOf(QStringLiteral("onEnd")).isEmpty()) {
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(m_client->free(QStringLiteral("aqc")), 4);
        slowest = qMax(slowest, clock.elapsed());
        ++calls;
        QVERIFY2(slowest < 500, qPrintable(QString::number(slowest)));
        QCoreApplication::processEvents();
    }
    QVERIFY2(calls > 100, qPrintable(QString::number(calls)));
}

void AiServiceSessionsTest::endsWhileRecognising()
{
    const QString path = m_client->open(QStringLiteral("iat"));
    QVERIFY(m_client->listen(path));
    startRecognition(path);
    m_client->putAudio(path, QStringLiteral("iat"), spokenPhrase() + spokenPhrase());
    QTRY_VERIFY(!m_client->signalsOf(QStringLiteral("onResult")).isEmpty());
    QVERIFY(m_service->stop());
}

void AiServiceSessionsTest::recordsWhatItHears()
{
    const QTemporaryDir folder;
    m_service->setValue(QStringLiteral("recordDirectory"), folder.path());
    const QString path = m_client->open(QStringLiteral("iat"));
    const QByteArray audio = spokenPhrase();
    startRecognition(path);
    m_client->putAudio(path, QStringLiteral("iat"), audio);
    m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));
    m_client->putAudio(path, QStringLiteral("iat"), audio); // too late
    QCOMPARE(m_client->free(QStringLiteral("iat")), 0);

    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY(files.first().startsWith(QStringLiteral("iat-")));
    QCOMPARE(bytes(SpokenRecording::read(folder.filePath(files.first()))), audio);

    // Sessions opened after it is switched off are not recorded.
    m_service->setValue(QStringLiteral("recordDirectory"), QString());
    const QString check = m_client->open(QStringLiteral("aqc"));
    m_client->call(check, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->putAudio(check, QStringLiteral("aqc"), audio, true);
    QVERIFY(m_service->waitForCalls(QStringLiteral("putAudio"), 480));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

void AiServiceSessionsTest::memoryStaysFlat()
{
    const QByteArray audio = spokenPhrase().left(64000); // 2 s
    int ends = 0;
    const auto runs = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const QString path = m_client->open(QStringLiteral("iat"));
            if (!m_client->listen(path))
                return false;
            startRecognition(path);
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

QTEST_GUILESS_MAIN(AiServiceSessionsTest)
#include "aiservicesessions.moc"
