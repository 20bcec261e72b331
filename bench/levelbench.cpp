#include "bench/suite.h"
#include "voice/audioinfo.h"
#include "voice/captureformat.h"

#include <QByteArray>
#include <QProcess>
#include <QTemporaryFile>

#include <sys/resource.h>

#include <cstring>

namespace {

constexpr int totalBytes = 200 << 20;

QByteArray samples(int bytes)
{
    QByteArray audio(bytes, Qt::Uninitialized);
    for (int i = 0; i < audio.size(); ++i)
        audio[i] = char(i * 31);
    return audio;
}

double measuringMs(const QByteArray &audio)
{
    AudioInfo meter(captureFormat());
    double sum = 0.0;
    QObject::connect(&meter, &AudioInfo::levelUpdated, [&sum](double value) { sum += value; });
    return workMs([&] {
        for (int i = 0; i < totalBytes / audio.size(); ++i)
            meter.updateLevel(audio.constData(), audio.size());
    });
}

double copyingMs(const QByteArray &audio)
{
    QByteArray copy(audio.size(), 0);
    volatile char used = 0;
    return workMs([&] {
        for (int i = 0; i < totalBytes / audio.size(); ++i) {
            std::memcpy(copy.data(), audio.constData(), size_t(audio.size()));
            used = copy.at(i % audio.size());
        }
    });
}

/** What a program takes, from its start to its end. */
double programMs(const QString &program, const QStringList &arguments)
{
    const auto endedMs = [] {
        rusage usage = {};
        getrusage(RUSAGE_CHILDREN, &usage);
        return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
               (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
    };
    const double before = endedMs();
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    if (process.exitCode() != 0)
        qFatal("%s fails", qPrintable(program));
    return endedMs() - before;
}

Ratio level(const QString &from, int blockBytes)
{
    const QByteArray audio = samples(blockBytes);
    Comparison what;
    what.name = QStringLiteral("level from %1").arg(from);
    what.subject = QStringLiteral("measuring 200 MiB of samples");
    what.baseline = QStringLiteral("copying them");
    what.unit = QStringLiteral("ms");
    what.aim = 1.2;
    what.rounds = 10;
    what.measureSubject = [&audio] {
        return measuringMs(audio);
    };
    what.measureBaseline = [&audio] {
        return copyingMs(audio);
    };
    return compare(what);
}

Ratio levelBySox()
{
    const QByteArray audio = samples(totalBytes);
    QTemporaryFile file;
    if (!file.open() || file.write(audio) != totalBytes || !file.flush())
        qFatal("no place for a recording");
    Comparison what;
    what.name = QStringLiteral("level by sox");
    what.subject = QStringLiteral("measuring 200 MiB of samples");
    what.baseline = QStringLiteral("\"sox ... stat\" of a file of them");
    what.unit = QStringLiteral("ms");
    what.aim = 1.2;
    what.measureSubject = [&audio] {
        return measuringMs(audio);
    };
    what.measureBaseline = [&file] {
        return programMs(
            QStringLiteral("sox"),
            QStringLiteral("-t raw -r 16000 -c 1 -e signed -b 16").split(QLatin1Char(' ')) +
                QStringList{file.fileName(), QStringLiteral("-n"), QStringLiteral("stat")});
    };
    return compare(what);
}

} // namespace

void benchLevel(const Report &report)
{
    report(level(QStringLiteral("cache"), 1 << 14));
    report(level(QStringLiteral("memory"), 1 << 26));
    report(levelBySox());
}
