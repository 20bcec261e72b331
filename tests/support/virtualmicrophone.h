#pragma once

#include "tests/support/childprocess.h"

#include <QTemporaryDir>

namespace testsupport {

/**
 * The sandbox's virtual microphone in a process of its own; see sandbox/microphone/start. Starting
 * it makes it the sound server of this process and of those started later, so it has to be started
 * before this process uses sound.
 */
class VirtualMicrophone
{
public:
    ~VirtualMicrophone();

    /** Starts one of @p kind; false, with a log line, when that fails. */
    bool start(const QString &kind);
    /** Ends it and its sound server; true when both ended in order. */
    bool stop();

    /** What the next program that records will hear. */
    bool changeKind(const QString &kind);

    /** The recording that is played for @p kind. */
    QString recordingFile(const QString &kind) const;

private:
    QTemporaryDir m_folder;
    ChildProcess m_process;
};

} // namespace testsupport
