#pragma once

#include "tests/support/scriptedaudio.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTest>

namespace testsupport {

constexpr int testMs = 10000; // a voice test

// The objects of the first sessions, and the methods.
const QString aqcPath = QStringLiteral("/session/aqc/1");
const QString iatPath = QStringLiteral("/session/iat/1");
const QString secondAqcPath = QStringLiteral("/session/aqc/2");
const QString secondIatPath = QStringLiteral("/session/iat/2");
const QString createSession = QStringLiteral("createSession");
const QString freeSession = QStringLiteral("freeSession");
const QString startAqc = QStringLiteral("startAqc");
const QString stopAqc = QStringLiteral("stopAqc");
const QString startIat = QStringLiteral("startIat");
const QString stopIat = QStringLiteral("stopIat");
const QString putAudio = QStringLiteral("putAudio");

/** A block of sound; those of other numbers differ. */
inline QByteArray block(int number = 1)
{
    QByteArray bytes(1600, '\0');
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>((number * 7919 + i * 31) & 0xff);
    return bytes;
}

/** The microphone is closed when the event loop runs again, not by the stop itself. */
inline bool microphoneIsClosed()
{
    return QTest::qWaitFor([] { return audio().captures().isEmpty(); });
}

/** What the service calls the recognition at @p path in its messages. */
inline QString idOf(const QString &path)
{
    return QStringLiteral("id of ") + path;
}

/** A recogniser's message with the hypothesis @p text, as the session @p id sends it. */
inline QString recogniserMessage(const QString &id, const QString &text, bool finish = false)
{
    const QJsonObject object{{QStringLiteral("session_id"), id},
                             {QStringLiteral("text"), text},
                             {QStringLiteral("finish"), finish}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/** One with @p word alone, in place of those before it ("rpl") or behind them ("apd"). */
inline QString recognised(const QString &id, const char *pgs, const QString &word,
                          bool finish = false)
{
    const QJsonObject candidate{{QStringLiteral("w"), word}};
    const QJsonObject slot{{QStringLiteral("cw"), QJsonArray{candidate}}};
    const QJsonObject hypothesis{{QStringLiteral("pgs"), QLatin1String(pgs)},
                                 {QStringLiteral("ws"), QJsonArray{slot}}};
    return recogniserMessage(
        id, QString::fromUtf8(QJsonDocument(hypothesis).toJson(QJsonDocument::Compact)), finish);
}

/** The scripted AI service, on a machine with one good microphone. */
class VoiceService : public ServiceProcess
{
public:
    VoiceService()
        : ServiceProcess(QStringLiteral("voicescript"))
    {
        audio().setDevices({{"mic", true}});
    }

    /** The quality check of the session at @p path says @p text. */
    void notify(const QString &path, const QString &text)
    {
        setValue(QStringLiteral("notify"), QStringList({path, text}));
    }

    /** The recognition of the session at @p path has understood @p word, all in all. */
    void recognise(const QString &path, const QString &word)
    {
        send(path, recognised(idOf(path), "rpl", word, true));
    }

    /** The recognition of the session at @p path sends @p message, whatever that is. */
    void send(const QString &path, const QString &message)
    {
        setValue(QStringLiteral("result"), QStringList({path, message}));
    }

    /** "MEMBER PATH", or "MEMBER ABILITY" for the calls of the session manager. */
    QStringList callTexts()
    {
        QStringList list;
        const QList<ServiceCall> all = calls();
        for (const ServiceCall &call : all)
            list << call.member + QLatin1Char(' ') +
                        (call.path == QLatin1String("/") ? call.arguments.at(1).toString()
                                                         : call.path);
        return list;
    }

    /** The audio that the session at @p path got. */
    QByteArray heard(const QString &path)
    {
        return QByteArray::fromHex(value(QStringLiteral("audio ") + path).toString().toLatin1());
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
