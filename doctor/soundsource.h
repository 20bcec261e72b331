#pragma once

#include <QString>

#include <memory>

class QTemporaryDir;

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

/**
 * Gives PulseAudio's library, in programs started from now on, a folder that goes with the returned
 * object, where it would otherwise make one that stays. Null where there is one already.
 */
std::unique_ptr<QTemporaryDir> temporarySoundFolder();

} // namespace doctor
