#include "tests/support/testprogram.h"
#include "tests/unit/steppedwave.h"

#include <QApplication>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace testsupport;

using testsupport::TimerTracker;

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
QImage pictureByColumns(VoiceAnimationWidget &wave)
{
    const double right = wave.width() / 2.0;
    QLinearGradient gradient(-right, 0, right, 0);
    gradient.setColorAt(0, QColor(14, 136, 250, 160));
    gradient.setColorAt(1, QColor(147, 247, 67, 160));
    QImage image(wave.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
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

void send(VoiceAnimationWidget &wave, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, QPointF(5, 5), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(&wave, &event);
}

} // namespace

/** The wave as people see it, and how it is left. */
class VoiceWaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsPaintedAtRest();
    void pictureOfTheWaves();
    void everyFrame_data();
    void everyFrame();
    void tinySizes();
    void clickAsksOnce();
    void clickOnAHiddenWave();
    void clickBeforeTheStart();
    void secondClickOfADoubleClickThatBeganElsewhere();
    void doubleClickOnTheWave();
    void keysAsk_data();
    void keysAsk();
    void otherKeysPass();
    void focusIsShownForTheKeyboard();
    void declaredMembers();
};

void VoiceWaveTest::nothingIsPaintedAtRest()
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
void VoiceWaveTest::pictureOfTheWaves()
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

void VoiceWaveTest::everyFrame_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(340, 42), QSize(341, 43), QSize(600, 42), QSize(1600, 120),
                              QSize(200, 100), QSize(33, 7)})
        QTest::addRow("%d by %d", size.width(), size.height()) << size;
}

// The same pixels as when each column of each frame is worked out by itself.
void VoiceWaveTest::everyFrame()
{
    QFETCH(QSize, size);
    SteppedWave stepped(size.width(), size.height());
    for (int frame = 1; frame <= 72; ++frame) {
        stepped.wave.updateMaxLevel(frame / 72.0);
        QVERIFY(stepped.tick(1));
        const QImage image = picture(stepped.wave);
        const QImage expected = pictureByColumns(stepped.wave);
        for (int y = 0; y < image.height(); ++y) {
            const uchar *line = image.constScanLine(y);
            const uchar *expectedLine = expected.constScanLine(y);
            for (int i = 0; i < image.width() * 4; ++i)
                if (std::abs(line[i] - expectedLine[i]) > 1)
                    QFAIL(qPrintable(QStringLiteral("frame %1, row %2, byte %3: %4, not %5")
                                         .arg(frame)
                                         .arg(y)
                                         .arg(i)
                                         .arg(line[i])
                                         .arg(expectedLine[i])));
        }
    }
}

void VoiceWaveTest::tinySizes()
{
    for (const QSize &size : {QSize(0, 0), QSize(1, 1), QSize(0, 10), QSize(10, 0)}) {
        SteppedWave stepped(size.width(), size.height());
        stepped.wave.grab();
        QVERIFY(stepped.tick(1));
    }
}

void VoiceWaveTest::clickAsksOnce()
{
    VoiceAnimationWidget wave;
    wave.resize(200, 100);
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    wave.startPaint();
    QTest::mouseClick(&wave, Qt::LeftButton);
    QCOMPARE(asked.count(), 1);
    QTest::mouseClick(&wave, Qt::RightButton);
    QCOMPARE(asked.count(), 2);
    QTest::mousePress(&wave, Qt::MiddleButton);
    QCOMPARE(asked.count(), 2);
    QTest::mouseRelease(&wave, Qt::MiddleButton);
    QCOMPARE(asked.count(), 3);
}

void VoiceWaveTest::clickOnAHiddenWave()
{
    // Hidden parent: what counts is whether the wave itself was shown.
    QWidget parent;
    VoiceAnimationWidget wave(&parent);
    wave.resize(200, 100);
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    wave.stopPaint();
    send(wave, QEvent::MouseButtonRelease);
    QCOMPARE(asked.count(), 0);
    wave.startPaint();
    QVERIFY(!wave.isVisible());
    send(wave, QEvent::MouseButtonRelease);
    QCOMPARE(asked.count(), 1);
    wave.stopPaint();
    send(wave, QEvent::MouseButtonRelease);
    QCOMPARE(asked.count(), 1);
}

// Only its owner shows a wave, not the parent that is shown.
void VoiceWaveTest::clickBeforeTheStart()
{
    QWidget parent;
    VoiceAnimationWidget wave(&parent);
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    for (const bool shown : {false, true}) {
        parent.setVisible(shown);
        QVERIFY(wave.isHidden());
        send(wave, QEvent::MouseButtonRelease);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&wave, &escape);
        QCOMPARE(asked.count(), 0);
    }
    wave.startPaint();
    QVERIFY(wave.isVisible());
    send(wave, QEvent::MouseButtonRelease);
    QCOMPARE(asked.count(), 1);
}

void VoiceWaveTest::secondClickOfADoubleClickThatBeganElsewhere()
{
    VoiceAnimationWidget wave;
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    for (int run = 1; run <= 2; ++run) { // a stopped wave knows nothing of the clicks before
        wave.startPaint();
        send(wave, QEvent::MouseButtonDblClick);
        send(wave, QEvent::MouseButtonRelease);
        QCOMPARE(asked.count(), 2 * run - 2);
        send(wave, QEvent::MouseButtonRelease); // belongs to no press at all
        QCOMPARE(asked.count(), 2 * run - 1);
        send(wave, QEvent::MouseButtonPress);
        send(wave, QEvent::MouseButtonRelease);
        QCOMPARE(asked.count(), 2 * run);
        wave.stopPaint();
    }

    // Another button's release is not the double click's, nor is that of a later press.
    wave.startPaint();
    asked.clear();
    send(wave, QEvent::MouseButtonDblClick);
    send(wave, QEvent::MouseButtonRelease, Qt::RightButton);
    QCOMPARE(asked.count(), 1);
    send(wave, QEvent::MouseButtonPress);
    send(wave, QEvent::MouseButtonRelease);
    QCOMPARE(asked.count(), 2);
}

void VoiceWaveTest::doubleClickOnTheWave()
{
    VoiceAnimationWidget wave;
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    wave.startPaint();
    for (const QEvent::Type press : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
        send(wave, press);
        send(wave, QEvent::MouseButtonRelease);
    }
    QCOMPARE(asked.count(), 2); // once per release
}

void VoiceWaveTest::keysAsk_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Space") << int(Qt::Key_Space);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void VoiceWaveTest::keysAsk()
{
    QFETCH(int, key);
    VoiceAnimationWidget wave;
    QVERIFY(wave.focusPolicy() & Qt::TabFocus);
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    wave.startPaint();
    QTest::keyClick(&wave, Qt::Key(key));
    QCOMPARE(asked.count(), 1);

    QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&wave, &held);
    QCOMPARE(asked.count(), 1);
    QVERIFY(held.isAccepted());

    wave.stopPaint();
    QKeyEvent late(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&wave, &late);
    QCOMPARE(asked.count(), 1);
}

void VoiceWaveTest::otherKeysPass()
{
    VoiceAnimationWidget wave;
    QSignalSpy asked(&wave, &VoiceAnimationWidget::signalStopPaint);
    wave.startPaint();
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QApplication::sendEvent(&wave, &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(asked.count(), 0);
}

void VoiceWaveTest::focusIsShownForTheKeyboard()
{
    QWidget window;
    VoiceAnimationWidget wave(&window);
    wave.resize(200, 100);
    window.resize(220, 120);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    // Well above the waves at rest there is only the frame.
    const auto isFramed = [&wave] {
        const QImage image = picture(wave);
        return qAlpha(image.pixel(100, 0)) != 0 || qAlpha(image.pixel(100, 1)) != 0;
    };
    wave.startPaint();
    QVERIFY(!isFramed()); // the window's first focus is nobody's choice
    wave.clearFocus();
    wave.setFocus(Qt::TabFocusReason);
    QVERIFY(wave.hasFocus());
    QVERIFY(isFramed());

    wave.clearFocus();
    QVERIFY(!isFramed());
    wave.setFocus(Qt::MouseFocusReason);
    QVERIFY(wave.hasFocus());
    QVERIFY(!isFramed());

    // Given by a page: shown to those who came by keyboard.
    wave.clearFocus();
    wave.setFocus();
    QVERIFY(!isFramed());
    wave.clearFocus();
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    wave.setFocus();
    QVERIFY(isFramed());
}

void VoiceWaveTest::declaredMembers()
{
    const QMetaObject &meta = VoiceAnimationWidget::staticMetaObject;
    QStringList members;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        members << QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(members, QStringList({QStringLiteral("signalStopPaint()"),
                                   QStringLiteral("updateMaxLevel(double)")}));
}

TEST_CLASS(QApplication, VoiceWaveTest)
#include "voicewave.moc"
