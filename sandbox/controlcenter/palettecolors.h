#pragma once

#include <QColor>

class QPalette;

namespace controlcenter {

/** Hair line between two surfaces of the window. */
QColor separatorColor(const QPalette &palette);

/** Background of the side bar: a shade away from the window's. */
QColor sideBarColor(const QPalette &palette);

/** Texts that explain, readable in both themes. */
QColor secondaryTextColor(const QPalette &palette);

} // namespace controlcenter
