#include "tests/bus/cuttablebus.h"

#include <QFile>
#include <QMutexLocker>
#include <QtEndian>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace testsupport {

namespace {

constexpr int headerSize = 16; // the fixed part: what the length of a message is known from

/** The value of @p key in an address such as "unix:path=/run/bus,guid=1". */
QByteArray valueOf(const QByteArray &address, const QByteArray &key)
{
    const QList<QByteArray> entries = address.mid(address.indexOf(':') + 1).split(',');
    for (const QByteArray &entry : entries)
        if (entry.startsWith(key + '='))
            return entry.mid(key.size() + 1);
    return {};
}

void checkLength(const QByteArray &path, std::size_t limit)
{
    if (std::size_t(path.size()) >= limit)
        qFatal("too long for a socket: %s", path.constData());
}

int connectTo(const QByteArray &address)
{
    // An abstract name is one that begins with a zero.
    const QByteArray path = valueOf(address, "path");
    const QByteArray name = path.isEmpty() ? '\0' + valueOf(address, "abstract") : path;
    sockaddr_un target{};
    checkLength(name, sizeof(target.sun_path));
    target.sun_family = AF_UNIX;
    std::memcpy(target.sun_path, name.constData(), std::size_t(name.size()));
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto length = socklen_t(offsetof(sockaddr_un, sun_path) + std::size_t(name.size()));
    if (connect(fd, reinterpret_cast<sockaddr *>(&target), length) != 0)
        qFatal("cannot connect to the bus at %s", address.constData());
    return fd;
}

bool writeAll(int fd, const char *bytes, ssize_t size)
{
    while (size > 0) {
        const ssize_t written = send(fd, bytes, std::size_t(size), MSG_NOSIGNAL);
        if (written <= 0)
            return false;
        bytes += written;
        size -= written;
    }
    return true;
}

/** The length of the message that begins here, 0 while that cannot be known. */
int messageLength(const QByteArray &bytes)
{
    if (bytes.size() < headerSize)
        return 0;
    const auto number = [&bytes](int offset) {
        return bytes.at(0) == 'l' ? qFromLittleEndian<quint32>(bytes.constData() + offset)
                                  : qFromBigEndian<quint32>(bytes.constData() + offset);
    };
    const quint32 fields = (number(12) + 7) / 8 * 8;
    return headerSize + int(fields + number(4));
}

/** The text of the header's field that names the method. */
QByteArray memberOf(const QByteArray &message)
{
    const int field = message.indexOf(QByteArray("\3\1s\0", 4));
    const char *text = message.constData() + field + 8; // behind the text's length
    return field < 0 ? QByteArray() : QByteArray(text);
}

} // namespace

CuttableBus::CuttableBus(const char *variable)
{
    const QByteArray address = qgetenv(variable);
    const QByteArray path = QFile::encodeName(m_folder.filePath(QStringLiteral("bus")));
    sockaddr_un here{};
    checkLength(path, sizeof(here.sun_path));
    here.sun_family = AF_UNIX;
    std::memcpy(here.sun_path, path.constData(), std::size_t(path.size()));
    m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(m_listener, reinterpret_cast<sockaddr *>(&here), sizeof(here)) != 0 ||
        listen(m_listener, 1) != 0 || pipe(m_wake) != 0)
        qFatal("cannot listen at %s", path.constData());
    qputenv(variable, "unix:path=" + path);
    m_thread = std::thread([this, address] { serve(address); });
}

CuttableBus::~CuttableBus()
{
    cut();
}

QList<QByteArray> CuttableBus::messages() const
{
    const QMutexLocker locker(&m_mutex);
    return m_messages;
}

void CuttableBus::cutInsteadOf(const QByteArray &method, int count, CuttableBus *other)
{
    m_other = other;
    const QMutexLocker locker(&m_mutex);
    m_cutMethod = method;
    m_cutCount = count;
}

void CuttableBus::cut()
{
    if (m_wake[1] >= 0)
        close(m_wake[1]);
    m_wake[1] = -1;
    if (m_thread.joinable())
        m_thread.join();
}

void CuttableBus::serve(const QByteArray &address)
{
    pollfd waiting[] = {{m_listener, POLLIN, 0}, {m_wake[0], POLLIN, 0}};
    poll(waiting, 2, -1);
    const int client = waiting[1].revents ? -1 : accept(m_listener, nullptr, nullptr);
    close(m_listener);
    if (client >= 0) {
        const int bus = connectTo(address);
        passOn(client, bus);
        if (CuttableBus *other = m_other)
            other->cut();
        close(client);
        close(bus);
    }
    close(m_wake[0]);
}

void CuttableBus::passOn(int client, int bus)
{
    char buffer[65536];
    for (;;) {
        pollfd ends[] = {{client, POLLIN, 0}, {bus, POLLIN, 0}, {m_wake[0], POLLIN, 0}};
        poll(ends, 3, -1);
        if (ends[2].revents)
            return;
        if (ends[1].revents) {
            const ssize_t size = read(bus, buffer, sizeof(buffer));
            if (size <= 0 || !writeAll(client, buffer, size))
                return;
        }
        if (ends[0].revents) {
            const ssize_t size = read(client, buffer, sizeof(buffer));
            if (size <= 0)
                return;
            m_pending.append(buffer, int(size));
            if (!passMessages(bus))
                return;
        }
    }
}

bool CuttableBus::passMessages(int bus)
{
    static const QByteArray lastLine = "BEGIN\r\n"; // of the login, which is text
    if (!m_loggedIn) {
        const int end = m_pending.indexOf(lastLine);
        const int size = end < 0 ? m_pending.size() : end + lastLine.size();
        if (!writeAll(bus, m_pending.constData(), size))
            return false;
        m_pending.remove(0, size);
        m_loggedIn = end >= 0;
    }
    while (m_loggedIn) {
        const int size = messageLength(m_pending);
        if (size == 0 || size > m_pending.size())
            break;
        {
            const QMutexLocker locker(&m_mutex);
            m_messages.append(memberOf(m_pending.left(size)));
            if (m_messages.last() == m_cutMethod && --m_cutCount == 0)
                return false;
        }
        if (!writeAll(bus, m_pending.constData(), size))
            return false;
        m_pending.remove(0, size);
    }
    return true;
}

} // namespace testsupport
