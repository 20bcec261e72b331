#include "tests/e2e/windowprogram.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

#include <QDir>
#include <QImage>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QtTest>

using testsupport::ServiceProcess;

/** The window's program as a user starts it: the tour with its pictures, and what it says when it
 * cannot run. */
class WindowTour : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void everyStepSucceedsAndItsPictureExists();
    void eachPageLooksDifferentInTheTwoThemes();
    void picturesScale();
    void onlyPicturesOfAnEarlierTourAreRemoved();
    void theWindowMirrorsInUyghur();
    void largeTextsKeepEverythingReachable();
    void aMissingServiceFailsTheTour();
    void aServiceThatIgnoresAWriteFailsTheTour();
    void wrongUsageIsRefused_data();
    void wrongUsageIsRefused();
    void aFileThatIsNoModuleIsRefused_data();
    void aFileThatIsNoModuleIsRefused();

private:
    WindowRun tour(const QStringList &arguments, Warnings warnings = Warnings::Fatal) const;
    QImage picture(const QString &name) const;

    QTemporaryDir m_pictures;
    testsupport::VirtualMicrophone m_microphone; // no server to ask for sources is a warning
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
};

namespace {

/** All sections but the one that needs a microphone, which has a test of its own. */
const QStringList sectionsWithoutSound = {
    QStringLiteral("--section=pages"),     QStringLiteral("--section=search"),
    QStringLiteral("--section=switches"),  QStringLiteral("--section=choices"),
    QStringLiteral("--section=shortcuts"), QStringLiteral("--section=services"),
    QStringLiteral("--section=keyboard"),  QStringLiteral("--section=icons")};

const QStringList pages = {QStringLiteral("desktop-ai-assistant"), QStringLiteral("speech-to-text"),
                           QStringLiteral("text-to-speech"), QStringLiteral("translation")};

} // namespace

void WindowTour::initTestCase()
{
    QVERIFY(m_microphone.start(QStringLiteral("none")));
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network})
        QVERIFY(service->start());
}

void WindowTour::init()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network}) {
        if (!service->isRunning())
            QVERIFY(service->start());
        service->reset();
    }
}

WindowRun WindowTour::tour(const QStringList &arguments, Warnings warnings) const
{
    return runTour(m_pictures.path(), arguments, warnings);
}

QImage WindowTour::picture(const QString &name) const
{
    const QDir folder(m_pictures.path());
    const QStringList files = folder.entryList({QStringLiteral("*-%1.png").arg(name)});
    return files.size() == 1 ? QImage(folder.filePath(files.constFirst())) : QImage();
}

void WindowTour::everyStepSucceedsAndItsPictureExists()
{
    const WindowRun run = tour(sectionsWithoutSound);
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void WindowTour::eachPageLooksDifferentInTheTwoThemes()
{
    QCOMPARE(tour({QStringLiteral("--section"), QStringLiteral("pages")}).exitCode, 0);
    QVector<QImage> all;
    for (const QString &page : pages) {
        for (const char *theme : {"light", "dark"}) {
            const QImage image = picture(page + '-' + QLatin1String(theme));
            QCOMPARE(image.size(), QSize(1100, 720));
            QVERIFY2(!all.contains(image), qPrintable(page));
            all.append(image);
        }
        // Lightness of the empty lower end, where the page's background is.
        const QPoint background(700, 700);
        QVERIFY(all.at(all.size() - 2).pixelColor(background).lightness() > 200);
        QVERIFY(all.last().pixelColor(background).lightness() < 60);
    }
}

void WindowTour::picturesScale()
{
    QCOMPARE(tour({QStringLiteral("--section"), QStringLiteral("pages"), QStringLiteral("--scale"),
                   QStringLiteral("2")})
                 .exitCode,
             0);
    QCOMPARE(picture(QStringLiteral("translation-light")).size(), QSize(2200, 1440));
}

void WindowTour::onlyPicturesOfAnEarlierTourAreRemoved()
{
    const QTemporaryDir folder;
    for (const char *name : {"01-old.png", "123-old.png", "holiday.png", "01-notes.txt"}) {
        QFile file(folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(runTour(folder.path(), {QStringLiteral("--section=search")}).exitCode, 0);
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("01-old.png"))));
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("123-old.png"))));
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("holiday.png"))));
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("01-notes.txt"))));
}

void WindowTour::theWindowMirrorsInUyghur()
{
    const WindowRun run = tour(sectionsWithoutSound +
                               QStringList{QStringLiteral("--locale"), QStringLiteral("ug_CN")});
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    const QImage image = picture(QStringLiteral("translation-light"));
    QVERIFY(!image.isNull());
    // The side bar, a shade darker than the page, stands on the right.
    const QColor left = image.pixelColor(2, 700);
    const QColor right = image.pixelColor(image.width() - 3, 700);
    QVERIFY(left.lightness() > right.lightness());
}

void WindowTour::largeTextsKeepEverythingReachable()
{
    const WindowRun run = tour(sectionsWithoutSound +
                               QStringList{QStringLiteral("--font-size"), QStringLiteral("16")});
    const QString problem = failureOf(run, m_pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void WindowTour::aMissingServiceFailsTheTour()
{
    QVERIFY(m_assistant.stop());
    const WindowRun run = tour({QStringLiteral("--section=switches")}, Warnings::Allowed);
    QCOMPARE(run.exitCode, 1);
    const QStringList failed = run.lines.filter(QStringLiteral("FAIL"));
    QVERIFY2(!failed.filter(QStringLiteral("iat.enabled")).isEmpty(),
             qPrintable(run.lines.join('\n')));
}

void WindowTour::aServiceThatIgnoresAWriteFailsTheTour()
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

void WindowTour::wrongUsageIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    const QString plugin = QStringLiteral("--plugin=" MODULE_FILE);
    QTest::newRow("no plugin") << QStringList{} << QStringLiteral("--plugin");
    QTest::newRow("unknown option")
        << QStringList{plugin, QStringLiteral("--colour")} << QStringLiteral("colour");
    QTest::newRow("unknown theme")
        << QStringList{plugin, QStringLiteral("--theme"), QStringLiteral("pink")}
        << QStringLiteral("pink");
    QTest::newRow("scale is a word")
        << QStringList{plugin, QStringLiteral("--scale"), QStringLiteral("big")}
        << QStringLiteral("scale");
    QTest::newRow("scale out of range")
        << QStringList{plugin, QStringLiteral("--scale"), QStringLiteral("0")}
        << QStringLiteral("scale");
    QTest::newRow("font size is a word")
        << QStringList{plugin, QStringLiteral("--font-size"), QStringLiteral("big")}
        << QStringLiteral("font size");
    QTest::newRow("unknown section")
        << QStringList{plugin, QStringLiteral("--tour"), QStringLiteral("x"),
                       QStringLiteral("--section"), QStringLiteral("cellar")}
        << QStringLiteral("cellar");
}

void WindowTour::wrongUsageIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const WindowRun result = runWindow(arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.messages.contains(message), qPrintable(result.messages));
}

void WindowTour::aFileThatIsNoModuleIsRefused_data()
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

void WindowTour::aFileThatIsNoModuleIsRefused()
{
    QFETCH(QString, file);
    QFETCH(QString, message);
    const WindowRun result = runWindow({QStringLiteral("--plugin"), file});
    QCOMPARE(result.exitCode, 3);
    QVERIFY2(result.messages.contains(message), qPrintable(result.messages));
    QVERIFY2(result.messages.contains(file), qPrintable(result.messages));
}

QTEST_GUILESS_MAIN(WindowTour)
#include "windowtour.moc"
