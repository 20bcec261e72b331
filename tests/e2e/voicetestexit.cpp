// A program that ends in the middle of a voice test. Its exit code tells whether it ended well.
//
//     voicetestexit APPLICATION PAGE ENDING [MS]
//
// APPLICATION: on the "stack" or the "heap", or never deleted ("kept").
// PAGE: deleted "before" or "after" the application object, or never ("kept"); "replaced" by one
//     that is deleted before; or deleted early, and its "successor" runs a test, too.
// ENDING: "close" the last window, "quit", "exit" or "abort" from the event loop, or "return" from
//     main when another loop has ended.
// MS: record from the sound server and end so many milliseconds after the test has begun. Otherwise
//     a scripted sound backend is used, which ends the program when a capture outlives it.
//
// Prints "recording" as soon as it does, and the moment at which it ends. Needs an AI service and a
// network manager that let it start.

#include "pages/assistantsettingwidget.h"
#include "tests/support/scriptedaudio.h"
#include "voice/audiorecorder.h"

#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QAudioDeviceInfo>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QPointer>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>

using testsupport::ScriptedAudio;

namespace {

constexpr int usage = 2; // exit codes
constexpr int notRecording = 3;
constexpr int outlived = 4;

constexpr qint64 serverLimitMs = 10000;
constexpr int mostFiles = 1024;

// Static, so that a page which nobody deletes is not reported as a leak.
AssistantSettingWidget *page = nullptr;
QPointer<AudioRecorder> recorder;
QElapsedTimer sinceStart; // of the last voice test

// Ends the connection to the sound server, and returns when the sound plugin's thread has noticed.
// Of programs that just list the microphones one in a thousand crashes at its end, since that
// plugin disconnects without the lock of its thread; from a dead connection it does not disconnect.
// What is tested has happened before: nothing may record here.
void leaveSoundServer()
{
    if (recorder)
        _exit(outlived);
    const QByteArray server = qgetenv("PULSE_SERVER").mid(int(qstrlen("unix:")));
    QDeadlineTimer limit(serverLimitMs);
    for (int file = 0; file < mostFiles; ++file) {
        sockaddr_un peer = {};
        const auto isServer = [&] {
            socklen_t size = sizeof peer;
            return getpeername(file, reinterpret_cast<sockaddr *>(&peer), &size) == 0 &&
                   server == peer.sun_path;
        };
        if (!isServer())
            continue;
        shutdown(file, SHUT_RDWR);
        while (isServer() && !limit.hasExpired())
            QThread::yieldCurrentThread();
    }
}

void showPage()
{
    page = new AssistantSettingWidget(nullptr);
    page->show();
}

void deletePage()
{
    delete page;
    page = nullptr;
}

void startVoiceTest()
{
    sinceStart.start();
    page->findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
}

int runVoiceTest(QApplication &app, const QStringList &arguments)
{
    const QString pageEnd = arguments.value(2);
    const QString ending = arguments.value(3);
    const bool scripted = arguments.size() < 5;
    if (scripted) {
        ScriptedAudio::install();
        ScriptedAudio::instance().setDevices({{"mic", true}});
    } else {
        // The plugin goes after this, and what the module starts goes before.
        QAudioDeviceInfo::defaultInputDevice();
        std::atexit(leaveSoundServer);
    }

    showPage();
    startVoiceTest();
    if (pageEnd == QLatin1String("replaced")) {
        page->deleteLater();
        showPage();
    } else if (pageEnd == QLatin1String("successor")) {
        deletePage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        showPage();
        startVoiceTest();
    }

    recorder = AudioRecorder::getInstance();

    QTextStream out(stdout);
    out << "recording\n" << flush;

    QEventLoop otherLoop;
    const auto end = [&] {
        const bool oneTest =
            pageEnd != QLatin1String("replaced") && pageEnd != QLatin1String("successor");
        if (oneTest && !AudioRecorder::getInstance()->isRecording())
            exit(notRecording);
        out << QDeadlineTimer::current().deadline() << '\n' << flush;
        if (ending == QLatin1String("close"))
            page->close();
        else if (ending == QLatin1String("quit"))
            app.quit();
        else if (ending == QLatin1String("exit"))
            exit(0);
        else if (ending == QLatin1String("abort"))
            abort();
        else if (ending == QLatin1String("return"))
            otherLoop.quit();
        else
            exit(usage);
    };
    // Counted from the test's start, which may take a while: 9.9 s must not become 10.
    const qint64 left = arguments.value(4).toInt() - sinceStart.elapsed();
    QTimer::singleShot(int(qMax<qint64>(0, left)), Qt::PreciseTimer, &app, end);
    const int code = ending == QLatin1String("return") ? otherLoop.exec() : app.exec();
    if (pageEnd != QLatin1String("after") && pageEnd != QLatin1String("kept"))
        deletePage();
    return code;
}

} // namespace

int main(int argc, char **argv)
{
    const QString application = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    int code = usage;
    if (application == QLatin1String("stack")) {
        QApplication app(argc, argv);
        code = runVoiceTest(app, app.arguments());
    } else {
        auto *app = new QApplication(argc, argv);
        code = runVoiceTest(*app, app->arguments());
        if (application == QLatin1String("heap"))
            delete app;
    }
    if (QLatin1String(argv[2]) == QLatin1String("after"))
        deletePage();
    return code;
}
