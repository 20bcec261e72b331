#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/gui/shownpages.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QtTest>

#include <memory>

using namespace testsupport;
using zcc::widgets::TipsLabel;

/** Which state the pages show when they open, and what they log. */
class PageStatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void speechToTextShowsTheServicesState_data();
    void speechToTextShowsTheServicesState();
    void textToSpeechShowsTheServicesState_data();
    void textToSpeechShowsTheServicesState();
    void translationShowsTheServicesState_data();
    void translationShowsTheServicesState();
    void assistantShowsTheStoresState_data();
    void assistantShowsTheStoresState();
    void aStoreThatIsAFolderReadsAsOff();
    void theStoreIsNotWritten();

    void opensWithItsLogLinesAndNoOthers_data();
    void opensWithItsLogLinesAndNoOthers();
    void initDoesNothing();

private:
    PageServices m_services;
};

void PageStatesTest::initTestCase()
{
    QVERIFY(m_services.start());
}

void PageStatesTest::init()
{
    m_services.reset();
}

void PageStatesTest::cleanup()
{
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageStatesTest::speechToTextShowsTheServicesState_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("index");
    QTest::newRow("on, Chinese") << true << "zh_cn" << 0;
    QTest::newRow("off, English") << false << "en_us" << 1;
    QTest::newRow("unknown language is English") << true << "fr_fr" << 1;
    QTest::newRow("empty language is English") << true << "" << 1;
    QTest::newRow("other letter case is English") << true << "zh_CN" << 1;
}

void PageStatesTest::speechToTextShowsTheServicesState()
{
    QFETCH(bool, on);
    QFETCH(QString, language);
    QFETCH(int, index);
    m_services.assistant.script(QStringLiteral("getIatEnable"), QStringLiteral("reply"), on);
    m_services.assistant.script(QStringLiteral("getIatLanguage"), QStringLiteral("reply"),
                                language);
    const VoiceIatSettingWidget page(nullptr);
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Speech to Text"))->checked(), on);
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), index);
    QVERIFY(testsupport::comboBoxAt(&page, 0)->isEnabled());
}

void PageStatesTest::textToSpeechShowsTheServicesState_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("window");
    QTest::addColumn<QString>("speaker");
    QTest::addColumn<int>("index");
    QTest::newRow("on, widget off, female") << true << false << "x_tovali" << 0;
    QTest::newRow("off, widget on, male") << false << true << "x_morven" << 1;
    QTest::newRow("both on, child") << true << true << "x2_pella" << 2;
    QTest::newRow("both off, female without prefix") << false << false << "tovali" << 0;
    QTest::newRow("male without prefix is the child") << true << true << "morven" << 2;
    QTest::newRow("unknown speaker is the child") << true << true << "nobody" << 2;
    QTest::newRow("empty speaker is the child") << true << true << "" << 2;
}

void PageStatesTest::textToSpeechShowsTheServicesState()
{
    QFETCH(bool, on);
    QFETCH(bool, window);
    QFETCH(QString, speaker);
    QFETCH(int, index);
    m_services.assistant.script(QStringLiteral("getTTSEnable"), QStringLiteral("reply"), on);
    m_services.assistant.script(QStringLiteral("getEnableWindow"), QStringLiteral("reply"), window);
    m_services.assistant.script(QStringLiteral("getSpeaker"), QStringLiteral("reply"), speaker);
    const VoiceTTSSettingWidget page(nullptr);
    auto *windowSwitch = testsupport::switchTitled(&page, QStringLiteral("Show Speech Widget"));
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Text to Speech"))->checked(), on);
    QCOMPARE(windowSwitch->checked(), window);
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), index);
    // Reading aloud rules over neither of the others.
    QVERIFY(windowSwitch->isEnabled());
    QVERIFY(testsupport::comboBoxAt(&page, 0)->isEnabled());
}

void PageStatesTest::translationShowsTheServicesState_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<int>("index");
    QTest::newRow("on, to English") << true << "cn|en" << 0;
    QTest::newRow("off, to Chinese") << false << "en|cn" << 1;
    QTest::newRow("other letter case is to Chinese") << true << "CN|EN" << 1;
    QTest::newRow("unknown direction is to Chinese") << true << "cn|fr" << 1;
    QTest::newRow("empty direction is to Chinese") << true << "" << 1;
}

void PageStatesTest::translationShowsTheServicesState()
{
    QFETCH(bool, on);
    QFETCH(QString, direction);
    QFETCH(int, index);
    m_services.assistant.script(QStringLiteral("getTransEnable"), QStringLiteral("reply"), on);
    m_services.assistant.script(QStringLiteral("getTransLanguage"), QStringLiteral("reply"),
                                direction);
    const TextTranslateSettingWidget page(nullptr);
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Translation"))->checked(), on);
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), index);
    QVERIFY(testsupport::comboBoxAt(&page, 0)->isEnabled());
}

void PageStatesTest::assistantShowsTheStoresState_data()
{
    QTest::addColumn<QByteArray>("store"); // null: there is none
    QTest::addColumn<bool>("wakeup");
    QTest::addColumn<bool>("oneShot");
    const auto add = [](const char *name, const QByteArray &store, bool wakeup, bool oneShot) {
        QTest::newRow(name) << store << wakeup << oneShot;
    };
    add("no store", QByteArray(), false, false);
    add("empty store", "", false, false);
    add("both off", "[base]\nenable=false\nenableOneshot=false\n", false, false);
    add("wake-up on", "[base]\nenable=true\nenableOneshot=false\n", true, false);
    add("both on", "[base]\nenable=true\nenableOneshot=true\n", true, true);
    add("one-shot without wake-up", "[base]\nenable=false\nenableOneshot=true\n", false, false);
    add("one-shot alone in the store", "[base]\nenableOneshot=true\n", false, false);
    add("wake-up alone in the store", "[base]\nenable=true\n", true, false);
    add("numbers", "[base]\nenable=1\nenableOneshot=0\n", true, false);
    add("empty values", "[base]\nenable=\nenableOneshot=\n", false, false);
    add("a list for a value", "[base]\nenable=true, true\n", false, false);
    add("keys in another group", "[General]\nenable=true\n[other]\nenableOneshot=true\n", false,
        false);
    add("keys in another letter case", "[base]\nEnable=true\n", false, false);
    add("not a store", "\x7f\x45LF\x00\xff\xfe]][=;%\n\n\n=\\x", false, false);
    add("a store behind rubbish", "\xff\xfe===\n[base]\nenable=true\n", true, false);
    add("a damaged variant", "[base]\nenable=@Variant(\\0\\0\\0\\xff)\n", false, false);
}

void PageStatesTest::assistantShowsTheStoresState()
{
    QFETCH(QByteArray, store);
    QFETCH(bool, wakeup);
    QFETCH(bool, oneShot);
    if (!store.isNull())
        QVERIFY(m_services.home.writeWakeupSettings(store));
    if (store.contains("@Variant"))
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("invalid type")));

    const AssistantSettingWidget page(nullptr);
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Voice Wakeup"))->checked(), wakeup);
    const QCheckBox *box = testsupport::checkBoxTitled(&page, QStringLiteral("OneShot"));
    QCOMPARE(box->isEnabled(), wakeup);
    QCOMPARE(box->isChecked(), oneShot);
    const auto *tip = page.findChildren<TipsLabel *>().at(1);
    QCOMPARE(tip->isVisibleTo(&page), wakeup);
    QCOMPARE(tip->text(), oneShot
                              ? QStringLiteral("Hello, Alani. What's the weather like in Beijing?")
                              : QStringLiteral("Say \"Hello, Alani\" to wake up AI Assistant"));
}

void PageStatesTest::aStoreThatIsAFolderReadsAsOff()
{
    QVERIFY(QDir().mkpath(m_services.home.wakeupSettingsFile()));
    {
        const AssistantSettingWidget page(nullptr);
        QVERIFY(!testsupport::switchTitled(&page, QStringLiteral("Voice Wakeup"))->checked());
    }
    QVERIFY(QDir().rmdir(m_services.home.wakeupSettingsFile()));
}

void PageStatesTest::theStoreIsNotWritten()
{
    const QByteArray store = "; written by hand\n[base]\nenable = true\nother=1\n";
    QVERIFY(m_services.home.writeWakeupSettings(store));
    {
        const AssistantSettingWidget page(nullptr);
        QVERIFY(testsupport::switchTitled(&page, QStringLiteral("Voice Wakeup"))->checked());
    }
    QFile file(m_services.home.wakeupSettingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), store);
}

void PageStatesTest::opensWithItsLogLinesAndNoOthers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("constructor");
    QTest::newRow("assistant") << "Desktop AI Assistant"
                               << QStringList{QStringLiteral("AssistantSettingWidget")}
                               << "AssistantSettingWidget::AssistantSettingWidget(QWidget*)";
    QTest::newRow("speech to text")
        << "Speech to Text"
        << QStringList{QStringLiteral("VoiceIatSettingWidget"),
                       QStringLiteral("AssistantStateProxy::queryVoiceIatState() true")}
        << "VoiceIatSettingWidget::VoiceIatSettingWidget(QWidget*)";
    QTest::newRow("text to speech")
        << "Text to Speech"
        << QStringList{QStringLiteral("VoiceTTSSettingWidget"),
                       QStringLiteral("getVoiceTTSSpeaker \"x_morven\"")}
        << "VoiceTTSSettingWidget::VoiceTTSSettingWidget(QWidget*)";
    QTest::newRow("translation") << "Translation"
                                 << QStringList{QStringLiteral("TextTranslateSettingWidget")}
                                 << "TextTranslateSettingWidget::TextTranslateSettingWidget("
                                    "QWidget*)";
}

void PageStatesTest::opensWithItsLogLinesAndNoOthers()
{
    QFETCH(QString, name);
    QFETCH(QStringList, lines);
    QFETCH(QString, constructor);
    m_services.assistant.setValue(QStringLiteral("iat.enabled"), true);
    m_services.assistant.setValue(QStringLiteral("tts.speaker"), QStringLiteral("x_morven"));
    const LogCapture log;
    const std::unique_ptr<QWidget> page(newPage(name));
    QCOMPARE(pageLines(log), lines);
    const testsupport::LogRecord first = log.find(lines.constFirst());
    QCOMPARE(first.type, QtDebugMsg);
    QCOMPARE(first.category, QStringLiteral("default"));
    QCOMPARE(first.function, constructor);
}

void PageStatesTest::initDoesNothing()
{
    AssistantSettingWidget assistant(nullptr);
    VoiceIatSettingWidget speechToText(nullptr);
    VoiceTTSSettingWidget textToSpeech(nullptr);
    TextTranslateSettingWidget translation(nullptr);
    m_services.assistant.reset();
    m_services.dock.reset();
    const LogCapture log;
    assistant.init();
    speechToText.init();
    textToSpeech.init();
    translation.init();
    QCOMPARE(pageLines(log), QStringList());
    QVERIFY(m_services.assistant.calls().isEmpty());
    QVERIFY(m_services.dock.calls().isEmpty());
}

TEST_CLASS(QApplication, PageStatesTest)
#include "pagestates.moc"
