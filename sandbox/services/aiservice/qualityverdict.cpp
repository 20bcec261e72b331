#include "sandbox/services/aiservice/qualityverdict.h"

#include "sandbox/services/aiservice/wavfile.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace sandbox {

namespace {

constexpr int frameSamples = wavfile::samplesPerSecond / 50;
constexpr double fullScale = 32768.0;

/** Converters stop one or two steps short of the end of the range now and then. */
constexpr int rail = 32766;
/** One or two samples at the rail are a wave that just fits; three in a row have been cut off. */
constexpr int cutOffRun = 3;

constexpr double speechShare = 0.97;
constexpr double noiseShare = 0.10;
/** Frames this far below the speech level, in dB, are loud enough to be judged for clipping. */
constexpr double loudRange = 15.0;

} // namespace

void QualityMeter::add(const qint16 *samples, int count)
{
    for (const qint16 *sample = samples; sample != samples + count; ++sample) {
        const int value = *sample;
        m_sum += value;
        m_squares += qint64(value) * value;
        m_railRun = std::abs(value) >= rail ? m_railRun + 1 : 0;
        m_clipped = m_clipped || m_railRun >= cutOffRun;
        if (++m_samples == frameSamples)
            finishFrame();
    }
}

void QualityMeter::finishFrame()
{
    // Without its mean, so that the offset of a cheap converter is not taken for sound.
    const double mean = double(m_sum) / frameSamples;
    const double power = double(m_squares) / frameSamples - mean * mean;
    const double decibel = 10.0 * std::log10(std::max(power, 1e-9) / (fullScale * fullScale));
    const int bin = int(std::lround((decibel - lowestDecibel) * binsPerDecibel));
    ++m_frames[size_t(qBound(0, bin, int(m_frames.size()) - 1))];
    ++m_frameCount;
    m_clippedFrames += m_clipped ? 1 : 0;

    m_samples = 0;
    m_sum = 0;
    m_squares = 0;
    m_clipped = false;
}

double QualityMeter::levelOfShare(double share) const
{
    const double wanted = share * m_frameCount;
    double seen = 0.0;
    size_t bin = 0;
    while (bin + 1 < m_frames.size() && (seen += m_frames[bin]) < wanted)
        ++bin;
    return lowestDecibel + double(bin) / binsPerDecibel;
}

QualityFigures QualityMeter::figures() const
{
    QualityFigures result;
    if (m_frameCount == 0)
        return result;
    result.seconds = double(m_frameCount) * frameSamples / wavfile::samplesPerSecond;
    result.speechLevel = levelOfShare(speechShare);
    result.noiseLevel = levelOfShare(noiseShare);

    const double softest = result.speechLevel - loudRange;
    const int first = std::max(0, int((softest - lowestDecibel) * binsPerDecibel));
    quint32 loud = 0;
    for (size_t bin = size_t(first); bin < m_frames.size(); ++bin)
        loud += m_frames[bin];
    result.clippedShare = std::min(1.0, double(m_clippedFrames) / loud);
    return result;
}

QualityVerdict qualityVerdict(const QualityFigures &figures)
{
    using namespace qualitythresholds;

    const double clearance = figures.speechLevel - figures.noiseLevel;
    const bool noisy = figures.noiseLevel > noisyRoom;
    const bool voice = figures.speechLevel > faintestVoice && clearance >= voiceAboveNoise;

    // Cut-off waves also raise the measured noise and flatten the voice, so they are asked for
    // first.
    if (figures.clippedShare > clippedShare)
        return QualityVerdict::TooLoud;
    if (noisy && clearance < clearVoice)
        return QualityVerdict::TooNoisy;
    if (!voice)
        return QualityVerdict::NoSound;
    if (figures.speechLevel < quietVoice)
        return QualityVerdict::TooQuiet;
    return QualityVerdict::Good;
}

QString qualityNotice(const QualityFigures &figures)
{
    // The client looks for codes anywhere in the text. No other value here may contain one, so the
    // levels are whole decibels and the share whole percents.
    const QJsonObject notice = {
        {QStringLiteral("code"), QString::number(int(qualityVerdict(figures)))},
        {QStringLiteral("speech_dbfs"), qRound(figures.speechLevel)},
        {QStringLiteral("noise_dbfs"), qRound(figures.noiseLevel)},
        {QStringLiteral("clipped_percent"), qRound(figures.clippedShare * 100.0)},
    };
    return QString::fromUtf8(QJsonDocument(notice).toJson(QJsonDocument::Compact));
}

} // namespace sandbox
