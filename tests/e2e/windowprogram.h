#pragma once

#include <QStringList>

namespace testsupport {

/** What the control-center window's program did. */
struct WindowRun
{
    int exitCode = -1; ///< -1 when it crashed or did not end in time
    QStringList lines; ///< of standard output
    QString messages;  ///< standard error
};

/** What becomes of the program when Qt or the module warns. */
enum class Warnings {
    Allowed,
    Fatal, ///< It aborts.
};

/** Runs the program with the translations in place, and waits for its end. */
WindowRun runWindow(const QStringList &arguments, Warnings warnings = Warnings::Allowed);

/** Runs the tour of the built module; its pictures go to @p folder. */
WindowRun runTour(const QString &folder, const QStringList &arguments,
                  Warnings warnings = Warnings::Fatal);

/**
 * What is wrong with the tour @p run: a step that failed, a picture that is not in @p folder, or an
 * exit code. Empty when all is well.
 */
QString failureOf(const WindowRun &run, const QString &folder);

} // namespace testsupport
