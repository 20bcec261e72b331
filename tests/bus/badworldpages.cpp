#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/bus/badworlds.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QtTest>

// The pages in every bad world: what opens them, and what their controls send.

using namespace badworlds;
using namespace Contract;
using doctor::World;

namespace {

template <typename Page>
std::unique_ptr<QWidget> make()
{
    return std::make_unique<Page>(nullptr);
}

QString hint(const char *feature, const char *verb, const char *shortcut)
{
    return QStringLiteral("Press the shortcuts (%1) or click \"%2\" in the context menu to %3.")
        .arg(QLatin1String(shortcut), QLatin1String(feature), QLatin1String(verb));
}

Subject shortcut(const char *feature, const char *verb, const char *key)
{
    const QString none = hint(feature, verb, "");
    const QByteArray accelerator = QByteArray("Ctrl+Alt+") + key;
    return shown(Keybinding::GetShortcut(), "keybinding",
                 QStringLiteral("{\"Accels\":[\"<Control><Alt>%1\"]}").arg(QLatin1String(key)),
                 hint(feature, verb, accelerator), none, none);
}

Subject flag(const Contract::Method &method, const char *title)
{
    const QString name = QLatin1String(title);
    const QString off = name + QStringLiteral(": off");
    return shown(method, "assistant", true, name + QStringLiteral(": on"), off, off);
}

// Space on a switch or box, Up or Down on a list.
void press(QWidget *page, const char *title)
{
    if (auto *row = testsupport::switchTitled(page, QLatin1String(title))) {
        QTest::keyClick(testsupport::switchButton(row), Qt::Key_Space);
    } else if (auto *box = testsupport::checkBoxTitled(page, QLatin1String(title))) {
        QTest::keyClick(box, Qt::Key_Space);
    } else {
        QComboBox *list = testsupport::comboBoxAt(page, 0);
        QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
    }
}

// Whatever becomes of them.
std::function<Result(const Subject &, World)> always(const QStringList &calls)
{
    return [calls](const Subject &, World) {
        return Result{QString(), calls};
    };
}

using Opener = std::function<std::unique_ptr<QWidget>()>;

/** The control @p title is used; @p line is what it says then. */
Action use(const Opener &open, const char *title, const Contract::Method &method,
           const char *service, const char *line, const char *call, const QVariantList &answer = {})
{
    return {call,
            open,
            [title](QWidget *page) { press(page, title); },
            always({QLatin1String(call)}),
            {sent(method, service, QString::fromUtf8(line), answer)}};
}

/** The assistant's page after @p title was used once. */
Opener assistantAfter(const char *title)
{
    return [title] {
        std::unique_ptr<QWidget> page = make<AssistantSettingWidget>();
        press(page.get(), title);
        return page;
    };
}

std::vector<Action> writes()
{
    const Opener iat = make<VoiceIatSettingWidget>;
    const Opener tts = make<VoiceTTSSettingWidget>;
    const Opener trans = make<TextTranslateSettingWidget>;
    const Opener assistant = make<AssistantSettingWidget>;
    return {
        use(iat, "Speech to Text", SpeechToText::setIatEnable(), "assistant", "Speech to Text: off",
            "setIatEnable(b) no-reply"),
        use(iat, "Language", SpeechToText::setIatLanguage(), "assistant", "Language: 中文-普通话",
            "setIatLanguage(s) no-reply"),
        use(tts, "Text to Speech", TextToSpeech::setTTSEnable(), "assistant", "Text to Speech: off",
            "setTTSEnable(b) no-reply"),
        use(tts, "Show Speech Widget", TextToSpeech::setEnableWindow(), "assistant",
            "Show Speech Widget: off", "setEnableWindow(b) no-reply"),
        use(tts, "Voice Gender", TextToSpeech::setSpeaker(), "assistant", "Voice Gender: Female",
            "setSpeaker(s) no-reply"),
        use(trans, "Translation", Translation::setTransEnable(), "assistant", "Translation: off",
            "setTransEnable(b) no-reply"),
        use(trans, "Language", Translation::setTransLanguage(), "assistant", "Language: EN-CN",
            "setTransLanguage(s) no-reply"),
        use(assistant, "Show in the Dock", DockIcon::setDockHideStatus(), "dock",
            "Show in the Dock: on", "setDockHideStatus(b)", {true}),
        use(assistant, "Voice Wakeup", VoiceWakeuper::disableIvw(), "assistant",
            "Voice Wakeup: off", "disableIvw()", {0}),
        use(assistantAfter("Voice Wakeup"), "Voice Wakeup", VoiceWakeuper::enableIvw(), "assistant",
            "Voice Wakeup: on", "enableIvw()", {0}),
        use(assistant, "OneShot", VoiceWakeuper::enableOneshot(), "assistant", "OneShot: on",
            "enableOneshot() no-reply"),
        use(assistantAfter("OneShot"), "OneShot", VoiceWakeuper::disableOneshot(), "assistant",
            "OneShot: off", "disableOneshot() no-reply"),
        {"the assistant's voice",
         assistant,
         [](QWidget *page) {
             QMetaObject::invokeMethod(page, "slotVoiceSourceTypeChange", Q_ARG(int, 1));
         },
         always({"setVOXASpeaker(s) no-reply"}),
         {sent(MainWindow::setVOXASpeaker(), "assistant", QStringLiteral("Voice Wakeup: on"))}},
    };
}

std::vector<Action> reads()
{
    const QString language = QStringLiteral("Language: English");
    return {
        {"Speech to Text",
         make<VoiceIatSettingWidget>,
         nullptr,
         always({"GetShortcut(si)", "getIatEnable()", "getIatLanguage()"}),
         {shortcut("Speech to Text", "convert your speech to text", "I"),
          flag(SpeechToText::getIatEnable(), "Speech to Text"),
          shown(SpeechToText::getIatLanguage(), "assistant", "en_us", language,
                QStringLiteral("Language: 中文-普通话"), language)}},
        {"Text to Speech",
         make<VoiceTTSSettingWidget>,
         nullptr,
         always({"GetShortcut(si)", "getTTSEnable()", "getEnableWindow()", "getSpeaker()"}),
         {shortcut("Text to Speech", "read the selected text out", "P"),
          flag(TextToSpeech::getTTSEnable(), "Text to Speech"),
          flag(TextToSpeech::getEnableWindow(), "Show Speech Widget"),
          shown(TextToSpeech::getSpeaker(), "assistant", "x_morven",
                QStringLiteral("Voice Gender: Male"), QStringLiteral("Voice Gender: Children"),
                QStringLiteral("Voice Gender: Children"))}},
        {"Translation",
         make<TextTranslateSettingWidget>,
         nullptr,
         always({"GetShortcut(si)", "getTransEnable()", "getTransLanguage()"}),
         {shortcut("Translation", "translate the selected text", "T"),
          flag(Translation::getTransEnable(), "Translation"),
          shown(Translation::getTransLanguage(), "assistant", "cn|en",
                QStringLiteral("Language: CN-EN"), QStringLiteral("Language: EN-CN"),
                QStringLiteral("Language: EN-CN"))}},
        {"Desktop AI Assistant",
         make<AssistantSettingWidget>,
         nullptr,
         always({"getDockHideStatus()"}),
         {shown(DockIcon::getDockHideStatus(), "dock", true,
                QStringLiteral("Show in the Dock: off"), QStringLiteral("Show in the Dock: on"),
                QStringLiteral("Show in the Dock: on"))}},
    };
}

} // namespace

class BadWorldPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readings_data() { addRows(reads(), shortWorlds()); }
    void readings() { play(0); }
    void writings_data() { addRows(writes(), shortWorlds()); }
    void writings() { play(0); }
    void readingsThatTimeOut_data() { addRows(reads(), endlessWorlds()); }
    void readingsThatTimeOut() { play(1000); }
    void writingsThatTimeOut_data() { addRows(writes(), endlessWorlds()); }
    void writingsThatTimeOut() { play(1000); }
    void readingsUntilTheBusGivesUp_data();
    void readingsUntilTheBusGivesUp() { play(0); }

private:
    void play(int replyLimitMs);

    std::unique_ptr<Stage> m_stage;
};

// With the usual limit of the bus: one page that stands still meanwhile, and one that does not.
void BadWorldPagesTest::readingsUntilTheBusGivesUp_data()
{
    const std::vector<Action> all = reads();
    addRows({all.front(), all.back()}, {World::TooLate});
}

void BadWorldPagesTest::play(int replyLimitMs)
{
    if (!m_stage) {
        m_stage = std::make_unique<Stage>(
            QStringList{QStringLiteral("assistant"), QStringLiteral("dock"),
                        QStringLiteral("keybinding")},
            replyLimitMs, [](Stage &stage) {
                auto &assistant = stage.service(QStringLiteral("assistant"));
                for (const char *key : {"iat.enabled", "tts.enabled", "tts.window", "trans.enabled",
                                        "wakeup.enabled"})
                    assistant.setValue(QLatin1String(key), true);
                assistant.setValue("wakeup.oneshot", false);
                assistant.setValue("iat.language", "en_us");
                assistant.setValue("trans.language", "cn|en");
                assistant.setValue("tts.speaker", "x_morven");
                stage.service(QStringLiteral("dock")).setValue("hidden", true);
            });
        QVERIFY(m_stage->start());
    }
    QFETCH(Action, action);
    QFETCH(int, subject);
    QFETCH(World, world);
    const QString problem = m_stage->play(action, action.subjects.at(std::size_t(subject)), world);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

ISOLATED_TEST_CLASS(QApplication, BadWorldPagesTest, testsupport::ScriptedAudio::install())
#include "badworldpages.moc"
