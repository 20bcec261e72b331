#pragma once

#include "ztk/ztkglobal.h"

#include <QColor>
#include <QPainterPath>
#include <QPalette>
#include <QRectF>

class QFontMetrics;
class QIcon;
class QPainter;
class QPixmap;

namespace Ztk {
namespace Widget {

/**
 * How the desktop's controls draw their shapes: sharp at every display scale, in the palette's
 * colours.
 *
 * All sizes are in logical pixels. Static functions only; every one leaves the painter's state as
 * it found it.
 */
class ZTK_EXPORT ZPainting
{
public:
    ZPainting() = delete;

    static constexpr qreal controlRadius = 7;  ///< Corners of combo boxes, buttons, line edits.
    static constexpr qreal cardRadius = 10;    ///< Corners of the backgrounds behind settings rows.
    static constexpr qreal focusRingWidth = 2; ///< Stroke of the focus ring.

    /** @p from moved towards @p to by @p amount, 0.0 to 1.0; opaque when both are. */
    static QColor blend(const QColor &from, const QColor &to, qreal amount);

    /** Contrast of two opaque colours, 1.0 to 21.0, as WCAG 2.1 measures it. */
    static qreal contrast(const QColor &a, const QColor &b);

    /**
     * Colour of a line that sets things apart on @p ground: @p amount of the palette's text in it,
     * and as strong as a control's frame in the theme of high contrast.
     */
    static QColor lineColor(const QPalette &palette, const QColor &ground, qreal amount);

    /** Whether the theme is that of high contrast, in which nothing is told by its ground alone. */
    static bool isHighContrast();

    /** Width of the thinnest line that is still a whole number of device pixels, near 1. */
    static qreal hairline(const QPainter *painter);

    /** @p rect moved to the nearest device pixels, so that straight edges are not blurred. */
    static QRectF snapped(const QPainter *painter, const QRectF &rect);

    /** A rectangle with the radius @p top at its upper corners and @p bottom at its lower ones. */
    static QPainterPath roundedPath(const QRectF &rect, qreal top, qreal bottom);

    /** Fills a rounded rectangle; @p rect is snapped first. */
    static void fillRounded(QPainter *painter, const QRectF &rect, qreal radius,
                            const QColor &fill);

    /** Draws a frame of @p width just inside of @p rect, which is snapped first. */
    static void frameRounded(QPainter *painter, const QRectF &rect, qreal radius,
                             const QColor &color, qreal width);

    /** Draws the keyboard-focus ring just inside of @p rect, in the palette's highlight colour. */
    static void drawFocusRing(QPainter *painter, const QRectF &rect, qreal radius,
                              const QPalette &palette);

    /**
     * Draws @p icon in the middle of @p rect, as large as fits. An icon of one colour (a symbol)
     * is drawn in @p symbolColor, any other as it is.
     */
    static void drawIcon(QPainter *painter, const QRect &rect, const QIcon &icon,
                         const QColor &symbolColor);

    /**
     * Draws @p text as QPainter does with the same @p flags, but for two things that Qt leaves
     * uneven: what is to stand in the middle is moved by middleShift(), and lines from right to
     * left end at the same edge, also those that are wrapped at a blank.
     */
    static void drawText(QPainter *painter, const QRect &rect, int flags, const QString &text);

    /**
     * How much lower than in the middle of its line a text has to stand for its letters to look so:
     * fonts for Tibetan reserve far more room below the letters than most words take up. 0 for
     * fonts whose letters are near the middle.
     */
    static int middleShift(const QFontMetrics &metrics);

    /** Whether all visible pixels of @p pixmap share one colour, so that it may be re-coloured. */
    static bool isSymbol(const QPixmap &pixmap);

    /** @p pixmap with every pixel in @p color, its transparency kept. */
    static QPixmap tinted(const QPixmap &pixmap, const QColor &color);
};

} // namespace Widget
} // namespace Ztk
