#pragma once

#include <QStringList>
#include <QVector>

namespace testsupport {

/** Recordings for tests, made on the spot by sandbox/microphone/recording: 16000 Hz, mono. */
namespace spokenrecording {

/** Who speaks; see the script. */
struct Speaker
{
    QString voice = QStringLiteral("cmn-latn-pinyin");
    int wordsPerMinute = 150;
};

/** The first @p seconds of a recording of @p kind. Empty, with a warning, when it cannot be made.
 */
QVector<qint16> make(const QString &kind, const Speaker &speaker = Speaker(),
                     const QString &text = QString(), double seconds = 10.0);

/** The samples of a WAV file of the sandbox; empty, with a warning, when it cannot be read. */
QVector<qint16> read(const QString &file);

/** What a microphone in a silent room hears in @p seconds. */
QVector<qint16> silence(double seconds);

} // namespace spokenrecording

} // namespace testsupport
