#include "tests/gui/voicepage.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/zguiapplicationhelper.h>

#include <QtTest>

using testsupport::flushDeferredDeletes;
using testsupport::ServiceProcess;
using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using Ztk::Gui::ZGuiApplicationHelper;
using Ztk::Widget::ZCommandLinkButton;
using Ztk::Widget::ZFontSizeManager;

class TestVoiceTestPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void firstStateShowsTitleAndLink();
    void testingStateShowsWordsPhraseAndWave();
    void finishedStateKeepsTheRecognisedWords();
    void withoutNetworkTheTestEndsAtOnceAndWithoutARecognisedTextRow();
    void withoutNetworkManagerTheTestEndsAtOnce();
    void refusedSessionIsAServiceException();
    void afterARefusalTheNextRunWorks();
    void verdictsAsTexts_data();
    void verdictsAsTexts();
    void verdictStaysUntilTheNextOne();
    void clickOnTheWaveGoesBackAndForgetsTheWords();
    void keyOnTheWaveGoesBack();
    void partialResultsReplaceEachOther();
    void textsFromServicesArePlain();
    void lateResultsAndVerdictsDoNoHarm();
    void microphoneIsOpenOnlyDuringARun();
    void pageDestroyedInARunClosesTheMicrophone();
    void tipColourFollowsTheToolkitsTheme();
    void focusGoesToTheControlThatReplacesTheOneThatHadIt();
    void panelsDoNotPileUp();

private:
    std::unique_ptr<ServiceProcess> m_network;
    std::unique_ptr<ServiceProcess> m_aiService;
};

void TestVoiceTestPanel::initTestCase()
{
    m_network.reset(new ServiceProcess(QStringLiteral("networkmanager")));
    QVERIFY(m_network->start());
    m_aiService.reset(new ServiceProcess(QStringLiteral("aiservice")));
    QVERIFY(m_aiService->start());
}

void TestVoiceTestPanel::init()
{
    m_network->setValue(QStringLiteral("state"), 70u);
    m_aiService->reset();
}

void TestVoiceTestPanel::cleanup()
{
    flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void TestVoiceTestPanel::firstStateShowsTitleAndLink()
{
    VoicePage page;
    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    QCOMPARE(page.panel()->minimumHeight(), 120);
    QVERIFY(page.panel()->hasBackground());
    QCOMPARE(page.layout()->contentsMargins(), QMargins(10, 10, 10, 10));
    QCOMPARE(page.layout()->spacing(), 0);
    QCOMPARE(page.layout()->alignment(), Qt::Alignment(Qt::AlignTop));

    QLabel *title = page.label(QStringLiteral("Voice Test"));
    QVERIFY(title);
    QCOMPARE(int(title->alignment()), int(Qt::AlignLeft) | int(Qt::AlignHCenter));
    QCOMPARE(title->margin(), 0);
    QCOMPARE(title->font().pixelSize(),
             ZFontSizeManager::instance()->fontPixelSize(ZFontSizeManager::T6));
    QCOMPARE(page.layout()->itemAt(0)->alignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(page.layout()->itemAt(1)->spacerItem()->sizeHint().height(), 10);
    QCOMPARE(page.layout()->itemAt(2)->alignment(), Qt::Alignment(Qt::AlignCenter));
}

void TestVoiceTestPanel::testingStateShowsWordsPhraseAndWave()
{
    VoicePage page;
    page.clickLink();
    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), QString(),
                                        VoicePage::phrase(), QStringLiteral("(wave)")}));
    QCOMPARE(page.layout()->contentsMargins(), QMargins(10, 10, 0, 0));
    QVERIFY(!page.link() || !page.link()->isVisible());

    VoiceAnimationWidget *wave = page.wave();
    QTRY_VERIFY(wave->isVisible());
    QCOMPARE(wave->minimumSize(), QSize(340, 42));
    QCOMPARE(wave->maximumWidth(), page.panel()->maximumWidth());
    QVERIFY(wave->width() >= 340);
    QVERIFY(!wave->accessibleName().isEmpty());

    auto *words = qobject_cast<QLabel *>(page.layout()->itemAt(1)->widget());
    QVERIFY(words->text().isEmpty());
    QCOMPARE(words->minimumWidth(), 340);
    QCOMPARE(words->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(page.layout()->itemAt(1)->alignment(), Qt::AlignHCenter | Qt::AlignTop);
    QCOMPARE(page.layout()->itemAt(3)->alignment(), Qt::Alignment(Qt::AlignBottom));
    QVERIFY(page.label(VoicePage::phrase())->wordWrap());
    // A stretch closes the panel.
    QVERIFY(page.layout()->itemAt(page.layout()->count() - 1)->spacerItem());
}

void TestVoiceTestPanel::finishedStateKeepsTheRecognisedWords()
{
    VoicePage page;
    page.clickLink();
    page.hear(QStringLiteral("明天早上"));
    page.finish(QStringLiteral("1000"));
    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), QStringLiteral("明天早上"),
                                        QStringLiteral("It sounds good"), VoicePage::againLink()}));
    QCOMPARE(page.layout()->contentsMargins(), QMargins(10, 10, 10, 10));

    // The kept labels survive their old panel.
    flushDeferredDeletes();
    QTRY_VERIFY(page.label(QStringLiteral("明天早上")));
    QVERIFY(page.label(QStringLiteral("Voice Test")));
    QVERIFY(page.label(QStringLiteral("It sounds good")));

    // The next run begins without words.
    page.clickLink();
    QCOMPARE(page.texts().at(1), QString());
}

void TestVoiceTestPanel::withoutNetworkTheTestEndsAtOnceAndWithoutARecognisedTextRow()
{
    m_network->setValue(QStringLiteral("state"), 60u);
    VoicePage page;
    page.clickLink();
    QCOMPARE(page.texts(),
             QStringList({QStringLiteral("Voice Test"), QStringLiteral("Network unavailable"),
                          VoicePage::againLink()}));
    QVERIFY(m_aiService->calls().isEmpty());
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    // Back on the network the other link starts a run.
    m_network->setValue(QStringLiteral("state"), 70u);
    page.clickLink();
    QVERIFY(page.texts().contains(VoicePage::phrase()));
}

void TestVoiceTestPanel::withoutNetworkManagerTheTestEndsAtOnce()
{
    m_network->leaveBus();
    {
        VoicePage page;
        QTest::ignoreMessage(QtCriticalMsg, "dbus call network manager state failed");
        page.clickLink();
        QCOMPARE(page.texts().at(1), QStringLiteral("Network unavailable"));
    }
    m_network->joinBus();
}

void TestVoiceTestPanel::refusedSessionIsAServiceException()
{
    m_aiService->setValue(QStringLiteral("createSession.errorcode"), 5);
    VoicePage page;
    page.clickLink();
    const QStringList expected = {QStringLiteral("Voice Test"), QString(),
                                  QStringLiteral("Service exception"), VoicePage::againLink()};
    QCOMPARE(page.texts(), expected);
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    // The finished panel is in the group once, and has gained a stretch.
    QVERIFY(page.layout()->itemAt(page.layout()->count() - 1)->spacerItem());
    flushDeferredDeletes();
    QTRY_VERIFY(page.panel()->isVisible());
    QCOMPARE(page.texts(), expected);
    QCOMPARE(page->findChildren<ZCommandLinkButton *>().size(), 1);
    QCOMPARE(page.group()->itemCount(), 3);

    m_aiService->setValue(QStringLiteral("createSession.errorcode"), 0);
}

void TestVoiceTestPanel::afterARefusalTheNextRunWorks()
{
    m_aiService->setValue(QStringLiteral("createSession.errorcode"), 5);
    VoicePage page;
    page.clickLink();
    m_aiService->setValue(QStringLiteral("createSession.errorcode"), 0);
    page.clickLink();
    QVERIFY(page.texts().contains(VoicePage::phrase()));
    QVERIFY(page.wave()->isVisible());
    page.hear(QStringLiteral("明天"));
    page.finish(QStringLiteral("1008"));
    QCOMPARE(page.texts().at(2), QStringLiteral("Too many noises"));
}

void TestVoiceTestPanel::verdictsAsTexts_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("verdict");
    const QString up = QStringLiteral("Turn up the input volume and try again");
    const QString down = QStringLiteral("Turn down the input volume and try again");
    QTest::newRow("good, with words") << "1000"
                                      << "words"
                                      << "It sounds good";
    QTest::newRow("good, nothing understood") << "1000"
                                              << "" << up;
    QTest::newRow("too loud") << "1004"
                              << "words" << down;
    QTest::newRow("too quiet") << "1005"
                               << "words" << up;
    QTest::newRow("loud and quiet") << "1004 1005"
                                    << "" << up;
    QTest::newRow("noisy") << "1008"
                           << ""
                           << "Too many noises";
    QTest::newRow("no sound") << "1003"
                              << ""
                              << "No sound recorded";
    QTest::newRow("no sound, yet words") << "1003"
                                         << "words" << up;
    QTest::newRow("noisy and no sound") << "1008,1003"
                                        << ""
                                        << "No sound recorded";
    QTest::newRow("noisy and no sound, with words") << "1008,1003"
                                                    << "words" << up;
    QTest::newRow("unknown, with words") << "9999"
                                         << "words"
                                         << "";
    QTest::newRow("unknown, without words") << "9999"
                                            << "" << up;
}

void TestVoiceTestPanel::verdictsAsTexts()
{
    QFETCH(QString, result);
    QFETCH(QString, words);
    QFETCH(QString, verdict);
    VoicePage page;
    page.clickLink();
    page.hear(words);
    page.finish(result);
    QCOMPARE(page.texts(),
             QStringList({QStringLiteral("Voice Test"), words, verdict, VoicePage::againLink()}));
}

void TestVoiceTestPanel::verdictStaysUntilTheNextOne()
{
    VoicePage page;
    page.clickLink();
    page.hear(QStringLiteral("words"));
    page.finish(QStringLiteral("1000"));
    page.clickLink();
    page.hear(QStringLiteral("words"));
    page.finish(QStringLiteral("1008"));
    QCOMPARE(page.texts().at(2), QStringLiteral("Too many noises"));
}

void TestVoiceTestPanel::clickOnTheWaveGoesBackAndForgetsTheWords()
{
    VoicePage page;
    page.clickLink();
    page.hear(QStringLiteral("明天"));
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QTRY_VERIFY(page.wave()->isVisible());
    QTest::mouseClick(page.wave(), Qt::LeftButton);

    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(m_aiService->waitForCalls(QStringLiteral("stopAqc")));
    QVERIFY(m_aiService->waitForCalls(QStringLiteral("stopIat")));
    flushDeferredDeletes();
    QVERIFY(!page.label(QStringLiteral("明天")));
    page.clickLink();
    QCOMPARE(page.texts().at(1), QString());
}

void TestVoiceTestPanel::keyOnTheWaveGoesBack()
{
    for (int key : {Qt::Key_Escape, Qt::Key_Space}) {
        VoicePage page;
        page.clickLink();
        page.wave()->setFocus();
        QTRY_VERIFY(page.wave()->hasFocus());
        QTest::keyClick(page.wave(), static_cast<Qt::Key>(key));
        QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    }
}

void TestVoiceTestPanel::partialResultsReplaceEachOther()
{
    VoicePage page;
    page.clickLink();
    for (const char *words : {"a", "a b", "", "c"}) {
        page.hear(QLatin1String(words));
        QCOMPARE(page.texts().at(1), QString::fromLatin1(words));
    }
}

void TestVoiceTestPanel::textsFromServicesArePlain()
{
    VoicePage page;
    page.clickLink();
    page.hear(QStringLiteral("<b>bold</b><img src='file:///etc/hostname'>"));
    auto *words = qobject_cast<QLabel *>(page.layout()->itemAt(1)->widget());
    QCOMPARE(words->textFormat(), Qt::PlainText);
    page.finish(QStringLiteral("1008"));
    QCOMPARE(qobject_cast<QLabel *>(page.layout()->itemAt(2)->widget())->textFormat(),
             Qt::PlainText);
}

void TestVoiceTestPanel::lateResultsAndVerdictsDoNoHarm()
{
    VoicePage page;
    page.hear(QStringLiteral("nobody is listening"));
    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    page.finish(QStringLiteral("1000"));
    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"),
                                        QStringLiteral("Turn up the input volume and try again"),
                                        VoicePage::againLink()}));
    page.finish(QStringLiteral("1003"));
    page.finish(QStringLiteral("1003"));
    QCOMPARE(page.texts().at(1), QStringLiteral("No sound recorded"));
}

void TestVoiceTestPanel::microphoneIsOpenOnlyDuringARun()
{
    VoicePage page;
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    page.clickLink();
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    page.finish(QStringLiteral("1000"));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
}

void TestVoiceTestPanel::pageDestroyedInARunClosesTheMicrophone()
{
    VoicePage page;
    page.clickLink();
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    page.destroy();
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
}

void TestVoiceTestPanel::tipColourFollowsTheToolkitsTheme()
{
    auto *helper = ZGuiApplicationHelper::instance();
    const QVector<QPair<ZGuiApplicationHelper::ColorType, QString>> themes = {
        {ZGuiApplicationHelper::DarkType, QStringLiteral("#c0c6d4")},
        {ZGuiApplicationHelper::LightType, QStringLiteral("#8aa1b4")},
    };
    for (const auto &theme : themes) {
        helper->setThemeType(theme.first);
        VoicePage page;
        page.clickLink();
        for (QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QPalette palette = page.label(VoicePage::phrase())->palette();
            QCOMPARE(palette.color(group, QPalette::Text).name(), theme.second);
            QCOMPARE(palette.brush(group, QPalette::Text).style(), Qt::SolidPattern);
        }
        QCOMPARE(page.label(VoicePage::phrase())->font().pixelSize(),
                 ZFontSizeManager::instance()->fontPixelSize(ZFontSizeManager::T8));
        page.finish(QStringLiteral("1008"));
        QCOMPARE(page.label(QStringLiteral("Too many noises"))->palette().text().color().name(),
                 theme.second);
    }
}

void TestVoiceTestPanel::focusGoesToTheControlThatReplacesTheOneThatHadIt()
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

void TestVoiceTestPanel::panelsDoNotPileUp()
{
    VoicePage page;
    for (int run = 0; run < 10; ++run) {
        page.clickLink();
        page.finish(QStringLiteral("1003"));
    }
    flushDeferredDeletes();
    QCOMPARE(page.group()->itemCount(), 3);
    QCOMPARE(page->findChildren<VoiceAnimationWidget *>().size(), 0);
    QCOMPARE(page->findChildren<ZCommandLinkButton *>().size(), 1);
    QCOMPARE(page->findChildren<SettingsItem *>().size(), 6);
}

QTEST_MAIN(TestVoiceTestPanel)
#include "voicetestpanel.moc"
