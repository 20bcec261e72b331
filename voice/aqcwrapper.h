#pragma once

#include "voice/iatwapper.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class AudioRecorder;
class ComCorvaneAiserviceAqcInterface;
class QTimer;

/**
 * One voice test: records the microphone for ten seconds and streams it to the AI service's quality
 * check and to the speech recognition at the same time.
 *
 * The only object of the voice test that a page talks to. Lives on the GUI thread; a page may leave
 * it behind, the test then ends by itself. Deleting it schedules the process's recorder for
 * deletion too.
 */
class AqcWrapper : public QObject
{
    Q_OBJECT

public:
    explicit AqcWrapper(QObject *parent = nullptr);
    ~AqcWrapper() override;

    /**
     * Starts a test. Returns 0 when it runs, else the service's error code, and nothing is started
     * then. Blocks while the service opens its sessions.
     */
    int start();
    /** Ends the test; its verdict may still follow. Harmless without one. */
    void stop();

public Q_SLOTS:
    /** Sends one captured block to the quality check, without waiting. */
    void recAudioData(QByteArray data);

Q_SIGNALS:
    /** The input level, 0.0 to 1.0. */
    void signalUpdateAudioLevel(double level);
    /** The service's verdict, unchanged. */
    void signalAqcResult(const QString &result);
    /** The recognised text so far; spelt so in the interface. */
    void signaleIatResult(QString result, IatWapper::IatResultType type, bool finish);

private:
    AudioRecorder *recorder();

    ComCorvaneAiserviceAqcInterface *m_aqc = nullptr; // a child; null until a first test runs
    QPointer<AudioRecorder> m_recorder;               // the process's, which others may delete
    QTimer *m_testTimer = nullptr;                    // ours, without a parent
    std::shared_ptr<IatWapper> m_iat;                 // never null
};
