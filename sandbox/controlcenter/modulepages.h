#pragma once

#include <QLatin1String>

namespace controlcenter {

/** The module's pages, by the untranslated names under which it registers them. */
namespace modulepages {

const QLatin1String assistant("Desktop AI Assistant");
const QLatin1String speechToText("Speech to Text");
const QLatin1String textToSpeech("Text to Speech");
const QLatin1String translation("Translation");

} // namespace modulepages

/** The keybinding daemon's identifiers of the shortcuts of the same features. */
namespace shortcutids {

const QLatin1String speechToText("speech-to-text");
const QLatin1String textToSpeech("text-to-speech");
const QLatin1String translation("translation");

} // namespace shortcutids

/** A shortcut, and the page of the feature that it starts. */
struct PageShortcut
{
    QLatin1String id;
    QLatin1String page;
};

const PageShortcut pageShortcuts[] = {
    {shortcutids::speechToText, modulepages::speechToText},
    {shortcutids::textToSpeech, modulepages::textToSpeech},
    {shortcutids::translation, modulepages::translation},
};

} // namespace controlcenter
