// A program that ends while the process's recorder is in some state. Its exit code tells whether it
// ended well: sound backends crash when a capture outlives them.

#include "tests/support/scriptedaudio.h"
#include "voice/audioinfo.h"
#include "voice/audiorecorder.h"
#include "voice/captureformat.h"

#include <QAudioInput>
#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

using testsupport::ScriptedAudio;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    // With "system" it records from the sound server instead.
    if (!arguments.contains(QLatin1String("system"))) {
        ScriptedAudio::install();
        ScriptedAudio::instance().setDevices({{"mic", true}});
    }

    const QString way = arguments.value(1);
    if (way == QLatin1String("unused"))
        return 0;

    if (way == QLatin1String("foreign capture")) {
        // Not the recorder's: shows that a capture left open is noticed.
        const QAudioFormat format = captureFormat();
        auto *sink = new AudioInfo(format);
        sink->start();
        auto *input = new QAudioInput(QAudioDeviceInfo::defaultInputDevice(), format);
        input->start(sink);
        return 0;
    }

    AudioRecorder *recorder = AudioRecorder::getInstance();
    QObject::connect(recorder, &QObject::destroyed, [] {
        if (!QCoreApplication::instance())
            qFatal("the recorder outlives the application object");
    });
    if (way == QLatin1String("idle"))
        return 0;

    recorder->start();
    if (way == QLatin1String("return")) {
        return 0;
    } else if (way == QLatin1String("exit")) {
        exit(0);
    } else if (way == QLatin1String("quit")) {
        QTimer::singleShot(0, &app, &QCoreApplication::quit);
        return app.exec();
    } else if (way == QLatin1String("exit inside the loop")) {
        QTimer::singleShot(0, &app, [] { exit(0); });
        return app.exec();
    } else if (way == QLatin1String("stopped, return")) {
        recorder->stop();
        return 0;
    } else if (way == QLatin1String("stopped, exit")) {
        recorder->stop();
        exit(0);
    } else if (way == QLatin1String("scheduled for deletion, return")) {
        recorder->deleteLater();
        return 0;
    } else if (way == QLatin1String("scheduled for deletion, quit")) {
        recorder->deleteLater();
        QTimer::singleShot(0, &app, &QCoreApplication::quit);
        return app.exec();
    } else if (way == QLatin1String("twice")) {
        recorder->stop();
        recorder->start();
        return 0;
    }
    QTextStream(stderr) << "unknown way to end: " << way << '\n';
    return 2;
}
