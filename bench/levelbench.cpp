#include "bench/suite.h"
#include "voice/audioinfo.h"
#include "voice/captureformat.h"

#include <QByteArray>

#include <cstring>

namespace {

Ratio level(const QString &from, int blockBytes, double aim)
{
    constexpr int totalBytes = 200 << 20;
    const int blocks = totalBytes / blockBytes;

    QByteArray audio(blockBytes, Qt::Uninitialized);
    for (int i = 0; i < audio.size(); ++i)
        audio[i] = char(i * 31);
    QByteArray copy(blockBytes, 0);

    AudioInfo meter(captureFormat());
    double sum = 0.0;
    QObject::connect(&meter, &AudioInfo::levelUpdated, [&sum](double value) { sum += value; });

    Comparison what;
    what.name = QStringLiteral("level from %1").arg(from);
    what.subject = QStringLiteral("measuring 200 MiB of samples");
    what.baseline = QStringLiteral("copying them");
    what.unit = QStringLiteral("ms");
    what.aim = aim;
    what.rounds = 10;
    what.measureSubject = [&] {
        return workMs([&] {
            for (int i = 0; i < blocks; ++i)
                meter.updateLevel(audio.constData(), audio.size());
        });
    };
    what.measureBaseline = [&] {
        return workMs([&] {
            for (int i = 0; i < blocks; ++i) {
                std::memcpy(copy.data(), audio.constData(), size_t(audio.size()));
                sum += copy.at(i % blockBytes);
            }
        });
    };
    return compare(what);
}

} // namespace

void benchLevel(const Report &report)
{
    report(level(QStringLiteral("cache"), 1 << 14, 1.2));
    report(level(QStringLiteral("memory"), 1 << 26, 1.2));
}
