#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace testsupport {

/** One line that went through Qt's message logging. */
struct LogRecord
{
    QtMsgType type;
    QString category;
    QString file; ///< As compiled in; empty when the caller was built without context.
    int line;
    QString function; ///< The full signature.
    QString text;
};

/**
 * Collects what the process logs while it lives, and passes it on to the handler before it. One at
 * a time, from any thread.
 */
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();

    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QList<LogRecord> records() const;

    /** Those of one level. */
    QList<LogRecord> records(QtMsgType type) const;

    /** The texts of all records, or of those of one level, in order. */
    QStringList texts() const;
    QStringList texts(QtMsgType type) const;

    /** How many records have exactly this level and text. */
    int count(QtMsgType type, const QString &text) const;

    /** The first record with that text; one with an empty text when there is none. */
    LogRecord find(const QString &text) const;

    void clear();

    /**
     * The default category's records since the last call as lines, "level|text" with the levels
     * debug, info, warning, critical and fatal; for comparing what was logged in which order.
     */
    QStringList take();

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    QtMessageHandler m_previous;
};

} // namespace testsupport
