#include "bench/suite.h"
#include "voice/voiceanimationwidget.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <array>

namespace {

constexpr QSize waveSize(340, 42);

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

} // namespace

QVector<Ratio> benchWave()
{
    constexpr int frames = 100;

    VoiceAnimationWidget wave(nullptr);
    wave.resize(waveSize);
    wave.startPaint();
    const std::array<QPainterPath, 3> paths = currentPaths(wave);
    QImage image(waveSize, QImage::Format_ARGB32_Premultiplied);

    QLinearGradient gradient(-waveSize.width() / 2.0, 0, waveSize.width() / 2.0, 0);
    gradient.setColorAt(0, QColor(14, 136, 250, 160));
    gradient.setColorAt(1, QColor(147, 247, 67, 160));

    return {compare(
        QStringLiteral("wave"), QStringLiteral("painting a frame"),
        QStringLiteral("filling three paths of the same shape"), 20,
        QStringLiteral("ms for 100 frames"),
        [&] {
            return timedMs([&] {
                for (int i = 0; i < frames; ++i)
                    wave.render(&image);
            });
        },
        [&] {
            return timedMs([&] {
                for (int i = 0; i < frames; ++i) {
                    QPainter painter(&image);
                    painter.translate(waveSize.width() / 2.0, waveSize.height());
                    painter.scale(1, -1);
                    painter.setRenderHint(QPainter::Antialiasing);
                    painter.setPen(Qt::NoPen);
                    painter.setBrush(gradient);
                    for (const QPainterPath &path : paths)
                        painter.drawPath(path);
                }
            });
        })};
}
