#include "tests/support/serviceprocess.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using testsupport::ServiceProcess;

namespace {

struct Outcome
{
    int exitCode = -1;
    QString output;
    QString error;
};

/** Runs sandbox-control with @p words; the exit code stays -1 when it does not end in order. */
Outcome control(const QStringList &words)
{
    // Qt tells its own of an error a moment after the call has returned; at the end of a program
    // that is now and then too late, and counts as a leak.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    QProcess tool;
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral(SANDBOX_CONTROL), words);
    Outcome outcome;
    if (tool.waitForFinished(20000) && tool.exitStatus() == QProcess::NormalExit)
        outcome.exitCode = tool.exitCode();
    outcome.output = QString::fromUtf8(tool.readAllStandardOutput());
    outcome.error = QString::fromUtf8(tool.readAllStandardError());
    return outcome;
}

} // namespace

/** The command-line tool that steers services, against real ones. */
class SandboxControlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsTheState();
    void setsValuesInTheTypeOfTheKey_data();
    void setsValuesInTheTypeOfTheKey();
    void refusesValuesOfAnotherType();
    void namesTheSoundsThatTheMicrophoneHas();
    void scriptsReplies_data();
    void scriptsReplies();
    void hangsAndResumes();
    void leavesAndJoins();
    void failsAndRecovers_data();
    void failsAndRecovers();
    void saysWhatWasWrong_data();
    void saysWhatWasWrong();
    void helpNamesEveryVerb();
    void runsAsDocumented_data();
    void runsAsDocumented();
};

void SandboxControlTest::listsTheState()
{
    ServiceProcess keybinding("keybinding");
    QVERIFY(keybinding.start());
    const Outcome listed = control({"keybinding", "list"});
    QCOMPARE(listed.exitCode, 0);
    QCOMPARE(listed.output, QStringLiteral("speech-to-text = <Control><Alt>I\n"
                                           "text-to-speech = <Control><Alt>P\n"
                                           "translation = <Control><Alt>T\n"));
}

void SandboxControlTest::setsValuesInTheTypeOfTheKey_data()
{
    QTest::addColumn<QString>("service");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("bool") << "dock" << QStringList{"hidden", "true"} << QVariant(true);
    QTest::newRow("number on the system bus")
        << "networkmanager" << QStringList{"state", "60"} << QVariant(60u);
    QTest::newRow("list") << "keybinding" << QStringList{"translation", "<Super>t", "<Alt>t"}
                          << QVariant(QStringList{"<Super>t", "<Alt>t"});
    QTest::newRow("empty list") << "keybinding" << QStringList{"translation"}
                                << QVariant(QStringList());
}

void SandboxControlTest::setsValuesInTheTypeOfTheKey()
{
    QFETCH(QString, service);
    QFETCH(QStringList, words);
    QFETCH(QVariant, expected);
    ServiceProcess process(service);
    QVERIFY(process.start());
    const Outcome outcome = control(QStringList{service, "set"} + words);
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.exitCode, 0);
    const QVariant value = process.value(words.constFirst());
    QCOMPARE(value, expected);
}

void SandboxControlTest::refusesValuesOfAnotherType()
{
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    QCOMPARE(control({"dock", "set", "hidden", "1"}).exitCode, 1);
    QCOMPARE(control({"dock", "set", "hidden", "true", "true"}).exitCode, 1);
    QCOMPARE(control({"dock", "script", "getDockHideStatus", "reply", "int:many"}).exitCode, 1);
    QCOMPARE(dock.value("hidden"), QVariant(false));
}

void SandboxControlTest::namesTheSoundsThatTheMicrophoneHas()
{
    const QTemporaryDir folder;
    for (const char *name : {"kind", "quiet.wav", "speech.wav"})
        QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    qputenv("SANDBOX_MICROPHONE", folder.path().toLocal8Bit());
    ServiceProcess audio("audio");
    const bool started = audio.start();
    qunsetenv("SANDBOX_MICROPHONE");
    QVERIFY(started);

    QCOMPARE(control({"audio", "set", "microphone.sound", "quiet"}).exitCode, 0);
    const Outcome outcome = control({"audio", "set", "microphone.sound", "whistle"});
    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.error,
             QStringLiteral("sandbox-control: there is no sound \"whistle\", but quiet, speech\n"));
    QCOMPARE(audio.value("microphone.sound"), QVariant("quiet"));
}

void SandboxControlTest::scriptsReplies_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QVariantList>("expected");
    QTest::newRow("int") << QStringList{"reply", "int:7"} << QVariantList{7};
    QTest::newRow("bool") << QStringList{"reply", "bool:true"} << QVariantList{true};
    QTest::newRow("plain text") << QStringList{"reply", "a:b"} << QVariantList{"a:b"};
    QTest::newRow("several") << QStringList{"reply-list", "uint:7", "string:int:7"}
                             << QVariantList{7u, "int:7"};
    QTest::newRow("none") << QStringList{"reply-list"} << QVariantList();
    QTest::newRow("late") << QStringList{"delay", "20"} << QVariantList{false};
    QTest::newRow("error") << QStringList{"error", "no dock"} << QVariantList{"no dock"};
}

void SandboxControlTest::scriptsReplies()
{
    QFETCH(QStringList, words);
    QFETCH(QVariantList, expected);
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    const Outcome outcome = control(QStringList{"dock", "script", "getDockHideStatus"} + words);
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.exitCode, 0);
    const QDBusMessage call = QDBusMessage::createMethodCall(
        "com.corvane.aiassistant.dock", "/com/corvane/aiassistant/dockIconControl",
        "com.corvane.aiassistant.dock", "getDockHideStatus");
    QCOMPARE(QDBusConnection::sessionBus().call(call).arguments(), expected);

    const QStringList calls = control({"dock", "calls"}).output.split('\n');
    QCOMPARE(calls.size(), 2); // one line and its end
    QVERIFY(calls.constFirst().contains("\"member\":\"getDockHideStatus\""));
    QCOMPARE(control({"dock", "reset"}).exitCode, 0);
    QCOMPARE(QDBusConnection::sessionBus().call(call).arguments(), QVariantList{false});
}

void SandboxControlTest::hangsAndResumes()
{
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    QCOMPARE(control({"dock", "hang"}).exitCode, 0);
    QCOMPARE(control({"dock", "pid"}).output.trimmed(), QString::number(dock.processId()));
    QCOMPARE(control({"dock", "resume"}).exitCode, 0);
    QCOMPARE(control({"dock", "get", "hidden"}).output, QStringLiteral("false\n"));
}

void SandboxControlTest::leavesAndJoins()
{
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    const auto owned = [] {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(
            "com.corvane.aiassistant.dock");
    };
    QCOMPARE(control({"dock", "leave"}).exitCode, 0);
    QVERIFY(!owned());
    QCOMPARE(control({"dock", "join"}).exitCode, 0);
    QVERIFY(owned());
}

void SandboxControlTest::failsAndRecovers_data()
{
    QTest::addColumn<QStringList>("fault");
    QTest::addColumn<QString>("answer"); // signature; "error", or "none" for no answer at all
    QTest::newRow("slow") << QStringList{"slow", "20"} << "b";
    QTest::newRow("refusing") << QStringList{"refusing"} << "error";
    QTest::newRow("wrong types") << QStringList{"wrong-types"} << "d";
    QTest::newRow("hung") << QStringList{"hung"} << "none";
    QTest::newRow("stopped") << QStringList{"stopped"} << "error";
}

/** Each fault ends the one before it. */
void SandboxControlTest::failsAndRecovers()
{
    QFETCH(QStringList, fault);
    QFETCH(QString, answer);
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    const auto answered = [] {
        constexpr int patienceMs = 500;
        const QDBusMessage reply = QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall("com.corvane.aiassistant.dock",
                                           "/com/corvane/aiassistant/dockIconControl",
                                           "com.corvane.aiassistant.dock", "getDockHideStatus"),
            QDBus::Block, patienceMs);
        if (reply.type() == QDBusMessage::ReplyMessage)
            return reply.signature();
        return reply.errorName().endsWith("NoReply") ? QString("none") : QString("error");
    };
    for (const QStringList &before : {QStringList{"none"}, QStringList{"refusing"},
                                      QStringList{"hung"}, QStringList{"stopped"}}) {
        QCOMPARE(control(QStringList{"dock", "fault"} + before).error, QString());
        QCOMPARE(control(QStringList{"dock", "fault"} + fault).error, QString());
        QCOMPARE(answered(), answer);
    }
    QCOMPARE(control({"dock", "fault", "none"}).exitCode, 0);
    QCOMPARE(answered(), QString("b"));
}

void SandboxControlTest::saysWhatWasWrong_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("no words") << QStringList() << 2;
    QTest::newRow("no verb") << QStringList{"dock"} << 2;
    QTest::newRow("unknown verb") << QStringList{"dock", "dance"} << 2;
    QTest::newRow("too few words") << QStringList{"dock", "get"} << 2;
    QTest::newRow("too many words") << QStringList{"dock", "list", "all"} << 2;
    QTest::newRow("no such service") << QStringList{"toaster", "list"} << 3;
    QTest::newRow("unknown key") << QStringList{"dock", "get", "shown"} << 1;
    QTest::newRow("unknown behaviour")
        << QStringList{"dock", "script", "getDockHideStatus", "explode"} << 1;
    QTest::newRow("unknown fault") << QStringList{"dock", "fault", "moody"} << 1;
    QTest::newRow("slow by nothing") << QStringList{"dock", "fault", "slow"} << 1;
    QTest::newRow("slow by words") << QStringList{"dock", "fault", "slow", "much"} << 1;
    QTest::newRow("a time that says nothing") << QStringList{"dock", "fault", "hung", "7"} << 1;
}

void SandboxControlTest::saysWhatWasWrong()
{
    QFETCH(QStringList, words);
    QFETCH(int, exitCode);
    ServiceProcess dock("dock");
    QVERIFY(dock.start());
    const Outcome outcome = control(words);
    QCOMPARE(outcome.exitCode, exitCode);
    QVERIFY(!outcome.error.isEmpty());
    QCOMPARE(outcome.output, QString());
}

void SandboxControlTest::helpNamesEveryVerb()
{
    const Outcome help = control({"--help"});
    QCOMPARE(help.exitCode, 0);
    const QStringList verbs{"list",  "get",   "set",  "script", "fault",  "release", "reset",
                            "calls", "leave", "join", "hang",   "resume", "crash",   "pid"};
    for (const QString &verb : verbs)
        QVERIFY2(help.output.contains("  " + verb + " "), qPrintable(verb));
}

void SandboxControlTest::runsAsDocumented_data()
{
    QTest::addColumn<QString>("command");
    for (const char *command : {
             "sandbox-control dock set hidden true",
             "sandbox-control assistant list",
             "sandbox-control assistant script getIatEnable delay 3000",
             "sandbox-control assistant calls",
             "sandbox-control assistant fault slow 3000",
             "sandbox-control --help",
         })
        QTest::newRow(command) << QString(command);
}

void SandboxControlTest::runsAsDocumented()
{
    QFETCH(QString, command);
    ServiceProcess dock("dock");
    ServiceProcess assistant("assistant");
    QVERIFY(dock.start());
    QVERIFY(assistant.start());
    const Outcome outcome = control(command.split(' ').mid(1));
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.exitCode, 0);
}

QTEST_GUILESS_MAIN(SandboxControlTest)

#include "sandboxcontrol.moc"
