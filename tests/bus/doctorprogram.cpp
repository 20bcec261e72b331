// The doctor as a program: the module it looks at, what it is asked, what is written about it; and
// on a bus that is not as it should be, or not there.

#include "tests/support/doctorrun.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/translationsreader.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <csignal>

using namespace testsupport;

class DoctorProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void catalogues_data();
    void catalogues();
    void noMicrophone();
    void leavesNoFile();
    void plugins_data();
    void plugins();
    void wrongUsage_data();
    void wrongUsage();
    void everyOptionIsDocumented();
    void quotesTheModulesTexts();
    void documentsAreCurrent();
    void contractDocumentHasEveryMember_data();
    void contractDocumentHasEveryMember();
};

void DoctorProgramTest::catalogues_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("expected");
    const QString folder = QStringLiteral("/usr/share/TavrenAIAssistant/translations/");
    QTest::newRow("missing") << "zh_CN" << QString()
                             << "failure: cannot have " + folder +
                                    "assistant-control-plugin_zh_CN.qm: it is not there";
    QTest::newRow("broken") << "ug_CN"
                            << "not a catalogue"
                            << "failure: cannot have " + folder +
                                   "assistant-control-plugin_ug.qm: it is no catalogue";
    QTest::newRow("missing, English")
        << "en_GB" << QString()
        << "warning: cannot have " + folder + "aassistant-control-plugin_en.qm: it is not there";
    QTest::newRow("no such language")
        << "de_DE" << QString() << "warning: has no message catalogue";
}

void DoctorProgramTest::catalogues()
{
    QFETCH(QString, locale);
    QFETCH(QString, content);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("translations"));
    const QString catalogues = folder.filePath("translations");
    if (!content.isNull()) {
        QFile file(catalogues + expected.mid(expected.lastIndexOf('/')).section(':', 0, 0));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content.toUtf8());
    }
    const Run result = run({WITH_TRANSLATIONS, DOCTOR, "--json", "--plugin", MODULE_FILE},
                           {{"LC_ALL", locale + ".UTF-8"}, {"TRANSLATIONS_DIR", catalogues}});
    QCOMPARE(result.of("catalogue", locale), expected);
}

void DoctorProgramTest::noMicrophone()
{
    // The second is what PipeWire calls none.
    for (const char *name : {"", "@DEFAULT_SOURCE@"}) {
        const Run result =
            runDoctor({"--json", "--listen"}, {{"SCRIPTED_MICROPHONE", QLatin1String(name)}});
        QCOMPARE(result.of("microphone", "none"),
                 QStringLiteral("failure: is there, or Qt has no plugin for the sound server"));
        QCOMPARE(result.of("listen", "none"), QStringLiteral("failure: gave no sound"));
    }
}

// Not even what the sound server's library would make for a person without a session.
void DoctorProgramTest::leavesNoFile()
{
    const QTemporaryDir home;
    const Environment bare{{"HOME", home.path()},
                           {"TMPDIR", home.path()},
                           {"XDG_CONFIG_HOME", home.filePath(".config")}};
    const Run result =
        run({"env", "-u", "XDG_RUNTIME_DIR", DOCTOR, "--json", "--plugin", MODULE_FILE}, bare);
    QCOMPARE(result.of("microphone", "mic").section(';', 0, 0),
             QStringLiteral("ok: is the default one"));
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(home.path()).entryList(all), QStringList());
}

void DoctorProgramTest::plugins_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("check");
    QTest::addColumn<QString>("expected");
    QTest::newRow("missing") << "/nonexistent/module.so"
                             << "plugin"
                             << "is not there";
    QTest::newRow("no library") << SOURCE_ROOT "/README.md"
                                << "plugin"
                                << "is not a plugin of this Qt";
    QTest::newRow("of another kind")
        << FOREIGN_PLUGIN << "plugin"
        << "declares the interface \"org.qt-project.qt.audiosystemfactory/5.0\", "
           "not \"com.tavren.zde.ControlCenter.module/1.0\"";
    QTest::newRow("of libraries that are not there") << BROKEN_MODULE << "plugin"
                                                     << "undefined symbol: ";
    QTest::newRow("crashes") << CRASHING_MODULE << "group"
                             << "ends before it has a result: Process crashed";
}

void DoctorProgramTest::plugins()
{
    QFETCH(QString, file);
    QFETCH(QString, check);
    QFETCH(QString, expected);
    const Run result = runDoctor({"--json", "--plugin", file});
    QVERIFY2(result.of(check).startsWith("failure: "), result.output.constData());
    QVERIFY2(result.of(check).contains(expected), qPrintable(result.of(check)));
    QVERIFY(!result.of("service").isEmpty()); // the other checks go on
    QCOMPARE(result.exitCode, 1);
}

void DoctorProgramTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown option") << QStringList{"--dance"};
    QTest::newRow("missing value") << QStringList{"--plugin"};
    QTest::newRow("word") << QStringList{"everything"};
}

void DoctorProgramTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const Run result = runDoctor(arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.error.startsWith("assistant-control-doctor: "));
    QCOMPARE(result.output, QByteArray());
}

void DoctorProgramTest::everyOptionIsDocumented()
{
    const QString page = textOf("doctor/assistant-control-doctor.1").remove('\\');
    const QString completion = textOf("doctor/completion/assistant-control-doctor");
    const Run help = runDoctor({"--help"});
    QCOMPARE(help.exitCode, 0);
    auto option = QRegularExpression("--[a-z]+").globalMatch(help.output);
    int options = 0;
    for (; option.hasNext(); ++options) {
        const QString name = option.next().captured();
        QVERIFY2(page.contains(name) && completion.contains(name), qPrintable(name));
    }
    QVERIFY(options >= 7);
    QCOMPARE(runDoctor({"--version"}).output, QByteArray("assistant-control-doctor " VERSION "\n"));
}

void DoctorProgramTest::quotesTheModulesTexts()
{
    const auto catalogue = Catalogue::fromFile(
        QStringLiteral(SOURCE_ROOT "/translations/assistant-control-plugin_en_US.ts"));
    QSet<QString> texts;
    for (const CatalogueMessage &message : catalogue.messages)
        texts.insert(message.source);
    QString said;
    for (const char *document : {"docs/contract.md", "docs/failures.md"}) {
        const QString text = textOf(document);
        said += text.mid(text.indexOf("\n## ")); // without the introduction
    }
    said.remove(QRegularExpression("\n- [^\n]*")); // what the contracts say of their own values
    const QJsonArray checks = runDoctor({"--json"}).checks();
    for (const QJsonValue &check : checks)
        said += '\n' + check.toObject().value("seen").toString();
    auto quote = QRegularExpression("\"([^\"\n]+)\"").globalMatch(said);
    int quotes = 0;
    for (; quote.hasNext(); ++quotes) {
        const QString text = quote.next().captured(1);
        QVERIFY2(texts.contains(text), qPrintable(text));
    }
    QVERIFY(quotes > 60);
}

void DoctorProgramTest::documentsAreCurrent()
{
    const QString remedy = QStringLiteral("cmake --build build/dev --target update-contract");
    const Run contract = runDoctor({"--contract"});
    const Run failures = runDoctor({"--failures"});
    QCOMPARE(contract.exitCode, 0);
    QCOMPARE(failures.exitCode, 0);
    QVERIFY2(QString::fromUtf8(contract.output) == textOf("docs/contract.md"), qPrintable(remedy));
    QVERIFY2(QString::fromUtf8(failures.output) == textOf("docs/failures.md"), qPrintable(remedy));
}

void DoctorProgramTest::contractDocumentHasEveryMember_data()
{
    QTest::addColumn<QString>("interface");
    const QFileInfoList files =
        QDir(QStringLiteral(SOURCE_ROOT "/contracts")).entryInfoList({"*.xml"});
    QVERIFY(!files.isEmpty());
    for (const QFileInfo &file : files)
        QTest::newRow(qPrintable(file.completeBaseName())) << file.completeBaseName();
}

void DoctorProgramTest::contractDocumentHasEveryMember()
{
    QFETCH(QString, interface);
    const QString document = textOf("docs/contract.md");
    const int start = document.indexOf("\n## " + interface + '\n');
    QVERIFY(start >= 0);
    const QString section = document.mid(start, document.indexOf("\n## ", start + 1) - start);
    auto member =
        QRegularExpression("<(?:method|signal) name=\"(\\w+)\"").globalMatch(contract(interface));
    QVERIFY(member.hasNext());
    while (member.hasNext()) {
        const QString row = "\n| `" + member.next().captured(1) + '(';
        QVERIFY2(section.contains(row), qPrintable(row));
    }
}

TEST_CLASS(QCoreApplication, DoctorProgramTest)

namespace {

const QString startableName = QStringLiteral("com.corvane.aiassistant.dock");
const QString sessionAddress = QStringLiteral("DBUS_SESSION_BUS_ADDRESS");

/** A bus of this test's own, which knows how to start a dock service. */
class OwnBus
{
public:
    bool start()
    {
        const QString services = QStringLiteral("<servicedir>%1</servicedir>").arg(m_folder.path());
        const bool written =
            write("dock.service", QStringLiteral("[D-BUS Service]\nName=%1\nExec=/bin/touch %2\n")
                                      .arg(startableName, startedFile())) &&
            write("bus.conf", textOf("tests/support/bus.conf")
                                  .replace("</busconfig>", services + "</busconfig>"));
        m_daemon.start("dbus-daemon", {"--nofork", "--print-address", "--config-file",
                                       m_folder.filePath("bus.conf")});
        m_address = QString::fromUtf8(m_daemon.waitForLine(10000));
        return written && !m_address.isEmpty();
    }

    ~OwnBus()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    Environment environment() const { return {{sessionAddress, m_address}}; }
    void hang() { ::kill(pid_t(m_daemon.processId()), SIGSTOP); }
    QString startedFile() const { return m_folder.filePath("started"); }

private:
    bool write(const QString &name, const QString &text)
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) == text.size();
    }

    QTemporaryDir m_folder;
    ChildProcess m_daemon;
    QString m_address;
};

} // namespace

class DoctorBusesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceThatTheBusCanStart();
    void busThatHangs();
    void noBus();
};

void DoctorBusesTest::serviceThatTheBusCanStart()
{
    OwnBus bus;
    QVERIFY(bus.start());
    const Run result = examine(bus.environment());
    QCOMPARE(result.of("service", startableName),
             QStringLiteral("warning: does not run; the bus can start it"));
    QVERIFY(result.of("service", "com.corvane.aiservice").startsWith("failure"));
    QVERIFY(!QFile::exists(bus.startedFile()));
}

void DoctorBusesTest::busThatHangs()
{
    OwnBus bus;
    QVERIFY(bus.start());
    ServiceProcess network("networkmanager");
    QVERIFY(network.start());
    bus.hang();
    const Run result = examine(bus.environment());
    QCOMPARE(result.of("group", "session-bus"), QStringLiteral("failure: does not end within 3 s"));
    QVERIFY(result.of("network").startsWith("ok"));
    QCOMPARE(result.exitCode, 1);
}

void DoctorBusesTest::noBus()
{
    const QString nowhere = QStringLiteral("unix:path=/nonexistent/bus");
    const Run result = examine({{sessionAddress, nowhere}, {"DBUS_SYSTEM_BUS_ADDRESS", nowhere}});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.of("plugin").startsWith("ok"));
    QCOMPARE(result.of("bus").count("failure: cannot be reached: "), 2);
    QCOMPARE(result.of("service").count(": cannot be asked without the bus"), 6);
}

TEST_CLASS(QCoreApplication, DoctorBusesTest)

#include "doctorprogram.moc"
