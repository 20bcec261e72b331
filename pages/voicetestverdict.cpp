#include "pages/voicetestverdict.h"

#include <QString>

VoiceTestVerdict voiceTestVerdict(const QString &result, const QString &recognisedText)
{
    // In this order, the last code found wins; 1003 comes after 1008. The codes that are missing
    // here (1001, 1002, 1006, 1007, 1009, 1010) say nothing about the microphone.
    static const struct
    {
        const char *code;
        VoiceTestVerdict verdict;
    } codes[] = {
        {"1000", VoiceTestVerdict::Good},     {"1004", VoiceTestVerdict::TooLoud},
        {"1005", VoiceTestVerdict::TooQuiet}, {"1008", VoiceTestVerdict::TooNoisy},
        {"1003", VoiceTestVerdict::NoSound},
    };

    auto verdict = VoiceTestVerdict::None;
    for (const auto &entry : codes)
        if (result.contains(QLatin1String(entry.code)))
            verdict = entry.verdict;

    const bool faultFound = verdict != VoiceTestVerdict::None && verdict != VoiceTestVerdict::Good;
    if (recognisedText.isEmpty()) {
        // A clean recording in which nobody was understood.
        if (!faultFound)
            return VoiceTestVerdict::TooQuiet;
    } else if (verdict == VoiceTestVerdict::NoSound) {
        // Words were understood, so there was a voice after all.
        return VoiceTestVerdict::TooQuiet;
    }
    return verdict;
}
