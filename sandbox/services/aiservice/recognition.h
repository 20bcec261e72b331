#pragma once

#include "sandbox/services/aiservice/phraselistener.h"

#include <QByteArray>
#include <QObject>

class QThread;

namespace sandbox {

class RecognitionWorker;

/**
 * One recognition, done on a thread of its own so that decoding never delays the bus.
 *
 * No function waits for that thread. It ends soon after this object is deleted and removes itself;
 * its parent has to wait for it before the process ends.
 */
class Recognition : public QObject
{
    Q_OBJECT

public:
    /** Starts listening. @p threadParent owns the thread and lives longer than this; see
     *  PhraseListener for the rest. */
    Recognition(const PhraseListener::Patience &patience, QObject *threadParent,
                QObject *parent = nullptr);
    /** Drops the audio that has not been listened to; nothing more is said. */
    ~Recognition() override;

    /** The speaker goes on with @p audio, a block of bytes as it came from the bus. */
    void hear(const QByteArray &audio);
    /** No more audio follows: says what is left, the last hypothesis among it. */
    void finish();

Q_SIGNALS:
    void heard(const sandbox::Hypothesis &hypothesis);
    /** The models cannot be loaded; nothing will be heard. */
    void failed();

private:
    QThread *m_thread;
    RecognitionWorker *m_worker; // lives on m_thread and ends with it
};

} // namespace sandbox
