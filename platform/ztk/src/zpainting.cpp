#include "ztk/zpainting.h"

#include "ztk/zguiapplicationhelper.h"

#include <QGlyphRun>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTextLayout>

#include <cmath>

namespace Ztk {
namespace Widget {

namespace {

/** Saves the painter's state and turns antialiasing on for as long as it lives. */
class SmoothPainting
{
public:
    explicit SmoothPainting(QPainter *painter)
        : m_painter(painter)
    {
        m_painter->save();
        m_painter->setRenderHint(QPainter::Antialiasing);
        m_painter->setPen(Qt::NoPen);
    }
    ~SmoothPainting() { m_painter->restore(); }

private:
    Q_DISABLE_COPY(SmoothPainting)
    QPainter *m_painter;
};

struct Line
{
    QString text; ///< Without the blank at which it was wrapped; see wrappedLines().
    qreal height;
};

// A line is drawn apart from the others: marks keep a sign at its edge in the direction that it has
// in the whole text.
QVector<Line> wrappedLines(const QPainter &painter, const QString &text, int width)
{
    const QChar leftToRightMark(0x200e);
    const QChar placeToBreak(0x200b);
    QString paragraphs = text;
    paragraphs.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(paragraphs, painter.font());
    QTextOption option;
    option.setTextDirection(Qt::RightToLeft);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();

    QVector<Line> lines;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        QString shown = paragraphs.mid(line.textStart(), line.textLength());
        while (shown.endsWith(placeToBreak) || (!shown.isEmpty() && shown.back().isSpace()))
            shown.chop(1);
        const auto runsLeftToRight = [&line](int at) {
            const QList<QGlyphRun> runs = line.glyphRuns(at, 1);
            return !runs.isEmpty() && !runs.constFirst().isRightToLeft();
        };
        const int last = line.textStart() + shown.size() - 1;
        if (runsLeftToRight(last))
            shown.append(leftToRightMark);
        if (runsLeftToRight(line.textStart()))
            shown.prepend(leftToRightMark);
        lines.append({shown, line.height()});
    }
    return lines;
}

qreal deviceScale(const QPainter *painter)
{
    const qreal scale = std::abs(painter->deviceTransform().m11());
    return scale > 0 ? scale : 1;
}

// Relative, 0.0 to 1.0: of light as it is, not as displays encode it.
qreal luminance(const QColor &color)
{
    const auto linear = [](qreal channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

QColor ZPainting::blend(const QColor &from, const QColor &to, qreal amount)
{
    const auto mix = [amount](qreal a, qreal b) {
        return qBound(0.0, a + (b - a) * amount, 1.0);
    };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()), mix(from.alphaF(), to.alphaF()));
}

qreal ZPainting::contrast(const QColor &a, const QColor &b)
{
    const qreal first = luminance(a);
    const qreal second = luminance(b);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

QColor ZPainting::lineColor(const QPalette &palette, const QColor &ground, qreal amount)
{
    return isHighContrast() ? palette.color(QPalette::Active, QPalette::Mid)
                            : blend(ground, palette.color(QPalette::WindowText), amount);
}

bool ZPainting::isHighContrast()
{
    using Gui::ZGuiApplicationHelper;
    return ZGuiApplicationHelper::instance()->themeType() == ZGuiApplicationHelper::ContrastType;
}

qreal ZPainting::hairline(const QPainter *painter)
{
    const qreal scale = deviceScale(painter);
    return qMax(1.0, std::floor(scale)) / scale;
}

QRectF ZPainting::snapped(const QPainter *painter, const QRectF &rect)
{
    const QTransform &toDevice = painter->deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rect;
    const QRectF device = toDevice.mapRect(rect);
    const QRectF whole(QPointF(std::round(device.left()), std::round(device.top())),
                       QPointF(std::round(device.right()), std::round(device.bottom())));
    return toDevice.inverted().mapRect(whole);
}

QPainterPath ZPainting::roundedPath(const QRectF &rect, qreal top, qreal bottom)
{
    const qreal most = qMin(rect.width(), rect.height()) / 2;
    const qreal t = qMin(top, most) * 2;
    const qreal b = qMin(bottom, most) * 2;
    QPainterPath path;
    path.moveTo(rect.left(), rect.top() + t / 2);
    // arcTo() ignores an empty rectangle, so a square corner is a line to it.
    const auto corner = [&path](const QRectF &circle, qreal startAngle) {
        if (circle.isEmpty())
            path.lineTo(circle.topLeft());
        else
            path.arcTo(circle, startAngle, -90);
    };
    corner(QRectF(rect.left(), rect.top(), t, t), 180);
    corner(QRectF(rect.right() - t, rect.top(), t, t), 90);
    corner(QRectF(rect.right() - b, rect.bottom() - b, b, b), 0);
    corner(QRectF(rect.left(), rect.bottom() - b, b, b), 270);
    path.closeSubpath();
    return path;
}

void ZPainting::fillRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &fill)
{
    const SmoothPainting smooth(painter);
    painter->fillPath(roundedPath(snapped(painter, rect), radius, radius), fill);
}

void ZPainting::frameRounded(QPainter *painter, const QRectF &rect, qreal radius,
                             const QColor &color, qreal width)
{
    const SmoothPainting smooth(painter);
    const QRectF outer = snapped(painter, rect);
    const QRectF inner = outer.adjusted(width, width, -width, -width);
    const qreal innerRadius = qMax(0.0, radius - width);
    QPainterPath frame = roundedPath(outer, radius, radius);
    frame.addPath(roundedPath(inner, innerRadius, innerRadius));
    frame.setFillRule(Qt::OddEvenFill);
    painter->fillPath(frame, color);
}

void ZPainting::drawFocusRing(QPainter *painter, const QRectF &rect, qreal radius,
                              const QPalette &palette)
{
    frameRounded(painter, rect, radius, palette.color(QPalette::Active, QPalette::Highlight),
                 focusRingWidth);
}

void ZPainting::drawIcon(QPainter *painter, const QRect &rect, const QIcon &icon,
                         const QColor &symbolColor)
{
    if (rect.isEmpty() || icon.isNull())
        return;
    const qreal scale = deviceScale(painter);
    const QSize wanted(qRound(rect.width() * scale), qRound(rect.height() * scale));
    // Through an image of the device's own size: the icon is rendered for exactly these pixels
    // whatever the application's attributes say about high-resolution pixmaps.
    QPixmap canvas(wanted);
    canvas.fill(Qt::transparent);
    {
        QPainter canvasPainter(&canvas);
        icon.paint(&canvasPainter, canvas.rect());
    }
    if (isSymbol(canvas))
        canvas = tinted(canvas, symbolColor);
    canvas.setDevicePixelRatio(scale);
    painter->drawPixmap(snapped(painter, rect).topLeft(), canvas);
}

void ZPainting::drawText(QPainter *painter, const QRect &rect, int flags, const QString &text)
{
    QRect room = rect;
    if (flags & Qt::AlignVCenter)
        room.translate(0, middleShift(painter->fontMetrics()));
    const bool mirrored =
        flags & Qt::TextForceRightToLeft ||
        (!(flags & Qt::TextForceLeftToRight) && painter->layoutDirection() == Qt::RightToLeft);
    if (!mirrored || !(flags & Qt::TextWordWrap) || flags & Qt::TextShowMnemonic) {
        painter->drawText(room, flags, text);
        return;
    }

    const QVector<Line> lines = wrappedLines(*painter, text, room.width());
    const qreal leading = painter->fontMetrics().leading();
    qreal height = -leading;
    for (const Line &line : lines)
        height += leading + line.height;
    qreal top = room.top();
    if (flags & Qt::AlignVCenter)
        top += (room.height() - height) / 2;
    else if (flags & Qt::AlignBottom)
        top += room.height() - height;
    const int lineFlags = (flags & ~int(Qt::TextWordWrap) & ~int(Qt::AlignVertical_Mask)) |
                          Qt::AlignTop | Qt::TextSingleLine;
    for (const Line &line : lines) {
        painter->drawText(QRectF(room.left(), top, room.width(), line.height), lineFlags,
                          line.text);
        top += line.height + leading;
    }
}

int ZPainting::middleShift(const QFontMetrics &metrics)
{
    const int middleOfLine = (metrics.descent() - metrics.ascent()) / 2;
    const int shift = middleOfLine + metrics.capHeight() / 2;
    return shift > metrics.capHeight() / 4 ? shift : 0;
}

bool ZPainting::isSymbol(const QPixmap &pixmap)
{
    // Faint pixels say nothing: their colour is lost in the rounding of premultiplied channels.
    constexpr int leastAlpha = 64;
    constexpr int tolerance = 8;
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    bool found = false;
    QRgb first = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = line[x];
            if (qAlpha(pixel) < leastAlpha)
                continue;
            if (!found) {
                first = pixel;
                found = true;
            } else if (qAbs(qRed(pixel) - qRed(first)) > tolerance ||
                       qAbs(qGreen(pixel) - qGreen(first)) > tolerance ||
                       qAbs(qBlue(pixel) - qBlue(first)) > tolerance) {
                return false;
            }
        }
    }
    return found;
}

QPixmap ZPainting::tinted(const QPixmap &pixmap, const QColor &color)
{
    QPixmap result = pixmap;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(0, 0), QSizeF(pixmap.size()) / pixmap.devicePixelRatioF()),
                     color);
    return result;
}

} // namespace Widget
} // namespace Ztk
