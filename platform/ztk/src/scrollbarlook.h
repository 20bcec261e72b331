#pragma once

#include <QStyle>

class QPainter;
class QStyleOptionSlider;

namespace Ztk {
namespace Widget {

/** Scroll bars of ZStyle: a rounded handle without arrows. */
namespace scrollbarlook {

constexpr int extent = 12; ///< Width of a vertical bar.
constexpr int minimumHandleLength = 36;

void draw(QPainter *painter, const QStyleOptionSlider *option);

/** Where the parts stand; the arrows' rectangles are empty. */
QRect partRect(const QStyleOptionSlider *option, QStyle::SubControl part);

} // namespace scrollbarlook

} // namespace Widget
} // namespace Ztk
