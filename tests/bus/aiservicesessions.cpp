#include "tests/bus/aiserviceclient.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QDBusError>
#include <QtTest>

#include <memory>

using namespace testsupport;

namespace {

const QString sessionsKey = QStringLiteral("sessions");

} // namespace

/** The sandbox's AI service on the bus: its sessions, and its checks of quality. */
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
    void recordsWhatItHears_data();
    void recordsWhatItHears();

private:
    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<AiServiceClient> m_client;
};

void AiServiceSessionsTest::init()
{
    m_service = std::make_unique<ServiceProcess>(QStringLiteral("aiservice"));
    QVERIFY(m_service->start());
    m_client = std::make_unique<AiServiceClient>(QStringLiteral("client"));
}

void AiServiceSessionsTest::cleanup()
{
    m_client.reset();
    m_service.reset();
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
    AiServiceClient other(QStringLiteral("other"));
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
        AiServiceClient other(QStringLiteral("other"));
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
    AiServiceClient other(QStringLiteral("other"));
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

void AiServiceSessionsTest::recordsWhatItHears_data()
{
    QTest::addColumn<bool>("option");
    QTest::newRow("sandbox-aiservice --record DIR") << true;
    QTest::newRow("over the control interface") << false;
}

void AiServiceSessionsTest::recordsWhatItHears()
{
    QFETCH(bool, option);
    const QTemporaryDir folder;
    if (option) {
        QVERIFY(m_service->stop());
        QVERIFY(m_service->start({QStringLiteral("--record"), folder.path()}));
    } else
        m_service->setValue(QStringLiteral("recordDirectory"), folder.path());
    const QString path = m_client->open(QStringLiteral("iat"));
    const QByteArray audio = spokenPhrase();
    startRecognition(m_client.get(), path);
    m_client->putAudio(path, QStringLiteral("iat"), audio);
    m_client->call(path, QStringLiteral("iat"), QStringLiteral("stopIat"));
    m_client->putAudio(path, QStringLiteral("iat"), audio); // too late
    QCOMPARE(m_client->free(QStringLiteral("iat")), 0);

    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY(files.first().startsWith(QStringLiteral("iat-")));
    QCOMPARE(bytes(spokenrecording::read(folder.filePath(files.first()))), audio);

    // Sessions opened after it is switched off are not recorded.
    m_service->setValue(QStringLiteral("recordDirectory"), QString());
    const QString check = m_client->open(QStringLiteral("aqc"));
    m_client->call(check, QStringLiteral("aqc"), QStringLiteral("startAqc"));
    m_client->putAudio(check, QStringLiteral("aqc"), audio, true);
    QVERIFY(m_service->waitForCalls(QStringLiteral("putAudio"), 480));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_CLASS(QCoreApplication, AiServiceSessionsTest)
#include "aiservicesessions.moc"
