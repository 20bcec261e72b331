#include "bench/suite.h"
#include "voice/audioinfo.h"
#include "voice/captureformat.h"

#include <QByteArray>

#include <cstring>

QVector<Ratio> benchLevel()
{
    constexpr int blocks = 200;
    constexpr int blockBytes = 1 << 20; // larger than the caches, so that memory is what counts

    const QAudioFormat format = captureFormat();

    QByteArray audio(blockBytes, Qt::Uninitialized);
    for (int i = 0; i < audio.size(); ++i)
        audio[i] = char(i * 31);
    QByteArray copy(blockBytes, 0);

    AudioInfo meter(format);
    double level = 0.0;
    QObject::connect(&meter, &AudioInfo::levelUpdated, [&level](double value) { level += value; });

    return {compare(
        QStringLiteral("level meter"), QStringLiteral("measuring 200 MiB of samples"),
        QStringLiteral("copying them"), 10, QStringLiteral("ms"),
        [&] {
            return timedMs([&] {
                for (int i = 0; i < blocks; ++i)
                    meter.updateLevel(audio.constData(), audio.size());
            });
        },
        [&] {
            return timedMs([&] {
                for (int i = 0; i < blocks; ++i) {
                    std::memcpy(copy.data(), audio.constData(), size_t(audio.size()));
                    level += copy.at(i);
                }
            });
        })};
}
