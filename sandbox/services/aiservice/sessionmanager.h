#pragma once

#include <QByteArray>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QHash>
#include <QMap>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <tuple>

namespace sandbox {

class WavWriter;

/** What every session of the AI service has: a client that owns it, and perhaps a recording. */
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(QObject *parent = nullptr);
    ~Session() override;

    /** From now on everything that is heard is also written to the WAV file @p file. */
    void recordTo(const QString &file);

    /** The client has closed the session. It deletes itself, perhaps after some last words. */
    virtual void close();

protected:
    /** To be called with every block of audio that the session listens to. */
    void record(const QByteArray &audio);

private:
    std::unique_ptr<WavWriter> m_recording;
};

class Service;

/** What the session manager answers as errorcode and as the result of freeSession. */
enum SessionError {
    SessionOk = 0,
    SessionAbilityUnknown = 1,    ///< no ability of that name is known at all
    SessionAbilityNotOffered = 2, ///< a known ability that this service does not have
    SessionLimitReached = 3,      ///< as many sessions are open as the state allows
    SessionNotOpen = 4,           ///< nothing to free
};

/**
 * The session manager of the AI service: contract com.corvane.aiservice.session.
 *
 * A client has one session per application id and ability; opening another one closes the first.
 * Each session is an object of its own, at /com/corvane/aiservice/ABILITY/NUMBER, which only its
 * client can use; numbers do not come again. It goes when it is freed and when its client leaves
 * the bus.
 *
 * State, none of it kept:
 * - "createSession.errorcode" (int): anything but 0 refuses every session with this code.
 * - "sessionLimit" (int): how many sessions may be open at a time.
 * - "recordDirectory" (string): if not empty, what each new session hears is written there, as
 *   ABILITY-NUMBER.wav.
 * - "sessions" (list of strings): the paths of the open sessions; cannot be changed.
 */
class SessionManager : public QObject
{
    Q_OBJECT

public:
    /** @p service publishes the sessions. */
    SessionManager(Service *service, const QString &recordDirectory, QObject *parent = nullptr);
    ~SessionManager() override;

public Q_SLOTS:
    QDBusObjectPath createSession(const QString &appId, const QString &ability, int &errorcode);
    int freeSession(const QString &appId, const QString &ability);

private:
    struct Key
    {
        QString client; // unique bus name
        QString appId;
        QString ability;

        bool operator<(const Key &other) const
        {
            return std::tie(client, appId, ability) <
                   std::tie(other.client, other.appId, other.ability);
        }
    };
    struct Entry
    {
        QString path;
        Session *session = nullptr;
    };

    int refusal(const QString &ability) const;
    void close(const Key &key);
    void clientLeft(const QString &client);
    QStringList paths() const;

    Service *m_service;
    QHash<QString, std::function<Session *()>> m_makers; // by ability
    QMap<Key, Entry> m_sessions;
    QDBusServiceWatcher m_clients;
    int m_lastNumber = 0;
};

} // namespace sandbox
