#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/tipslabel.h>
#include <ztk/zcommandlinkbutton.h>
#include <ztk/zguiapplicationhelper.h>

#include <QLabel>
#include <QtTest>

#include <functional>
#include <memory>

using testsupport::ServiceProcess;
using zcc::widgets::TipsLabel;
using Ztk::Gui::ZGuiApplicationHelper;

/** The theme is switched while a page is open. */
class ThemeSwitchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tipsTakeTheNewThemesColour_data();
    void tipsTakeTheNewThemesColour();
    void aHintTakesTheThemeOfTheMomentItIsMade_data();
    void aHintTakesTheThemeOfTheMomentItIsMade();
    void runningVoiceTestTakesTheNewThemesColour();
};

using NewPage = std::function<QWidget *()>;
Q_DECLARE_METATYPE(NewPage)

void ThemeSwitchTest::init()
{
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void ThemeSwitchTest::tipsTakeTheNewThemesColour_data()
{
    QTest::addColumn<NewPage>("newPage");
    QTest::newRow("assistant") << NewPage([] { return new AssistantSettingWidget; });
    QTest::newRow("speech to text") << NewPage([] { return new VoiceIatSettingWidget; });
    QTest::newRow("text to speech") << NewPage([] { return new VoiceTTSSettingWidget; });
    QTest::newRow("translation") << NewPage([] { return new TextTranslateSettingWidget; });
}

void ThemeSwitchTest::tipsTakeTheNewThemesColour()
{
    QFETCH(NewPage, newPage);
    const std::unique_ptr<QWidget> page(newPage());
    page->show();
    const auto tips = page->findChildren<TipsLabel *>();
    QVERIFY(!tips.isEmpty());

    const auto haveColour = [&tips](const char *colour) {
        return std::all_of(tips.cbegin(), tips.cend(), [colour](const TipsLabel *tip) {
            return tip->palette().color(QPalette::Text).name() == QLatin1String(colour) &&
                   tip->palette().color(QPalette::Disabled, QPalette::Text).name() ==
                       QLatin1String(colour);
        });
    };
    QVERIFY(haveColour("#8aa1b4"));
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    QTRY_VERIFY(haveColour("#c0c6d4"));
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
    QTRY_VERIFY(haveColour("#8aa1b4"));
}

void ThemeSwitchTest::aHintTakesTheThemeOfTheMomentItIsMade_data()
{
    QTest::addColumn<NewPage>("newPage");
    QTest::newRow("speech to text") << NewPage([] { return new VoiceIatSettingWidget; });
    QTest::newRow("text to speech") << NewPage([] { return new VoiceTTSSettingWidget; });
    QTest::newRow("translation") << NewPage([] { return new TextTranslateSettingWidget; });
}

// The hint is made when its shortcut is known. Until then the page waits, and the theme may change.
void ThemeSwitchTest::aHintTakesTheThemeOfTheMomentItIsMade()
{
    QFETCH(NewPage, newPage);
    const QString lookup = QStringLiteral("GetShortcut");
    ServiceProcess keybinding(QStringLiteral("keybinding"));
    QVERIFY(keybinding.start());
    keybinding.script(lookup, QStringLiteral("hold"));
    int released = 0;
    QTimer::singleShot(0, &keybinding, [&] {
        QVERIFY(keybinding.waitForCalls(lookup));
        ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
        released = keybinding.release(lookup);
    });
    const std::unique_ptr<QWidget> page(newPage());
    QCOMPARE(released, 1);
    QCOMPARE(page->findChild<TipsLabel *>()->palette().color(QPalette::Text).name(),
             QStringLiteral("#c0c6d4"));
}

void ThemeSwitchTest::runningVoiceTestTakesTheNewThemesColour()
{
    ServiceProcess network(QStringLiteral("networkmanager"));
    QVERIFY(network.start());
    network.setValue(QStringLiteral("state"), 70u);
    AssistantSettingWidget page;
    page.show();
    page.findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
    QLabel *phrase = testsupport::labelContaining(&page, QStringLiteral("现在请说"));
    QVERIFY(phrase);

    QCOMPARE(phrase->palette().text().color().name(), QStringLiteral("#8aa1b4"));
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    QTRY_COMPARE(phrase->palette().text().color().name(), QStringLiteral("#c0c6d4"));
    // The run goes on.
    QCOMPARE(testsupport::labelContaining(&page, QStringLiteral("现在请说")), phrase);
}

TEST_CLASS(QApplication, ThemeSwitchTest)
#include "themeswitch.moc"
