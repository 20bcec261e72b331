#pragma once

#include "tests/fakeaudio/scriptedaudio.h"
#include "tests/support/bustalk.h"
#include "tests/support/serviceprocess.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace testsupport {

/** The scripted AI service, on a machine with one good microphone. */
class VoiceService : public ServiceProcess
{
public:
    VoiceService()
        : ServiceProcess(QStringLiteral("voicescript"))
    {
        ScriptedAudio::instance().setDevices({{"mic", true}});
    }

    /** The quality check of the session at @p path says @p text. */
    void notify(const QString &path, const QString &text)
    {
        setValue(QStringLiteral("notify"), QStringList({path, text}));
    }

    /** The recognition of the session at @p path has understood @p word, all in all. */
    void recognise(const QString &path, const QString &word) { send(path, recognised(path, word)); }

    /** The recognition of the session at @p path sends @p message, whatever that is. */
    void send(const QString &path, const QString &message)
    {
        setValue(QStringLiteral("result"), QStringList({path, message}));
    }

    /** The audio that the session at @p path got. */
    QByteArray heard(const QString &path)
    {
        return QByteArray::fromHex(value(QStringLiteral("audio ") + path).toString().toLatin1());
    }

private:
    static QString recognised(const QString &path, const QString &word)
    {
        const QJsonObject candidate{{QStringLiteral("w"), word}};
        const QJsonObject slot{{QStringLiteral("cw"), QJsonArray{candidate}}};
        const QJsonObject hypothesis{{QStringLiteral("pgs"), QStringLiteral("rpl")},
                                     {QStringLiteral("ws"), QJsonArray{slot}}};
        const QJsonObject message{
            {QStringLiteral("session_id"), QStringLiteral("id of ") + path},
            {QStringLiteral("text"), QString::fromUtf8(QJsonDocument(hypothesis).toJson())},
            {QStringLiteral("finish"), true}};
        return QString::fromUtf8(QJsonDocument(message).toJson());
    }
};

/** All signals that the service has sent until now have reached their slots when this returns. */
inline bool everythingArrived()
{
    return everythingArrivedFrom(QStringLiteral("com.corvane.aiservice"));
}

/**
 * All signals that the service has sent until now wait in this process's event queue, if the event
 * loop has run before.
 */
inline bool everythingIsQueued()
{
    return QDBusConnection::sessionBus()
               .call(pingCall(QStringLiteral("com.corvane.aiservice")), QDBus::Block)
               .type() == QDBusMessage::ReplyMessage;
}

} // namespace testsupport
