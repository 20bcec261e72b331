#include "tests/support/virtualmicrophone.h"

#include <QFile>
#include <QRegularExpression>

namespace testsupport {

namespace {

constexpr int serverStartLimitMs = 30000;
constexpr int endLimitMs = 10000;

} // namespace

VirtualMicrophone::~VirtualMicrophone()
{
    stop();
}

bool VirtualMicrophone::start(const QString &kind)
{
    qputenv("SANDBOX_RECORDINGS", RECORDINGS);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(MICROPHONE_SCRIPT), {kind, m_folder.path()});
    const QByteArray line = m_process.waitForLine(serverStartLimitMs);
    QFile environment(m_folder.filePath(QStringLiteral("environment")));
    if (!line.startsWith("ready ") || !environment.open(QIODevice::ReadOnly)) {
        qWarning("no virtual microphone: %s", qPrintable(m_process.errorString()));
        return false;
    }
    static const QRegularExpression assignment(QStringLiteral("(\\w+)='?([^' \n]*)'?"));
    auto match = assignment.globalMatch(QString::fromLocal8Bit(environment.readAll()));
    while (match.hasNext()) {
        const QRegularExpressionMatch variable = match.next();
        qputenv(variable.captured(1).toLatin1().constData(), variable.captured(2).toLocal8Bit());
    }
    return true;
}

bool VirtualMicrophone::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return false;
    m_process.terminate();
    return m_process.waitForFinished(endLimitMs) &&
           m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

bool VirtualMicrophone::changeKind(const QString &kind)
{
    QFile file(m_folder.filePath(QStringLiteral("kind")));
    return file.open(QIODevice::WriteOnly) && file.write(kind.toLatin1() + '\n') > 0;
}

QString VirtualMicrophone::recordingFile(const QString &kind) const
{
    return m_folder.filePath(kind + QStringLiteral(".wav"));
}

} // namespace testsupport
