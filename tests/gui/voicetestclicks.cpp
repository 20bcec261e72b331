#include "tests/support/testprogram.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <QtTest>

using namespace testsupport;

/** Clicks and keys that start a voice test and end it, and where the focus goes. */
class VoiceTestClicksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void clickOnTheWaveGoesBackAndForgetsTheWords();
    void keyOnTheWaveGoesBack();
    void theWaveLooksAsIfItCouldBeClicked();
    void aDoubleClickOnALinkStartsATest();
    void aDoubleClickOnTheWaveEndsTheTest();
    void focusGoesToTheControlThatReplacesTheOneThatHadIt();

private:
    VoiceTestServices m_services;
};

void VoiceTestClicksTest::initTestCase()
{
    QVERIFY(m_services.start());
}

void VoiceTestClicksTest::init()
{
    m_services.reset();
}

void VoiceTestClicksTest::cleanup()
{
    flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void VoiceTestClicksTest::clickOnTheWaveGoesBackAndForgetsTheWords()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    page.hear(QStringLiteral("明天"));
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QTRY_VERIFY(page.wave()->isVisible());
    QTest::mouseClick(page.wave(), Qt::LeftButton);

    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(m_services.aiService.waitForCalls(QStringLiteral("stopAqc")));
    QVERIFY(m_services.aiService.waitForCalls(QStringLiteral("stopIat")));
    flushDeferredDeletes();
    QVERIFY(!page.label(QStringLiteral("明天")));
    QVERIFY(page.clickLink());
    QCOMPARE(page.texts().at(1), QString());
}

void VoiceTestClicksTest::keyOnTheWaveGoesBack()
{
    for (int key : {Qt::Key_Escape, Qt::Key_Space}) {
        VoicePage page;
        QVERIFY(page.clickLink());
        page.wave()->setFocus();
        QTRY_VERIFY(page.wave()->hasFocus());
        QTest::keyClick(page.wave(), static_cast<Qt::Key>(key));
        QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    }
}

// The second click of a double click reaches whatever the first one has put under the pointer.
void VoiceTestClicksTest::theWaveLooksAsIfItCouldBeClicked()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    QTRY_VERIFY(page.wave()->isVisible());
    QCOMPARE(page.wave()->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(page.wave()->toolTip(), QStringLiteral("Click to cancel the test"));
}

void VoiceTestClicksTest::aDoubleClickOnALinkStartsATest()
{
    VoicePage page;
    for (const bool again : {false, true}) {
        flushDeferredDeletes();
        QTRY_VERIFY(page.link()->isVisible());
        const QRect link = page.link()->rect();
        const QPoint place =
            page.link()->mapTo(page.get(), QPoint(link.center().x(), link.bottom() - 2));
        QWindow *window = page->windowHandle();
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
        flushDeferredDeletes();
        QVERIFY(page.wave());
        QTRY_COMPARE(page->childAt(place), page.wave());
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval; // soon after the first click
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY2(page.texts().contains(QStringLiteral("(wave)")), again ? "again" : "first");

        // A click of its own ends it.
        if (again) {
            QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
            QCOMPARE(page.texts().last(), VoicePage::runLink());
        } else {
            page.finish(QStringLiteral("1000"));
        }
    }
}

void VoiceTestClicksTest::aDoubleClickOnTheWaveEndsTheTest()
{
    VoicePage page;
    QTRY_VERIFY(page.link()->isVisible());
    const QRect link = page.link()->rect();
    const QPoint place =
        page.link()->mapTo(page.get(), QPoint(link.center().x(), link.bottom() - 2));
    QWindow *window = page->windowHandle();
    QVERIFY(page.clickLink());
    flushDeferredDeletes();
    QTRY_COMPARE(page->childAt(place), page.wave());
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    flushDeferredDeletes();
    QVERIFY(page.link());
    QTRY_COMPARE(page->childAt(place), page.link());
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval; // soon after the first click
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(page.texts().last(), VoicePage::runLink());
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    // A click of its own starts the next one.
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(page.texts().contains(QStringLiteral("(wave)")));
}

void VoiceTestClicksTest::focusGoesToTheControlThatReplacesTheOneThatHadIt()
{
    VoicePage page;
    page.link()->setFocus();
    QTRY_VERIFY(page.link()->hasFocus());
    QTest::keyClick(page.link(), Qt::Key_Space);
    QTRY_VERIFY(page.wave() && page.wave()->hasFocus());
    page.finish(QStringLiteral("1008"));
    QTRY_VERIFY(page.link() && page.link()->hasFocus());

    // A focus elsewhere stays there.
    auto *other = page->findChild<QAbstractButton *>();
    other->setFocus();
    page.finish(QStringLiteral("1003"));
    QVERIFY(other->hasFocus());
}

TEST_CLASS(QApplication, VoiceTestClicksTest)
#include "voicetestclicks.moc"
