#include "tests/fakeaudio/scripteddeviceinfo.h"

#include "tests/fakeaudio/scriptedaudio.h"

#include <algorithm>

namespace testsupport {

ScriptedDeviceInfo::ScriptedDeviceInfo(const QByteArray &device)
    : m_device(device)
{
}

QAudioFormat ScriptedDeviceInfo::preferredFormat() const
{
    return QAudioFormat();
}

bool ScriptedDeviceInfo::isFormatSupported(const QAudioFormat &format) const
{
    Q_UNUSED(format)
    ScriptedAudio::instance().ask();
    const QVector<ScriptedAudio::Device> &devices = ScriptedAudio::instance().devices();
    return std::any_of(devices.cbegin(), devices.cend(),
                       [this](const ScriptedAudio::Device &device) {
                           return device.name == m_device && device.fits;
                       });
}

QString ScriptedDeviceInfo::deviceName() const
{
    return QString::fromLatin1(m_device);
}

QStringList ScriptedDeviceInfo::supportedCodecs()
{
    return {QStringLiteral("audio/pcm")};
}

QList<int> ScriptedDeviceInfo::supportedSampleRates()
{
    return {16000};
}

QList<int> ScriptedDeviceInfo::supportedChannelCounts()
{
    return {1};
}

QList<int> ScriptedDeviceInfo::supportedSampleSizes()
{
    return {16};
}

QList<QAudioFormat::Endian> ScriptedDeviceInfo::supportedByteOrders()
{
    return {QAudioFormat::LittleEndian};
}

QList<QAudioFormat::SampleType> ScriptedDeviceInfo::supportedSampleTypes()
{
    return {QAudioFormat::SignedInt};
}

} // namespace testsupport
