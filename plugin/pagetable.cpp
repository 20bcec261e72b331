#include "plugin/pagetable.h"

#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "plugin/thirdlistwidget.h"

namespace {

template <typename Page>
QWidget *newPage()
{
    return new Page(nullptr);
}

} // namespace

const QVector<PageEntry> &pageTable()
{
    static const QVector<PageEntry> table = {
        {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Desktop AI Assistant"),
         QT_TRANSLATE_NOOP("ThirdListWidget", "Desktop AI Assistant"),
         "zcc_nav_assistant_nor",
         "assistant",
         &ThirdListWidget::signalShowAIAssistant,
         newPage<AssistantSettingWidget>,
         {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Voice Wakeup"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Language"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Show in the Dock"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Voice Test")}},
        {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Speech to Text"),
         QT_TRANSLATE_NOOP("ThirdListWidget", "Speech to Text"),
         "zcc_nav_dictate_nor",
         "iat",
         &ThirdListWidget::signalShowVoiceIat,
         newPage<VoiceIatSettingWidget>,
         {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Speech to Text"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Language")}},
        {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Text to Speech"),
         QT_TRANSLATE_NOOP("ThirdListWidget", "Text to Speech"),
         "zcc_nav_read_nor",
         "tts",
         &ThirdListWidget::signalShowVoiceTTS,
         newPage<VoiceTTSSettingWidget>,
         {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Show Speech Widget"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Text to Speech"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Voice Gender")}},
        {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Translation"),
         QT_TRANSLATE_NOOP("ThirdListWidget", "Translation"),
         "zcc_nav_translate_nor",
         "translation",
         &ThirdListWidget::signalShowTranslate,
         newPage<TextTranslateSettingWidget>,
         {QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Translation"),
          QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Language")}},
    };
    return table;
}
