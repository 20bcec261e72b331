#include "tests/support/spokenrecording.h"

#include "sandbox/services/aiservice/wavfile.h"

#include <QDebug>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

namespace testsupport {

namespace wavfile = sandbox::wavfile;

namespace spokenrecording {

QVector<qint16> read(const QString &file)
{
    const QByteArray audio = wavfile::audio(file);
    if (audio.isEmpty())
        qWarning("%s: no sound", qPrintable(file));
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
    return read(file).mid(0, int(seconds * wavfile::samplesPerSecond));
}

QVector<qint16> silence(double seconds)
{
    return QVector<qint16>(int(seconds * wavfile::samplesPerSecond), 0);
}

} // namespace spokenrecording

} // namespace testsupport
