#pragma once

#include "comcorvaneaiserviceiatinterface.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"
#include "tests/support/timertracker.h"
#include "tests/support/voicepage.h"
#include "voice/aqcwrapper.h"
#include "voice/iatwapper.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QVector>

#include <memory>

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

// Who talks to the scripted AI service, from the bottom up: the recogniser's client, the voice
// test, the page.

namespace testsupport {

/** A recognition client with everything that it reports, in order. */
class RecogniserClient : public QObject
{
public:
    RecogniserClient()
    {
        connect(&iat, &IatWapper::onIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    heard << QStringLiteral("%1 %2%3").arg(text).arg(int(type)).arg(
                        finish ? QStringLiteral(" finish") : QString());
                });
        connect(&iat, &IatWapper::onIatError, this, [this](long code, const QString &info) {
            heard << QStringLiteral("error %1 %2").arg(code).arg(info);
        });
    }

    QList<ComCorvaneAiserviceIatInterface *> proxies() const
    {
        return iat.findChildren<ComCorvaneAiserviceIatInterface *>();
    }

    IatWapper iat;
    QStringList heard;
};

/** A voice test with what it reports. */
class VoiceTest : public QObject
{
public:
    VoiceTest()
        : wrapper(new AqcWrapper)
    {
        connect(wrapper.get(), &AqcWrapper::signalAqcResult, this,
                [this](const QString &result) { verdicts << result; });
        connect(wrapper.get(), &AqcWrapper::signalUpdateAudioLevel, this,
                [this](double level) { levels << level; });
        connect(wrapper.get(), &AqcWrapper::signaleIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    texts << QStringLiteral("%1 %2 %3").arg(text).arg(int(type)).arg(finish);
                });
    }

    std::unique_ptr<AqcWrapper> wrapper;
    QStringList verdicts;
    QVector<double> levels;
    QStringList texts;
};

const QString wave = QStringLiteral("(wave)");
const QString words = QStringLiteral("明天早上");

/** The panel while a test runs that has understood @p recognised. */
inline QString panel(const QString &recognised)
{
    return QStringList({QStringLiteral("Voice Test"), recognised, VoicePage::phrase(), wave})
        .join(QLatin1Char('|'));
}

inline QString finishedPanel(const QString &recognised, const QString &verdict)
{
    return QStringList({QStringLiteral("Voice Test"), recognised, verdict, VoicePage::againLink()})
        .join(QLatin1Char('|'));
}

/** A page on a machine that is online, and the AI service. */
class VoiceTestBed
{
public:
    bool open(bool withService = true)
    {
        if (!network.start() || (withService && !service.start()))
            return false;
        network.setValue(QStringLiteral("state"), 70u);
        page = std::make_unique<VoicePage>();
        return true;
    }

    /** Everything that the panel shows, from top to bottom. */
    QString shown() const { return page->texts().join(QLatin1Char('|')); }

    /** The user gives up; then the panel is as new. */
    void cancel() const { QTest::mouseClick(page->wave(), Qt::LeftButton); }

    /** The ten seconds are over. */
    bool timeIsUp() const
    {
        const QList<QTimer *> timers = m_tracker.timers(testMs);
        return timers.size() == 1 && TimerTracker::fire(timers.first());
    }

    /** A whole run with words and a verdict. Empty when it works, whatever came before. */
    QString nextRun()
    {
        service.reset();
        if (page->wave())
            cancel();
        if (!microphoneIsClosed())
            return QStringLiteral("the microphone was open before");
        if (!page->clickLink() || shown() != panel(QString()))
            return shown();
        if (audio().hear(block()) != 1)
            return QStringLiteral("not one recording");
        if (!service.waitForCalls(putAudio, 2))
            return QStringLiteral("the audio does not reach both sessions");
        const QString check = service.calls(startAqc).value(0).path;
        const QString recognition = service.calls(startIat).value(0).path;
        if (service.heard(check) != block() || service.heard(recognition) != block())
            return QStringLiteral("other audio than recorded");
        service.recognise(recognition, words);
        if (!QTest::qWaitFor([this] { return shown() == panel(words); }))
            return shown();
        service.notify(check, QStringLiteral("1000"));
        const QString good = finishedPanel(words, QStringLiteral("It sounds good"));
        if (!QTest::qWaitFor([this, good] { return shown() == good; }))
            return shown();
        return microphoneIsClosed() ? QString() : QStringLiteral("the microphone is left open");
    }

    ServiceProcess network{QStringLiteral("networkmanager")};
    VoiceService service;

private:
    TimerTracker m_tracker; // before the page: it must see the timer being created

public:
    std::unique_ptr<VoicePage> page;
};

} // namespace testsupport
