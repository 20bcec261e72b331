#pragma once

#include "sandbox/services/aiservice/qualitymeter.h"

#include <QString>

namespace sandbox {

/** What the quality check says about a recording. The numbers are the codes of its contract. */
enum class QualityVerdict {
    Good = 1000,
    NoSound = 1003,
    TooLoud = 1004,
    TooQuiet = 1005,
    TooNoisy = 1008,
};

namespace qualitythresholds {

/** A voice is there when the loud times stand this many dB above the quiet ones. */
constexpr double voiceAboveNoise = 6.0;
/** Nothing below this level, in dBFS, is a voice: a dead or muted microphone hisses up to here. */
constexpr double faintestVoice = -64.0;
/** A voice below this level, in dBFS, is too quiet. */
constexpr double quietVoice = -40.0;
/** A voice needs this many dB over the room to be followed without effort. */
constexpr double clearVoice = 15.0;
/** A room below this level, in dBFS, is not called noisy, however quiet the voice. */
constexpr double noisyRoom = -50.0;
/** More than this share of the loud frames cut off is too loud; a single bang is less. */
constexpr double clippedShare = 0.05;

} // namespace qualitythresholds

/** Decides from the figures alone. */
QualityVerdict qualityVerdict(const QualityFigures &figures);

/** The text that the service notifies: a JSON object with the code and what led to it. */
QString qualityNotice(const QualityFigures &figures);

} // namespace sandbox
