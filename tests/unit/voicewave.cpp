#include "tests/support/testprogram.h"
#include "tests/unit/steppedwave.h"

#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

using namespace testsupport;

using testsupport::TimerTracker;

namespace {

void send(VoiceAnimationWidget &wave, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, QPointF(5, 5), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(&wave, &event);
}

} // namespace

/** How the wave is left, and what it takes from its window. */
class VoiceWaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
