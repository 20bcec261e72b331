#pragma once

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QSet>
#include <QTimer>

// Qt's table of hooks for tools that watch the objects of a process (layout: QtCore's qhooks).
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace testsupport {

/**
 * Finds the timers that are created while it lives, parentless ones included, so that tests look at
 * them and let them tick without waiting. Counts all objects on the way. One at a time.
 */
class TimerTracker
{
public:
    TimerTracker()
    {
        Q_ASSERT(!instance());
        instance() = this;
        m_previousAdd = qtHookData[addHook];
        m_previousRemove = qtHookData[removeHook];
        qtHookData[addHook] = reinterpret_cast<quintptr>(&TimerTracker::added);
        qtHookData[removeHook] = reinterpret_cast<quintptr>(&TimerTracker::removed);
    }

    ~TimerTracker()
    {
        qtHookData[addHook] = m_previousAdd;
        qtHookData[removeHook] = m_previousRemove;
        const QMutexLocker locker(&mutex()); // another thread may be in a hook
        instance() = nullptr;
    }

    TimerTracker(const TimerTracker &) = delete;
    TimerTracker &operator=(const TimerTracker &) = delete;

    /** The objects of class T that are still there. */
    template <typename T>
    QList<T *> all() const
    {
        const QMutexLocker locker(&mutex());
        QList<T *> found;
        for (QObject *object : m_objects)
            if (auto *one = qobject_cast<T *>(object))
                found.append(one);
        return found;
    }

    /** The timers that are still there and whose interval is @p ms now. */
    QList<QTimer *> timers(int ms) const
    {
        QList<QTimer *> found;
        for (QTimer *timer : all<QTimer>())
            if (timer->interval() == ms)
                found.append(timer);
        return found;
    }

    /** How many of each class are still there. */
    QHash<QByteArray, int> classes() const
    {
        const QMutexLocker locker(&mutex());
        QHash<QByteArray, int> counts;
        for (const QObject *object : m_objects)
            ++counts[object->metaObject()->className()];
        return counts;
    }

    /** How many objects of any kind are there that were created while this one lives. */
    int objects() const
    {
        const QMutexLocker locker(&mutex());
        return m_objects.size();
    }

    /** Lets @p timer fire once, as if its time had come. */
    static bool fire(QTimer *timer)
    {
        return QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
    }

private:
    static constexpr int addHook = 3;
    static constexpr int removeHook = 4;

    static TimerTracker *&instance()
    {
        static TimerTracker *tracker = nullptr;
        return tracker;
    }

    // Outlives the tracker, and everything else: threads end late.
    static QMutex &mutex()
    {
        static auto *mutex = new QMutex;
        return *mutex;
    }

    // Called by every QObject's constructor, on its thread.
    static void added(QObject *object)
    {
        const QMutexLocker locker(&mutex());
        if (TimerTracker *tracker = instance())
            tracker->m_objects.insert(object);
    }

    static void removed(QObject *object)
    {
        const QMutexLocker locker(&mutex());
        if (TimerTracker *tracker = instance())
            tracker->m_objects.remove(object);
    }

    QSet<QObject *> m_objects;
    quintptr m_previousAdd = 0;
    quintptr m_previousRemove = 0;
};

} // namespace testsupport
