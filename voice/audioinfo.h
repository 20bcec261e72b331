#pragma once

#include <QAudioFormat>
#include <QIODevice>

/**
 * The sink of a microphone: an audio input writes its blocks into it, and it hands each one on with
 * its peak level.
 *
 * Write-only and never full. Works on the thread of the audio input, without a buffer of its own.
 */
class AudioInfo : public QIODevice
{
    Q_OBJECT

public:
    /** Measures samples of @p format; formats without a known full scale get no level. */
    explicit AudioInfo(const QAudioFormat &format);

    /** Opens the sink for writing. */
    void start();
    /** Closes the sink. */
    void stop();
    /** Until the next start() blocks are taken, but no longer handed on. */
    void discard();

    /** Nothing can be read: always 0. */
    qint64 readData(char *data, qint64 maxlen) override;
    /** Hands on one captured block, then its level; always takes all @p len bytes. */
    qint64 writeData(const char *data, qint64 len) override;

    /**
     * Measures the peak of the whole frames in @p data (@p len bytes, any alignment) and reports
     * it. Less than one frame is silence.
     */
    void updateLevel(const char *data, qint64 len);

    /**
     * Whether a block is being handed on, perhaps by a receiver that waits in an event loop of its
     * own. The input that wrote it must stay until then; bytesWritten() tells when it may go.
     */
    bool isWriting() const { return m_writing > 0; }

Q_SIGNALS:
    /** The peak of the latest block, 0.0 to 1.0 of full scale. */
    void levelUpdated(double level);
    /** The latest block, a copy that the receiver may keep. */
    void audioWrite(const QByteArray &data);

private:
    quint64 peak(const char *data, qint64 samples) const;

    const QAudioFormat m_format;
    const quint32 m_maxAmplitude; // largest sample value; 0: formats that are not measured
    double m_level = 0.0;         // of the latest block, 0.0 to 1.0
    bool m_discarding = false;
    int m_writing = 0; // calls of writeData() that have not returned
};
