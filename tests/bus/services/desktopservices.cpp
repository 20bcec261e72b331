#include "tests/support/busrecorder.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <zframeworkdbus/audio.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using testsupport::BusRecorder;
using testsupport::ServiceProcess;

namespace {

QString shortcutReply(const QString &id, int type)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        "com.tavren.daemon.Keybinding", "/com/tavren/daemon/Keybinding",
        "com.tavren.daemon.Keybinding", "GetShortcut");
    message << id << type;
    const QDBusMessage reply = QDBusConnection::sessionBus().call(message);
    return reply.signature() == QLatin1String("s") ? reply.arguments().constFirst().toString()
                                                   : reply.errorName();
}

QStringList accelerators(const QString &reply)
{
    const QJsonObject object = QJsonDocument::fromJson(reply.toUtf8()).object();
    return object.value(QStringLiteral("Accels")).toVariant().toStringList();
}

QDBusMessage networkState(const QDBusConnection &bus)
{
    return bus.call(QDBusMessage::createMethodCall("org.freedesktop.NetworkManager",
                                                   "/org/freedesktop/NetworkManager",
                                                   "org.freedesktop.NetworkManager", "state"));
}

} // namespace

/** The stand-ins for services of the desktop itself: keybinding daemon, NetworkManager. */
class DesktopServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortcutsHaveDefaults_data();
    void shortcutsHaveDefaults();
    void changedShortcutSurvivesARestart();
    void shortcutWithoutAcceleratorsIsAnEmptyArray();
    void unknownShortcutIsAnEmptyReply();

    void networkStateIsOnTheSystemBusOnly();
    void networkStateIsSettableAndStartsAfresh();
};

void DesktopServicesTest::shortcutsHaveDefaults_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("speech-to-text") << QStringList{"<Control><Alt>I"};
    QTest::newRow("text-to-speech") << QStringList{"<Control><Alt>P"};
    QTest::newRow("translation") << QStringList{"<Control><Alt>T"};
}

void DesktopServicesTest::shortcutsHaveDefaults()
{
    QFETCH(QStringList, expected);
    ServiceProcess keybinding("keybinding");
    QVERIFY(keybinding.start());
    const QString id = QString::fromLatin1(QTest::currentDataTag());
    const QString reply = shortcutReply(id, 0);
    QCOMPARE(accelerators(reply), expected);
    const QJsonObject object = QJsonDocument::fromJson(reply.toUtf8()).object();
    QCOMPARE(object.value("Id").toString(), id);
    QCOMPARE(object.value("Type").toInt(-1), 0);
}

void DesktopServicesTest::changedShortcutSurvivesARestart()
{
    ServiceProcess keybinding("keybinding");
    QVERIFY(keybinding.start());
    const QStringList changed{"<Super>t", "<Alt>Control_L"};
    keybinding.setValue("translation", changed);
    QCOMPARE(accelerators(shortcutReply("translation", 0)), changed);
    keybinding.kill();
    QVERIFY(keybinding.start());
    QCOMPARE(accelerators(shortcutReply("translation", 0)), changed);
}

void DesktopServicesTest::shortcutWithoutAcceleratorsIsAnEmptyArray()
{
    ServiceProcess keybinding("keybinding");
    QVERIFY(keybinding.start());
    keybinding.setValue("translation", QStringList());
    QVERIFY(shortcutReply("translation", 0).contains("\"Accels\":[]"));
}

void DesktopServicesTest::unknownShortcutIsAnEmptyReply()
{
    ServiceProcess keybinding("keybinding");
    QVERIFY(keybinding.start());
    QCOMPARE(shortcutReply("calculator", 0), QString());
    QCOMPARE(shortcutReply("translation", 1), QString());
}

void DesktopServicesTest::networkStateIsOnTheSystemBusOnly()
{
    ServiceProcess network("networkmanager");
    QVERIFY(network.start());
    QCOMPARE(networkState(QDBusConnection::systemBus()).arguments(), QVariantList{70u});
    QCOMPARE(networkState(QDBusConnection::sessionBus()).errorName(),
             QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown"));
}

void DesktopServicesTest::networkStateIsSettableAndStartsAfresh()
{
    ServiceProcess network("networkmanager");
    QVERIFY(network.start());
    network.setValue("state", 20u);
    QCOMPARE(networkState(QDBusConnection::systemBus()).arguments(), QVariantList{20u});
    QVERIFY(network.stop());
    QVERIFY(network.start());
    QCOMPARE(networkState(QDBusConnection::systemBus()).arguments(), QVariantList{70u});
}

TEST_CLASS(QCoreApplication, DesktopServicesTest)

/** The audio daemon's proxy: passes its signal on, and asks the daemon nothing. */
class PlatformAudioTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void asksNothing();
    void passesTheSignalOn();
    void ignoresOtherObjectsAndInterfaces();
    void survivesWithoutABus();

private:
    static QString service() { return QStringLiteral("com.tavren.daemon.Audio"); }
    static QString path() { return QStringLiteral("/com/tavren/daemon/Audio"); }
    static void announce(const QString &objectPath, const QString &interface);
    static QDBusConnection daemon()
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("daemon"));
    }
};

void PlatformAudioTest::announce(const QString &objectPath, const QString &interface)
{
    QDBusMessage signal =
        QDBusMessage::createSignal(objectPath, interface, QStringLiteral("DefaultSourceChanged"));
    signal << QVariant::fromValue(QDBusObjectPath(QStringLiteral("/source/7")));
    QVERIFY(daemon().send(signal));
}

void PlatformAudioTest::initTestCase()
{
    QVERIFY(QDBusConnection::sessionBus().isConnected());
    QVERIFY(daemon().registerService(service()));
    QCOMPARE(QString::fromLatin1(__Audio::staticInterfaceName()), service());
}

void PlatformAudioTest::asksNothing()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    {
        __Audio audio(service(), path(), QDBusConnection::sessionBus());
        QVERIFY(audio.isValid());
        QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
        QVERIFY(changed.isValid());
        QVERIFY(recorder.sync());
    }
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(), QStringList());
}

void PlatformAudioTest::passesTheSignalOn()
{
    __Audio audio(service(), path(), QDBusConnection::sessionBus());
    QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
    announce(path(), service());
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<QDBusObjectPath>().path(), QStringLiteral("/source/7"));
}

void PlatformAudioTest::ignoresOtherObjectsAndInterfaces()
{
    __Audio audio(service(), path(), QDBusConnection::sessionBus());
    QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
    announce(QStringLiteral("/somewhere/else"), service());
    announce(path(), QStringLiteral("com.tavren.daemon.Other"));
    announce(path(), service()); // comes last, so the others have come when it has
    QTRY_VERIFY(changed.count() > 0);
    QCOMPARE(changed.count(), 1);
}

void PlatformAudioTest::survivesWithoutABus()
{
    __Audio audio(service(), path(), QDBusConnection(QStringLiteral("no such connection")));
    QVERIFY(!audio.isValid());
    QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
    QCOMPARE(changed.count(), 0);
}

TEST_CLASS(QCoreApplication, PlatformAudioTest)

#include "desktopservices.moc"
