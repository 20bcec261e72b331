#pragma once

#include <QAudioFormat>

/** How every recording is made: mono 16-bit signed little-endian PCM at 16 kHz. */
inline QAudioFormat captureFormat()
{
    QAudioFormat format;
    format.setSampleRate(16000);
    format.setChannelCount(1);
    format.setSampleSize(16);
    // Not a string literal, which would go with this library: a closed input may keep the format.
    format.setCodec(QString::fromLatin1("audio/pcm"));
    format.setByteOrder(QAudioFormat::LittleEndian);
    format.setSampleType(QAudioFormat::SignedInt);
    return format;
}
