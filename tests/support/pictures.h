#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QWidget>

#include <cmath>

namespace testsupport {

/** Looking at pictures of widgets: what a person would see, as numbers. */
namespace pictures {

inline QImage of(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

/** How many pixels of @p image inside of @p area are @p color, up to @p tolerance per channel. */
inline int count(const QImage &image, const QColor &color, QRect area = QRect(), int tolerance = 3)
{
    if (area.isNull())
        area = image.rect();
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (qAbs(pixel.red() - color.red()) <= tolerance &&
                qAbs(pixel.green() - color.green()) <= tolerance &&
                qAbs(pixel.blue() - color.blue()) <= tolerance && pixel.alpha() > 128)
                ++found;
        }
    }
    return found;
}

/** The smallest rectangle around the pixels that are @p color; null when there is none. */
inline QRect boundsOf(const QImage &image, const QColor &color, int tolerance = 3)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (count(image, color, QRect(x, y, 1, 1), tolerance))
                bounds |= QRect(x, y, 1, 1);
    }
    return bounds;
}

/** Contrast of two opaque colours, 1.0 to 21.0, as the accessibility guidelines measure it. */
inline double contrast(const QColor &a, const QColor &b)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [linear](const QColor &color) {
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const double high = qMax(luminance(a), luminance(b));
    const double low = qMin(luminance(a), luminance(b));
    return (high + 0.05) / (low + 0.05);
}

} // namespace pictures

} // namespace testsupport
