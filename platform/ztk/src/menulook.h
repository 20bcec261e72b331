#pragma once

#include <QColor>
#include <QMargins>
#include <QRegion>
#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;

namespace Ztk {
namespace Widget {

/** Menus and the lists that combo boxes open, of ZStyle. */
namespace menulook {

/** What entries lie on. The window that a combo box opens has not the palette of menus. */
QColor surface();

constexpr qreal panelRadius = 10;

/** Above and below the entries of an open menu or list, for the corners. */
constexpr int panelMargin = 6;

/**
 * Between the list of a combo box and the edges of its panel, for the frame. Nothing above and
 * below: Qt makes room there for panelMargin, and where it is more, an entry is scrolled away.
 */
constexpr QMargins listMargins(1, 0, 1, 0);

/** Background, in @p fill, and frame of an open menu, list or tool tip. */
void drawPanel(QPainter *painter, const QStyleOption *option, const QColor &fill, qreal radius);

/**
 * What is seen of an open menu or list of this size: without a compositing manager, what is
 * transparent would be black.
 */
QRegion panelShape(const QSize &size);

/**
 * One entry: check mark, icon, text, short cut, arrow of a sub-menu; or a separator. The entries of
 * a combo box (@p ofComboBox) have their mark at the end: their texts stand below the box's own.
 */
void drawItem(QPainter *painter, const QStyleOptionMenuItem *option, bool ofComboBox);

QSize itemSize(const QStyleOptionMenuItem *option);

} // namespace menulook

} // namespace Widget
} // namespace Ztk
