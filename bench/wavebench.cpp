#include "bench/suite.h"
#include "voice/voiceanimationwidget.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <array>

namespace {

std::array<QPainterPath, 3> currentPaths(VoiceAnimationWidget &wave)
{
    const double left = -wave.width() / 2.0;
    const double right = wave.width() / 2.0;
    std::array<QPainterPath, 3> paths;
    for (int line = 1; line <= 3; ++line) {
        QPainterPath &path = paths[size_t(line - 1)];
        path.moveTo(left, 0);
        for (double x = left; x <= right; x += 1.0)
            path.lineTo(x, wave.getAudioLineY(x, line));
        path.lineTo(right, 0);
    }
    return paths;
}

Ratio frames(const QSize &size, int scale)
{
    constexpr int count = 100;

    VoiceAnimationWidget wave(nullptr);
    wave.resize(size);
    wave.startPaint();
    const std::array<QPainterPath, 3> paths = currentPaths(wave);
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);

    QLinearGradient gradient(-size.width() / 2.0, 0, size.width() / 2.0, 0);
    gradient.setColorAt(0, QColor(14, 136, 250, 160));
    gradient.setColorAt(1, QColor(147, 247, 67, 160));

    Comparison what;
    what.name = QStringLiteral("wave %1x%2 at %3x").arg(size.width()).arg(size.height()).arg(scale);
    what.subject = QStringLiteral("painting a frame");
    what.baseline = QStringLiteral("filling three finished paths of the same shape");
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
            for (int i = 0; i < count; ++i) {
                QPainter painter(&image);
                painter.translate(size.width() / 2.0, size.height());
                painter.scale(1, -1);
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(Qt::NoPen);
                painter.setBrush(gradient);
                for (const QPainterPath &path : paths)
                    painter.drawPath(path);
            }
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
