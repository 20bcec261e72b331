#pragma once

#include <QByteArray>
#include <QString>
#include <QThread>

class ComCorvaneAiserviceIatInterface;

/**
 * Speech recognition client: turns the microphone's blocks into one running text.
 *
 * Opens an "iat" session at the AI service and merges its stream of hypotheses: a hypothesis may be
 * restated until a later one is appended, which fixes what stands before it.
 *
 * Lives on the GUI thread, whatever its base class; the thread is never started. The class and some
 * of its members keep the spelling of the interface.
 */
class IatWapper : public QThread
{
    Q_OBJECT

public:
    /** What a hypothesis says about the one before it. Passed on as a number. */
    enum IatResultType {
        IatResultNone = 0,    // nothing; such a result is not reported
        IatResultReplace = 1, // it restates it
        IatResultAppend = 2,  // it follows it
    };

    IatWapper();

    /**
     * Opens a session and starts recognition; blocks until the service has answered. False when the
     * service refuses. A service that does not answer counts as started.
     */
    virtual bool startIat();
    /** Ends recognition and closes the session. The texts stay until the next start. Always 0. */
    virtual int stopIat();
    /**
     * Reads one hypothesis, a JSON text in UTF-8: appends its words to @p out, and sets @p type and
     * @p isLast. Leaves all three alone when @p text is not JSON. Always 0.
     */
    virtual int paserIatResultPgs(const char *text, QString &out, IatResultType &type,
                                  bool &isLast);

public Q_SLOTS:
    /** Sends one block of audio, without waiting; nothing without a session. Always 0. */
    int appendAudio(QByteArray data);

    // Connected by name to the service's signals.
    void handleEnd();
    void handleError(const QString &json);
    void handleResult(const QString &json);

Q_SIGNALS:
    /** The whole text so far; @p finish says that no more follows. */
    void onIatResult(QString result, IatWapper::IatResultType type, bool finish);
    void onIatError(long errcode, QString errInfo);

private:
    void connectResults();
    void disconnectResults();

    ComCorvaneAiserviceIatInterface *m_iat = nullptr; // a child; stopIat() clears it
    QString m_sessionId;
    QString m_fixedText;   // does not change any more
    QString m_pendingText; // may still be replaced
};
