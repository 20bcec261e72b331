#include "sandbox/controlcenter/tour/microphone.h"

#include <QDir>
#include <QFile>
#include <QProcess>

namespace controlcenter {
namespace {

/** The file @p name in the microphone's folder; empty without a virtual microphone. */
QString microphoneFile(const QString &name)
{
    const QString folder = qEnvironmentVariable("SANDBOX_MICROPHONE");
    return folder.isEmpty() ? QString() : QDir(folder).filePath(name);
}

/** The file that says what is heard. */
QString kindFile()
{
    return microphoneFile(QStringLiteral("kind"));
}

} // namespace

bool Microphone::isVirtual()
{
    return QFile::exists(kindFile());
}

bool Microphone::choose(const QString &kind)
{
    QFile file(kindFile());
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(kind.toLatin1() + '\n') > 0;
}

bool Microphone::plug(bool in)
{
    return QProcess::execute(microphoneFile(QStringLiteral("plug")),
                             {in ? QStringLiteral("in") : QStringLiteral("out")}) == 0;
}

} // namespace controlcenter
