#include "bench/barewave.h"
#include "bench/suite.h"
#include "voice/voiceanimationwidget.h"

#include <QImage>

namespace {

constexpr double levelAtRest = 0.05; // of a wave that just begins

Ratio frames(const QSize &size, int scale)
{
    constexpr int count = 100;

    VoiceAnimationWidget wave(nullptr);
    wave.resize(size);
    wave.startPaint();
    const BareWave bareWave(size, levelAtRest);
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);

    Comparison what;
    what.name = QStringLiteral("wave %1x%2 at %3x").arg(size.width()).arg(size.height()).arg(scale);
    what.subject = QStringLiteral("painting a frame");
    what.baseline = QStringLiteral("filling three finished outlines of the same shape");
    what.unit = QStringLiteral("ms for %1 frames").arg(count);
    what.aim = 1.3;
    what.rounds = 20;
    what.measureSubject = [&] {
        return workMs([&] {
            for (int i = 0; i < count; ++i)
                wave.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        });
    };
    what.measureBaseline = [&] {
        return workMs([&] {
            for (int i = 0; i < count; ++i)
                bareWave.paint(&image);
        });
    };
    return compare(what);
}

} // namespace

void benchWave(const Report &report)
{
    for (const QSize &size : {QSize(340, 42), QSize(600, 42), QSize(1600, 120)})
        for (const int scale : {1, 2})
            report(frames(size, scale));
}
