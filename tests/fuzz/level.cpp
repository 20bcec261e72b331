#include "tests/fuzz/target.h"
#include "voice/audioinfo.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

// What counts as 1.0; 0 where nothing does.
quint64 fullScaleOf(int bits, QAudioFormat::SampleType type)
{
    if (type == QAudioFormat::Float)
        return bits == 32 ? 2147483647u : 0u;
    if ((type != QAudioFormat::SignedInt && type != QAudioFormat::UnSignedInt) ||
        (bits != 8 && bits != 16 && bits != 32))
        return 0;
    return (quint64(1) << (type == QAudioFormat::SignedInt ? bits - 1 : bits)) - 1;
}

// The magnitude of one sample.
double magnitude(const uchar *sample, const QAudioFormat &format)
{
    const int bytes = format.sampleSize() / 8;
    quint64 value = 0;
    for (int i = 0; i < bytes; ++i) {
        const bool last = format.byteOrder() == QAudioFormat::LittleEndian;
        value |= quint64(sample[i]) << 8 * (last ? i : bytes - 1 - i);
    }
    if (format.sampleType() == QAudioFormat::Float) {
        const auto bits = quint32(value);
        float number;
        std::memcpy(&number, &bits, sizeof number);
        return std::isnan(number) ? 0 : std::trunc(std::fabs(double(number)) * 2147483648.0);
    }
    const qint64 negative = qint64(1) << (format.sampleSize() - 1);
    if (format.sampleType() == QAudioFormat::SignedInt && (qint64(value) & negative))
        return double(2 * negative - qint64(value));
    return double(value);
}

double plainLevel(const std::vector<char> &block, const QAudioFormat &format)
{
    const int sampleBytes = format.sampleSize() / 8;
    const std::size_t channels = std::size_t(std::max(0, format.channelCount()));
    double peak = 0;
    for (std::size_t frame = 0; channels > 0; ++frame) {
        const std::size_t begin = frame * channels * sampleBytes;
        if (begin + channels * sampleBytes > block.size())
            break;
        for (std::size_t channel = 0; channel < channels; ++channel)
            peak = std::max(peak, magnitude(reinterpret_cast<const uchar *>(block.data()) + begin +
                                                channel * sampleBytes,
                                            format));
    }
    const auto scale = double(fullScaleOf(format.sampleSize(), format.sampleType()));
    return std::min(peak, scale) / scale;
}

} // namespace

// Four bytes of format, one of alignment; the rest is the block.
FUZZ_TARGET(level)
{
    constexpr int head = 5;
    if (input.size() < head)
        return;
    const auto byte = [&input](int i) {
        return int(uchar(input.at(i)));
    };
    static const int sizes[] = {8, 16, 32, 24, 64, 0, -8, 12};
    QAudioFormat format;
    format.setSampleSize(sizes[byte(0) % 8]);
    format.setSampleType(QAudioFormat::SampleType(byte(1) % 4));
    format.setByteOrder(byte(2) % 2 ? QAudioFormat::LittleEndian : QAudioFormat::BigEndian);
    format.setChannelCount(byte(3) == 255 ? std::numeric_limits<int>::max() : byte(3) - 1);

    // Of exactly that size, so that reading beyond it is seen.
    const int shift = byte(4) % 8;
    const std::vector<char> block(input.begin() + head, input.end());
    std::vector<char> shifted(block.size() + std::size_t(shift));
    std::copy(block.begin(), block.end(), shifted.begin() + shift);

    AudioInfo info(format);
    QList<QByteArray> blocks;
    QList<double> levels;
    QObject::connect(&info, &AudioInfo::audioWrite, &info,
                     [&blocks](const QByteArray &data) { blocks.append(data); });
    QObject::connect(&info, &AudioInfo::levelUpdated, &info,
                     [&levels](double value) { levels.append(value); });
    const auto length = qint64(block.size());
    info.start();
    fuzz::expectEqual("taken", info.writeData(shifted.data() + shift, length), length);
    fuzz::expectEqual("handed on", blocks, {input.mid(head)});
    QList<double> expected;
    if (fullScaleOf(format.sampleSize(), format.sampleType()) != 0)
        expected.append(plainLevel(block, format));
    fuzz::expectEqual("levels", levels, expected);
}
