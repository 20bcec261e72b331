#pragma once

#include <QString>
#include <QtGlobal>

#include <array>

namespace sandbox {

/** What a recording measures. Levels are RMS levels of 20 ms in dB below full scale, -96 to 0. */
struct QualityFigures
{
    double seconds = 0.0;
    double speechLevel = -96.0; ///< reached in the loudest 3 % of the time
    double noiseLevel = -96.0;  ///< undercut in the quietest 10 % of the time
    double clippedShare = 0.0;  ///< 0.0 to 1.0: share of the loud frames whose wave is cut off
};

/**
 * Measures level, noise floor and clipping of a recording as it arrives.
 *
 * Memory does not grow with the recording: frame levels are kept as a histogram. Audio is mono
 * 16-bit PCM at 16000 Hz; where it is cut into blocks makes no difference. A started frame at the
 * end does not count.
 */
class QualityMeter
{
public:
    void add(const qint16 *samples, int count);
    QualityFigures figures() const;

private:
    void finishFrame();
    /** The level that the quietest @p share (0.0 to 1.0) of the frames stay below, in dB. */
    double levelOfShare(double share) const;

    static constexpr int binsPerDecibel = 2;
    static constexpr int lowestDecibel = -96;

    std::array<quint32, -lowestDecibel * binsPerDecibel + 1> m_frames{}; ///< index 0: lowestDecibel
    quint32 m_frameCount = 0;
    quint32 m_clippedFrames = 0;

    // The frame being filled.
    int m_samples = 0;
    qint64 m_sum = 0;
    qint64 m_squares = 0;
    bool m_clipped = false;

    int m_railRun = 0; ///< samples in a row at the end of the range, across frames
};

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
