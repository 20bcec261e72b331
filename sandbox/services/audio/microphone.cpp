#include "sandbox/services/audio/microphone.h"

#include "sandbox/services/audio/soundserver.h"
#include "sandbox/services/common/statestore.h"

#include <QDir>
#include <QFile>
#include <QProcess>

namespace sandbox {

namespace {

const QLatin1String sourceName("microphone"); // the script's

} // namespace

Microphone::Microphone(StateStore *state, SoundServer *server, QObject *parent)
    : QObject(parent)
    , m_folder(qEnvironmentVariable("SANDBOX_MICROPHONE"))
{
    if (m_folder.isEmpty() || !QFile::exists(file(QStringLiteral("kind"))))
        return;
    state->declareElsewhere(
        QStringLiteral("microphone.sound"), [this] { return QVariant(sound()); },
        [this](const QVariant &value) { setSound(value.toString()); });
    state->restrict(QStringLiteral("microphone.sound"), [this](const QVariant &value) {
        return sounds().contains(value.toString())
                   ? QString()
                   : QStringLiteral("there is no sound \"%1\", but %2")
                         .arg(value.toString(), sounds().join(QStringLiteral(", ")));
    });
    state->declareElsewhere(
        QStringLiteral("microphone.plugged"), [this] { return QVariant(m_plugged); },
        [this](const QVariant &value) { setPlugged(value.toBool()); });
    connect(server, &SoundServer::defaultSource, this, [this](const QString &name) {
        if (!name.isEmpty()) // the server is there
            m_plugged = name == sourceName;
    });
}

QString Microphone::file(const QString &name) const
{
    return QDir(m_folder).filePath(name);
}

QString Microphone::sound() const
{
    QFile kind(file(QStringLiteral("kind")));
    return kind.open(QIODevice::ReadOnly) ? QString::fromLatin1(kind.readAll().trimmed())
                                          : QString();
}

// There is a recording of every sound.
QStringList Microphone::sounds() const
{
    QStringList names;
    for (const QFileInfo &recording : QDir(m_folder).entryInfoList({QStringLiteral("*.wav")}))
        names.append(recording.completeBaseName());
    return names;
}

void Microphone::setSound(const QString &sound)
{
    QFile kind(file(QStringLiteral("kind")));
    if (!kind.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        kind.write(sound.toLatin1() + '\n') < 0)
        qWarning("%s cannot be written", qPrintable(kind.fileName()));
}

void Microphone::setPlugged(bool plugged)
{
    const QString word = plugged ? QStringLiteral("in") : QStringLiteral("out");
    if (QProcess::execute(file(QStringLiteral("plug")), {word}) == 0)
        m_plugged = plugged;
}

} // namespace sandbox
