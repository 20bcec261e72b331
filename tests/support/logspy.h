#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

/**
 * Collects the default category's log lines while it lives, as "level|text", so that tests compare
 * what was logged and in which order; they are printed as usual too. One at a time.
 */
class LogSpy
{
public:
    LogSpy()
    {
        instance() = this;
        m_previous = qInstallMessageHandler(&LogSpy::handle);
    }

    ~LogSpy()
    {
        qInstallMessageHandler(m_previous);
        instance() = nullptr;
    }

    LogSpy(const LogSpy &) = delete;
    LogSpy &operator=(const LogSpy &) = delete;

    /** The lines since the last call. */
    QStringList take()
    {
        QStringList lines;
        lines.swap(m_lines);
        return lines;
    }

private:
    static LogSpy *&instance()
    {
        static LogSpy *spy = nullptr;
        return spy;
    }

    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        LogSpy *spy = instance();
        if (qstrcmp(context.category, "default") == 0)
            spy->m_lines << QLatin1String(levelName(type)) + QLatin1Char('|') + text;
        if (spy->m_previous)
            spy->m_previous(type, context, text);
    }

    static const char *levelName(QtMsgType type)
    {
        switch (type) {
        case QtDebugMsg:
            return "debug";
        case QtInfoMsg:
            return "info";
        case QtWarningMsg:
            return "warning";
        case QtCriticalMsg:
            return "critical";
        case QtFatalMsg:
            return "fatal";
        }
        return "";
    }

    QStringList m_lines;
    QtMessageHandler m_previous = nullptr;
};
