#pragma once

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QPointer>

/**
 * Keeps the one object of class T that a process has.
 *
 * The object is built on first use, and again after somebody's deleteLater() has taken it: one
 * object at a time, never a dangling pointer. What is left goes with the application object, while
 * the services that T uses (sound server, bus, event loop) still live; or when the module is
 * unloaded.
 *
 * T is a QObject with a constructor that ProcessWide<T> may call without arguments.
 */
template <typename T>
class ProcessWide
{
public:
    ProcessWide(const ProcessWide &) = delete;
    ProcessWide &operator=(const ProcessWide &) = delete;

    /** The object; built here when there is none. Callable from any thread. */
    static T *instance()
    {
        ProcessWide &owner = self();
        const QMutexLocker locker(&owner.m_mutex);
        if (!owner.m_object) {
            owner.m_object = new T;
            // Once on the list at most, however often the object is built.
            qRemovePostRoutine(&ProcessWide::dispose);
            qAddPostRoutine(&ProcessWide::dispose);
        }
        return owner.m_object;
    }

    /**
     * Promises that the object can be used until its caller's own end, also where that comes after
     * main(). Builds nothing. For objects that live in another ProcessWide and use this one in
     * their destructor: call it in their constructor.
     */
    static void keepUntilEndOfCaller() { self(); }

    /** Deletes the object at once, if there is one. */
    static void dispose() { delete self().take(); }

private:
    ProcessWide() = default;

    // Unloading the module must leave no pointer to its code with the application.
    ~ProcessWide()
    {
        delete take();
        qRemovePostRoutine(&ProcessWide::dispose);
    }

    // The object, which is the caller's to delete: without the lock, as its destructor may lead to
    // instance() again.
    T *take()
    {
        const QMutexLocker locker(&m_mutex);
        T *object = m_object;
        m_object.clear();
        return object;
    }

    static ProcessWide &self()
    {
        static ProcessWide owner;
        return owner;
    }

    QMutex m_mutex;
    QPointer<T> m_object;
};
