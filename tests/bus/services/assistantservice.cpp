#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QSettings>
#include <QtTest>

using testsupport::IsolatedHome;
using testsupport::ServiceProcess;

namespace {

const QString serviceName = QStringLiteral("com.corvane.aiassistant");

QDBusMessage callTo(const QString &object, const QString &interface, const QString &member,
                    const QVariantList &arguments = {})
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(serviceName, QStringLiteral("/aiassistant/") + object,
                                       serviceName + QLatin1Char('.') + interface, member);
    message.setArguments(arguments);
    return message;
}

} // namespace

/** The assistant service: five objects, one state. */
class AssistantServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void writeIsReadBack_data();
    void writeIsReadBack();
    void stateSurvivesARestart();
    void brokenStateFileGivesTheDefaults_data();
    void brokenStateFileGivesTheDefaults();
    void wakeupStoreIsWrittenBeforeTheAnswer();
    void wakeupStoreIsReadAnew();
    void wakeupWorksWithAnInvalidStore();
    void writeThatNobodyWaitsForIsDone();
    void speakerOfTheAssistantIsKept();
    void interfaceAndPathMustFit();

private:
    IsolatedHome m_home; // before the first settings store of this process
    std::unique_ptr<ServiceProcess> m_assistant;
};

void AssistantServiceTest::init()
{
    m_home.clear();
    m_assistant = std::make_unique<ServiceProcess>("assistant");
    QVERIFY(m_assistant->start());
}

void AssistantServiceTest::cleanup()
{
    m_assistant.reset();
}

void AssistantServiceTest::writeIsReadBack_data()
{
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("setter");
    QTest::addColumn<QString>("getter");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("key");
    QTest::newRow("speech to text off") << "iat"
                                        << "setIatEnable"
                                        << "getIatEnable" << QVariant(false) << "iat.enabled";
    QTest::newRow("speech to text, English")
        << "iat"
        << "setIatLanguage"
        << "getIatLanguage" << QVariant("en_us") << "iat.language";
    QTest::newRow("text to speech off") << "tts"
                                        << "setTTSEnable"
                                        << "getTTSEnable" << QVariant(false) << "tts.enabled";
    QTest::newRow("speech widget off") << "tts"
                                       << "setEnableWindow"
                                       << "getEnableWindow" << QVariant(false) << "tts.window";
    QTest::newRow("child's voice") << "tts"
                                   << "setSpeaker"
                                   << "getSpeaker" << QVariant("x2_pella") << "tts.speaker";
    QTest::newRow("translation off") << "trans"
                                     << "setTransEnable"
                                     << "getTransEnable" << QVariant(false) << "trans.enabled";
    QTest::newRow("Chinese to English")
        << "trans"
        << "setTransLanguage"
        << "getTransLanguage" << QVariant("cn|en") << "trans.language";
}

void AssistantServiceTest::writeIsReadBack()
{
    QFETCH(QString, object);
    QFETCH(QString, setter);
    QFETCH(QString, getter);
    QFETCH(QVariant, value);
    QFETCH(QString, key);
    QDBusConnection bus = QDBusConnection::sessionBus();
    QVERIFY(bus.call(callTo(object, object, getter)).arguments() != QVariantList{value});

    const QDBusMessage written = bus.call(callTo(object, object, setter, {value}));
    QCOMPARE(written.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(written.signature(), QString());
    QCOMPARE(bus.call(callTo(object, object, getter)).arguments(), QVariantList{value});
    QCOMPARE(m_assistant->value(key), value);
}

void AssistantServiceTest::stateSurvivesARestart()
{
    const QVariantMap state{{"iat.enabled", false},          {"iat.language", "en_us"},
                            {"tts.enabled", false},          {"tts.window", false},
                            {"tts.speaker", "x_morven"},     {"trans.enabled", false},
                            {"trans.language", "cn|en"},     {"wakeup.enabled", true},
                            {"assistant.speaker", "morven"}, {"wakeup.oneshot", true}};
    for (auto value = state.constBegin(); value != state.constEnd(); ++value)
        m_assistant->setValue(value.key(), value.value());
    m_assistant->kill();
    QVERIFY(m_assistant->start());
    for (auto value = state.constBegin(); value != state.constEnd(); ++value)
        QCOMPARE(m_assistant->value(value.key()), value.value());
}

void AssistantServiceTest::brokenStateFileGivesTheDefaults_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("nothing in it") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("enabled = yes");
    QTest::newRow("an array") << QByteArray("[true]");
    QTest::newRow("an object") << QByteArray("{\"trans.language\": {\"to\": \"en\"}}");
    QTest::newRow("a number") << QByteArray("{\"trans.language\": 7}");
    QTest::newRow("a bool") << QByteArray("{\"trans.language\": true}");
}

void AssistantServiceTest::brokenStateFileGivesTheDefaults()
{
    QFETCH(QByteArray, contents);
    const QString fileName = m_home.dataFile("broken.json");
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), qint64(contents.size()));
    file.close();

    QVERIFY(m_assistant->stop());
    QVERIFY(m_assistant->start({"--state", fileName}));
    QCOMPARE(m_assistant->value("trans.language"), QVariant("en|cn"));
    m_assistant->setValue("trans.language", QStringLiteral("cn|en"));
    QVERIFY(m_assistant->stop());
    QVERIFY(m_assistant->start({"--state", fileName}));
    QCOMPARE(m_assistant->value("trans.language"), QVariant("cn|en"));
}

void AssistantServiceTest::wakeupStoreIsWrittenBeforeTheAnswer()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    const auto stored = [](const char *key) {
        return QSettings("corvane", "TavrenVoiceWakeuper").value(key).toBool();
    };
    const auto send = [&bus](const char *member) {
        return bus.call(callTo("voicewakeuper", "voicewakeuper", member));
    };
    QCOMPARE(send("enableIvw").arguments(), QVariantList{0});
    QVERIFY(stored("base/enable"));
    QCOMPARE(send("enableOneshot").signature(), QString());
    QVERIFY(stored("base/enableOneshot"));
    QCOMPARE(send("disableIvw").arguments(), QVariantList{0});
    QVERIFY(!stored("base/enable"));
    QVERIFY(stored("base/enableOneshot"));
    send("disableOneshot");
    QVERIFY(!stored("base/enableOneshot"));
    QVERIFY(QFile::exists(m_home.wakeupSettingsFile()));
}

void AssistantServiceTest::wakeupStoreIsReadAnew()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.call(callTo("voicewakeuper", "voicewakeuper", "enableIvw"));
    QVERIFY(m_home.writeWakeupSettings("[base]\nenable=false\n"));
    QCOMPARE(m_assistant->value("wakeup.enabled"), QVariant(false));
    bus.call(callTo("voicewakeuper", "voicewakeuper", "enableIvw"));
    QVERIFY(QSettings("corvane", "TavrenVoiceWakeuper").value("base/enable").toBool());
}

void AssistantServiceTest::wakeupWorksWithAnInvalidStore()
{
    QVERIFY(m_assistant->stop());
    QVERIFY(m_home.writeWakeupSettings("\x01\x02[[[base\nenable=@Variant(rubbish\n\n=\n"));
    QVERIFY(m_assistant->start());
    QCOMPARE(m_assistant->value("wakeup.enabled"), QVariant(false));
    QDBusConnection::sessionBus().call(callTo("voicewakeuper", "voicewakeuper", "enableIvw"));
    QCOMPARE(m_assistant->value("wakeup.enabled"), QVariant(true));
    QVERIFY(QSettings("corvane", "TavrenVoiceWakeuper").value("base/enable").toBool());
}

void AssistantServiceTest::writeThatNobodyWaitsForIsDone()
{
    QDBusConnection::sessionBus().call(callTo("iat", "iat", "setIatEnable", {false}),
                                       QDBus::NoBlock);
    QVERIFY(m_assistant->waitForCalls("setIatEnable"));
    QCOMPARE(m_assistant->value("iat.enabled"), QVariant(false));
    QCOMPARE(m_assistant->calls().constFirst().replyExpected, false);
    QCOMPARE(m_assistant->errorLines(), QStringList{"assistant: iat enabled -> false"});
}

void AssistantServiceTest::speakerOfTheAssistantIsKept()
{
    QDBusConnection::sessionBus().call(
        callTo("tavrenmain", "mainWindow", "setVOXASpeaker", {QStringLiteral("morven")}));
    QCOMPARE(m_assistant->value("assistant.speaker"), QVariant("morven"));
    QCOMPARE(m_assistant->value("tts.speaker"), QVariant("x_tovali"));
}

void AssistantServiceTest::interfaceAndPathMustFit()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    QCOMPARE(bus.call(callTo("iat", "tts", "getTTSEnable")).errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    QCOMPARE(bus.call(callTo("mainWindow", "mainWindow", "setVOXASpeaker", {"morven"})).type(),
             QDBusMessage::ErrorMessage);
}

QTEST_GUILESS_MAIN(AssistantServiceTest)

#include "assistantservice.moc"
