#pragma once

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

} // namespace sandbox
