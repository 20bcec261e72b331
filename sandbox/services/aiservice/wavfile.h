#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QVector>

namespace sandbox {

/** The WAV files of the sandbox and of its tests: 16000 Hz, mono, 16 bits. */
namespace wavfile {

constexpr int headerBytes = 44;
constexpr int samplesPerSecond = 16000;

/** What follows the header in the file @p path; null when it cannot be read. */
inline QByteArray audio(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().mid(headerBytes) : QByteArray();
}

} // namespace wavfile

/**
 * Writes what a session hears to such a file. The header fits the content after every block, so
 * that the file can be opened while the session goes on, and after a crash.
 */
class WavWriter
{
public:
    /** Begins @p path anew, with the folders above it. A file that cannot be written stays away. */
    explicit WavWriter(const QString &path);

    void append(const QByteArray &block);

    QString errorString() const { return m_file.isOpen() ? QString() : m_file.errorString(); }

private:
    QFile m_file;
    quint32 m_bytes = 0; ///< audio written so far
};

/**
 * Turns the byte blocks of a session into samples: mono, 16 bits, signed, little-endian. A block
 * may end in the middle of a sample; its first half waits for the next block.
 */
class PcmReader
{
public:
    /** The samples that are complete once @p block has arrived. */
    QVector<qint16> read(const QByteArray &block);

private:
    QByteArray m_half; ///< empty, or the first byte of a sample
};

} // namespace sandbox
