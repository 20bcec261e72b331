#pragma once

#include "tests/fakeaudio/scriptedaudio.h"

#include <QAudioSystemPlugin>

namespace testsupport {

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

} // namespace testsupport
