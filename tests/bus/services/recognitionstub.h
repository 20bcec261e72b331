#pragma once

#include <QDBusObjectPath>
#include <QObject>
#include <QVariantMap>

/**
 * Implements the two richest contracts, sessions and recognition, by remembering what it was given:
 * dictionaries, byte arrays, several values back, signals.
 */
class RecognitionStub : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    QVariantMap parameters;
    QByteArray audio;
    bool finished = false;

public Q_SLOTS:
    QDBusObjectPath createSession(const QString &appId, const QString &ability, int &errorcode);
    int freeSession(const QString &appId, const QString &ability);
    QString startIat(const QVariantMap &params);
    void stopIat();
    void putAudio(const QByteArray &data, bool finish);

Q_SIGNALS:
    void onResult(const QString &result);
    void onError(const QString &errInfo);
    void onEnd();
};
