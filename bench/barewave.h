#pragma once

#include "voice/waveshape.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>

#include <array>

/** A picture of the wave and no more: three outlines that are filled as they are. */
class BareWave
{
public:
    /** At @p level from 0.0 to 1.0. */
    BareWave(const QSize &size, double level)
        : m_size(size)
        , m_gradient(-size.width() / 2.0, 0, size.width() / 2.0, 0)
    {
        WaveShape shape;
        shape.resize(size);
        for (int line = 0; line < WaveShape::lineCount; ++line)
            m_outlines[size_t(line)] = shape.outline(line, 0.0, level);
        m_gradient.setColorAt(0, QColor(14, 136, 250, 160));
        m_gradient.setColorAt(1, QColor(147, 247, 67, 160));
    }

    void paint(QPaintDevice *device) const
    {
        QPainter painter(device);
        painter.translate(m_size.width() / 2.0, m_size.height());
        painter.scale(1, -1);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_gradient);
        for (const QPolygonF &outline : m_outlines)
            painter.drawPolygon(outline);
    }

private:
    QSize m_size;
    QLinearGradient m_gradient;
    std::array<QPolygonF, WaveShape::lineCount> m_outlines;
};
