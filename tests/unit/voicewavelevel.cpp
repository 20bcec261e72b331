#include "tests/support/testprogram.h"
#include "tests/unit/steppedwave.h"
#include "voice/wavelevel.h"

#include <QApplication>
#include <QTest>

#include <cmath>
#include <limits>

using namespace testsupport;

namespace {

QVector<double> advance(WaveLevel &level, int ticks)
{
    QVector<double> sequence;
    for (int i = 0; i < ticks; ++i) {
        level.advance();
        sequence << level.current();
    }
    return sequence;
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

} // namespace

/** The wave from tick to tick: its level and its heights. */
class VoiceWaveLevelTest : public QObject
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
};

void VoiceWaveLevelTest::levelSequence()
{
    WaveLevel level;
    level.follow(0.5);
    const QVector<double> expected = {6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20,
                                      21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35,
                                      36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 49,
                                      48, 47, 46, 45, 45, 46, 47, 48, 49, 49, 48, 47, 46, 45, 45};
    QCOMPARE(advance(level, 60), expected);
}

void VoiceWaveLevelTest::levelAtRest()
{
    WaveLevel level;
    QCOMPARE(level.current(), 5.0);
    const QVector<double> expected = {6, 7, 8, 9, 9, 8, 7, 6, 5, 5, 6, 7, 8, 9, 9};
    QCOMPARE(advance(level, 15), expected);
}

void VoiceWaveLevelTest::lowerTargetFalls()
{
    WaveLevel level;
    level.follow(0.5);
    advance(level, 30); // 35, climbing
    level.follow(0.2);
    const QVector<double> expected = {34, 33, 32, 31, 30, 29, 28, 27, 26, 25, 24,
                                      23, 22, 21, 20, 19, 18, 17, 16, 15, 15, 16};
    QCOMPARE(advance(level, 22), expected);
}

void VoiceWaveLevelTest::higherTargetClimbsAgain()
{
    WaveLevel level;
    level.follow(0.2);
    advance(level, 16); // 19, falling
    QCOMPARE(level.current(), 18.0);
    level.follow(0.4); // far above: one tick turns it, the next climb
    const QVector<double> expected = {18, 19, 20, 21};
    QCOMPARE(advance(level, 4), expected);
}

void VoiceWaveLevelTest::targets_data()
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
void VoiceWaveLevelTest::targets()
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

void VoiceWaveLevelTest::resetKeepsDirection()
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

void VoiceWaveLevelTest::heights_data()
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

void VoiceWaveLevelTest::heights()
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

void VoiceWaveLevelTest::widgetFollowsTicks()
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

void VoiceWaveLevelTest::timerRunsWhilePainting()
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

void VoiceWaveLevelTest::stopResets()
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

void VoiceWaveLevelTest::secondStartContinues()
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

void VoiceWaveLevelTest::phasesAdvanceOnlyWhenPainted()
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

TEST_CLASS(QApplication, VoiceWaveLevelTest)
#include "voicewavelevel.moc"
