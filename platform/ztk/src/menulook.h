#pragma once

#include <QColor>
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

/** Background, in @p fill, and frame of an open menu, list or tool tip. */
void drawPanel(QPainter *painter, const QStyleOption *option, const QColor &fill);

/** One entry: check mark, icon, text, short cut, arrow of a sub-menu; or a separator. */
void drawItem(QPainter *painter, const QStyleOptionMenuItem *option);

QSize itemSize(const QStyleOptionMenuItem *option);

} // namespace menulook

} // namespace Widget
} // namespace Ztk
