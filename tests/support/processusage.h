#pragma once

#include <QDir>
#include <QString>

#include <malloc.h>

namespace testsupport {

/** Memory that the heap has handed out and not got back, in bytes; 0 under AddressSanitizer. */
inline double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

/** How many entries /proc/self/@p folder has: "fd" is descriptors, "task" threads. */
inline int processEntries(const char *folder)
{
    const QDir directory(QStringLiteral("/proc/self/") + QLatin1String(folder));
    return int(directory.entryList(QDir::AllEntries | QDir::System).size());
}

} // namespace testsupport
