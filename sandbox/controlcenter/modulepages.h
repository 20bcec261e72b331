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

/** A shortcut of the keybinding daemon, and the page of the feature that it starts. */
struct PageShortcut
{
    QLatin1String id;
    QLatin1String page;
};

const PageShortcut pageShortcuts[] = {
    {QLatin1String("speech-to-text"), modulepages::speechToText},
    {QLatin1String("text-to-speech"), modulepages::textToSpeech},
    {QLatin1String("translation"), modulepages::translation},
};

} // namespace controlcenter
