#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/ziconbutton.h>
#include <ztk/zstyle.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QProcess>
#include <QResource>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

using namespace testsupport;
using namespace Ztk::Widget;
using Ztk::Gui::ZGuiApplicationHelper;

/** Built-in icons: found by name without any call, in the theme's colours, in the size asked for.
 */
class PlatformIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void foundBeforeAnySetUp();
    void installedStyle();
    void rendersInTheSizeAskedFor_data();
    void rendersInTheSizeAskedFor();
    void followsTheThemeWhileHeld();
    void latePluginIsNoticedByTheNextWidget();
    void latePluginIsNoticedOnDemand();
    void nearestDrawingIsTaken();
    void coloursOfItsOwnAreKept();
    void selectedSymbolHasTheSelectedTextsColour();
    void disabledSymbolIsPale();
    void removeIconHasTheToolkitsNumber();
    void strangerIsNotFound();

private:
    static QColor textColor() { return QApplication::palette().color(QPalette::WindowText); }
    static QImage picture(const QString &name, int size, QIcon::Mode mode = QIcon::Normal)
    {
        return QIcon::fromTheme(name).pixmap(size, mode).toImage();
    }

    QTemporaryDir m_folder;
    const QString m_bundle = m_folder.filePath(QStringLiteral("icons.rcc"));
};

// Makes a bundle of icons as a plugin brings them, registered while the program runs.
void PlatformIconsTest::initTestCase()
{
    const struct
    {
        const char *name;
        int size; // px
        QByteArray content;
    } pictures[] = {
        {"late_symbol_32px.svg", 32, R"(<rect width="16" height="32" fill="#000000"/>)"},
        {"late_symbol_84px.svg", 84, R"(<rect width="84" height="42" fill="#000000"/>)"},
        {"late_colours_32px.svg", 32,
         R"(<rect width="16" height="32" fill="#ff0000"/>)"
         R"(<rect x="16" width="16" height="32" fill="#00ff00"/>)"},
        {"not-an-icon.txt", 32, R"(<rect width="16" height="32" fill="#000000"/>)"},
    };
    QByteArray list = R"(<RCC><qresource prefix="/icons/tavren/builtin/actions">)";
    for (const auto &picture : pictures) {
        QFile file(m_folder.filePath(QLatin1String(picture.name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QByteArray size = QByteArray::number(picture.size);
        file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" + size + R"(" height=")" +
                   size + "\">" + picture.content + "</svg>");
        list += QByteArray("<file>") + picture.name + "</file>";
    }
    QFile listFile(m_folder.filePath(QStringLiteral("icons.qrc")));
    QVERIFY(listFile.open(QIODevice::WriteOnly));
    listFile.write(list + "</qresource></RCC>");
    listFile.close();
    QCOMPARE(
        QProcess::execute(QStringLiteral(RCC), {QStringLiteral("--binary"), listFile.fileName(),
                                                QStringLiteral("--output"), m_bundle}),
        0);
}

void PlatformIconsTest::foundBeforeAnySetUp()
{
    QVERIFY(!QIcon::fromTheme(QStringLiteral("zcc_edit")).isNull());
    QVERIFY(QIcon::hasThemeIcon(QStringLiteral("zcc_edit")));
    QVERIFY(!picture(QStringLiteral("zcc_edit"), 16).isNull());
}

void PlatformIconsTest::installedStyle()
{
    ZApplicationSetup::install();
    QVERIFY(qobject_cast<ZStyle *>(QApplication::style()));
    QVERIFY(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps));
}

void PlatformIconsTest::rendersInTheSizeAskedFor_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 24, 32, 48, 64})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void PlatformIconsTest::rendersInTheSizeAskedFor()
{
    QFETCH(int, size);
    // A scaled-up picture of 16 px would have no sharp edge left: fully opaque next to empty.
    const QImage image = picture(QStringLiteral("ztk_remove"), size);
    QCOMPARE(image.size(), QSize(size, size));
    QVERIFY(pictures::count(image, textColor()) > size);
}

void PlatformIconsTest::followsTheThemeWhileHeld()
{
    auto *helper = ZGuiApplicationHelper::instance();
    helper->setThemeType(ZGuiApplicationHelper::LightType);
    const QIcon held = QIcon::fromTheme(QStringLiteral("zcc_edit"));
    const QColor light = textColor();
    QVERIFY(pictures::count(held.pixmap(32).toImage(), light) > 0);
    helper->setThemeType(ZGuiApplicationHelper::DarkType);
    const QColor dark = textColor();
    QVERIFY(light != dark);
    QCOMPARE(pictures::count(held.pixmap(32).toImage(), light), 0);
    QVERIFY(pictures::count(held.pixmap(32).toImage(), dark) > 0);
    helper->setThemeType(ZGuiApplicationHelper::LightType);
    QVERIFY(pictures::count(held.pixmap(32).toImage(), light) > 0);
}

void PlatformIconsTest::latePluginIsNoticedByTheNextWidget()
{
    const QIcon askedForTooEarly = QIcon::fromTheme(QStringLiteral("late_symbol"));
    QVERIFY(askedForTooEarly.isNull());
    QVERIFY(QResource::registerResource(m_bundle));
    ZIconButton button;
    button.setIcon(askedForTooEarly);
    button.setIconSize(QSize(32, 32));
    button.resize(48, 48);
    QVERIFY(pictures::count(pictures::of(&button), textColor()) > 100);
    QVERIFY(QResource::unregisterResource(m_bundle));
}

void PlatformIconsTest::latePluginIsNoticedOnDemand()
{
    ZApplicationSetup::refreshIcons();
    QVERIFY(QIcon::fromTheme(QStringLiteral("late_symbol")).isNull());
    QVERIFY(QResource::registerResource(m_bundle));
    ZApplicationSetup::refreshIcons();
    QVERIFY(!QIcon::fromTheme(QStringLiteral("late_symbol")).isNull());
    QVERIFY(QIcon::fromTheme(QStringLiteral("not-an-icon")).isNull());
    QVERIFY(!QIcon::fromTheme(QStringLiteral("zcc_edit")).isNull());
}

void PlatformIconsTest::nearestDrawingIsTaken()
{
    // The small drawing fills the left half, the large one the upper half.
    const QImage small = picture(QStringLiteral("late_symbol"), 32);
    QCOMPARE(pictures::boundsOf(small, textColor()), QRect(0, 0, 16, 32));
    const QImage large = picture(QStringLiteral("late_symbol"), 84);
    QCOMPARE(pictures::boundsOf(large, textColor()), QRect(0, 0, 84, 42));
    const QImage between = picture(QStringLiteral("late_symbol"), 64);
    QCOMPARE(pictures::boundsOf(between, textColor()), QRect(0, 0, 64, 32));
}

void PlatformIconsTest::coloursOfItsOwnAreKept()
{
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active}) {
        const QImage image = picture(QStringLiteral("late_colours"), 32, mode);
        QCOMPARE(image.pixelColor(8, 16), QColor(Qt::red));
        QCOMPARE(image.pixelColor(24, 16), QColor(Qt::green));
    }
}

void PlatformIconsTest::selectedSymbolHasTheSelectedTextsColour()
{
    const QColor selected = QApplication::palette().color(QPalette::HighlightedText);
    const QImage image = picture(QStringLiteral("late_symbol"), 32, QIcon::Selected);
    QCOMPARE(pictures::boundsOf(image, selected), QRect(0, 0, 16, 32));
}

void PlatformIconsTest::disabledSymbolIsPale()
{
    const QColor pale = QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
    const QImage image = picture(QStringLiteral("late_symbol"), 32, QIcon::Disabled);
    QCOMPARE(pictures::boundsOf(image, pale), QRect(0, 0, 16, 32));
}

void PlatformIconsTest::removeIconHasTheToolkitsNumber()
{
    const auto number = QStyle::StandardPixmap(0xF000001B);
    QCOMPARE(unsigned(ZStyle::SP_RemoveButton), 0xF000001BU);
    QVERIFY(pictures::count(QApplication::style()->standardIcon(number).pixmap(16).toImage(),
                            textColor()) > 0);
    QVERIFY(ZStyle::toolkitIcon(QStyle::SP_DirIcon).isNull());
    QVERIFY(!QApplication::style()->standardIcon(QStyle::SP_DirIcon).isNull());
}

void PlatformIconsTest::strangerIsNotFound()
{
    QVERIFY(QIcon::fromTheme(QStringLiteral("no_such_icon")).isNull());
}

TEST_CLASS(QApplication, PlatformIconsTest)

// Where the icon theme is written when the user's cache cannot be: under the temporary folder,
// where others may write, too. What they have put there must not become this program's icons.

namespace {

/** A GUI application, and with it the toolkit's icon theme. */
struct Program
{
    Program() { Ztk::Widget::ZApplicationSetup::refreshIcons(); }

    /** The folder in which its icons are looked up first. */
    QString iconFolder() const { return QIcon::themeSearchPaths().constFirst(); }

    int argc = 1;
    char name[8] = "program";
    char *argv[2] = {name, nullptr};
    QGuiApplication application{argc, argv};
};

/** Type, owner and permissions as the kernel says, links not followed. */
struct stat statusOf(const QString &path)
{
    struct stat status = {};
    lstat(QFile::encodeName(path).constData(), &status);
    return status;
}

bool isPrivateFolder(const QString &path)
{
    const struct stat status = statusOf(path);
    return status.st_mode == (S_IFDIR | 0700) && status.st_uid == geteuid();
}

} // namespace

class PlatformIconFolderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void isMadePrivate();
    void isSharedByTheUsersPrograms();
    void isNotTrusted_data();
    void isNotTrusted();

private:
    QString path(const QString &name) const { return m_temporary->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_temporary;
    QString m_usual; // where the folder usually stands
    QByteArray m_temporaryBefore;
    mode_t m_maskBefore = 0;
};

void PlatformIconFolderTest::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    m_usual = path(QStringLiteral("ztk-icons-%1").arg(getuid()));
    QFile noFolder(path(QStringLiteral("file")));
    QVERIFY(noFolder.open(QIODevice::WriteOnly));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(noFolder.fileName()));
    m_temporaryBefore = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(m_temporary->path()));
    m_maskBefore = umask(0); // the folder's privacy must not hang on it
}

void PlatformIconFolderTest::cleanup()
{
    umask(m_maskBefore);
    qputenv("TMPDIR", m_temporaryBefore);
    m_temporary.reset();
}

void PlatformIconFolderTest::isMadePrivate()
{
    const Program program;
    QCOMPARE(program.iconFolder(), m_usual);
    QVERIFY(isPrivateFolder(m_usual));
    QVERIFY(QIcon::hasThemeIcon(QStringLiteral("zcc_edit")));
}

void PlatformIconFolderTest::isSharedByTheUsersPrograms()
{
    for (int i = 0; i < 2; ++i) {
        const Program program;
        QCOMPARE(program.iconFolder(), m_usual);
    }
}

void PlatformIconFolderTest::isNotTrusted_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("a link to a private folder") << "link";
    QTest::newRow("a folder in which the group may write") << "group";
    QTest::newRow("a folder in which others may read") << "others";
    QTest::newRow("a file") << "file";
    if (geteuid() == 0)
        QTest::newRow("another user's folder") << "owner";
    else
        qInfo("another user's folder can be made by root only");
}

void PlatformIconFolderTest::isNotTrusted()
{
    QFETCH(QString, what);
    const QByteArray usual = QFile::encodeName(m_usual);
    if (what == QLatin1String("file")) {
        QFile file(m_usual);
        QVERIFY(file.open(QIODevice::WriteOnly));
    } else if (what == QLatin1String("link")) {
        QVERIFY(mkdir(QFile::encodeName(path("target")).constData(), 0700) == 0);
        QVERIFY(symlink(QFile::encodeName(path("target")).constData(), usual.constData()) == 0);
    } else {
        QVERIFY(mkdir(usual.constData(), 0700) == 0);
        if (what == QLatin1String("group"))
            QVERIFY(chmod(usual.constData(), 0720) == 0);
        else if (what == QLatin1String("others"))
            QVERIFY(chmod(usual.constData(), 0704) == 0);
        else
            QVERIFY(chown(usual.constData(), 1, getgid()) == 0);
    }
    const struct stat before = statusOf(m_usual);

    QString fresh;
    {
        const Program program;
        fresh = program.iconFolder();
        QVERIFY(fresh != m_usual);
        QCOMPARE(QFileInfo(fresh).path(), m_temporary->path());
        QVERIFY(isPrivateFolder(fresh));
        QVERIFY(QIcon::hasThemeIcon(QStringLiteral("zcc_edit")));
    }
    QVERIFY2(!QFileInfo::exists(fresh), "a folder for one program stays behind");
    const struct stat after = statusOf(m_usual);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_uid, before.st_uid);
    QVERIFY(QDir(m_usual).isEmpty());
}

TEST_CLASS(testsupport::NoApplication, PlatformIconFolderTest)

#include "platformicons.moc"
