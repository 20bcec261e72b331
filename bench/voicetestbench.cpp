#include "bench/suite.h"
#include "pages/assistantsettingwidget.h"
#include "voice/audiorecorder.h"
#include "voice/captureformat.h"

#include <ztk/zcommandlinkbutton.h>

#include <QAudioInput>
#include <QEventLoop>
#include <QLabel>
#include <QTimer>

using Ztk::Widget::ZCommandLinkButton;

namespace {

constexpr int runMs = 10000; // a whole voice test

class DiscardingSink : public QIODevice
{
public:
    DiscardingSink() { open(QIODevice::WriteOnly); }

protected:
    qint64 readData(char *, qint64) override { return 0; }
    qint64 writeData(const char *, qint64 length) override { return length; }
};

void runEvents(int ms)
{
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(ms);
    loop.exec();
}

/** Share of one core that this process takes while @p run lasts, in per cent. */
double processorShare(const std::function<void()> &run)
{
    const double before = processorMs();
    const double ms = timedMs(run);
    return (processorMs() - before) / ms * 100.0;
}

double voiceTestShare()
{
    AssistantSettingWidget page(nullptr);
    page.resize(370, 560); // the wave is 340 by 42 then
    page.show();
    runEvents(200);
    return processorShare([&page] {
        page.findChild<ZCommandLinkButton *>()->click();
        runEvents(runMs - 200);
    });
}

double captureShare()
{
    const QAudioFormat format = captureFormat();
    DiscardingSink sink;
    QAudioInput input(QAudioDeviceInfo::defaultInputDevice(), format);
    return processorShare([&] {
        input.start(&sink);
        runEvents(runMs - 200);
        input.stop();
    });
}

} // namespace

void benchVoiceTest(const Report &report)
{
    Comparison what;
    what.name = QStringLiteral("voice test");
    what.subject = QStringLiteral("processor time of a whole run");
    what.baseline = QStringLiteral("the audio backend capturing alone");
    what.unit = QStringLiteral("% of a core");
    what.rounds = 1;
    what.measureSubject = voiceTestShare;
    what.measureBaseline = captureShare;
    report(compare(what));
}
