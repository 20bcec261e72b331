#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

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

QTEST_GUILESS_MAIN(DesktopServicesTest)

#include "desktopservices.moc"
