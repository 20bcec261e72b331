#pragma once

#include <QAudioSystemPlugin>

namespace testsupport {

/** What a scripted device can do at this moment; nothing any more when it has been unplugged. */
class ScriptedDeviceInfo : public QAbstractAudioDeviceInfo
{
    Q_OBJECT

public:
    explicit ScriptedDeviceInfo(const QByteArray &device);

    QAudioFormat preferredFormat() const override;
    bool isFormatSupported(const QAudioFormat &format) const override;
    QString deviceName() const override;
    QStringList supportedCodecs() override;
    QList<int> supportedSampleRates() override;
    QList<int> supportedChannelCounts() override;
    QList<int> supportedSampleSizes() override;
    QList<QAudioFormat::Endian> supportedByteOrders() override;
    QList<QAudioFormat::SampleType> supportedSampleTypes() override;

private:
    const QByteArray m_device;
};

} // namespace testsupport
