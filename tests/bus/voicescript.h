#pragma once

#include <QByteArray>
#include <QDBusObjectPath>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace sandbox {
class Service;
}

namespace voicescript {

/** A quality-check session: contract com.corvane.aiservice.aqc. Keeps the audio that it gets. */
class QualityCheck : public QObject
{
    Q_OBJECT

public:
    explicit QualityCheck(QObject *parent);

    QByteArray audio() const { return m_audio; }

public Q_SLOTS:
    QString startAqc();
    QString stopAqc();
    void putAudio(const QByteArray &audio, bool finish);

Q_SIGNALS:
    void onNotify(const QString &result);

private:
    QByteArray m_audio;
};

/**
 * A recognition session: contract com.corvane.aiservice.iat. Keeps the audio that it gets; starts
 * with status 0 and the session id that it was built with.
 */
class Recognition : public QObject
{
    Q_OBJECT

public:
    Recognition(const QString &sessionId, QObject *parent);

    QByteArray audio() const { return m_audio; }

public Q_SLOTS:
    QString startIat(const QVariantMap &params);
    void stopIat();
    void putAudio(const QByteArray &data, bool finish);

Q_SIGNALS:
    void onResult(const QString &result);
    void onError(const QString &errInfo);
    void onEnd();
    /** Recognition was started with these: "KEY TYPE VALUE" each. */
    void started(const QStringList &parameters);

private:
    const QString m_sessionId;
    QByteArray m_audio;
};

/**
 * The session manager of the scripted AI service: contract com.corvane.aiservice.session.
 *
 * Every session is an object of its own, "/session/ABILITY/N" with N from 1 up. State:
 * - "code.ABILITY" (int): the error code with which sessions of that ability are created, 0 at
 * first;
 * - "freed" (string list): the abilities freed so far;
 * - "audio PATH", (string, read only): the audio that session got, as hexadecimal digits;
 * - "parameters" (string list, read only): what the latest recognition was started with, one
 *   "KEY TYPE VALUE" each;
 * - "notify", "result", "error" (string list, write only: path, text) and "end" (string list:
 * path): emits that signal from that object, which is created if there is none.
 */
class Sessions : public QObject
{
    Q_OBJECT

public:
    explicit Sessions(sandbox::Service *service);

public Q_SLOTS:
    QDBusObjectPath createSession(const QString &appId, const QString &ability, int &errorcode);
    int freeSession(const QString &appId, const QString &ability);

private:
    QualityCheck *qualityCheck(const QString &path);
    Recognition *recognition(const QString &path);
    void declareSignal(const QString &key,
                       void (Sessions::*emitSignal)(const QString &path, const QString &text));
    void emitNotify(const QString &path, const QString &text);
    void emitResult(const QString &path, const QString &text);
    void emitError(const QString &path, const QString &text);
    void emitEnd(const QString &path, const QString &text);

    sandbox::Service *m_service;
    QHash<QString, QualityCheck *> m_checks; // by path
    QHash<QString, Recognition *> m_recognitions;
    QHash<QString, int> m_created; // by ability
    QStringList m_parameters;
};

} // namespace voicescript
