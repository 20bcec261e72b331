#include "sandbox/services/aiservice/pcmreader.h"

#include <QtEndian>

namespace sandbox {

QVector<qint16> PcmReader::read(const QByteArray &block)
{
    const QByteArray bytes = m_half + block;
    QVector<qint16> samples(bytes.size() / int(sizeof(qint16)));
    qFromLittleEndian<qint16>(bytes.constData(), samples.size(), samples.data());
    m_half = bytes.mid(samples.size() * int(sizeof(qint16)));
    return samples;
}

} // namespace sandbox
