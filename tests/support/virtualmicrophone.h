#pragma once

#include "tests/support/serviceprocess.h"

#include <QHash>
#include <QTemporaryDir>
#include <QVector>

struct pa_context;
struct pa_threaded_mainloop;

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

    /** Kills the sound server (SIGKILL), and waits for the end of what was around it. */
    void kill();

    /** The sound server's programs: one, or those of PipeWire. */
    QVector<qint64> serverProcesses() const;

    /** What the next program that records will hear. */
    bool changeKind(const QString &kind);

    /** The recording that is played for @p kind. */
    QString recordingFile(const QString &kind) const;

private:
    QTemporaryDir m_folder;
    ChildProcess m_process;
};

/** A machine that is online, with a microphone that hears silence and a scripted AI service. */
struct QuietMachine
{
    bool start()
    {
        if (!microphone.start(QStringLiteral("silence")) || !network.start() || !aiService.start())
            return false;
        network.setValue(QStringLiteral("state"), 70u);
        return true;
    }

    VirtualMicrophone microphone;
    ServiceProcess network{QStringLiteral("networkmanager")};
    ServiceProcess aiService{QStringLiteral("voicescript")};
};

/**
 * Who records when, as the sound server tells it. Kept by a thread of its own, so that the times
 * are true also while the watched program's thread waits.
 */
class RecordingStreams
{
public:
    /** One stream; times of now(), and closed is -1 while it is open. */
    struct Stream
    {
        qint64 openedMs;
        qint64 closedMs;
    };

    ~RecordingStreams();

    /** Begins to watch the sound server of this process. False when there is none. */
    bool start();

    /** The streams that were opened since start() or the last clear(), oldest first. */
    QVector<Stream> streams();
    /** How many of them are open. */
    int open();
    void clear();

    /** Milliseconds of a clock that all processes share. */
    static qint64 now();

private:
    void roundTrip();
    void changed(int event, quint32 index); // on the loop's thread, with its lock held

    pa_threaded_mainloop *m_loop = nullptr;
    pa_context *m_context = nullptr;
    // Guarded by the loop's lock.
    QVector<Stream> m_streams;
    QHash<quint32, int> m_openStreams; // by the server's number
};

} // namespace testsupport
