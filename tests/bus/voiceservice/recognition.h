#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace voicescript {

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

} // namespace voicescript
