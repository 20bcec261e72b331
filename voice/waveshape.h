#pragma once

#include <QPointF>
#include <QSizeF>
#include <QVector>

#include <array>

/**
 * The outlines of the three waves in a picture of a given size. What a frame does not change is
 * worked out once per size: only phases and level move.
 *
 * x is in pixels right of the middle, heights are in pixels above the bottom edge.
 */
class WaveShape
{
public:
    static constexpr int lineCount = 3;
    using Phases = std::array<double, lineCount>; // radians; the second wave runs backwards

    /** Works out what belongs to @p size; once more for the same size costs nothing. */
    void resize(const QSizeF &size);

    /** The height of wave @p line (0 to 2) at @p x, at @p level from 0.0 to 1.0. */
    double height(int line, double x, double phase, double level) const;

    /** A height that no wave exceeds at @p level. */
    double reach(double level) const { return m_reach * level; }

    /** The outline of wave @p line, from one lower corner to the other; valid until the next call.
     */
    const QVector<QPointF> &outline(int line, double phase, double level);

private:
    double angle(double x) const;
    double envelope(int line, double x) const;

    struct Column
    {
        double sine; // of angle()
        double cosine;
        std::array<double, lineCount> envelopes;
    };

    QSizeF m_size;
    double m_reach = 0.0; // at full level
    QVector<Column> m_columns;
    QVector<QPointF> m_outline;
};
