#pragma once

#include <QBasicTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QObject>
#include <QTimerEvent>

#include <algorithm>

namespace testsupport {

/** How long the event loop made no turn. */
struct Standstill
{
    qint64 ms = 0;
    qint64 ownMs = 0; ///< But for the time in which programs of others had the processor.
};

/**
 * For how long the threads of this program and of those that it has started, services and buses,
 * could have run while others had the processor: whoever waits for a service waits for that, too.
 */
class HeldUp
{
public:
    HeldUp()
    {
        QFile children(QStringLiteral("/proc/thread-self/children"));
        if (!children.open(QIODevice::ReadOnly))
            qFatal("the kernel does not tell which programs were started");
        for (const QByteArray &process : (children.readAll() + "self").split(' ')) {
            const QString threads = QStringLiteral("/proc/%1/task").arg(QLatin1String(process));
            const QStringList names = QDir(threads).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
            for (const QString &name : names)
                m_ns.insert(QStringLiteral("%1/%2/schedstat").arg(threads, name), 0);
        }
        lap();
    }

    /** Since it was last asked for, all threads together, in ms. */
    qint64 lap()
    {
        qint64 sum = 0;
        for (auto thread = m_ns.begin(); thread != m_ns.end(); ++thread) {
            QFile file(thread.key());
            if (!file.open(QIODevice::ReadOnly))
                continue; // it has ended
            const qint64 ns = file.readAll().split(' ').value(1).toLongLong();
            sum += ns - thread.value();
            thread.value() = ns;
        }
        return sum / 1000000;
    }

private:
    QHash<QString, qint64> m_ns; // by the kernel's file
};

/** How long the event loop was without a turn, at most. */
class TurnWatch : public QObject
{
public:
    TurnWatch()
    {
        m_sinceLast.start();
        m_timer.start(5, Qt::PreciseTimer, this);
    }

    Standstill longest()
    {
        const qint64 ms = m_sinceLast.restart();
        m_longest = {std::max(m_longest.ms, ms), std::max(m_longest.ownMs, ms - m_heldUp.lap())};
        return m_longest;
    }

protected:
    void timerEvent(QTimerEvent *) override { longest(); }

private:
    QBasicTimer m_timer;
    QElapsedTimer m_sinceLast;
    HeldUp m_heldUp;
    Standstill m_longest;
};

} // namespace testsupport
