#pragma once

#include "voice/audioinfo.h"

#include <zframeworkdbus/audio.h>

#include <QAudioDeviceInfo>
#include <QAudioFormat>
#include <QByteArray>
#include <QDBusObjectPath>
#include <QDeadlineTimer>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QScopedPointer>
#include <QTimer>

class QAudioInput;
template <typename T>
class ProcessWide;

/**
 * Records the desktop's default microphone in the captureFormat(), 32000 bytes a second, as the
 * device delivers it.
 *
 * One per process, on the GUI thread. Every recording opens the device anew, and it is closed at
 * the next turn of any event loop after the recording's end, at latest with this object. A
 * recording ends by stop(), when the desktop's default source changes, or when no device is left
 * that can record.
 *
 * Clients keep a QPointer to the instance: it may be deleted with deleteLater(), and getInstance()
 * then builds another.
 */
class AudioRecorder : public QObject
{
    Q_OBJECT

public:
    /** The instance; built on first use. */
    static AudioRecorder *getInstance();

    ~AudioRecorder() override;

    /**
     * Begins a recording from the default microphone, or from another one where that cannot deliver
     * the format. Always true, also without a usable device: the recording then stays silent.
     */
    bool start();
    /** Ends the recording. Safe to call from slots of this class's signals. */
    void stop();
    bool isRecording();

public Q_SLOTS:
    /**
     * Makes sure that the current device can deliver the format, and takes the last one listed that
     * can where it cannot. Without any the recording ends and the result is false. Asking a device
     * may open it for some milliseconds.
     */
    bool checkDevice();
    /** Ends the recording: the desktop records from the source @p path from now on. */
    void DefaultSourceChanged(const QDBusObjectPath &path);

Q_SIGNALS:
    // The first two are emitted while the mutex is held: connect directly, from the same thread.
    void recordStarted();
    void recordStoped(); // spelt so in the interface
    /** One captured block. */
    void audioRecorded(QByteArray data);
    /** The peak of that block, 0.0 to 1.0 of full scale. */
    void levelUpdated(double level);

protected:
    bool event(QEvent *event) override;

private:
    friend class ProcessWide<AudioRecorder>;
    AudioRecorder();

    void watchDevices();
    bool deviceListHasChanged();
    void closeRetiredLater();
    void closeRetired();

    // Recursive: start() holds it while checkDevice() and stop() take it again.
    QMutex m_mutex; // guards the two flags and the input
    QScopedPointer<AudioInfo> m_audioInfo;
    QAudioDeviceInfo m_device;
    const QAudioFormat m_format;
    QScopedPointer<QAudioInput> m_audioInput; // null while not recording
    QTimer m_checkTimer;
    bool m_deviceValid = false; // the latest result of checkDevice()
    QByteArray m_buffer;        // stays empty: every block is handed on at once
    bool m_recording = false;
    QScopedPointer<__Audio> m_audioDaemon;
    QList<QAudioDeviceInfo> m_askedDevices; // the list when a device was last asked
    bool m_askedDevicesKnown = true;        // false: that asking did not look at the list
    QDeadlineTimer m_nextListing;           // when looking at the list may take its time again
    QList<QAudioInput *> m_retired;         // ours; still open
};
