// The wave: its level from tick to tick, its heights, its picture, and how it is left.

#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "voice/voiceanimationwidget.h"
#include "voice/wavelevel.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>

using testsupport::TimerTracker;

namespace {

constexpr int frameMs = 15;

QVector<double> advance(WaveLevel &level, int ticks)
{
    QVector<double> sequence;
    for (int i = 0; i < ticks; ++i) {
        level.advance();
        sequence << level.current();
    }
    return sequence;
}

// What the widget shows, without the background of its window.
QImage picture(VoiceAnimationWidget &wave)
{
    QImage image(wave.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    wave.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

bool isTransparent(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
    }
    return true;
}

void send(VoiceAnimationWidget &wave, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, QPointF(5, 5), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(&wave, &event);
}

// The level that the widget draws: wave 1 at the middle and a quarter to the right has sines of
// opposite sign, so that their sum knows no phase. Levels move by whole numbers; the digits beyond
// are those of the short circle numbers.
double shownLevel(VoiceAnimationWidget &wave)
{
    const double w = wave.width();
    const double middle = wave.getAudioLineY(0, 1) / 1.9;
    const double quarter = wave.getAudioLineY(w / 4, 1) / (std::cos(6.2831852 / 4) + 0.9);
    const double level = (middle + quarter) / (0.7 * 4.0) / (wave.height() * 0.25) * 100.0;
    return std::round(level * 1e4) / 1e4;
}

// A wave whose frames are let through by the test.
class SteppedWave
{
public:
    SteppedWave(int width, int height)
    {
        wave.resize(width, height);
        wave.startPaint();
        const QList<QTimer *> timers = m_tracker.timers(frameMs);
        if (timers.size() == 1) {
            m_timer = timers.first();
            m_timer->stop();
        }
    }

    bool tick(int count)
    {
        for (int i = 0; i < count; ++i)
            if (!m_timer || !TimerTracker::fire(m_timer))
                return false;
        return true;
    }

    QTimer *timer() const { return m_timer; }

private:
    TimerTracker m_tracker; // before the widget: it must see the timer's birth

public:
    VoiceAnimationWidget wave;

private:
    QTimer *m_timer = nullptr;
};

} // namespace

class VoiceWaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void levelSequence();
    void levelAtRest();
    void lowerTargetFalls();
    void higherTargetClimbsAgain();
    void targets_data();
    void targets();
    void resetKeepsDirection();

    void heights_data();
    void heights();
    void widgetFollowsTicks();
    void timerRunsWhilePainting();
    void stopResets();
    void secondStartContinues();
    void phasesAdvanceOnlyWhenPainted();

    void nothingIsPaintedAtRest();
    void pictureOfTheWaves();
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

void VoiceWaveTest::levelSequence()
{
    WaveLevel level;
    level.follow(0.5);
    const QVector<double> expected = {6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20,
                                      21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35,
                                      36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 49,
                                      48, 47, 46, 45, 45, 46, 47, 48, 49, 49, 48, 47, 46, 45, 45};
    QCOMPARE(advance(level, 60), expected);
}

void VoiceWaveTest::levelAtRest()
{
    WaveLevel level;
    QCOMPARE(level.current(), 5.0);
    const QVector<double> expected = {6, 7, 8, 9, 9, 8, 7, 6, 5, 5, 6, 7, 8, 9, 9};
    QCOMPARE(advance(level, 15), expected);
}

void VoiceWaveTest::lowerTargetFalls()
{
    WaveLevel level;
    level.follow(0.5);
    advance(level, 30); // 35, climbing
    level.follow(0.2);
    const QVector<double> expected = {34, 33, 32, 31, 30, 29, 28, 27, 26, 25, 24,
                                      23, 22, 21, 20, 19, 18, 17, 16, 15, 15, 16};
    QCOMPARE(advance(level, 22), expected);
}

void VoiceWaveTest::higherTargetClimbsAgain()
{
    WaveLevel level;
    level.follow(0.2);
    advance(level, 16); // 19, falling
    QCOMPARE(level.current(), 18.0);
    level.follow(0.4); // far above: one tick turns it, the next climb
    const QVector<double> expected = {18, 19, 20, 21};
    QCOMPARE(advance(level, 4), expected);
}

void VoiceWaveTest::targets_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("target"); // percent
    QTest::newRow("silence") << 0.0 << 20.0;
    QTest::newRow("below the lowest") << 0.19 << 20.0;
    QTest::newRow("half") << 0.5 << 50.0;
    QTest::newRow("full") << 1.0 << 100.0;
    QTest::newRow("beyond full") << 1.7 << 100.0;
    QTest::newRow("negative") << -3.0 << 20.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 20.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 100.0;
}

// The level turns one below its target.
void VoiceWaveTest::targets()
{
    QFETCH(double, level);
    QFETCH(double, target);
    SteppedWave stepped(200, 100);
    stepped.wave.updateMaxLevel(level);
    QVERIFY(stepped.tick(int(target) - 6));
    QCOMPARE(shownLevel(stepped.wave), target - 1);
    QVERIFY(stepped.tick(1));
    QCOMPARE(shownLevel(stepped.wave), target - 1);
    QVERIFY(stepped.tick(1));
    QCOMPARE(shownLevel(stepped.wave), target - 2);
}

void VoiceWaveTest::resetKeepsDirection()
{
    WaveLevel rising;
    advance(rising, 2);
    rising.reset();
    QCOMPARE(rising.current(), 5.0);
    QCOMPARE(advance(rising, 1), QVector<double>({6}));

    WaveLevel falling;
    falling.follow(0.2);
    advance(falling, 16);
    falling.reset();
    // Not above target - 5 yet, so the first tick turns it.
    QCOMPARE(advance(falling, 2), QVector<double>({5, 6}));
}

void VoiceWaveTest::heights_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("frames"); // painted before
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("line");
    QTest::addColumn<double>("height"); // worked out outside this program, at level 5

    const QSize even(200, 100);
    const QSize panel(340, 42);
    const QSize odd(341, 42);
    QTest::newRow("1, middle") << even << 0 << 0.0 << 1 << 3.325;
    QTest::newRow("1, left end") << even << 0 << -100.0 << 1 << -0.17500000937821117;
    QTest::newRow("1, right") << even << 0 << 37.0 << 1 << 3.097391485599007;
    QTest::newRow("1, panel") << panel << 0 << -85.0 << 1 << 0.6615000019694242;
    QTest::newRow("1, panel's right end") << panel << 0 << 170.0 << 1 << -0.0734999960611491;
    QTest::newRow("2, middle") << even << 0 << 0.0 << 2 << 1.584425071515742;
    QTest::newRow("2, left bound") << even << 0 << -50.0 << 2 << 0.0;
    QTest::newRow("2, just inside left") << even << 0 << -49.999 << 2 << 0.08139218238019327;
    QTest::newRow("2, right bound") << even << 0 << 100.0 << 2 << 0.0;
    QTest::newRow("2, just inside right") << even << 0 << 99.5 << 2 << 0.0894496997664634;
    QTest::newRow("2, odd width") << odd << 0 << 60.25 << 2 << 1.7330081049864319;
    QTest::newRow("3, left bound") << even << 0 << -100.0 << 3 << 0.0;
    QTest::newRow("3, just inside left") << even << 0 << -99.5 << 3 << 0.0005366739945996165;
    QTest::newRow("3, right bound") << even << 0 << 3.125 << 3 << 0.0;
    QTest::newRow("3, just inside right") << even << 0 << 3.124 << 3 << 0.02297932721684566;
    QTest::newRow("3, left") << even << 0 << -50.0 << 3 << 2.1333332618802707;
    QTest::newRow("3, odd size") << QSize(341, 43) << 0 << -25.5 << 3 << 0.09315383922427811;
    QTest::newRow("line 0") << even << 0 << 0.0 << 0 << 0.0;
    QTest::newRow("line 4") << even << 0 << 0.0 << 4 << 0.0;
    QTest::newRow("line -1") << even << 0 << 0.0 << -1 << 0.0;
    QTest::newRow("1, one frame later") << even << 1 << 0.0 << 1 << 3.755286655311502;
    QTest::newRow("2, one frame later") << even << 1 << 33.0 << 2 << 4.43882486650362;
    QTest::newRow("3, one frame later") << even << 1 << -60.0 << 3 << 2.458298724614347;
    QTest::newRow("1, seven frames later") << panel << 7 << 12.0 << 1 << 1.9033003500289867;
    QTest::newRow("2, seven frames later") << panel << 7 << 12.0 << 2 << 0.30298075662975815;
    QTest::newRow("3, seven frames later") << panel << 7 << -120.0 << 3 << 0.5962084380127152;
}

void VoiceWaveTest::heights()
{
    QFETCH(QSize, size);
    QFETCH(int, frames);
    QFETCH(double, x);
    QFETCH(int, line);
    QFETCH(double, height);
    SteppedWave stepped(size.width(), size.height());
    for (int i = 0; i < frames; ++i)
        picture(stepped.wave);
    const double y = stepped.wave.getAudioLineY(x, line);
    QVERIFY2(std::fabs(y - height) < 1e-12, qPrintable(QString::number(y, 'g', 17)));
}

void VoiceWaveTest::widgetFollowsTicks()
{
    SteppedWave stepped(200, 100);
    stepped.wave.updateMaxLevel(1.0);
    QVERIFY(stepped.tick(45));
    QCOMPARE(shownLevel(stepped.wave), 50.0);
    QVERIFY(stepped.tick(49));
    QCOMPARE(shownLevel(stepped.wave), 99.0);
    // 0.99 of the height at full level.
    QCOMPARE(stepped.wave.getAudioLineY(0, 1), 66.5 * 0.99);
}

void VoiceWaveTest::timerRunsWhilePainting()
{
    TimerTracker tracker;
    VoiceAnimationWidget wave;
    QVERIFY(tracker.timers(frameMs).isEmpty());
    QVERIFY(wave.isHidden());
    wave.startPaint();
    QCOMPARE(tracker.timers(frameMs).size(), 1);
    QTimer *timer = tracker.timers(frameMs).first();
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    QVERIFY(!timer->parent());
    QVERIFY(!wave.isHidden());
    wave.stopPaint();
    QVERIFY(!timer->isActive());
    QVERIFY(wave.isHidden());
}

void VoiceWaveTest::stopResets()
{
    SteppedWave stepped(200, 100);
    stepped.wave.updateMaxLevel(1.0);
    QVERIFY(stepped.tick(30));
    picture(stepped.wave);
    stepped.wave.stopPaint();
    QCOMPARE(stepped.wave.getAudioLineY(0, 1), 3.325); // level 5, phase 0
    QCOMPARE(stepped.wave.getAudioLineY(0, 2), 1.584425071515742);
    QCOMPARE(stepped.wave.getAudioLineY(-50, 3), 2.1333332618802707);
    // The target is 10 again: the level turns at 9.
    QVERIFY(stepped.tick(6));
    QCOMPARE(shownLevel(stepped.wave), 8.0);
}

void VoiceWaveTest::secondStartContinues()
{
    SteppedWave stepped(200, 100);
    stepped.wave.updateMaxLevel(1.0);
    QVERIFY(stepped.tick(30));
    picture(stepped.wave);
    const double before = stepped.wave.getAudioLineY(0, 1);
    stepped.wave.startPaint();
    stepped.timer()->stop();
    QCOMPARE(stepped.wave.getAudioLineY(0, 1), before);
    QCOMPARE(shownLevel(stepped.wave), 35.0);
}

void VoiceWaveTest::phasesAdvanceOnlyWhenPainted()
{
    SteppedWave stepped(200, 100);
    QCOMPARE(stepped.wave.getAudioLineY(0, 1), 3.325);
    stepped.wave.updateMaxLevel(0.5);
    QVERIFY(stepped.tick(1));
    QCOMPARE(stepped.wave.getAudioLineY(0, 1), 3.325 / 5 * 6); // the level moved, the phase did not
    stepped.wave.stopPaint();
    picture(stepped.wave); // paints nothing
    QCOMPARE(stepped.wave.getAudioLineY(0, 1), 3.325);
}

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
