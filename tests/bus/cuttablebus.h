#pragma once

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

namespace testsupport {

/**
 * Stands between this process and a bus. It passes everything on, counts the messages that the
 * process sends, and ends the connection when told to, as the end of the bus daemon would: at once
 * or instead of a certain message.
 *
 * Make it before anything connects to the bus; it takes one connection.
 */
class CuttableBus
{
public:
    /** Of the bus whose address is in the environment's @p variable, which leads here from now on.
     */
    explicit CuttableBus(const char *variable);
    ~CuttableBus();

    CuttableBus(const CuttableBus &) = delete;
    CuttableBus &operator=(const CuttableBus &) = delete;

    /** The methods that this process has called until now; the first is "Hello". */
    QList<QByteArray> messages() const;

    /** The connection ends instead of the @p count-th call of @p method from now on; @p other ends
     * with it. */
    void cutInsteadOf(const QByteArray &method, int count, CuttableBus *other = nullptr);

    /** The connection ends now; nothing more has passed when this returns. */
    void cut();

private:
    void serve(const QByteArray &address);
    void passOn(int client, int bus);
    bool passMessages(int bus);

    QTemporaryDir m_folder;
    int m_listener = -1;
    int m_wake[2] = {-1, -1}; // a pipe; its end of file ends the thread
    mutable QMutex m_mutex;   // guards the next three
    QList<QByteArray> m_messages;
    QByteArray m_cutMethod;
    int m_cutCount = 0;
    std::atomic<CuttableBus *> m_other{nullptr};
    QByteArray m_pending; // from the client, not yet passed on
    bool m_loggedIn = false;
    std::thread m_thread;
};

} // namespace testsupport
