#pragma once

#include <QColor>

class QPalette;

namespace controlcenter {

/** Around every page, the module's and the window's own, which has the same inside once more. */
constexpr int pageMargin = 10; // px

/** Hairline between two surfaces of the window. */
QColor separatorColor(const QPalette &palette);

/** Background of the side bar: a shade away from the window's. */
QColor sideBarColor(const QPalette &palette);

/** Texts that explain, readable in both themes. */
QColor secondaryTextColor(const QPalette &palette);

} // namespace controlcenter
