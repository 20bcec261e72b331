#include "plugin/tavrenaiassitantcontrolplugin.h"

#include <QString>

// What the module tells the control center's breadcrumb and search.

namespace {

const char *const assistantPage =
    QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Desktop AI Assistant");
const char *const speechToTextPage =
    QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Speech to Text");
const char *const textToSpeechPage =
    QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Text to Speech");
const char *const translationPage =
    QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Translation");

struct SearchEntry
{
    const char *page;
    const char *item; // null: the entry is the page itself
};

const SearchEntry searchEntries[] = {
    {assistantPage, nullptr},
    {assistantPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Voice Wakeup")},
    {assistantPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Language")},
    {assistantPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Show in the Dock")},
    {assistantPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Voice Test")},
    {speechToTextPage, nullptr},
    {speechToTextPage, speechToTextPage},
    {speechToTextPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Language")},
    {textToSpeechPage, nullptr},
    {textToSpeechPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Show Speech Widget")},
    {textToSpeechPage, textToSpeechPage},
    {textToSpeechPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Voice Gender")},
    {translationPage, nullptr},
    {translationPage, translationPage},
    {translationPage, QT_TRANSLATE_NOOP("TavrenAIAssitantControlPlugin", "Language")},
};

} // namespace

void TavrenAIAssitantControlPlugin::addChildPageTrans() const
{
    if (!m_frameProxy)
        return;
    // Another order than the navigation list's; the control center keeps them by name.
    for (const char *page : {assistantPage, textToSpeechPage, speechToTextPage, translationPage})
        m_frameProxy->addPageTranslation(QString::fromLatin1(page), tr(page));
}

void TavrenAIAssitantControlPlugin::initSearchData()
{
    if (!m_frameProxy)
        return;
    const QString moduleName = displayName();
    for (const SearchEntry &entry : searchEntries)
        if (entry.item)
            m_frameProxy->addSearchItem(moduleName, tr(entry.page), tr(entry.item), true);
        else
            m_frameProxy->addSearchModule(moduleName, tr(entry.page), true);
}
