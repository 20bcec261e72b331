#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace testsupport {

/**
 * A page as the module is to offer it, written down apart from the module's own table. All names
 * are untranslated.
 */
struct ModulePage
{
    QString name;
    QString className;
    QStringList slotNames;
    QString requestSignal; // the navigation list's
    QString icon;          // of its row
    QString shortName;     // for links from outside
    QStringList settings;  // what the search finds on it, in order
    QString shortcut;      // its keybinding; the assistant has none
    QStringList switches;  // titles of its switch rows, from top to bottom
    QString list;          // label of its combo box
};

const QString assistantPage = QStringLiteral("Desktop AI Assistant");
const QString speechToTextPage = QStringLiteral("Speech to Text");
const QString textToSpeechPage = QStringLiteral("Text to Speech");
const QString translationPage = QStringLiteral("Translation");

/** In the order of the rows. */
inline QVector<ModulePage> modulePages()
{
    const QStringList featureSlots = {QStringLiteral("slotVoiceSetting(bool)"),
                                      QStringLiteral("slotVoiceSourceTypeChange(int)"),
                                      QStringLiteral("slotlanguageTypeChange(int)"),
                                      QStringLiteral("slotPluginShowChange(bool)")};
    return {
        {assistantPage,
         QStringLiteral("AssistantSettingWidget"),
         {QStringLiteral("slotVoiceWakeupSetting(bool)"),
          QStringLiteral("slotVoiceSourceTypeChange(int)"),
          QStringLiteral("slotlanguageTypeChange(int)"), QStringLiteral("slotPluginShowSet(bool)"),
          QStringLiteral("slotdockHideChange(bool)"), QStringLiteral("slotOneShotMode(int)"),
          QStringLiteral("slotAqcResult(QString)"),
          QStringLiteral("slotIatResult(QString,int,bool)")},
         QStringLiteral("signalShowAIAssistant()"),
         QStringLiteral("zcc_nav_assistant_nor"),
         QStringLiteral("assistant"),
         {QStringLiteral("Voice Wakeup"), QStringLiteral("Language"),
          QStringLiteral("Show in the Dock"), QStringLiteral("Voice Test")},
         QString(),
         {QStringLiteral("Voice Wakeup"), QStringLiteral("Show in the Dock")},
         QStringLiteral("Language")},
        {speechToTextPage,
         QStringLiteral("VoiceIatSettingWidget"),
         featureSlots,
         QStringLiteral("signalShowVoiceIat()"),
         QStringLiteral("zcc_nav_dictate_nor"),
         QStringLiteral("iat"),
         {QStringLiteral("Speech to Text"), QStringLiteral("Language")},
         QStringLiteral("speech-to-text"),
         {QStringLiteral("Speech to Text")},
         QStringLiteral("Language")},
        {textToSpeechPage,
         QStringLiteral("VoiceTTSSettingWidget"),
         {QStringLiteral("slotVoiceTTSSetting(bool)"),
          QStringLiteral("slotVoiceTTSWindowSetting(bool)"),
          QStringLiteral("slotVoiceSourceTypeChange(int)")},
         QStringLiteral("signalShowVoiceTTS()"),
         QStringLiteral("zcc_nav_read_nor"),
         QStringLiteral("tts"),
         {QStringLiteral("Show Speech Widget"), QStringLiteral("Text to Speech"),
          QStringLiteral("Voice Gender")},
         QStringLiteral("text-to-speech"),
         {QStringLiteral("Text to Speech"), QStringLiteral("Show Speech Widget")},
         QStringLiteral("Voice Gender")},
        {translationPage,
         QStringLiteral("TextTranslateSettingWidget"),
         featureSlots,
         QStringLiteral("signalShowTranslate()"),
         QStringLiteral("zcc_nav_translate_nor"),
         QStringLiteral("translation"),
         {QStringLiteral("Translation"), QStringLiteral("Language")},
         QStringLiteral("translation"),
         {QStringLiteral("Translation")},
         QStringLiteral("Language")},
    };
}

/** The pages of one feature each: all but the assistant's. */
inline QVector<ModulePage> featurePages()
{
    return modulePages().mid(1);
}

/** The page of that name, which must be there. */
inline ModulePage modulePage(const QString &name)
{
    for (const ModulePage &page : modulePages())
        if (page.name == name)
            return page;
    qFatal("the module has no page \"%s\"", qPrintable(name));
}

/** One thing of all pages: modulePageTexts(&ModulePage::icon). */
inline QStringList modulePageTexts(QString ModulePage::*what)
{
    QStringList texts;
    for (const ModulePage &page : modulePages())
        texts.append(page.*what);
    return texts;
}

/** The names in the order in which the module registers them for the breadcrumb. */
inline QStringList registeredPageNames()
{
    return {assistantPage, textToSpeechPage, speechToTextPage, translationPage};
}

/** The short names in the order in which the module lists them. */
inline QStringList availableShortNames()
{
    return {QStringLiteral("assistant"), QStringLiteral("translation"), QStringLiteral("iat"),
            QStringLiteral("tts")};
}

/** The files of the module's bundle of icons, in order. */
inline QStringList bundledIconFiles()
{
    return {QStringLiteral("zcc_nav_dictate_nor_32px.svg"),
            QStringLiteral("zcc_nav_assistant_nor_32px.svg"),
            QStringLiteral("zcc_nav_translate_nor_32px.svg"),
            QStringLiteral("zcc_nav_read_nor_32px.svg"),
            QStringLiteral("zcc_nav_voice_42px.svg"),
            QStringLiteral("zcc_nav_voice_84px.svg")};
}

} // namespace testsupport
