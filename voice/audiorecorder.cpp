#include "voice/audiorecorder.h"

#include <QAudioInput>
#include <QDebug>
#include <QMutexLocker>

#include "proxy/serviceproxy.h"
#include "voice/processwide.h"

namespace {

constexpr int deviceCheckMs = 500;

// A program that calls exit() never destroys its application object, and sound backends crash when
// they are torn down under a running capture. Built after the backend, this goes before it.
struct CaptureExitGuard
{
    ~CaptureExitGuard() { ProcessWide<AudioRecorder>::dispose(); }
};

} // namespace

AudioRecorder *AudioRecorder::getInstance()
{
    return ProcessWide<AudioRecorder>::instance();
}

AudioRecorder::AudioRecorder()
    : m_mutex(QMutex::Recursive)
{
    connect(&m_checkTimer, &QTimer::timeout, this, &AudioRecorder::checkDevice);
    m_checkTimer.start(deviceCheckMs);

    m_format.setSampleRate(16000);
    m_format.setChannelCount(1);
    m_format.setSampleSize(16);
    m_format.setCodec(QStringLiteral("audio/pcm"));
    m_format.setByteOrder(QAudioFormat::LittleEndian);
    m_format.setSampleType(QAudioFormat::SignedInt);

    m_audioInfo.reset(new AudioInfo(m_format));
    connect(m_audioInfo.data(), &AudioInfo::audioWrite, this, &AudioRecorder::audioRecorded);
    connect(m_audioInfo.data(), &AudioInfo::levelUpdated, this, &AudioRecorder::levelUpdated);

    m_audioDaemon.reset(new ServiceProxy<__Audio>(QStringLiteral("com.tavren.daemon.Audio"),
                                                  QStringLiteral("/com/tavren/daemon/Audio"),
                                                  QDBusConnection::sessionBus()));
    connect(m_audioDaemon.data(), &__Audio::DefaultSourceChanged, this,
            &AudioRecorder::DefaultSourceChanged);
}

AudioRecorder::~AudioRecorder()
{
    m_checkTimer.stop();
    // Inputs write into the sink until they are gone, the ones that stop() has retired too.
    m_audioInput.reset();
    qDeleteAll(findChildren<QAudioInput *>(QString(), Qt::FindDirectChildrenOnly));
}

bool AudioRecorder::start()
{
    const QMutexLocker locker(&m_mutex);
    if (m_recording) {
        qWarning() << "recorder already started";
        return true;
    }

    m_device = QAudioDeviceInfo::defaultInputDevice();
    if (!checkDevice())
        qWarning() << "audio recorder device may not be valid";

    m_audioInput.reset(new QAudioInput(m_device, m_format, nullptr));
    connect(m_audioInput.data(), &QAudioInput::stateChanged, this,
            [](QAudio::State state) { qDebug() << "internal QAudioInput change state:" << state; });
    m_audioInfo->start();
    m_audioInput->start(m_audioInfo.data());
    static const CaptureExitGuard exitGuard;

    m_recording = true;
    Q_EMIT recordStarted();
    return true;
}

void AudioRecorder::stop()
{
    const QMutexLocker locker(&m_mutex);
    if (!m_recording) {
        qDebug() << "recorder already stopped";
        return;
    }

    // The input may be calling us, with its backend's lock held: neither stopped nor deleted here.
    // It becomes a child so that it does not outlive the recorder where no event loop runs any
    // more.
    QAudioInput *retired = m_audioInput.take();
    retired->setParent(this);
    retired->deleteLater();
    m_audioInfo->stop();
    m_recording = false;
    Q_EMIT recordStoped();
    qInfo() << "recorder stopped";
}

bool AudioRecorder::isRecording()
{
    const QMutexLocker locker(&m_mutex);
    return m_recording;
}

bool AudioRecorder::checkDevice()
{
    bool valid = m_device.isFormatSupported(m_format);
    if (!valid) {
        m_device = QAudioDeviceInfo();
        const QList<QAudioDeviceInfo> devices =
            QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
        for (const QAudioDeviceInfo &device : devices) {
            if (device.isFormatSupported(m_format)) {
                m_device = device;
                valid = true;
            }
        }
    }

    {
        const QMutexLocker locker(&m_mutex);
        m_deviceValid = valid;
    }
    if (!valid)
        stop();
    return valid;
}

void AudioRecorder::DefaultSourceChanged(const QDBusObjectPath &path)
{
    qInfo() << "default record device change to " << path.path() << ", need stop record!";
    stop();
}
