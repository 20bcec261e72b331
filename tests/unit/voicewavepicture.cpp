#include "tests/support/testprogram.h"
#include "tests/unit/steppedwave.h"

#include <QApplication>
#include <QBackingStore>
#include <QLinearGradient>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTest>

#include <cmath>
#include <utility>

using namespace testsupport;

namespace {

bool isTransparent(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
    }
    return true;
}

// The wave's last frame from its heights alone.
QImage pictureByColumns(VoiceAnimationWidget &wave, const QColor &background = Qt::transparent)
{
    const double right = wave.width() / 2.0;
    QLinearGradient gradient(-right, 0, right, 0);
    gradient.setColorAt(0, QColor(14, 136, 250, 160));
    gradient.setColorAt(1, QColor(147, 247, 67, 160));
    QImage image(wave.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter painter(&image);
    painter.translate(right, wave.height());
    painter.scale(1, -1);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int line = 1; line <= 3; ++line) {
        QPainterPath path(QPointF(-right, 0));
        for (double x = -right; x <= right; x += 1.0)
            path.lineTo(x, wave.getAudioLineY(x, line));
        path.lineTo(right, 0);
        painter.fillPath(path, gradient);
    }
    return image;
}

// How they differ, or an empty text: rounding may differ by one.
QString difference(const QImage &image, const QImage &expected)
{
    if (image.size() != expected.size() || image.depth() != 32 || expected.depth() != 32)
        return QStringLiteral("not of one kind");
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        const uchar *expectedLine = expected.constScanLine(y);
        for (int i = 0; i < image.width() * 4; ++i)
            if (std::abs(line[i] - expectedLine[i]) > 1)
                return QStringLiteral("row %1, byte %2: %3, not %4")
                    .arg(y)
                    .arg(i)
                    .arg(line[i])
                    .arg(expectedLine[i]);
    }
    return QString();
}

// The height of what a widget was last asked to paint.
class PaintedHeight : public QObject
{
public:
    int take() { return std::exchange(m_height, 0); }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_height = static_cast<QPaintEvent *>(event)->rect().height();
        return false;
    }

private:
    int m_height = 0;
};

} // namespace

/** The wave as people see it. */
class VoiceWavePictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsPaintedAtRest();
    void pictureOfTheWaves();
    void everyFrame_data();
    void everyFrame();
    void framesOnTheScreen();
    void tinySizes();
};

void VoiceWavePictureTest::nothingIsPaintedAtRest()
{
    VoiceAnimationWidget wave;
    wave.resize(200, 100);
    QVERIFY(isTransparent(picture(wave)));
    wave.startPaint();
    QVERIFY(!isTransparent(picture(wave)));
    wave.stopPaint();
    QVERIFY(isTransparent(picture(wave)));
}

// Every pixel that lies clearly within or outside the waves has the colour of as many layers as
// there are waves above it.
void VoiceWavePictureTest::pictureOfTheWaves()
{
    const int width = 340;
    const int height = 420;
    SteppedWave stepped(width, height);
    stepped.wave.updateMaxLevel(1.0);
    QVERIFY(stepped.tick(80));
    picture(stepped.wave);
    const QImage image = picture(stepped.wave); // drawn with the phases that are set now

    const double level = 0.85;
    const double p1 = 2 * 0.26179938333333336;
    const double p2 = 2 * 0.24166096923076924;
    const double p3 = 2 * 0.17453292222222222;
    int checked = 0;
    int layersSeen = 0;
    for (int column = 2; column < width - 2; ++column) {
        const double x = column + 0.5 - width / 2.0;
        const double angle = 4.0 / width * 3.1415926 * x;
        double tops[3] = {(std::sin(angle + p1) + 2) * 0.7 * height * 0.25 * level *
                              (std::cos(6.2831852 / width * x) + 0.9),
                          (std::sin(angle - p2) + 1.5) * 0.9 * height / 5 * level *
                              (std::cos(25.1327408 * (x - width / 6.0) / (3 * width)) + 1),
                          (std::sin(angle + p3) + 1.6) * 0.8 * height / 6 * level *
                              (std::cos(4 * x * 3.1415926 / width - 3.1415926) + 1)};
        if (x <= -0.25 * width)
            tops[1] = 0;
        if (x >= 0.015625 * width)
            tops[2] = 0;
        // At a bound a wave falls steeply; its flank is no place for exact colours.
        if (std::fabs(x + 0.25 * width) < 2 || std::fabs(x - 0.015625 * width) < 2)
            continue;

        for (int row = 0; row < height; ++row) {
            const double y = height - row - 0.5;
            int layers = 0;
            bool clear = true;
            for (const double top : tops) {
                layers += top > y;
                clear = clear && std::fabs(top - y) > 6; // steeper than one pixel per column
            }
            if (!clear)
                continue;
            const double share = (column + 0.5) / width;
            const double alpha = 1 - std::pow(1 - 160 / 255.0, layers);
            const QRgb pixel = image.pixel(column, row);
            const int expected[4] = {qRound((14 + (147 - 14) * share) * alpha),
                                     qRound((136 + (247 - 136) * share) * alpha),
                                     qRound((250 + (67 - 250) * share) * alpha),
                                     qRound(255 * alpha)};
            const QRgb stored =
                reinterpret_cast<const QRgb *>(image.constScanLine(row))[column]; // premultiplied
            const int actual[4] = {qRed(stored), qGreen(stored), qBlue(stored), qAlpha(pixel)};
            for (int i = 0; i < 4; ++i)
                QVERIFY2(
                    std::abs(actual[i] - expected[i]) <= 4,
                    qPrintable(QStringLiteral("column %1 row %2 layers %3 channel %4: %5, not %6")
                                   .arg(column)
                                   .arg(row)
                                   .arg(layers)
                                   .arg(i)
                                   .arg(actual[i])
                                   .arg(expected[i])));
            ++checked;
            layersSeen |= 1 << layers;
        }
    }
    QVERIFY(checked > width * height / 2);
    QCOMPARE(layersSeen, 0xf); // none, one, two and three layers
}

void VoiceWavePictureTest::everyFrame_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(340, 42), QSize(341, 43), QSize(600, 42), QSize(1600, 120),
                              QSize(200, 100), QSize(33, 7)})
        QTest::addRow("%d by %d", size.width(), size.height()) << size;
}

// The same pixels as when each column of each frame is worked out by itself.
void VoiceWavePictureTest::everyFrame()
{
    QFETCH(QSize, size);
    SteppedWave stepped(size.width(), size.height());
    for (int frame = 1; frame <= 72; ++frame) {
        stepped.wave.updateMaxLevel(frame / 72.0);
        QVERIFY(stepped.tick(1));
        const QImage image = picture(stepped.wave);
        const QString wrong = difference(image, pictureByColumns(stepped.wave));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("frame %1, ").arg(frame) + wrong));
    }
}

// A frame asks for the rows that the waves reach, and leaves nothing of the frame before.
void VoiceWavePictureTest::framesOnTheScreen()
{
    SteppedWave stepped(340, 42);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    stepped.wave.setPalette(palette);
    QVERIFY(QTest::qWaitForWindowExposed(&stepped.wave));
    PaintedHeight painted;
    stepped.wave.installEventFilter(&painted);
    QVector<int> heights;
    for (int frame = 0; frame < 160; ++frame) {
        stepped.wave.updateMaxLevel(frame < 80 ? 1.0 : 0.2); // rises, then falls
        QVERIFY(stepped.tick(1));
        QCoreApplication::sendPostedEvents();
        heights << painted.take();
        QVERIFY(heights.last() > 0);
        const auto *screen =
            dynamic_cast<const QImage *>(stepped.wave.backingStore()->paintDevice());
        QVERIFY(screen);
        const QString wrong = difference(*screen, pictureByColumns(stepped.wave, Qt::white));
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("frame %1, ").arg(frame) + wrong));
    }
    QVERIFY(heights.first() < 10);
    QVERIFY(heights.at(79) > 25);
    QVERIFY(heights.last() < 20);
}

void VoiceWavePictureTest::tinySizes()
{
    for (const QSize &size : {QSize(0, 0), QSize(1, 1), QSize(0, 10), QSize(10, 0)}) {
        SteppedWave stepped(size.width(), size.height());
        stepped.wave.grab();
        QVERIFY(stepped.tick(1));
    }
}

TEST_CLASS(QApplication, VoiceWavePictureTest)
#include "voicewavepicture.moc"
