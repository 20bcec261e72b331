#include "voice/waveshape.h"

#include <algorithm>
#include <cmath>

namespace {

// Circle numbers as the waves' shape was drawn with them.
constexpr double pi = 3.1415926;
constexpr double twoPi = 6.2831852;
constexpr double eightPi = 25.1327408;

// A wave's height is (sine + raise) * share of the envelope.
struct Line
{
    double direction; // in which its phase runs
    double raise;
    double share;
};
constexpr Line lines[WaveShape::lineCount] = {{1.0, 2.0, 0.7}, {-1.0, 1.5, 0.9}, {1.0, 1.6, 0.8}};

} // namespace

void WaveShape::resize(const QSizeF &size)
{
    if (size == m_size)
        return;
    m_size = size;
    const double left = -size.width() / 2;
    const double right = size.width() / 2;
    m_columns.clear();
    m_reach = 0.0;
    for (int column = 0; left + column <= right; ++column) {
        const double x = left + column;
        m_columns.append({std::sin(angle(x)),
                          std::cos(angle(x)),
                          {envelope(0, x), envelope(1, x), envelope(2, x)}});
        for (int line = 0; line < lineCount; ++line)
            m_reach = std::max(m_reach, (1 + lines[line].raise) * envelope(line, x));
    }
    m_outline.resize(m_columns.size() + 2);
    m_outline.first() = QPointF(left, 0);
    for (int column = 0; column < m_columns.size(); ++column)
        m_outline[column + 1].setX(left + column);
    m_outline.last() = QPointF(right, 0);
}

double WaveShape::height(int line, double x, double phase, double level) const
{
    const Line &wave = lines[line];
    return (std::sin(angle(x) + wave.direction * phase) + wave.raise) * level * envelope(line, x);
}

const QVector<QPointF> &WaveShape::outline(int line, double phase, double level)
{
    // sin(a + b) = sin(a) cos(b) + cos(a) sin(b)
    const Line &wave = lines[line];
    const double sine = std::sin(wave.direction * phase);
    const double cosine = std::cos(wave.direction * phase);
    QPointF *point = m_outline.data() + 1;
    for (const Column &column : qAsConst(m_columns)) {
        point->setY((column.sine * cosine + column.cosine * sine + wave.raise) * level *
                    column.envelopes[size_t(line)]);
        ++point;
    }
    return m_outline;
}

double WaveShape::angle(double x) const
{
    return 4 / m_size.width() * pi * x;
}

// The share of the wave is in it.
double WaveShape::envelope(int line, double x) const
{
    const double w = m_size.width();
    const double share = lines[line].share * m_size.height();
    switch (line) {
    case 0:
        return share * 0.25 * (std::cos(twoPi / w * x) + 0.9);
    case 1:
        if (!(x > -0.25 * w && x < 0.5 * w))
            return 0.0;
        return share / 5 * (std::cos(eightPi * (x - w / 6) / (3 * w)) + 1.0);
    default:
        if (!(x > -0.5 * w && x < 0.015625 * w))
            return 0.0;
        return share / 6 * (std::cos(4 * x * pi / w - pi) + 1.0);
    }
}
