#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/zpainting.h>

#include <QApplication>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTest>

using namespace testsupport;
using namespace Ztk::Widget;
using Ztk::Gui::ZGuiApplicationHelper;

namespace {

QColor color(QPalette::ColorRole role)
{
    return QApplication::palette().color(role);
}

/** What a key cap's owner hands over: no state, its colours in four roles of the palette. */
QImage keyCapPicture(const QSize &size, QStyleOptionButton *option = nullptr)
{
    QStyleOptionButton own;
    QStyleOptionButton &cap = option ? *option : own;
    cap.rect = QRect(QPoint(), size);
    cap.text = QStringLiteral("Ctrl");
    const QPalette palette = cap.palette;
    cap.palette.setBrush(QPalette::Light, palette.base());
    cap.palette.setBrush(QPalette::Dark, palette.base());
    cap.palette.setBrush(QPalette::ButtonText, palette.highlight());
    cap.palette.setBrush(QPalette::Shadow, QBrush(Qt::transparent));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QApplication::style()->drawControl(QStyle::CE_PushButton, &cap, &painter);
    painter.end();
    return image;
}

} // namespace

/** What the style draws by itself: key caps, scroll bars, lines, symbols. */
class PlatformPaintingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void keyCapIsDrawnInItsRoles();
    void keyCapIsNotStretchedToItsRow();
    void scrollBarHandleFollowsTheValue();
    void scrollBarIsDraggedByItsHandle();
    void linesAreSharp_data();
    void linesAreSharp();
    void symbolsAreToldFromPictures();
};

void PlatformPaintingTest::initTestCase()
{
    QFont font = QApplication::font();
    font.setPixelSize(14);
    QApplication::setFont(font);
    ZApplicationSetup::install();
    QCOMPARE(QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration), 0);
}

void PlatformPaintingTest::cleanup()
{
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void PlatformPaintingTest::keyCapIsDrawnInItsRoles()
{
    for (const auto theme : {ZGuiApplicationHelper::LightType, ZGuiApplicationHelper::DarkType}) {
        ZGuiApplicationHelper::instance()->setThemeType(theme);
        const QImage image = keyCapPicture(QSize(50, 26));
        QVERIFY(pictures::count(image, color(QPalette::Base)) > 50 * 26 / 3);
        QVERIFY(pictures::count(image, color(QPalette::Highlight), QRect(), 40) > 10);
        // The text of something disabled would be pale instead.
        QCOMPARE(pictures::count(image, QApplication::palette().color(QPalette::Disabled,
                                                                      QPalette::ButtonText)),
                 0);
        // An edge all around, thicker below: it is a key.
        const QColor edge = image.pixelColor(25, 25);
        QCOMPARE(edge.alpha(), 255);
        QVERIFY(ZPainting::contrast(edge, color(QPalette::Base)) >= 3);
        QCOMPARE(image.pixelColor(25, 24), edge);
        QCOMPARE(image.pixelColor(25, 0), edge);
        QVERIFY(image.pixelColor(25, 1) != edge);
        QVERIFY(image.pixelColor(0, 0).alpha() < 128);
    }
}

void PlatformPaintingTest::keyCapIsNotStretchedToItsRow()
{
    const QImage image = keyCapPicture(QSize(50, 60));
    QCOMPARE(image.pixelColor(25, 2).alpha(), 0);
    QCOMPARE(image.pixelColor(25, 57).alpha(), 0);
    QCOMPARE(image.pixelColor(8, 30).alpha(), 255);
}

void PlatformPaintingTest::scrollBarHandleFollowsTheValue()
{
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        QScrollBar bar(orientation);
        bar.setRange(0, 100);
        bar.setPageStep(50);
        bar.resize(orientation == Qt::Vertical ? QSize(12, 300) : QSize(300, 12));
        QStyleOptionSlider option;
        const auto handle = [&bar, &option]() {
            option.initFrom(&bar);
            option.orientation = bar.orientation();
            option.minimum = bar.minimum();
            option.maximum = bar.maximum();
            option.pageStep = bar.pageStep();
            option.sliderPosition = bar.value();
            return QApplication::style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                         QStyle::SC_ScrollBarSlider, &bar);
        };
        const auto start = [orientation](const QRect &rect) {
            return orientation == Qt::Vertical ? rect.top() : rect.left();
        };
        const auto length = [orientation](const QRect &rect) {
            return orientation == Qt::Vertical ? rect.height() : rect.width();
        };
        QCOMPARE(start(handle()), 0);
        QCOMPARE(length(handle()), 100); // a page of 50 of 150
        bar.setValue(100);
        QCOMPARE(start(handle()), 200);
        bar.setValue(50);
        QCOMPARE(start(handle()), 100);
        bar.setLayoutDirection(Qt::RightToLeft);
        bar.setValue(0);
        QCOMPARE(start(handle()), orientation == Qt::Vertical ? 0 : 200);
        bar.setRange(0, 1000000);
        QVERIFY(length(handle()) >= 36);
    }
}

void PlatformPaintingTest::scrollBarIsDraggedByItsHandle()
{
    QScrollArea area;
    auto *content = new QWidget;
    content->setFixedSize(100, 2000);
    area.setWidget(content);
    area.resize(200, 300);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QScrollBar *bar = area.verticalScrollBar();
    QVERIFY(bar->isVisible());
    const QImage before = pictures::of(bar);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, QPoint(6, 10));
    QMouseEvent drag(QEvent::MouseMove, QPoint(6, 60), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &drag);
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, QPoint(6, 60));
    QVERIFY(bar->value() > 0);
    QVERIFY(pictures::of(bar) != before);
}

void PlatformPaintingTest::linesAreSharp_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<int>("thickness"); // of the frame, in device pixels
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.25") << 1.25 << 1;
    QTest::newRow("1.5") << 1.5 << 1;
    QTest::newRow("2") << 2.0 << 2;
    QTest::newRow("3") << 3.0 << 3;
}

void PlatformPaintingTest::linesAreSharp()
{
    QFETCH(qreal, scale);
    QFETCH(int, thickness);
    QImage image(qRound(101 * scale), qRound(41 * scale), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    ZPainting::frameRounded(&painter, QRectF(3, 3, 95, 35), 7, Qt::black,
                            ZPainting::hairline(&painter));
    painter.end();
    // Down the middle there are only black and white pixels: no grey ones at the line's sides.
    const int middle = image.width() / 2;
    int black = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QColor pixel = image.pixelColor(middle, y);
        QVERIFY2(pixel == QColor(Qt::black) || pixel == QColor(Qt::white),
                 qPrintable(QStringLiteral("%1 at %2").arg(pixel.name()).arg(y)));
        black += pixel == QColor(Qt::black);
    }
    QCOMPARE(black, 2 * thickness);
}

void PlatformPaintingTest::symbolsAreToldFromPictures()
{
    QPixmap pixmap(10, 10);
    pixmap.fill(Qt::transparent);
    QVERIFY(!ZPainting::isSymbol(pixmap));
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, 5, 10, Qt::black);
    painter.fillRect(5, 0, 2, 10, QColor(0, 0, 0, 90));
    QVERIFY(ZPainting::isSymbol(pixmap));
    painter.fillRect(7, 0, 3, 10, Qt::red);
    painter.end();
    QVERIFY(!ZPainting::isSymbol(pixmap));
    const QImage tinted = ZPainting::tinted(pixmap, Qt::blue).toImage();
    QCOMPARE(tinted.pixelColor(1, 1), QColor(Qt::blue));
    QVERIFY(qAbs(tinted.pixelColor(6, 1).alpha() - 90) <= 1);
}

TEST_CLASS(QApplication, PlatformPaintingTest)
#include "platformpainting.moc"
