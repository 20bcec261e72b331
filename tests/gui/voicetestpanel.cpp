#include "tests/support/testprogram.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/zguiapplicationhelper.h>

#include <QtTest>

using namespace testsupport;
using zcc::widgets::SettingsItem;
using Ztk::Gui::ZGuiApplicationHelper;
using Ztk::Widget::ZCommandLinkButton;
using Ztk::Widget::ZFontSizeManager;

/** The states of the voice test panel and its verdicts. */
class VoiceTestPanelTest : public QObject
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
    void lateResultsAndVerdictsDoNoHarm();
    void microphoneIsOpenOnlyDuringARun();
    void pageDestroyedInARunClosesTheMicrophone();
    void tipColourFollowsTheToolkitsTheme();
    void runningVoiceTestTakesTheNewThemesColour();
    void panelsDoNotPileUp();

private:
    VoiceTestServices m_services;
};

void VoiceTestPanelTest::initTestCase()
{
    QVERIFY(m_services.start());
}

void VoiceTestPanelTest::init()
{
    m_services.reset();
}

void VoiceTestPanelTest::cleanup()
{
    flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void VoiceTestPanelTest::firstStateShowsTitleAndLink()
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

void VoiceTestPanelTest::testingStateShowsWordsPhraseAndWave()
{
    VoicePage page;
    QVERIFY(page.clickLink());
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

void VoiceTestPanelTest::finishedStateKeepsTheRecognisedWords()
{
    VoicePage page;
    QVERIFY(page.clickLink());
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
    QVERIFY(page.clickLink());
    QCOMPARE(page.texts().at(1), QString());
}

void VoiceTestPanelTest::withoutNetworkTheTestEndsAtOnceAndWithoutARecognisedTextRow()
{
    m_services.network.setValue(QStringLiteral("state"), 60u);
    VoicePage page;
    QVERIFY(page.clickLink());
    QCOMPARE(page.texts(),
             QStringList({QStringLiteral("Voice Test"), QStringLiteral("Network unavailable"),
                          VoicePage::againLink()}));
    QVERIFY(m_services.aiService.calls().isEmpty());
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    // Back on the network the other link starts a run.
    m_services.network.setValue(QStringLiteral("state"), 70u);
    QVERIFY(page.clickLink());
    QVERIFY(page.texts().contains(VoicePage::phrase()));
}

void VoiceTestPanelTest::withoutNetworkManagerTheTestEndsAtOnce()
{
    m_services.network.leaveBus();
    {
        VoicePage page;
        QTest::ignoreMessage(QtCriticalMsg, "dbus call network manager state failed");
        QVERIFY(page.clickLink());
        QCOMPARE(page.texts().at(1), QStringLiteral("Network unavailable"));
    }
    m_services.network.joinBus();
}

void VoiceTestPanelTest::refusedSessionIsAServiceException()
{
    m_services.aiService.setValue(QStringLiteral("createSession.errorcode"), 5);
    VoicePage page;
    QVERIFY(page.clickLink());
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

    m_services.aiService.setValue(QStringLiteral("createSession.errorcode"), 0);
}

void VoiceTestPanelTest::afterARefusalTheNextRunWorks()
{
    m_services.aiService.setValue(QStringLiteral("createSession.errorcode"), 5);
    VoicePage page;
    QVERIFY(page.clickLink());
    m_services.aiService.setValue(QStringLiteral("createSession.errorcode"), 0);
    QVERIFY(page.clickLink());
    QVERIFY(page.texts().contains(VoicePage::phrase()));
    QVERIFY(page.wave()->isVisible());
    page.hear(QStringLiteral("明天"));
    page.finish(QStringLiteral("1008"));
    QCOMPARE(page.texts().at(2), QStringLiteral("Too many noises"));
}

void VoiceTestPanelTest::verdictsAsTexts_data()
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

void VoiceTestPanelTest::verdictsAsTexts()
{
    QFETCH(QString, result);
    QFETCH(QString, words);
    QFETCH(QString, verdict);
    VoicePage page;
    QVERIFY(page.clickLink());
    page.hear(words);
    page.finish(result);
    QCOMPARE(page.texts(),
             QStringList({QStringLiteral("Voice Test"), words, verdict, VoicePage::againLink()}));
}

void VoiceTestPanelTest::verdictStaysUntilTheNextOne()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    page.hear(QStringLiteral("words"));
    page.finish(QStringLiteral("1000"));
    QVERIFY(page.clickLink());
    page.hear(QStringLiteral("words"));
    page.finish(QStringLiteral("1008"));
    QCOMPARE(page.texts().at(2), QStringLiteral("Too many noises"));
}

void VoiceTestPanelTest::lateResultsAndVerdictsDoNoHarm()
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

void VoiceTestPanelTest::microphoneIsOpenOnlyDuringARun()
{
    VoicePage page;
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(page.clickLink());
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    page.finish(QStringLiteral("1000"));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
}

void VoiceTestPanelTest::pageDestroyedInARunClosesTheMicrophone()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    page.destroy();
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
}

void VoiceTestPanelTest::tipColourFollowsTheToolkitsTheme()
{
    auto *helper = ZGuiApplicationHelper::instance();
    const QVector<QPair<ZGuiApplicationHelper::ColorType, QString>> themes = {
        {ZGuiApplicationHelper::DarkType, QStringLiteral("#c0c6d4")},
        {ZGuiApplicationHelper::LightType, QStringLiteral("#8aa1b4")},
    };
    for (const auto &theme : themes) {
        helper->setThemeType(theme.first);
        VoicePage page;
        QVERIFY(page.clickLink());
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

void VoiceTestPanelTest::runningVoiceTestTakesTheNewThemesColour()
{
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
    const VoicePage page;
    QVERIFY(page.clickLink());
    const QLabel *phrase = page.label(VoicePage::phrase());
    QVERIFY(phrase);

    QCOMPARE(phrase->palette().text().color().name(), QStringLiteral("#8aa1b4"));
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    QTRY_COMPARE(phrase->palette().text().color().name(), QStringLiteral("#c0c6d4"));
    // The run goes on.
    QCOMPARE(page.label(VoicePage::phrase()), phrase);
}

void VoiceTestPanelTest::panelsDoNotPileUp()
{
    VoicePage page;
    for (int run = 0; run < 10; ++run) {
        QVERIFY(page.clickLink());
        page.finish(QStringLiteral("1003"));
    }
    flushDeferredDeletes();
    QCOMPARE(page.group()->itemCount(), 3);
    QCOMPARE(page->findChildren<VoiceAnimationWidget *>().size(), 0);
    QCOMPARE(page->findChildren<ZCommandLinkButton *>().size(), 1);
    QCOMPARE(page->findChildren<SettingsItem *>().size(), 6);
}

TEST_CLASS(QApplication, VoiceTestPanelTest)
#include "voicetestpanel.moc"
