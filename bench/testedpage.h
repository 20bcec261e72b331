#pragma once

#include "pages/assistantsettingwidget.h"
#include "voice/audiorecorder.h"
#include "voice/voiceanimationwidget.h"

#include <ztk/zcommandlinkbutton.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

/** An assistant page, and voice tests on it. */
class TestedPage
{
public:
    TestedPage() { m_page.show(); }

    /**
     * Begins a test by a click; the milliseconds until its first block of sound has come. The ten
     * seconds of a test on another page, cancelled or not, may end this one before.
     */
    double start()
    {
        const AudioRecorder *recorder = AudioRecorder::getInstance();
        QEventLoop loop;
        QObject::connect(recorder, &AudioRecorder::audioRecorded, &loop, &QEventLoop::quit);
        QObject::connect(recorder, &AudioRecorder::recordStoped, &loop, &QEventLoop::quit);
        QElapsedTimer clock;
        clock.start();
        m_page.findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
        constexpr int limitMs = 10000;
        QTimer::singleShot(limitMs, &loop, [] { qFatal("a voice test hears nothing"); });
        loop.exec();
        return clock.nsecsElapsed() / 1e6;
    }

    /** Ends it by a click, and lets go of what it had. */
    void cancel()
    {
        if (auto *wave = m_page.findChild<VoiceAnimationWidget *>())
            Q_EMIT wave->signalStopPaint();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void runTest()
    {
        start();
        cancel();
    }

private:
    AssistantSettingWidget m_page{nullptr};
};
