#pragma once

#include <QColor>

class QPalette;

namespace controlcenter {

/** @p share (0 to 1) of @p over, the rest @p under. */
QColor mix(const QColor &under, const QColor &over, qreal share);

/** Hair line between two surfaces of the window. */
QColor separatorColor(const QPalette &palette);

/** Background of the side bar: a shade away from the window's. */
QColor sideBarColor(const QPalette &palette);

/** Texts that explain, readable in both themes. */
QColor secondaryTextColor(const QPalette &palette);

} // namespace controlcenter
