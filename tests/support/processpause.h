#pragma once

#include <QThread>
#include <QTimer>
#include <QVector>

#include <sys/types.h>

#include <csignal>

namespace testsupport {

/**
 * Stops processes (SIGSTOP) and lets them run on (SIGCONT) after a time, from a thread of its own:
 * whoever stops them may wait for one of them.
 */
class ProcessPause : public QThread
{
public:
    ProcessPause()
    {
        m_timers.moveToThread(this);
        start();
    }
    ~ProcessPause() override
    {
        quit();
        wait();
    }

    /** Stops @p processes now, for @p ms. */
    void stop(const QVector<qint64> &processes, int ms)
    {
        signal(processes, SIGSTOP);
        QMetaObject::invokeMethod(&m_timers, [this, processes, ms] {
            QTimer::singleShot(ms, Qt::PreciseTimer, &m_timers,
                               [processes] { signal(processes, SIGCONT); });
        });
    }

private:
    static void signal(const QVector<qint64> &processes, int number)
    {
        for (const qint64 process : processes)
            ::kill(pid_t(process), number);
    }

    QObject m_timers; // on the thread
};

} // namespace testsupport
