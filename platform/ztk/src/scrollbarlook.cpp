#include "scrollbarlook.h"

#include "controllook.h"
#include "ztk/zpainting.h"

#include <QPainter>
#include <QStyleOption>

namespace Ztk {
namespace Widget {
namespace scrollbarlook {

namespace {
constexpr qreal handleInset = 3;
constexpr qreal touchedInset = 2; ///< The handle grows a little under the mouse.
} // namespace

void draw(QPainter *painter, const QStyleOptionSlider *option)
{
    if (option->maximum <= option->minimum)
        return;
    const bool pressed = (option->state & QStyle::State_Sunken) &&
                         (option->activeSubControls & QStyle::SC_ScrollBarSlider);
    const bool over = pressed || (option->state & QStyle::State_MouseOver);
    const qreal inset = over ? touchedInset : handleInset;
    const QRectF handle =
        QRectF(partRect(option, QStyle::SC_ScrollBarSlider)).adjusted(inset, inset, -inset, -inset);
    QColor fill = controllook::color(option, QPalette::WindowText);
    if (!ZPainting::isHighContrast())
        fill.setAlphaF(pressed ? 0.72 : over ? 0.62 : 0.52);
    ZPainting::fillRounded(painter, handle, qMin(handle.width(), handle.height()) / 2, fill);
}

QRect partRect(const QStyleOptionSlider *option, QStyle::SubControl part)
{
    const bool horizontal = option->orientation == Qt::Horizontal;
    const int length = horizontal ? option->rect.width() : option->rect.height();
    const qint64 range = qint64(option->maximum) - option->minimum;
    int handleLength = length;
    if (range > 0) {
        handleLength = int(qint64(option->pageStep) * length / (range + option->pageStep));
        handleLength = qBound(qMin(minimumHandleLength, length), handleLength, length);
    }
    const int handleStart =
        QStyle::sliderPositionFromValue(option->minimum, option->maximum, option->sliderPosition,
                                        length - handleLength, option->upsideDown);
    const auto span = [option, horizontal](int start, int size) {
        const QRect rect =
            horizontal
                ? QRect(option->rect.x() + start, option->rect.y(), size, option->rect.height())
                : QRect(option->rect.x(), option->rect.y() + start, option->rect.width(), size);
        return QStyle::visualRect(option->direction, option->rect, rect);
    };
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return option->rect;
    case QStyle::SC_ScrollBarSlider:
        return span(handleStart, handleLength);
    case QStyle::SC_ScrollBarSubPage:
        return span(0, handleStart);
    case QStyle::SC_ScrollBarAddPage:
        return span(handleStart + handleLength, length - handleStart - handleLength);
    default:
        return QRect();
    }
}

} // namespace scrollbarlook
} // namespace Widget
} // namespace Ztk
