#pragma once

#include "comcorvaneaiserviceiatinterface.h"
#include "tests/bus/voiceservice.h"
#include "tests/support/timertracker.h"
#include "tests/support/voicepage.h"
#include "voice/aqcwrapper.h"
#include "voice/iatwapper.h"

#include <QTest>
#include <QVector>

#include <memory>

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
