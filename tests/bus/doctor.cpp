// The doctor in every world that it must tell apart. It runs as it is installed, in a process of
// its own; the buses are this test's, and so are the services that break their contract.

#include "tests/support/busrecorder.h"
#include "tests/support/doctorrun.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QtTest>

#include <memory>
#include <vector>

using namespace testsupport;

namespace {

const QString dockName = QStringLiteral("com.corvane.aiassistant.dock");

/** An object that says of itself what it is told, and answers nothing else. */
class SelfDescribed : public QDBusVirtualObject
{
public:
    QString xml; // null: cannot be introspected

    QString introspect(const QString &) const override { return xml; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.interface() == QLatin1String("org.freedesktop.DBus.Introspectable")) {
            if (!xml.isNull())
                return false;
            bus.send(message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("none")));
            return true;
        }
        bus.send(message.createReply(false));
        return true;
    }
};

} // namespace

class DoctorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void allWell();
    void reportIsDocumented();
    void absentService_data();
    void absentService();
    void hungServicesCostTwoSecondsInAll();
    void oneCallHangs();
    void answersOfAnotherType();
    void valuesThatPeopleNotice();
    void interfaceAgainstItsContract_data();
    void interfaceAgainstItsContract();
    void sessions();
    void sessionsThatAreNotOpened_data();
    void sessionsThatAreNotOpened();
    void asksAndWritesNothing();

private:
    ServiceProcess *service(const QString &name);

    std::vector<std::unique_ptr<ServiceProcess>> m_services;
    QStringList m_names;
};

void DoctorTest::init()
{
    m_names =
        QStringList{"assistant", "dock", "keybinding", "aiservice", "audio", "networkmanager"};
    for (const QString &name : qAsConst(m_names)) {
        m_services.push_back(std::make_unique<ServiceProcess>(name));
        QVERIFY(m_services.back()->start());
    }
}

void DoctorTest::cleanup()
{
    m_services.clear();
}

ServiceProcess *DoctorTest::service(const QString &name)
{
    return m_services.at(std::size_t(m_names.indexOf(name))).get();
}

void DoctorTest::allWell()
{
    const Environment chinese{{"LC_ALL", "zh_CN.UTF-8"}, {"TRANSLATIONS_DIR", CATALOGUES}};
    const QStringList command{WITH_TRANSLATIONS, DOCTOR, "--plugin", MODULE_FILE};
    const Run result = run(command + QStringList{"--json"}, chinese);
    QCOMPARE(result.having("failure") + result.having("warning"), QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.of("plugin"), QStringLiteral("ok: loads, api 1.0.0"));
    QCOMPARE(result.of("service").count("ok: runs, and answers within"), 6);
    QCOMPARE(result.of("interface").count("ok: is as in its contract"), 10);
    QCOMPARE(result.of("dock"), QStringLiteral("ok: is shown: \"Show in the Dock\" is on"));
    QCOMPARE(result.of("shortcut", "translation"), QStringLiteral("ok: is <Control><Alt>T"));
    QCOMPARE(result.of("network"), QStringLiteral("ok: is in state 70, connected global"));
    QCOMPARE(result.of("microphone", "mic"),
             QStringLiteral("ok: is the default one; nothing more is known unless it is opened, "
                            "see --listen"));

    const Run plain = run(command, chinese);
    QCOMPARE(plain.exitCode, 0);
    QVERIFY(plain.output.contains("\nok       shortcut   translation is <Control><Alt>T\n"));
    QVERIFY(plain.output.endsWith(", warnings: 0, failures: 0\n"));
}

void DoctorTest::reportIsDocumented()
{
    const QString page = textOf("doctor/assistant-control-doctor.1");
    const QJsonObject report = QJsonDocument::fromJson(examine().output).object();
    QCOMPARE(report.keys(), (QStringList{"checks", "program", "status", "version"}));
    const QStringList keys{"check", "finding", "remedy", "seen", "status", "subject"};
    const QJsonArray checks = report.value("checks").toArray();
    for (const QJsonValue &check : checks) {
        QCOMPARE(check.toObject().keys(), keys);
        const QString name = check.toObject().value("check").toString();
        QVERIFY2(page.contains(".B " + name + '\n'), qPrintable(name));
    }
    for (const QString &key : report.keys() + keys)
        QVERIFY2(page.contains(".B " + key + '\n'), qPrintable(key));
}

// What it says that people see is there to be seen.

void DoctorTest::absentService_data()
{
    QTest::addColumn<QString>("busName");
    QTest::addColumn<bool>("noticed");
    QTest::newRow("assistant") << "com.corvane.aiassistant" << true;
    QTest::newRow("dock") << dockName << true;
    QTest::newRow("keybinding") << "com.tavren.daemon.Keybinding" << true;
    QTest::newRow("aiservice") << "com.corvane.aiservice" << true;
    QTest::newRow("audio") << "com.tavren.daemon.Audio" << false;
    QTest::newRow("networkmanager") << "org.freedesktop.NetworkManager" << true;
}

void DoctorTest::absentService()
{
    QFETCH(QString, busName);
    QFETCH(bool, noticed);
    service(QTest::currentDataTag())->leaveBus();
    const Run result = examine();
    const QString status = noticed ? QStringLiteral("failure") : QStringLiteral("warning");
    QCOMPARE(result.exitCode, int(noticed));
    QCOMPARE(result.of("service", busName),
             status + QStringLiteral(": does not run, and the bus cannot start it"));
    QVERIFY(!result.of("interface").contains("failure"));
    QCOMPARE(result.having("failure").size(), int(noticed));
}

void DoctorTest::hungServicesCostTwoSecondsInAll()
{
    for (const auto &hung : m_services)
        hung->hang();
    const Run result = examine();
    QCOMPARE(result.of("service").count("runs, and does not answer within 2 s"), 6);
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.milliseconds >= 1800); // QtDBus waits with coarse timers
    // One after another they would take at least twelve seconds.
    QVERIFY2(result.milliseconds < 6000, qPrintable(QString::number(result.milliseconds)));
}

void DoctorTest::oneCallHangs()
{
    service("assistant")->script("getSpeaker", "hold");
    const Run result = examine();
    QCOMPARE(result.of("interface", "com.corvane.aiassistant.tts"),
             QStringLiteral("failure: getSpeaker does not answer within 2 s"));
    QCOMPARE(result.having("failure"), QStringList{"interface com.corvane.aiassistant.tts"});
}

void DoctorTest::answersOfAnotherType()
{
    service("assistant")->script("getIatEnable", "reply", "yes");
    service("dock")->script("getDockHideStatus", "error", "no dock");
    service("networkmanager")->script("state", "reply-list", QVariantList());
    const Run result = examine();
    QCOMPARE(result.of("interface", "com.corvane.aiassistant.iat"),
             QStringLiteral("failure: getIatEnable answers \"s\", not \"b\""));
    QCOMPARE(result.of("interface", dockName),
             QStringLiteral("failure: getDockHideStatus fails: no dock"));
    QCOMPARE(result.of("interface", "org.freedesktop.NetworkManager"),
             QStringLiteral("failure: state answers \"\", not \"u\""));
    QCOMPARE(result.of("dock") + result.of("network"), QString());
    QCOMPARE(result.exitCode, 1);
}

void DoctorTest::valuesThatPeopleNotice()
{
    service("dock")->setValue("hidden", true);
    service("keybinding")->setValue("translation", QStringList());
    service("networkmanager")->setValue("state", 60u);
    const Run result = examine();
    QCOMPARE(result.of("dock"), QStringLiteral("ok: is hidden: \"Show in the Dock\" is off"));
    QCOMPARE(result.of("shortcut", "translation"), QStringLiteral("failure: has no keys"));
    QCOMPARE(result.of("network"), QStringLiteral("failure: is in state 60, connected site"));
    QCOMPARE(result.having("failure"),
             (QStringList{"shortcut translation", "network NetworkManager"}));

    service("keybinding")->script("GetShortcut", "reply", "");
    QCOMPARE(examine().of("shortcut", "translation"),
             QStringLiteral("failure: is not known to the keybinding daemon"));
}

void DoctorTest::interfaceAgainstItsContract_data()
{
    const QString dock = contract(dockName);
    const QString set = QStringLiteral("<method name=\"setDockHideStatus\">");
    const QString out = QStringLiteral("direction=\"out\"");
    const QString status = QStringLiteral("name=\"hidden\" type=\"b\" ") + out;
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("expected");
    QTest::newRow("as it is") << dock << "ok: is as in its contract";
    QTest::newRow("extra") << QString(dock).replace(set, "<method name=\"x\"/>" + set)
                           << "ok: is as in its contract; members beyond it: 1";
    QTest::newRow("missing") << QString(dock).replace("\"setDockHideStatus\"", "\"other\"")
                             << "failure: method setDockHideStatus is missing";
    QTest::newRow("signal missing") << QString(dock).replace("\"dockHideChange\"", "\"other\"")
                                    << "warning: signal dockHideChange is missing";
    QTest::newRow("arguments") << QString(dock).replace("name=\"hide\" type=\"b\" direction",
                                                        "type=\"i\" direction")
                               << "failure: setDockHideStatus has the arguments \"i\", not \"b\"";
    QTest::newRow("reply that is read") << QString(dock).replace(status, "type=\"s\" " + out)
                                        << "failure: getDockHideStatus replies \"s\", not \"b\"";
    QTest::newRow("reply that is not")
        << QString(dock).replace("name=\"done\" type=\"b\"", "type=\"i\"")
        << "warning: setDockHideStatus replies \"i\", not \"b\"";
    QTest::newRow("no introspection")
        << QString() << "warning: cannot be introspected, so it was not compared";
    QTest::newRow("not XML") << "<interface"
                             << "warning: cannot be introspected, so it was not compared";
}

void DoctorTest::interfaceAgainstItsContract()
{
    QFETCH(QString, xml);
    QFETCH(QString, expected);
    service("dock")->leaveBus();
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "stub");
    SelfDescribed object;
    object.xml = xml;
    QVERIFY(bus.registerVirtualObject("/com/corvane/aiassistant/dockIconControl", &object));
    QVERIFY(bus.registerService(dockName));
    const Run result = examine();
    QVERIFY(bus.unregisterService(dockName));
    QDBusConnection::disconnectFromBus("stub");
    QCOMPARE(result.of("interface", dockName), expected);
    QCOMPARE(result.exitCode, int(expected.startsWith("failure")));
}

void DoctorTest::sessions()
{
    ServiceProcess *const aiService = service("aiservice");
    const Run result = runDoctor({"--json", "--session", "--plugin", MODULE_FILE});
    QCOMPARE(result.of("session", "aqc"),
             QStringLiteral("ok: was opened at /com/corvane/aiservice/aqc/1 and freed"));
    QCOMPARE(result.of("session", "iat"),
             QStringLiteral("ok: was opened at /com/corvane/aiservice/iat/2 and freed"));
    for (const char *interface : {"com.corvane.aiservice.aqc", "com.corvane.aiservice.iat"})
        QCOMPARE(result.of("interface", interface), QStringLiteral("ok: is as in its contract"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(aiService->calls("freeSession").size(), 2);
    QCOMPARE(aiService->value("sessions"), QVariant(QStringList()));
    // No sound was sent, and nothing was started.
    QCOMPARE(aiService->calls("putAudio").size() + aiService->calls("startAqc").size() +
                 aiService->calls("startIat").size(),
             0);
}

void DoctorTest::sessionsThatAreNotOpened_data()
{
    QTest::addColumn<QString>("behaviour");
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("expected");
    const QVariant path = QVariant::fromValue(QDBusObjectPath("/none"));
    QTest::newRow("refused") << "reply-list" << QVariant(QVariantList{path, 7})
                             << "failure: is refused with the code 7";
    QTest::newRow("error") << "error" << QVariant("no room")
                           << "failure: cannot be opened: no room";
    QTest::newRow("without an object")
        << "reply" << QVariant(0) << "failure: was opened without an object";
    QTest::newRow("late") << "hold" << QVariant(0) << "failure: is not opened within 2 s";
}

void DoctorTest::sessionsThatAreNotOpened()
{
    QFETCH(QString, behaviour);
    QFETCH(QVariant, argument);
    QFETCH(QString, expected);
    ServiceProcess *const aiService = service("aiservice");
    aiService->script("createSession", behaviour, argument);
    const Run result = runDoctor({"--json", "--session"});
    QCOMPARE(result.of("session", "aqc"), expected);
    QCOMPARE(result.of("session", "iat"), expected);
    // One that is opened late is freed, too.
    aiService->release("createSession");
    QCOMPARE(aiService->calls("freeSession").size(), 2);
    QCOMPARE(aiService->value("sessions"), QVariant(QStringList()));
}

void DoctorTest::asksAndWritesNothing()
{
    QStringList questions{"GetShortcut",      "Introspect",   "getDockHideStatus",
                          "getEnableWindow",  "getIatEnable", "getIatLanguage",
                          "getSpeaker",       "getTTSEnable", "getTransEnable",
                          "getTransLanguage", "state"};
    QSet<QString> asked;
    BusRecorder recorders[] = {BusRecorder(QDBusConnection::SessionBus),
                               BusRecorder(QDBusConnection::SystemBus)};
    for (BusRecorder &recorder : recorders)
        QVERIFY(recorder.start());
    QCOMPARE(examine().having("failure"), QStringList());
    for (BusRecorder &recorder : recorders) {
        QVERIFY(recorder.sync());
        const QList<BusMessage> messages = recorder.messages();
        for (const BusMessage &message : messages) {
            if (message.type != BusMessage::Call ||
                message.destination == QLatin1String("org.freedesktop.DBus"))
                continue;
            QVERIFY2(!message.autoStart, qPrintable(message.summary()));
            asked.insert(message.member);
        }
    }
    QStringList members = asked.values();
    members.sort();
    QCOMPARE(members, questions);
}

TEST_CLASS(QCoreApplication, DoctorTest)
#include "doctor.moc"
