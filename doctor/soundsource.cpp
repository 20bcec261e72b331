#include "doctor/soundsource.h"

#include <QProcess>
#include <QRegularExpression>

namespace doctor {

namespace {

constexpr int answerLimitMs = 1000; // well below what the whole check may take

QString valueOf(const QString &properties, const QString &key)
{
    const QRegularExpression line(QStringLiteral("^\\s*%1: (.*)$").arg(key),
                                  QRegularExpression::MultilineOption);
    return line.match(properties).captured(1);
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

} // namespace doctor
