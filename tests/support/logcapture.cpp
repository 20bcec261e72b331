#include "tests/support/logcapture.h"

#include <QMutex>
#include <QMutexLocker>

namespace testsupport {

namespace {

// Outlives every capture: another thread may still be in the handler while one ends.
struct Store
{
    QMutex mutex;
    QList<LogRecord> records;
    QtMessageHandler previous = nullptr;
};

Store &store()
{
    static Store instance;
    return instance;
}

QStringList textsOf(const QList<LogRecord> &records)
{
    QStringList texts;
    for (const LogRecord &record : records)
        texts.append(record.text);
    return texts;
}

QString levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("debug");
    case QtInfoMsg:
        return QStringLiteral("info");
    case QtWarningMsg:
        return QStringLiteral("warning");
    case QtCriticalMsg:
        return QStringLiteral("critical");
    case QtFatalMsg:
        break;
    }
    return QStringLiteral("fatal");
}

} // namespace

LogCapture::LogCapture()
    : m_previous(qInstallMessageHandler(&LogCapture::handle))
{
    const QMutexLocker lock(&store().mutex);
    Q_ASSERT_X(!store().previous, "LogCapture", "one at a time");
    store().previous = m_previous;
    store().records.clear();
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(m_previous);
    const QMutexLocker lock(&store().mutex);
    store().previous = nullptr;
}

QStringList LogCapture::take()
{
    QList<LogRecord> taken;
    {
        const QMutexLocker lock(&store().mutex);
        taken.swap(store().records);
    }
    QStringList lines;
    for (const LogRecord &record : qAsConst(taken))
        if (record.category == QLatin1String("default"))
            lines.append(levelName(record.type) + QLatin1Char('|') + record.text);
    return lines;
}

QList<LogRecord> LogCapture::records() const
{
    const QMutexLocker lock(&store().mutex);
    return store().records;
}

QList<LogRecord> LogCapture::records(QtMsgType type) const
{
    QList<LogRecord> matching;
    const QList<LogRecord> all = records();
    for (const LogRecord &record : all)
        if (record.type == type)
            matching.append(record);
    return matching;
}

QStringList LogCapture::texts() const
{
    return textsOf(records());
}

QStringList LogCapture::texts(QtMsgType type) const
{
    return textsOf(records(type));
}

int LogCapture::count(QtMsgType type, const QString &text) const
{
    return texts(type).count(text);
}

LogRecord LogCapture::find(const QString &text) const
{
    const QList<LogRecord> all = records();
    for (const LogRecord &record : all)
        if (record.text == text)
            return record;
    return {};
}

void LogCapture::clear()
{
    const QMutexLocker lock(&store().mutex);
    store().records.clear();
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    QtMessageHandler previous = nullptr;
    {
        const QMutexLocker lock(&store().mutex);
        store().records.append({type, QString::fromUtf8(context.category),
                                QString::fromUtf8(context.file), context.line,
                                QString::fromUtf8(context.function), text});
        previous = store().previous;
    }
    if (previous)
        previous(type, context, text);
}

} // namespace testsupport
