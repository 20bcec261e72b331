#pragma once

#include <QColor>

class QPalette;

namespace controlcenter {

/** Rows wider than this are hard to follow from their title to their control. */
constexpr int widestPage = 820; // px

/** Distance of the window's own pages from its edges. */
constexpr int pageMargin = 20; // px

/** Hairline between two surfaces of the window. */
QColor separatorColor(const QPalette &palette);

/** Background of the side bar: a shade away from the window's. */
QColor sideBarColor(const QPalette &palette);

/** Texts that explain, readable in both themes. */
QColor secondaryTextColor(const QPalette &palette);

} // namespace controlcenter
