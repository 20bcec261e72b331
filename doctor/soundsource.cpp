#include "doctor/soundsource.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace doctor {

namespace {

constexpr int answerLimitMs = 1000; // well below what the whole check may take

QString valueOf(const QString &properties, const QString &key)
{
    const QRegularExpression line(QStringLiteral("^\\s*%1: (.*)$").arg(key),
                                  QRegularExpression::MultilineOption);
    return line.match(properties).captured(1);
}

// Where the library looks for a person's sound server.
bool hasSoundFolder()
{
    if (qEnvironmentVariableIsSet("PULSE_RUNTIME_PATH"))
        return true;
    if (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        return QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).exists(QStringLiteral("pulse"));
    QDir settings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    const QDir::Filters links = QDir::AllEntries | QDir::System;
    return settings.cd(QStringLiteral("pulse")) &&
           !settings.entryList({QStringLiteral("*-runtime")}, links).isEmpty();
}

} // namespace

SoundSource soundSource(const QString &name)
{
    QProcess pactl;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    pactl.setProcessEnvironment(environment);
    pactl.start(QStringLiteral("pactl"), {QStringLiteral("list"), QStringLiteral("sources")});
    pactl.waitForFinished(answerLimitMs);

    SoundSource source;
    const QStringList sources = QString::fromUtf8(pactl.readAllStandardOutput())
                                    .split(QRegularExpression(QStringLiteral("\nSource #")));
    for (const QString &properties : sources) {
        if (valueOf(properties, QStringLiteral("Name")) != name)
            continue;
        source.isKnown = true;
        source.isMuted = valueOf(properties, QStringLiteral("Mute")) == QLatin1String("yes");
        source.isMonitor =
            valueOf(properties, QStringLiteral("Monitor of Sink")) != QLatin1String("n/a");
    }
    return source;
}

std::unique_ptr<QTemporaryDir> temporarySoundFolder()
{
    if (hasSoundFolder())
        return nullptr;
    auto folder = std::make_unique<QTemporaryDir>();
    if (folder->isValid())
        qputenv("PULSE_RUNTIME_PATH", QFile::encodeName(folder->path()));
    return folder;
}

} // namespace doctor
