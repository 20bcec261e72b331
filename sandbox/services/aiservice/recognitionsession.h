#pragma once

#include "sandbox/services/aiservice/phraselistener.h"
#include "sandbox/services/aiservice/sessionmanager.h"

#include <QVariantMap>

namespace sandbox {

class Recognition;

/**
 * An "iat" session: contract com.corvane.aiservice.iat. Recognises the test phrase in what is heard
 * between startIat and stopIat, or audio marked as the last.
 *
 * When it is closed after stopIat, what is still being decoded is said before it goes.
 */
class RecognitionSession : public Session
{
    Q_OBJECT

public:
    /** "status" in the answer of startIat. */
    enum StartStatus {
        Started = 0,
        AlreadyRunning = 1,
        ParameterUnsupported = 2, ///< another language, sample rate or format
    };

    /** @p threadParent owns the threads, see Recognition. */
    explicit RecognitionSession(QObject *threadParent, QObject *parent = nullptr);

    void close() override;

public Q_SLOTS:
    QString startIat(const QVariantMap &params);
    void stopIat();
    void putAudio(const QByteArray &data, bool finish);

Q_SIGNALS:
    void onResult(const QString &result);
    void onError(const QString &errInfo);
    void onEnd();

private:
    enum State {
        Idle,
        Listening,
        Finishing, ///< no more audio is taken; the last hypothesis is on its way
    };

    void tell(const Hypothesis &hypothesis);
    void fail();
    void end();

    QObject *const m_threadParent;
    Recognition *m_recognition = nullptr; // null while idle
    QString m_sessionId;
    State m_state = Idle;
    bool m_closed = false;
};

} // namespace sandbox
