#pragma once

#include <QMap>
#include <QObject>
#include <QString>

class ComCorvaneAiserviceSessionInterface;
template <typename T>
class ProcessWide;

/**
 * Opens and closes this application's sessions at the AI service, one per ability, and remembers
 * the object that the service made for each.
 *
 * One per process, on the GUI thread; callers never delete it. The abilities are "tts", "iat",
 * "trans", "record" and "aqc".
 */
class AIServiceSession : public QObject
{
    Q_OBJECT

public:
    /** The instance; built on first use. */
    static AIServiceSession *instance();

    /**
     * Opens a session and waits for the service. Returns 0, the service's own error code, or -4 for
     * an unknown ability. A service that does not answer gives 0 and an empty object path.
     */
    int createSession(QString ability);
    /** Asks the service to close the session, without waiting. Its object path stays known. */
    void destroySession(QString ability);
    /** The object of the latest session of @p ability; empty without one. No bus traffic. */
    QString queryObjectPath(QString ability) const;

private:
    friend class ProcessWide<AIServiceSession>;
    AIServiceSession();

    ComCorvaneAiserviceSessionInterface *m_sessionManager = nullptr;
    QMap<QString, QString> m_objectPaths; // ability to object path
};
