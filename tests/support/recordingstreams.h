#pragma once

#include <QHash>
#include <QVector>

struct pa_context;
struct pa_threaded_mainloop;

namespace testsupport {

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
