#include "tests/support/spokenrecording.h"

#include <QDebug>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

namespace SpokenRecording {

namespace {

constexpr int samplesPerSecond = 16000;
constexpr int headerBytes = 44;

} // namespace

QVector<qint16> read(const QString &file)
{
    QFile wav(file);
    if (!wav.open(QIODevice::ReadOnly)) {
        qWarning("%s: %s", qPrintable(file), qPrintable(wav.errorString()));
        return {};
    }
    const QByteArray audio = wav.readAll().mid(headerBytes);
    QVector<qint16> samples(audio.size() / int(sizeof(qint16)));
    qFromLittleEndian<qint16>(audio.constData(), samples.size(), samples.data());
    return samples;
}

QVector<qint16> make(const QString &kind, const Speaker &speaker, const QString &text,
                     double seconds)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("recording.wav"));
    QStringList arguments{kind, file};
    if (!text.isEmpty())
        arguments << text;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VOICE"), speaker.voice);
    environment.insert(QStringLiteral("SPEED"), QString::number(speaker.wordsPerMinute));
    QProcess script;
    script.setProcessEnvironment(environment);
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.start(QStringLiteral(RECORDING_SCRIPT), arguments);
    if (!script.waitForFinished() || script.exitCode() != 0) {
        qWarning("no recording of kind \"%s\" could be made", qPrintable(kind));
        return {};
    }
    return read(file).mid(0, int(seconds * samplesPerSecond));
}

} // namespace SpokenRecording
