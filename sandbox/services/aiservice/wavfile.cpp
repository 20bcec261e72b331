#include "sandbox/services/aiservice/wavfile.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QtEndian>

namespace sandbox {

namespace {

using namespace wavfile;

constexpr quint16 channels = 1;
constexpr quint16 bytesPerFrame = 2;

QByteArray header(quint32 audioBytes)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(headerBytes - 8) + audioBytes;
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << channels << quint32(samplesPerSecond)
           << quint32(samplesPerSecond * bytesPerFrame) << bytesPerFrame << quint16(16);
    stream.writeRawData("data", 4);
    stream << audioBytes;
    return bytes;
}

} // namespace

WavWriter::WavWriter(const QString &path)
    : m_file(path)
{
    QDir().mkpath(QFileInfo(path).path());
    if (m_file.open(QIODevice::WriteOnly))
        append(QByteArray());
}

void WavWriter::append(const QByteArray &block)
{
    if (!m_file.isOpen())
        return;
    m_file.seek(headerBytes + m_bytes);
    m_file.write(block);
    m_bytes += quint32(block.size());
    m_file.seek(0);
    m_file.write(header(m_bytes));
    m_file.flush();
}

QVector<qint16> PcmReader::read(const QByteArray &block)
{
    const QByteArray bytes = m_half + block;
    QVector<qint16> samples(bytes.size() / int(sizeof(qint16)));
    qFromLittleEndian<qint16>(bytes.constData(), samples.size(), samples.data());
    m_half = bytes.mid(samples.size() * int(sizeof(qint16)));
    return samples;
}

} // namespace sandbox
