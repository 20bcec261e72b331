#include "bench/barewave.h"
#include "bench/discardingsink.h"
#include "pages/assistantsettingwidget.h"
#include "voice/audiorecorder.h"
#include "voice/captureformat.h"

#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QAudioInput>
#include <QElapsedTimer>
#include <QEvent>
#include <QTextStream>
#include <QTimer>

// What takes processor time while it is measured from outside, in a process that has nothing else:
//
//   page    one voice test, from the click to the painted verdict; then prints the milliseconds
//           from the end of the recording until the verdict was painted
//   wave    captures, and paints a finished picture of the wave as often
//   reader  captures
//
// Prints "ready" and begins with a line from standard input.

namespace {

constexpr int frameMs = 15;
constexpr QSize waveSize(340, 42);

class BareWaveWidget : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override { m_wave.paint(this); }

private:
    BareWave m_wave{waveSize, 0.25};
};

/** Ends the event loop when a link has been painted, and what was painted with it. */
class VerdictWatch : public QObject
{
protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // The paint event is yet to be handled.
        if (event->type() == QEvent::Paint &&
            qobject_cast<Ztk::Widget::ZCommandLinkButton *>(watched))
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        return false;
    }
};

// What has been shown or built settles; then whoever measures says when to begin.
void waitForStart()
{
    QTimer::singleShot(500, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    QTextStream(stdout) << "ready" << Qt::endl;
    QTextStream(stdin).readLine();
}

void testOnPage()
{
    AssistantSettingWidget page(nullptr);
    page.resize(waveSize + QSize(30, 520));
    page.show();
    waitForStart();

    QElapsedTimer sinceEnd;
    VerdictWatch watch;
    QObject::connect(AudioRecorder::getInstance(), &AudioRecorder::recordStoped, &page, [&] {
        sinceEnd.start();
        qApp->installEventFilter(&watch);
    });
    page.findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
    QCoreApplication::exec();
    QTextStream(stdout) << double(sinceEnd.nsecsElapsed()) / 1e6 << Qt::endl;
    QTextStream(stdin).readLine(); // threads that end here would take their times with them
}

void capture(QWidget *wave)
{
    DiscardingSink sink;
    QAudioInput input(QAudioDeviceInfo::defaultInputDevice(), captureFormat());
    QTimer timer;
    if (wave) {
        wave->resize(waveSize);
        wave->show();
        QObject::connect(&timer, &QTimer::timeout, wave, qOverload<>(&QWidget::update));
    }
    waitForStart();
    input.start(&sink);
    if (wave)
        timer.start(frameMs);
    QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);
    const QString what = application.arguments().value(1);
    if (what == QLatin1String("page")) {
        testOnPage();
    } else if (what == QLatin1String("wave")) {
        BareWaveWidget wave;
        capture(&wave);
    } else {
        capture(nullptr);
    }
    return 0;
}
