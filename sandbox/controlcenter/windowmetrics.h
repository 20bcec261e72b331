#pragma once

namespace controlcenter {

/** Rows wider than this are hard to follow from their title to their control. */
constexpr int widestPage = 820; // px

/** Distance of the window's own pages from its edges. */
constexpr int pageMargin = 20; // px

} // namespace controlcenter
