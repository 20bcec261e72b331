#include "tests/e2e/windowprogram.h"
#include "tests/support/modulepages.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QDir>
#include <QImage>
#include <QLibraryInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using testsupport::failureOf;
using testsupport::runTour;
using testsupport::runWindow;
using testsupport::ServiceProcess;
using testsupport::Warnings;
using testsupport::WindowRun;

/** The window's program as a user starts it: the tour with its pictures, and what it says when it
 * cannot run. */
class WindowTourTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void everyStepSucceedsAndItsPictureExists();
    void eachPageLooksDifferentInEveryTheme();
    void nothingIsMarkedInAnyLook();
    void picturesScale();
    void onlyPicturesOfAnEarlierTourAreRemoved();
    void aForeignFileIsNotOverwritten_data();
    void aForeignFileIsNotOverwritten();
    void theWindowMirrorsInUyghur();
    void largeTextsKeepEverythingReachable();
    void aMissingServiceFailsTheTour();
    void aServiceThatIgnoresAWriteFailsTheTour();
    void wrongUsageIsRefused_data();
    void wrongUsageIsRefused();
    void aModuleIsNeeded();
    void helpNeedsNoDisplay();
    void theReasonWhyThereIsNoWindowIsNamed_data();
    void theReasonWhyThereIsNoWindowIsNamed();
    void messagesGoToTheLog();
    void aFileThatIsNoModuleIsRefused_data();
    void aFileThatIsNoModuleIsRefused();

private:
    WindowRun tour(const QStringList &arguments, Warnings warnings = Warnings::Refused) const;
    QImage picture(const QString &name) const;

    QTemporaryDir m_pictures;
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
};

namespace {

/** The sections that read texts, or depend on where these leave room for controls. */
const QStringList sectionsOfTexts = {
    QStringLiteral("--section=pages"), QStringLiteral("--section=search"),
    QStringLiteral("--section=shortcuts"), QStringLiteral("--section=world"),
    QStringLiteral("--section=keyboard")};

/** All sections but the one that needs a microphone, which has a test of its own. */
const QStringList sectionsWithoutSound =
    sectionsOfTexts +
    QStringList{QStringLiteral("--section=switches"), QStringLiteral("--section=choices"),
                QStringLiteral("--section=services"), QStringLiteral("--section=icons")};

const QStringList pages = {QStringLiteral("desktop-ai-assistant"), QStringLiteral("speech-to-text"),
                           QStringLiteral("text-to-speech"), QStringLiteral("translation")};

} // namespace

void WindowTourTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network})
        QVERIFY(service->start());
}

void WindowTourTest::init()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network}) {
        if (!service->isRunning())
            QVERIFY(service->start());
        service->reset();
    }
}

WindowRun WindowTourTest::tour(const QStringList &arguments, Warnings warnings) const
{
    return runTour(m_pictures.path(), arguments, warnings);
}

QImage WindowTourTest::picture(const QString &name) const
{
    const QDir folder(m_pictures.path());
    const QStringList files = folder.entryList({QStringLiteral("*-%1.png").arg(name)});
    return files.size() == 1 ? QImage(folder.filePath(files.constFirst())) : QImage();
}

void WindowTourTest::everyStepSucceedsAndItsPictureExists()
{
    const WindowRun run = tour(sectionsWithoutSound);
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void WindowTourTest::eachPageLooksDifferentInEveryTheme()
{
    QCOMPARE(tour({QStringLiteral("--section"), QStringLiteral("pages")}).exitCode, 0);
    QVector<QImage> all;
    for (const QString &page : pages) {
        for (const char *theme : {"light", "dark", "contrast"}) {
            const QImage image = picture(page + '-' + QLatin1String(theme));
            QCOMPARE(image.size(), QSize(1100, 720));
            QVERIFY2(!all.contains(image), qPrintable(page));
            all.append(image);
        }
        // Lightness of the empty lower end, where the page's background is.
        const QPoint background(700, 700);
        QVERIFY(all.at(all.size() - 3).pixelColor(background).lightness() > 200);
        QVERIFY(all.at(all.size() - 2).pixelColor(background).lightness() < 60);
        QCOMPARE(all.last().pixelColor(background), QColor(Qt::black));
    }
}

void WindowTourTest::nothingIsMarkedInAnyLook()
{
    const WindowRun run = tour({QStringLiteral("--section=looks")});
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    for (const QString &page : pages)
        QVERIFY2(!picture(QStringLiteral("looks-") + page).isNull(), qPrintable(page));
}

void WindowTourTest::picturesScale()
{
    QCOMPARE(tour({QStringLiteral("--section"), QStringLiteral("pages"), QStringLiteral("--scale"),
                   QStringLiteral("2")})
                 .exitCode,
             0);
    QCOMPARE(picture(QStringLiteral("translation-light")).size(), QSize(2200, 1440));
}

void WindowTourTest::onlyPicturesOfAnEarlierTourAreRemoved()
{
    const QTemporaryDir folder;
    const auto write = [&folder](const char *name) {
        QFile file(folder.filePath(QLatin1String(name)));
        return file.open(QIODevice::WriteOnly) && file.write("mine") == 4;
    };
    const char *const mine[] = {"07-my-cat.png", "2024-holiday.png", "holiday.png", "01-notes.txt"};
    for (const char *name : mine)
        QVERIFY(write(name));
    QCOMPARE(runTour(folder.path(), {QStringLiteral("--section=pages")}).exitCode, 0);
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("01-desktop-ai-assistant-light.png"))));
    QVERIFY(write("02-desktop-ai-assistant-dark.png")); // no longer what the tour has written

    QCOMPARE(runTour(folder.path(), {QStringLiteral("--section=search")}).exitCode, 0);
    const QStringList left = QDir(folder.path()).entryList(QDir::Files);
    const QStringList expected = {QStringLiteral("01-notes.txt"),
                                  QStringLiteral("01-search.png"),
                                  QStringLiteral("02-desktop-ai-assistant-dark.png"),
                                  QStringLiteral("02-search-opened.png"),
                                  QStringLiteral("03-search-setting.png"),
                                  QStringLiteral("04-search-dark.png"),
                                  QStringLiteral("07-my-cat.png"),
                                  QStringLiteral("2024-holiday.png"),
                                  QStringLiteral("holiday.png")};
    QCOMPARE(left, expected);
}

void WindowTourTest::aForeignFileIsNotOverwritten_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("picture") << QStringLiteral("03-speech-to-text-light.png");
    QTest::newRow("list of pictures") << QStringLiteral(".assistant-tour");
}

void WindowTourTest::aForeignFileIsNotOverwritten()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    QCOMPARE(runTour(folder.path(), {QStringLiteral("--section=search")}).exitCode, 0);
    QFile foreign(folder.filePath(name));
    QVERIFY(foreign.open(QIODevice::WriteOnly) && foreign.write("mine") == 4);
    foreign.close();
    const QStringList before = QDir(folder.path()).entryList(QDir::Files);

    const WindowRun run = runTour(folder.path(), {QStringLiteral("--section=pages")});
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.messages.contains(foreign.fileName()), qPrintable(run.messages));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), before);
    QVERIFY(foreign.open(QIODevice::ReadOnly));
    QCOMPARE(foreign.readAll(), QByteArray("mine"));
}

void WindowTourTest::theWindowMirrorsInUyghur()
{
    const WindowRun run = tour(sectionsOfTexts + QStringList{QStringLiteral("--locale=ug_CN")});
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    const QImage image = picture(QStringLiteral("translation-light"));
    QVERIFY(!image.isNull());
    // The side bar, a shade darker than the page, stands on the right.
    const QColor left = image.pixelColor(2, 700);
    const QColor right = image.pixelColor(image.width() - 3, 700);
    QVERIFY(left.lightness() > right.lightness());
}

void WindowTourTest::largeTextsKeepEverythingReachable()
{
    const WindowRun run = tour(sectionsOfTexts + QStringList{QStringLiteral("--font-size=16")});
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void WindowTourTest::aMissingServiceFailsTheTour()
{
    QVERIFY(m_assistant.stop());
    const WindowRun run = tour({QStringLiteral("--section=switches")}, Warnings::Allowed);
    QCOMPARE(run.exitCode, 1);
    const QStringList failed = run.lines.filter(QStringLiteral("FAIL"));
    QVERIFY2(!failed.filter(QStringLiteral("iat.enabled")).isEmpty(),
             qPrintable(run.lines.join('\n')));
}

void WindowTourTest::aServiceThatIgnoresAWriteFailsTheTour()
{
    m_assistant.script(QStringLiteral("setTransEnable"), QStringLiteral("error"),
                       QStringLiteral("no"));
    const WindowRun run = tour({QStringLiteral("--section=switches")}, Warnings::Allowed);
    QCOMPARE(run.exitCode, 1);
    const QStringList failed = run.lines.filter(QStringLiteral("FAIL"));
    QVERIFY2(!failed.filter(QStringLiteral("trans.enabled")).isEmpty(),
             qPrintable(run.lines.join('\n')));
    QVERIFY(failed.filter(QStringLiteral("iat.enabled")).isEmpty());
}

void WindowTourTest::wrongUsageIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown option")
        << QStringList{QStringLiteral("--colour")} << QStringLiteral("colour");
    const auto refused = [](const char *row, const QStringList &arguments, const char *message) {
        QTest::newRow(row) << arguments << QString::fromLatin1(message);
    };
    refused("unknown theme", {QStringLiteral("--theme"), QStringLiteral("pink")},
            "There is no theme \"pink\", but light, dark, contrast, system.");
    refused("unknown locale", {QStringLiteral("--locale"), QStringLiteral("xx_YY")},
            "There is no locale \"xx_YY\", but zh_CN, zh_HK, zh_TW, bo_CN, ug_CN, en_US, en_GB.");
    refused("unknown page", {QStringLiteral("--page"), QStringLiteral("Foo")},
            qPrintable(QStringLiteral("There is no page \"Foo\", but %1.")
                           .arg(testsupport::registeredPageNames().join(QLatin1String(", ")))));
    refused("scale is a word", {QStringLiteral("--scale"), QStringLiteral("big")},
            "The scale must be a number from 0.5 to 4.");
    refused("scale is no number", {QStringLiteral("--scale"), QStringLiteral("nan")},
            "The scale must be a number from 0.5 to 4.");
    refused("scale out of range", {QStringLiteral("--scale"), QStringLiteral("0")},
            "The scale must be a number from 0.5 to 4.");
    refused("font size is a word", {QStringLiteral("--font-size"), QStringLiteral("big")},
            "The font size must be a number from 6 to 40.");
    refused("font size out of range", {QStringLiteral("--font-size"), QStringLiteral("99")},
            "The font size must be a number from 6 to 40.");
    refused("section without a tour", {QStringLiteral("--section"), QStringLiteral("pages")},
            "--section is for a tour and needs --tour DIR");
    refused(
        "unknown section",
        {QStringLiteral("--tour"), m_pictures.path(), QStringLiteral("--section"),
         QStringLiteral("cellar")},
        "There is no section \"cellar\", but pages, icons, search, switches, choices, shortcuts, "
        "services, world, keyboard, looks, voice.");
}

/** By the script too, which refuses it before it builds the window. */
void WindowTourTest::wrongUsageIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const WindowRun window =
        runWindow(QStringList{QStringLiteral("--plugin"), QStringLiteral(MODULE_FILE)} + arguments);
    QCOMPARE(window.exitCode, 2);
    QVERIFY2(window.messages.contains(message), qPrintable(window.messages));

    QProcess script;
    script.start(QStringLiteral(RUN_SCRIPT), arguments);
    QVERIFY(script.waitForFinished());
    QCOMPARE(script.exitCode(), 2);
    const QString said = QString::fromUtf8(script.readAllStandardError());
    QVERIFY2(said.contains(message), qPrintable(said));
}

void WindowTourTest::aModuleIsNeeded()
{
    const WindowRun run = runWindow({});
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.messages.contains(QStringLiteral("--plugin")), qPrintable(run.messages));
}

void WindowTourTest::helpNeedsNoDisplay()
{
    qputenv("QT_QPA_PLATFORM", "none");
    const WindowRun run = runWindow({QStringLiteral("--help")});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.lines.join('\n').contains(QStringLiteral("--plugin")));
}

void WindowTourTest::theReasonWhyThereIsNoWindowIsNamed_data()
{
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<QString>("reason");

    QTest::newRow("no display") << QByteArray("xcb")
                                << QStringLiteral("could not connect to display :987");
    QTest::newRow("no such platform") << QByteArray("none") << QStringLiteral("\"none\"");
}

void WindowTourTest::theReasonWhyThereIsNoWindowIsNamed()
{
    QFETCH(QByteArray, platform);
    QFETCH(QString, reason);
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("QT_QPA_PLATFORM", platform);
    qputenv("DISPLAY", ":987");
    const WindowRun run = runWindow({QStringLiteral("--plugin"), QStringLiteral(MODULE_FILE)});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("DISPLAY");
    QCOMPARE(run.exitCode, 3);
    const QString sentence = run.messages.trimmed().section('\n', -1);
    QVERIFY2(sentence.startsWith(
                 QStringLiteral("control-center: The window cannot be shown; DISPLAY is \":987\", "
                                "WAYLAND_DISPLAY is \"\". ")),
             qPrintable(run.messages));
    QVERIFY2(sentence.contains(reason), qPrintable(sentence));
}

void WindowTourTest::messagesGoToTheLog()
{
    const QTemporaryDir folder;
    QFile log(folder.filePath(QStringLiteral("log")));
    const WindowRun run =
        tour({QStringLiteral("--section=search"), QStringLiteral("--log"), log.fileName()});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(log.open(QIODevice::ReadOnly));
    QVERIFY(log.readAll().startsWith("preInitialize\ninitialize \"C\"\nactive\n"));
    QVERIFY2(!run.messages.contains(QStringLiteral("preInitialize")), qPrintable(run.messages));
}

void WindowTourTest::aFileThatIsNoModuleIsRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("message");

    QTest::newRow("missing") << m_pictures.filePath(QStringLiteral("none.so"))
                             << QStringLiteral("there is no plugin at");
    QTest::newRow("no plugin at all")
        << QStringLiteral(WITH_TRANSLATIONS) << QStringLiteral("is not a Qt plugin");
    QTest::newRow("a plugin for something else")
        << QLibraryInfo::location(QLibraryInfo::PluginsPath) +
               QStringLiteral("/platforms/libqoffscreen.so")
        << QStringLiteral("com.tavren.zde.ControlCenter.module/1.0");
}

void WindowTourTest::aFileThatIsNoModuleIsRefused()
{
    QFETCH(QString, file);
    QFETCH(QString, message);
    const WindowRun result = runWindow({QStringLiteral("--plugin"), file});
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.messages.contains(message), qPrintable(result.messages));
    QVERIFY2(result.messages.contains(file), qPrintable(result.messages));
}

TEST_CLASS(QCoreApplication, WindowTourTest)
#include "windowtour.moc"
