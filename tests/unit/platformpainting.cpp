#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zcommandlinkbutton.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/zlistview.h>
#include <ztk/zpainting.h>
#include <ztk/zstandarditem.h>

#include <QApplication>
#include <QCheckBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyleOptionButton>
#include <QTest>

#include <memory>

using namespace testsupport;
using namespace Ztk::Widget;
using Ztk::Gui::ZGuiApplicationHelper;

namespace {

QColor color(QPalette::ColorRole role)
{
    return QApplication::palette().color(role);
}

/** What a key cap's owner hands over: no state, its colours in four roles of the palette. */
QImage keyCapPicture(const QSize &size, QStyleOptionButton *option = nullptr,
                     const QWidget *widget = nullptr)
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
    QApplication::style()->drawControl(QStyle::CE_PushButton, &cap, &painter, widget);
    painter.end();
    return image;
}

/** A widget of this kind with this text. */
std::unique_ptr<QWidget> textWidget(const QString &kind, const QString &text)
{
    if (kind == QLatin1String("check box"))
        return std::make_unique<QCheckBox>(text);
    if (kind == QLatin1String("line edit"))
        return std::make_unique<QLineEdit>(QStringLiteral("    ") + text);
    if (kind == QLatin1String("link"))
        return std::make_unique<ZCommandLinkButton>(text);
    if (kind == QLatin1String("list row")) {
        auto list = std::make_unique<ZListView>();
        auto *model = new QStandardItemModel(list.get());
        model->appendRow(new ZStandardItem(text));
        list->setModel(model);
        list->setFrameShape(QFrame::NoFrame);
        return list;
    }
    auto label = std::make_unique<QLabel>(text);
    label->setWordWrap(true);
    return label;
}

int rowMiddle(QWidget *widget)
{
    const auto *list = qobject_cast<ZListView *>(widget);
    return list->visualRect(list->model()->index(0, 0)).center().y();
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
    void keyCapShowsTheMouseWhereItTakesClicks();
    void scrollBarHandleFollowsTheValue();
    void scrollBarIsDraggedByItsHandle();
    void linesAreSharp_data();
    void linesAreSharp();
    void symbolsAreToldFromPictures();
    void wrappedLinesEndAtOneEdge_data();
    void wrappedLinesEndAtOneEdge();
    void signsKeepTheirPlacesWhereALineIsBroken();
    void tibetanStandsInTheMiddle_data();
    void tibetanStandsInTheMiddle();
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

/** As in a row of shortcuts: the caps are a part of it, and it takes the focus while it takes
 * clicks. */
void PlatformPaintingTest::keyCapShowsTheMouseWhereItTakesClicks()
{
    QWidget row;
    QWidget caps(&row);
    QWidget cap(&caps);
    const auto face = [&cap] {
        QStyleOptionButton option;
        return keyCapPicture(QSize(50, 26), &option, &cap).pixelColor(10, 12);
    };
    const QColor usual = face();
    row.setFocusPolicy(Qt::TabFocus);
    QCOMPARE(face(), usual);
    caps.setAttribute(Qt::WA_UnderMouse);
    QVERIFY(face() != usual);
    row.setFocusPolicy(Qt::NoFocus);
    QCOMPARE(face(), usual);
    row.setFocusPolicy(Qt::TabFocus);
    row.setEnabled(false);
    QCOMPARE(face(), usual);
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

void PlatformPaintingTest::wrappedLinesEndAtOneEdge_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("label") << QStringLiteral("label");
    QTest::newRow("list row") << QStringLiteral("list row");
}

/** Each line begins with the same letter, on the right, so that their edges can be compared. */
void PlatformPaintingTest::wrappedLinesEndAtOneEdge()
{
    QFETCH(QString, kind);
    const QString words = QStringLiteral("ياردەمچى ياردەمچى ياردەمچى ياردەمچى ياردەمچى ياردەمچى");
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const std::unique_ptr<QWidget> widget = textWidget(kind, words);
    widget->resize(170, 200);
    const QImage picture = pictures::of(widget.get());
    QApplication::setLayoutDirection(Qt::LeftToRight);

    QVector<int> edges; // of each line
    int edge = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const QRect ink =
            pictures::boundsOf(picture.copy(0, y, picture.width(), 1), color(QPalette::Text), 90);
        if (!ink.isNull()) {
            edge = qMax(edge, ink.right());
        } else if (edge) {
            edges.append(edge);
            edge = 0;
        }
    }
    QVERIFY2(edges.size() > 2, qPrintable(QString::number(edges.size())));
    QCOMPARE(edges, QVector<int>(edges.size(), edges.constFirst()));
}

/** A hyphen after letters from left to right is right of them, in a line from right to left, too.
 */
void PlatformPaintingTest::signsKeepTheirPlacesWhereALineIsBroken()
{
    const QString words = QStringLiteral("lll-lll");
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const std::unique_ptr<QWidget> widget = textWidget(QStringLiteral("label"), words);
    widget->resize(widget->fontMetrics().horizontalAdvance(QStringLiteral("lll-")) + 4, 60);
    const QImage picture = pictures::of(widget.get());
    QApplication::setLayoutDirection(Qt::LeftToRight);

    const QRect ink = pictures::boundsOf(picture, color(QPalette::Text), 90);
    QVERIFY(ink.height() > widget->fontMetrics().height()); // two lines
    const QImage rightmost = picture.copy(ink.right(), 0, 1, picture.height());
    const QRect hyphen = pictures::boundsOf(rightmost, color(QPalette::Text), 90);
    QVERIFY2(hyphen.height() <= 3, qPrintable(QString::number(hyphen.height())));
}

void PlatformPaintingTest::tibetanStandsInTheMiddle_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"label", "list row", "check box", "line edit", "link", "key cap"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void PlatformPaintingTest::tibetanStandsInTheMiddle()
{
    QFETCH(QString, kind);
    QFont font(QStringLiteral("Noto Serif Tibetan"));
    font.setPixelSize(14);
    QVERIFY(QFontDatabase().hasFamily(font.family()));
    const std::unique_ptr<QWidget> widget = textWidget(kind, QStringLiteral("སྒྲིག་འགོད"));
    widget->setFont(font);
    widget->resize(300, 80);
    const QFont usual = QApplication::font();
    QApplication::setFont(font); // a cap's
    const QImage whole = kind == QLatin1String("key cap") ? keyCapPicture(widget->size())
                                                          : pictures::of(widget.get());
    QApplication::setFont(usual);
    const QColor text = color(kind == QLatin1String("link")      ? QPalette::Link
                              : kind == QLatin1String("key cap") ? QPalette::Highlight
                                                                 : QPalette::Text);
    constexpr int box = 40; // px, left out: a check box has its mark there
    const QRect ink = pictures::boundsOf(whole.copy(box, 4, 200, 72), text, 120);
    QVERIFY(!ink.isNull());
    const int middle = kind == QLatin1String("list row") ? rowMiddle(widget.get()) - 4 : 36;
    QVERIFY2(qAbs(ink.center().y() - middle) <= 2,
             qPrintable(QString::number(ink.center().y() - middle)));
}

TEST_CLASS(QApplication, PlatformPaintingTest)
#include "platformpainting.moc"
