#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/ziconbutton.h>
#include <ztk/zstyle.h>

#include <QApplication>
#include <QIcon>
#include <QResource>
#include <QTest>

using namespace Ztk::Widget;
using Ztk::Gui::ZGuiApplicationHelper;

/** Built-in icons: found by name without any call, in the theme's colours, in the size asked for.
 */
class PlatformIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
};

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
    QVERIFY(QResource::registerResource(QStringLiteral(ICON_BUNDLE)));
    ZIconButton button;
    button.setIcon(askedForTooEarly);
    button.setIconSize(QSize(32, 32));
    button.resize(48, 48);
    QVERIFY(pictures::count(pictures::of(&button), textColor()) > 100);
    QVERIFY(QResource::unregisterResource(QStringLiteral(ICON_BUNDLE)));
}

void PlatformIconsTest::latePluginIsNoticedOnDemand()
{
    ZApplicationSetup::refreshIcons();
    QVERIFY(QIcon::fromTheme(QStringLiteral("late_symbol")).isNull());
    QVERIFY(QResource::registerResource(QStringLiteral(ICON_BUNDLE)));
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

#include "platformicons.moc"
