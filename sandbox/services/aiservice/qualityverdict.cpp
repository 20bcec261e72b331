#include "sandbox/services/aiservice/qualityverdict.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace sandbox {

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
