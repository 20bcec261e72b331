#pragma once

class QString;

/** What a finished voice test says about the microphone. */
enum class VoiceTestVerdict {
    None, ///< Nothing to say: words were recognised and no code spoke against the recording.
    Good,
    TooLoud,
    TooQuiet,
    TooNoisy,
    NoSound,
};

/**
 * The verdict on a test.
 *
 * @p result is the quality check's text, which holds one or more codes from "1000" to "1010"
 * anywhere in it; @p recognisedText is what the recogniser made of the recording, empty when it
 * heard no words.
 */
VoiceTestVerdict voiceTestVerdict(const QString &result, const QString &recognisedText);
