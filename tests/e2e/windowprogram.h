#pragma once

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

namespace testsupport {

/** What the control-center window's program did. */
struct WindowRun
{
    int exitCode = -1; ///< -1 when it crashed, warned or did not end in time
    QStringList lines; ///< of standard output
    QString messages;  ///< standard error
};

/** What becomes of the program when Qt or the module warns. */
enum class Warnings {
    Allowed,
    Refused, ///< The run has failed.
};

/** Runs the program with the translations in place, and waits for its end. */
inline WindowRun runWindow(const QStringList &arguments, Warnings warnings = Warnings::Allowed)
{
    constexpr int limit = 280000; // ms
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TRANSLATIONS_DIR"), QStringLiteral(CATALOGUES));
    if (warnings == Warnings::Refused)
        environment.insert(QStringLiteral("QT_MESSAGE_PATTERN"),
                           QStringLiteral("%{if-warning}warning: %{endif}"
                                          "%{if-critical}warning: %{endif}%{message}"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WITH_TRANSLATIONS),
                  QStringList{QStringLiteral(WINDOW_PROGRAM)} + arguments);
    const bool ended = process.waitForFinished(limit);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    WindowRun run;
    if (ended && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.lines =
        QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(QLatin1Char('\n'));
    run.messages = QString::fromUtf8(process.readAllStandardError());
    if (warnings == Warnings::Refused) {
        // A window without a display grows without its permission.
        const QRegularExpression unexpected(
            QStringLiteral("^warning: (?!This plugin does not support propagateSizeHints).*$"),
            QRegularExpression::MultilineOption);
        const QRegularExpressionMatch warning = unexpected.match(run.messages);
        if (warning.hasMatch()) {
            run.exitCode = -1;
            run.messages += '\n' + warning.captured();
        }
    }
    return run;
}

/** Runs the tour of the built module; its pictures go to @p folder. */
inline WindowRun runTour(const QString &folder, const QStringList &arguments,
                         Warnings warnings = Warnings::Refused)
{
    return runWindow(QStringList{QStringLiteral("--plugin"), QStringLiteral(MODULE_FILE),
                                 QStringLiteral("--tour"), folder} +
                         arguments,
                     warnings);
}

/**
 * What is wrong with the tour @p run: a step that failed, a picture that is not in @p folder, or an
 * exit code. Empty when all is well.
 */
inline QString failureOf(const WindowRun &run, const QString &folder)
{
    const QString everything = run.lines.join(QLatin1Char('\n'));
    if (run.exitCode != 0)
        return QStringLiteral("exit code %1, last message: %2\n")
                   .arg(run.exitCode)
                   .arg(run.messages.trimmed().section(QLatin1Char('\n'), -1)) +
               everything;

    int pictures = 0;
    for (const QString &line : run.lines) {
        if (line.startsWith(QLatin1String("FAIL")))
            return line + QStringLiteral(", and yet the exit code is 0");
        const auto picture = QRegularExpression(QStringLiteral("^ok .* -> (\\S+)$")).match(line);
        if (!picture.hasMatch())
            continue;
        ++pictures;
        if (QImage(QDir(folder).filePath(picture.captured(1))).isNull())
            return line + QStringLiteral(": there is no such picture");
    }
    return pictures > 0 ? QString() : QStringLiteral("no pictures\n") + everything;
}

} // namespace testsupport
