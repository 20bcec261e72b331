#include "tests/support/childprocess.h"

#include <QDeadlineTimer>

#include <sys/prctl.h>

#include <csignal>

namespace testsupport {

QByteArray ChildProcess::waitForLine(int limitMs)
{
    const QDeadlineTimer deadline(limitMs);
    while (!canReadLine())
        if (!waitForReadyRead(int(deadline.remainingTime())))
            return {};
    QByteArray line = readLine();
    line.chop(1);
    return line;
}

void ChildProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

} // namespace testsupport
