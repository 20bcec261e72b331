// A program that ends in the middle of a voice test. Its exit code tells whether it ended well: the
// scripted sound backend ends it otherwise when a capture outlives it.
//
//     voicetestexit WAY
//
// Needs an AI service and a network manager that say yes.

#include "pages/assistantsettingwidget.h"
#include "tests/fakeaudio/scriptedaudio.h"
#include "voice/audiorecorder.h"

#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QMainWindow>
#include <QTextStream>
#include <QTimer>

#include <memory>

namespace {

constexpr int cannotRun = 3; // exit code

// Static, so that a page which nobody deletes is not taken for lost memory.
AssistantSettingWidget *page = nullptr;

bool startVoiceTest()
{
    page->findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
    return AudioRecorder::getInstance()->isRecording() &&
           ScriptedAudio::instance().hear(QByteArray(1600, '\1')) == 1;
}

void deletePage()
{
    delete page;
    page = nullptr;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ScriptedAudio::install();
    ScriptedAudio::instance().setDevices({{"mic", true}});
    const QString way = app.arguments().value(1);

    QMainWindow window;
    page = new AssistantSettingWidget(nullptr);
    page->show();
    if (!startVoiceTest())
        return cannotRun;

    // The event loop runs until `end` has been called from within it.
    const auto loop = [&app](auto end) {
        QTimer::singleShot(0, &app, end);
        return app.exec();
    };
    const auto quit = [&app] {
        app.quit();
    };

    if (way == QLatin1String("the application goes before the page"))
        return 0;
    if (way == QLatin1String("the page goes before the application")) {
        deletePage();
        return 0;
    }
    if (way == QLatin1String("the event loop ends")) {
        const int code = loop(quit);
        deletePage();
        return code;
    }
    if (way == QLatin1String("the frame replaces the page")) {
        page->deleteLater();
        page = new AssistantSettingWidget(nullptr);
        const int code = loop(quit);
        deletePage();
        return code;
    }
    if (way == QLatin1String("the replaced page's successor runs a test, too")) {
        deletePage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        page = new AssistantSettingWidget(nullptr);
        if (!startVoiceTest())
            return cannotRun;
        const int code = loop(quit);
        deletePage();
        return code;
    }
    if (way == QLatin1String("the window is closed")) {
        window.setCentralWidget(page);
        window.show();
        return loop([&window] { window.close(); });
    }
    if (way == QLatin1String("exit with the page"))
        return loop([] { exit(0); });
    if (way == QLatin1String("exit without the page"))
        return loop([] {
            deletePage();
            exit(0);
        });
    QTextStream(stderr) << "unknown way to end: " << way << '\n';
    return 2;
}
