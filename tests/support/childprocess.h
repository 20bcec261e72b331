#pragma once

#include <QProcess>

namespace testsupport {

/** How long a service may take to start, in ms: on a loaded machine under sanitizers. */
constexpr int startLimitMs = 20000;

/** A process that dies with the thread that started it, so that a killed test leaves nothing
 * behind. */
class ChildProcess : public QProcess
{
public:
    using QProcess::QProcess;

    /**
     * Waits, without processing events, until a whole line has come from standard output and
     * returns it without its line break. Null when the process ends or @p limitMs pass first.
     */
    QByteArray waitForLine(int limitMs);

protected:
    void setupChildProcess() override;
};

} // namespace testsupport
