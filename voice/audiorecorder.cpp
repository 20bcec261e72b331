#include "voice/audiorecorder.h"

#include "bus/serviceproxy.h"
#include "contracts/contract.h"
#include "voice/captureformat.h"
#include "voice/processwide.h"

#include <QAudioInput>
#include <QCoreApplication>
#include <QDebug>
#include <QElapsedTimer>
#include <QEvent>
#include <QMutexLocker>
#include <QPointer>
#include <QThread>

namespace {

constexpr int deviceCheckMs = 500;
constexpr int listingRest = 99; // times as long as looking at the list of devices took

// What Qt's PulseAudio plugin needs when the program ends. Built after the plugin, this goes before
// it.
struct CaptureExitGuard
{
    ~CaptureExitGuard()
    {
        // A program that calls exit() never destroys its application object, and sound backends
        // crash when they are torn down under a running capture.
        ProcessWide<AudioRecorder>::dispose();
        // The plugin leaves the server without the lock of the thread that talks to it. While the
        // server still answers to a capture's end, that crashed 6 of 3000 programs; 0.1 s later,
        // none of 4000.
        QThread::msleep(static_cast<unsigned long>(m_settled.remainingTime()));
    }

    void captureClosed() { m_settled.setRemainingTime(100, Qt::PreciseTimer); }

private:
    QDeadlineTimer m_settled;
};

CaptureExitGuard &exitGuard()
{
    static CaptureExitGuard guard;
    return guard;
}

} // namespace

AudioRecorder *AudioRecorder::getInstance()
{
    return ProcessWide<AudioRecorder>::instance();
}

AudioRecorder::AudioRecorder()
    : m_mutex(QMutex::Recursive)
    , m_format(captureFormat())
{
    connect(&m_checkTimer, &QTimer::timeout, this, &AudioRecorder::watchDevices);
    m_checkTimer.start(deviceCheckMs);

    m_audioInfo.reset(new AudioInfo(m_format));
    connect(m_audioInfo.data(), &AudioInfo::audioWrite, this, &AudioRecorder::audioRecorded);
    connect(m_audioInfo.data(), &AudioInfo::levelUpdated, this, &AudioRecorder::levelUpdated);
    connect(m_audioInfo.data(), &AudioInfo::bytesWritten, this, [this] {
        if (!m_retired.isEmpty())
            closeRetiredLater();
    });

    const Contract::Object daemon = Contract::AudioDaemon::object();
    m_audioDaemon.reset(
        new ServiceProxy<__Audio>(daemon.service, daemon.path, QDBusConnection::sessionBus()));
    connect(m_audioDaemon.data(), &__Audio::DefaultSourceChanged, this,
            &AudioRecorder::DefaultSourceChanged);
}

AudioRecorder::~AudioRecorder()
{
    m_checkTimer.stop();
    if (m_audioInput)
        m_retired.append(m_audioInput.take());
    // Inputs process events when they are deleted, and after exit() was called that ends badly. A
    // stopped one is closed and does without its sink; it goes with the application object where no
    // event loop runs any more.
    for (QAudioInput *input : qAsConst(m_retired)) {
        input->disconnect(this);
        input->stop();
        exitGuard().captureClosed();
        input->setParent(QCoreApplication::instance());
        input->deleteLater();
    }
}

bool AudioRecorder::event(QEvent *event)
{
    // Not while a block is handed on by an input and a sink that would go with the recorder.
    if (event->type() == QEvent::DeferredDelete && m_audioInfo->isWriting()) {
        connect(m_audioInfo.data(), &AudioInfo::bytesWritten, this, &QObject::deleteLater);
        return true;
    }
    return QObject::event(event);
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
    exitGuard();

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
    m_retired.append(m_audioInput.take());
    closeRetiredLater();
    // A busy machine's input has more blocks to write; into a closed sink each would be a warning.
    m_audioInfo->discard();
    m_recording = false;
    Q_EMIT recordStoped();
    qInfo() << "recorder stopped";
}

bool AudioRecorder::isRecording()
{
    const QMutexLocker locker(&m_mutex);
    return m_recording;
}

// A tick of the timer. Asking a device may open it, so while nothing records that is done only when
// a device has come or gone.
void AudioRecorder::watchDevices()
{
    const QMutexLocker locker(&m_mutex);
    if (m_recording || deviceListHasChanged())
        checkDevice();
    else if (!m_deviceValid)
        stop();
}

// Whether it is another one than when a device was last asked. False while it is too early to look
// again: with ALSA's plugin that alone takes tens of milliseconds.
bool AudioRecorder::deviceListHasChanged()
{
    if (!m_nextListing.hasExpired())
        return false;
    QElapsedTimer duration;
    duration.start();
    const QList<QAudioDeviceInfo> devices = QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    m_nextListing.setRemainingTime(duration.elapsed() * listingRest);

    const bool changed = m_askedDevicesKnown && devices != m_askedDevices;
    m_askedDevices = devices;
    m_askedDevicesKnown = true;
    return changed;
}

bool AudioRecorder::checkDevice()
{
    bool valid = canRecord(m_device);
    m_askedDevicesKnown = !valid; // the list is looked at by a later tick: a recording is to begin
    if (!valid) {
        m_device = QAudioDeviceInfo();
        m_askedDevices = QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
        for (const QAudioDeviceInfo &device : qAsConst(m_askedDevices)) {
            if (canRecord(device)) {
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

// At the next turn of any event loop, also of one that waits within whoever ended the recording.
void AudioRecorder::closeRetiredLater()
{
    QMetaObject::invokeMethod(this, &AudioRecorder::closeRetired, Qt::QueuedConnection);
}

void AudioRecorder::closeRetired()
{
    // An input processes events while it goes; meanwhile this may run again, and the recorder too
    // may go.
    const QPointer<AudioRecorder> self(this);
    while (self && !m_retired.isEmpty() && !m_audioInfo->isWriting()) {
        delete m_retired.takeFirst();
        exitGuard().captureClosed();
    }
    if (self && m_retired.isEmpty() && !m_recording)
        m_audioInfo->stop();
}

void AudioRecorder::DefaultSourceChanged(const QDBusObjectPath &path)
{
    qInfo() << "default record device change to " << path.path() << ", need stop record!";
    stop();
}
