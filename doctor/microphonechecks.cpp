#include "doctor/checks.h"
#include "doctor/soundsource.h"
#include "sandbox/services/aiservice/qualityverdict.h"
#include "voice/audioinfo.h"
#include "voice/captureformat.h"

#include <QAudioDeviceInfo>
#include <QAudioInput>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>

namespace doctor {

namespace {

constexpr int listeningMs = 2000;
constexpr int deviceLimitMs = 1000; // more than a device takes for its first block

Finding finding(Status status, const QString &subject, const QString &text,
                const QString &seen = QString(), const QString &remedy = QString())
{
    return {status, QStringLiteral("microphone"), subject, text, seen, remedy};
}

// The one that the module records: the default one, or the last that can deliver the format.
QAudioDeviceInfo recordedDevice()
{
    QAudioDeviceInfo device = QAudioDeviceInfo::defaultInputDevice();
    if (canRecord(device))
        return device;
    device = QAudioDeviceInfo();
    const QList<QAudioDeviceInfo> all = QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    for (const QAudioDeviceInfo &other : all)
        if (canRecord(other))
            device = other;
    return device;
}

// What a voice test says in the end, by the sandbox's judgement. Texts of pages/voicetestpanel.cpp.
QString verdictText(sandbox::QualityVerdict verdict)
{
    switch (verdict) {
    case sandbox::QualityVerdict::Good:
        return QStringLiteral("It sounds good");
    case sandbox::QualityVerdict::NoSound:
        return QStringLiteral("No sound recorded");
    case sandbox::QualityVerdict::TooLoud:
        return QStringLiteral("Turn down the input volume and try again");
    case sandbox::QualityVerdict::TooQuiet:
        return QStringLiteral("Turn up the input volume and try again");
    case sandbox::QualityVerdict::TooNoisy:
        break;
    }
    return QStringLiteral("Too many noises");
}

// What two seconds of a microphone are like.
struct Heard
{
    int bytes = 0;
    double peak = 0.0; // 0.0 to 1.0
    sandbox::QualityMeter meter;
};

Heard listenTo(const QAudioDeviceInfo &device)
{
    Heard heard;
    AudioInfo sink(captureFormat());
    QEventLoop loop;
    const int wanted = captureFormat().bytesForDuration(qint64(listeningMs) * 1000);
    QObject::connect(&sink, &AudioInfo::levelUpdated,
                     [&](double level) { heard.peak = std::max(heard.peak, level); });
    QObject::connect(&sink, &AudioInfo::audioWrite, [&](const QByteArray &block) {
        heard.meter.add(reinterpret_cast<const qint16 *>(block.constData()),
                        block.size() / int(sizeof(qint16)));
        heard.bytes += block.size();
        if (heard.bytes >= wanted)
            loop.quit();
    });
    QAudioInput input(device, captureFormat());
    sink.start();
    input.start(&sink);
    QTimer::singleShot(listeningMs + deviceLimitMs, &loop, &QEventLoop::quit);
    loop.exec();
    sink.discard();
    input.stop();
    return heard;
}

} // namespace

Finding checkMicrophone()
{
    const QString seen = QStringLiteral("A voice test hears nothing: \"No sound recorded\".");
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultInputDevice();
    if (!isMicrophone(device)) {
        return finding(Status::Failure, QStringLiteral("none"),
                       QStringLiteral("is there, or Qt has no plugin for the sound server"), seen,
                       QStringLiteral("Plug one in; install the audio plugins of Qt Multimedia."));
    }
    const QString name = device.deviceName();
    const SoundSource source = soundSource(name);
    if (source.isMonitor) {
        return finding(Status::Failure, name,
                       QStringLiteral("is the default one, and is what a speaker plays"), seen,
                       QStringLiteral("Make a microphone the default source."));
    }
    if (source.isMuted)
        return finding(Status::Failure, name, QStringLiteral("is the default one, and is muted"),
                       seen, QStringLiteral("Unmute it."));

    // Asking any other device what it can do opens it for a moment.
    if (!source.isKnown) {
        return finding(Status::Ok, name,
                       QStringLiteral("is the default one; nothing more is known unless it is "
                                      "opened, see --listen"));
    }
    const QString text = QStringLiteral("is the default one, not muted");
    if (canRecord(device))
        return finding(Status::Ok, name, text + QStringLiteral(", and has the format"));
    return finding(Status::Warning, name, text + QStringLiteral(", and has no 16 kHz mono"),
                   QStringLiteral("A voice test hears another microphone, or none."),
                   QStringLiteral("Make one the default source that can be recorded so."));
}

Finding listenToMicrophone()
{
    const QString check = QStringLiteral("listen");
    const QAudioDeviceInfo device = recordedDevice();
    const QString name = device.isNull() ? QStringLiteral("none") : device.deviceName();
    const Heard heard = device.isNull() ? Heard() : listenTo(device);
    if (heard.bytes == 0) {
        return {Status::Failure,
                check,
                name,
                QStringLiteral("gave no sound"),
                QStringLiteral("A voice test hears nothing: \"No sound recorded\"."),
                QStringLiteral("See whether another program can record it.")};
    }
    const sandbox::QualityFigures figures = heard.meter.figures();
    const sandbox::QualityVerdict verdict = sandbox::qualityVerdict(figures);
    const QString text = QStringLiteral("was heard for %1 s: peak %2 %, voice %3 dB, room %4 dB")
                             .arg(figures.seconds, 0, 'f', 1)
                             .arg(heard.peak * 100.0, 0, 'f', 0)
                             .arg(figures.speechLevel, 0, 'f', 0)
                             .arg(figures.noiseLevel, 0, 'f', 0);
    if (verdict == sandbox::QualityVerdict::Good)
        return {Status::Ok, check, name, text, QString(), QString()};
    return {Status::Failure,
            check,
            name,
            text,
            QStringLiteral("A voice test of this ends with \"%1\", if the service judges as the "
                           "sandbox's does.")
                .arg(verdictText(verdict)),
            QStringLiteral("Set the input volume, and speak while it listens.")};
}

} // namespace doctor
