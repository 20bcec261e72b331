#pragma once

#include "tests/support/timertracker.h"
#include "voice/voiceanimationwidget.h"

#include <QImage>

namespace testsupport {

constexpr int frameMs = 15;

/** What the widget shows, without the background of its window. */
inline QImage picture(VoiceAnimationWidget &wave)
{
    QImage image(wave.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    wave.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

/** A wave whose frames are let through by the test. */
class SteppedWave
{
public:
    SteppedWave(int width, int height)
    {
        wave.resize(width, height);
        wave.startPaint();
        const QList<QTimer *> timers = m_tracker.timers(frameMs);
        if (timers.size() == 1) {
            m_timer = timers.first();
            m_timer->stop();
        }
    }

    bool tick(int count)
    {
        for (int i = 0; i < count; ++i)
            if (!m_timer || !TimerTracker::fire(m_timer))
                return false;
        return true;
    }

    QTimer *timer() const { return m_timer; }

private:
    TimerTracker m_tracker; // before the widget: it must see the timer being created

public:
    VoiceAnimationWidget wave;

private:
    QTimer *m_timer = nullptr;
};

} // namespace testsupport
