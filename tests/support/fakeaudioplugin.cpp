#include "tests/support/scriptedaudio.h"

#include <QAudioSystemPlugin>

#include <algorithm>

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

/** An audio input that hears what the script lets it hear. */
class ScriptedInput : public QAbstractAudioInput, public ScriptedCapture
{
    Q_OBJECT

public:
    explicit ScriptedInput(const QByteArray &device);
    ~ScriptedInput() override;

    QByteArray device() const override { return m_device; }
    QAudioFormat captureFormat() const override { return m_format; }
    QIODevice *sink() const override { return m_sink; }

    void start(QIODevice *device) override;
    QIODevice *start() override;
    void stop() override;
    void reset() override;
    void suspend() override;
    void resume() override;
    int bytesReady() const override;
    int periodSize() const override;
    void setBufferSize(int value) override;
    int bufferSize() const override;
    void setNotifyInterval(int milliSeconds) override;
    int notifyInterval() const override;
    qint64 processedUSecs() const override;
    qint64 elapsedUSecs() const override;
    QAudio::Error error() const override;
    QAudio::State state() const override;
    void setFormat(const QAudioFormat &format) override;
    QAudioFormat format() const override;
    void setVolume(qreal volume) override;
    qreal volume() const override;

private:
    void setState(QAudio::State state);

    const QByteArray m_device;
    QAudioFormat m_format;
    QIODevice *m_sink = nullptr;
    QAudio::State m_state = QAudio::StoppedState;
};

ScriptedInput::ScriptedInput(const QByteArray &device)
    : m_device(device)
{
    ScriptedAudio::instance().add(this);
}

ScriptedInput::~ScriptedInput()
{
    ScriptedAudio::instance().checkMayClose();
    ScriptedAudio::instance().remove(this);
}

void ScriptedInput::start(QIODevice *device)
{
    m_sink = device;
    setState(QAudio::ActiveState);
}

QIODevice *ScriptedInput::start()
{
    return nullptr;
}

void ScriptedInput::stop()
{
    ScriptedAudio::instance().checkMayClose();
    m_sink = nullptr;
    setState(QAudio::StoppedState);
}

void ScriptedInput::reset()
{
    stop();
}

void ScriptedInput::suspend()
{
    setState(QAudio::SuspendedState);
}

void ScriptedInput::resume()
{
    setState(QAudio::ActiveState);
}

int ScriptedInput::bytesReady() const
{
    return 0;
}

int ScriptedInput::periodSize() const
{
    return 0;
}

void ScriptedInput::setBufferSize(int value)
{
    Q_UNUSED(value)
}

int ScriptedInput::bufferSize() const
{
    return 0;
}

void ScriptedInput::setNotifyInterval(int milliSeconds)
{
    Q_UNUSED(milliSeconds)
}

int ScriptedInput::notifyInterval() const
{
    return 0;
}

qint64 ScriptedInput::processedUSecs() const
{
    return 0;
}

qint64 ScriptedInput::elapsedUSecs() const
{
    return 0;
}

QAudio::Error ScriptedInput::error() const
{
    return QAudio::NoError;
}

QAudio::State ScriptedInput::state() const
{
    return m_state;
}

void ScriptedInput::setFormat(const QAudioFormat &format)
{
    m_format = format;
}

QAudioFormat ScriptedInput::format() const
{
    return m_format;
}

void ScriptedInput::setVolume(qreal volume)
{
    Q_UNUSED(volume)
}

qreal ScriptedInput::volume() const
{
    return 1.0;
}

void ScriptedInput::setState(QAudio::State state)
{
    if (m_state == state)
        return;
    m_state = state;
    Q_EMIT stateChanged(state);
}

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

#include "fakeaudioplugin.moc"
