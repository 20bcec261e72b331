#include "voice/audioinfo.h"

#include <QtEndian>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

// The value that counts as full scale, or 0 for formats that are not measured.
quint32 fullScale(const QAudioFormat &format)
{
    const bool isSigned = format.sampleType() == QAudioFormat::SignedInt;
    const bool isUnsigned = format.sampleType() == QAudioFormat::UnSignedInt;
    switch (format.sampleSize()) {
    case 8:
        return isSigned ? 127u : isUnsigned ? 255u : 0u;
    case 16:
        return isSigned ? 32767u : isUnsigned ? 65535u : 0u;
    case 32:
        // Float samples are scaled to the range of signed ones.
        return isSigned || format.sampleType() == QAudioFormat::Float ? 2147483647u
               : isUnsigned                                           ? 4294967295u
                                                                      : 0u;
    default:
        return 0u;
    }
}

// One sample of any alignment.
template <typename Integer>
Integer sampleAt(const char *data, bool bigEndian)
{
    return bigEndian ? qFromBigEndian<Integer>(data) : qFromLittleEndian<Integer>(data);
}

// Looks for the extremes and takes the magnitude once at the end, in 64 bits: the smallest integer
// of a type has no absolute value in that type.
template <typename Integer>
quint64 integerPeak(const char *data, qint64 samples, bool bigEndian)
{
    Integer lowest = 0;
    Integer highest = 0;
    for (qint64 i = 0; i < samples; ++i, data += sizeof(Integer)) {
        const Integer sample = sampleAt<Integer>(data, bigEndian);
        lowest = sample < lowest ? sample : lowest;
        highest = sample > highest ? sample : highest;
    }
    return static_cast<quint64>(qMax(-static_cast<qint64>(lowest), static_cast<qint64>(highest)));
}

// Not a number compares as not larger and so counts as silence.
quint64 floatPeak(const char *data, qint64 samples, bool bigEndian)
{
    constexpr double scale = 2147483648.0;
    float highest = 0.0f;
    for (qint64 i = 0; i < samples; ++i, data += sizeof(float)) {
        const quint32 bits = sampleAt<quint32>(data, bigEndian);
        float sample;
        std::memcpy(&sample, &bits, sizeof sample);
        const float magnitude = std::fabs(sample);
        highest = magnitude > highest ? magnitude : highest;
    }
    // Limited before it becomes an integer: infinity has none.
    constexpr double limit = std::numeric_limits<quint32>::max();
    return static_cast<quint64>(qMin(highest * scale, limit));
}

} // namespace

AudioInfo::AudioInfo(const QAudioFormat &format)
    : m_format(format)
    , m_maxAmplitude(fullScale(format))
{
}

void AudioInfo::start()
{
    m_discarding = false;
    open(QIODevice::WriteOnly);
}

void AudioInfo::stop()
{
    close();
}

void AudioInfo::discard()
{
    m_discarding = true;
}

qint64 AudioInfo::readData(char *data, qint64 maxlen)
{
    Q_UNUSED(data)
    Q_UNUSED(maxlen)
    return 0;
}

qint64 AudioInfo::writeData(const char *data, qint64 len)
{
    if (m_discarding)
        return len;

    ++m_writing;
    Q_EMIT audioWrite(QByteArray(data, static_cast<int>(len)));
    updateLevel(data, len);
    --m_writing;
    if (m_writing == 0)
        Q_EMIT bytesWritten(len);
    return len;
}

void AudioInfo::updateLevel(const char *data, qint64 len)
{
    if (m_maxAmplitude == 0)
        return;

    const qint64 channels = m_format.channelCount();
    const qint64 bytesPerFrame = channels * (m_format.sampleSize() / 8);
    // A format without channels has no frames.
    const qint64 frames = bytesPerFrame > 0 ? len / bytesPerFrame : 0;

    const quint64 limit = m_maxAmplitude;
    m_level = static_cast<double>(qMin(peak(data, frames * channels), limit)) / m_maxAmplitude;
    Q_EMIT levelUpdated(m_level);
}

// The largest magnitude among the first samples of data.
quint64 AudioInfo::peak(const char *data, qint64 samples) const
{
    const bool bigEndian = m_format.byteOrder() == QAudioFormat::BigEndian;
    const bool isSigned = m_format.sampleType() == QAudioFormat::SignedInt;
    switch (m_format.sampleSize()) {
    case 8:
        return isSigned ? integerPeak<qint8>(data, samples, bigEndian)
                        : integerPeak<quint8>(data, samples, bigEndian);
    case 16:
        return isSigned ? integerPeak<qint16>(data, samples, bigEndian)
                        : integerPeak<quint16>(data, samples, bigEndian);
    default:
        if (m_format.sampleType() == QAudioFormat::Float)
            return floatPeak(data, samples, bigEndian);
        return isSigned ? integerPeak<qint32>(data, samples, bigEndian)
                        : integerPeak<quint32>(data, samples, bigEndian);
    }
}
