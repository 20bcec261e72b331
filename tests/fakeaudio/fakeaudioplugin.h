#pragma once

#include <QAudioSystemPlugin>

namespace testsupport {

/** Gives Qt Multimedia the devices of ScriptedAudio in place of a sound server's. No outputs. */
class FakeAudioPlugin : public QAudioSystemPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QAudioSystemFactoryInterface_iid FILE "fakeaudio.json")

public:
    explicit FakeAudioPlugin(QObject *parent = nullptr);

    QList<QByteArray> availableDevices(QAudio::Mode mode) const override;
    QAbstractAudioInput *createInput(const QByteArray &device) override;
    QAbstractAudioOutput *createOutput(const QByteArray &device) override;
    QAbstractAudioDeviceInfo *createDeviceInfo(const QByteArray &device,
                                               QAudio::Mode mode) override;
};

} // namespace testsupport
