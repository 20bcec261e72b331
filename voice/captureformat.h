#pragma once

#include <QAudioDeviceInfo>
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

/**
 * Whether it is more than a name. Without any microphone PipeWire names the PulseAudio protocol's
 * placeholder as the default one; Qt lists it, and would wait for ever for a stream from it.
 */
inline bool isMicrophone(const QAudioDeviceInfo &device)
{
    return !device.isNull() && device.deviceName() != QLatin1String("@DEFAULT_SOURCE@");
}

/** Whether it records in that format. Asking it may open it for a moment. */
inline bool canRecord(const QAudioDeviceInfo &device)
{
    return isMicrophone(device) && device.isFormatSupported(captureFormat());
}
