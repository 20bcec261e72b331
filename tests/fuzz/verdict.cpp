#include "pages/voicetestverdict.h"
#include "tests/fuzz/target.h"

namespace {

// By what the text holds, from the strongest code down.
VoiceTestVerdict plainVerdict(const QString &result, bool words)
{
    using V = VoiceTestVerdict;
    if (result.indexOf("1003") >= 0)
        return words ? V::TooQuiet : V::NoSound;
    if (result.indexOf("1008") >= 0)
        return V::TooNoisy;
    if (result.indexOf("1005") >= 0)
        return V::TooQuiet;
    if (result.indexOf("1004") >= 0)
        return V::TooLoud;
    if (!words)
        return V::TooQuiet;
    return result.indexOf("1000") >= 0 ? V::Good : V::None;
}

} // namespace

// The service's text, and in further lines the words.
FUZZ_TARGET(verdict)
{
    const QString text = QString::fromUtf8(input);
    const QString result = text.section('\n', 0, 0);
    const QString words = text.section('\n', 1);
    fuzz::expectEqual("verdict", int(voiceTestVerdict(result, words)),
                      int(plainVerdict(result, !words.isEmpty())));
}
