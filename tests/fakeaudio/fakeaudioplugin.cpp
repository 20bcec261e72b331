#include "tests/fakeaudio/fakeaudioplugin.h"

#include "tests/fakeaudio/scriptedaudio.h"
#include "tests/fakeaudio/scripteddeviceinfo.h"
#include "tests/fakeaudio/scriptedinput.h"

namespace testsupport {

namespace {

// Goes when the process ends, like the engine of a real backend: after whatever was built later.
struct Engine
{
    ~Engine() { ScriptedAudio::instance().backendGoes(); }
};

} // namespace

FakeAudioPlugin::FakeAudioPlugin(QObject *parent)
    : QAudioSystemPlugin(parent)
{
    static const Engine engine;
}

QList<QByteArray> FakeAudioPlugin::availableDevices(QAudio::Mode mode) const
{
    QList<QByteArray> names;
    if (mode == QAudio::AudioInput)
        for (const ScriptedAudio::Device &device : ScriptedAudio::instance().devices())
            names.append(device.name);
    return names;
}

QAbstractAudioInput *FakeAudioPlugin::createInput(const QByteArray &device)
{
    return new ScriptedInput(device);
}

QAbstractAudioOutput *FakeAudioPlugin::createOutput(const QByteArray &device)
{
    Q_UNUSED(device)
    return nullptr;
}

QAbstractAudioDeviceInfo *FakeAudioPlugin::createDeviceInfo(const QByteArray &device,
                                                            QAudio::Mode mode)
{
    Q_UNUSED(mode)
    return new ScriptedDeviceInfo(device);
}

} // namespace testsupport
