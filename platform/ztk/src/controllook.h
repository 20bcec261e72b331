#pragma once

#include <QColor>
#include <QPalette>
#include <QRectF>
#include <QStyle>

class QPainter;
class QStyleOption;

namespace Ztk {
namespace Widget {

/**
 * What the controls of ZStyle have in common: the colours of their states and their frames.
 */
namespace controllook {

/** The palette's group for the option's state; a control of an inactive window looks active. */
QPalette::ColorGroup colorGroup(const QStyleOption *option);

/** @p role in the group of the option's state. */
QColor color(const QStyleOption *option, QPalette::ColorRole role);

/** @p fill as it looks while the mouse is over the control, or while it is pressed. */
QColor stateFill(const QStyleOption *option, const QColor &fill);

/** Whether the focus ring is to be drawn. */
bool showsFocus(const QStyleOption *option);

/** A filled control with a thin frame, and the focus ring in the frame's place if it is due. */
void drawPanel(QPainter *painter, const QStyleOption *option, const QRectF &rect, qreal radius,
               const QColor &fill, const QColor &frame);

/** One of the toolkit's own symbols, in the middle of @p rect. */
void drawSymbol(QPainter *painter, const QRect &rect, const char *name, const QColor &color);

} // namespace controllook

} // namespace Widget
} // namespace Ztk
