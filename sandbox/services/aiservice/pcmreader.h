#pragma once

#include <QByteArray>
#include <QVector>

namespace sandbox {

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
