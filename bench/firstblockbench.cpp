#include "bench/discardingsink.h"
#include "bench/suite.h"
#include "bench/testedpage.h"
#include "voice/captureformat.h"

#include <QAudioInput>

void benchFirstBlock(const Report &report)
{
    Comparison what;
    what.name = QStringLiteral("first block");
    what.subject = QStringLiteral("from the click of a voice test to the first block of sound");
    what.baseline = QStringLiteral("the sound server alone");
    what.unit = QStringLiteral("ms");
    what.aim = 1.2;
    what.rounds = 30;
    TestedPage page;
    what.measureSubject = [&page] {
        const double ms = page.start();
        page.cancel();
        return ms;
    };
    what.measureBaseline = [] {
        DiscardingSink sink;
        QEventLoop loop;
        QObject::connect(&sink, &QIODevice::bytesWritten, &loop, &QEventLoop::quit);
        QElapsedTimer clock;
        clock.start();
        QAudioInput input(QAudioDeviceInfo::defaultInputDevice(), captureFormat());
        input.start(&sink);
        loop.exec();
        const double ms = clock.nsecsElapsed() / 1e6;
        input.stop();
        return ms;
    };
    report(compare(what));
}
