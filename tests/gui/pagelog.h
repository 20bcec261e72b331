#pragma once

#include "tests/support/logcapture.h"

/**
 * What the pages and their calls to services have logged, in order. The voice test's recorder lives
 * as long as the process and logs whenever it looks for a microphone.
 */
inline QStringList pageLines(const testsupport::LogCapture &log)
{
    QStringList lines;
    for (const testsupport::LogRecord &record : log.records())
        if (record.file.contains(QLatin1String("pages/")) ||
            record.file.contains(QLatin1String("proxy/")))
            lines.append(record.text);
    return lines;
}
