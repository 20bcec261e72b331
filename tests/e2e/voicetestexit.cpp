// A program that ends in the middle of a voice test. Its exit code tells whether it ended well.
//
//     voicetestexit APPLICATION PAGE ENDING [MS]
//
// APPLICATION: on the "stack" or the "heap", or never deleted ("kept").
// PAGE: deleted "before" or "after" the application object, or never ("kept"); "replaced" by
// another
//     page, which is deleted before; or deleted early, and its "successor" runs a test, too.
// ENDING: "close" the last window, "quit", "exit" or "abort" from the event loop, or "return" from
//     main when another loop has ended.
// MS: record from the sound server and end so many milliseconds after the test has begun. Otherwise
//     a scripted sound backend is used, which ends the program when a capture outlives it.
//
// Prints "recording" as soon as it does, and the moment at which it ends. Needs an AI service and a
// network manager that say yes.

#include "pages/assistantsettingwidget.h"
#include "tests/fakeaudio/scriptedaudio.h"
#include "voice/audiorecorder.h"

#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int usage = 2; // exit codes
constexpr int notRecording = 3;

// Static, so that a page which nobody deletes is not taken for lost memory.
AssistantSettingWidget *page = nullptr;

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
    QTimer::singleShot(arguments.value(4).toInt(), Qt::PreciseTimer, &app, end);
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
