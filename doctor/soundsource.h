#pragma once

#include <QString>

namespace doctor {

/** What the sound server says of a source, without opening it. */
struct SoundSource
{
    bool isKnown = false; ///< Else there is no such source, or nobody to ask.
    bool isMuted = false;
    bool isMonitor = false; ///< It is what a speaker plays.
};

/** The source that PulseAudio, or what speaks for it, calls @p name. */
SoundSource soundSource(const QString &name);

} // namespace doctor
