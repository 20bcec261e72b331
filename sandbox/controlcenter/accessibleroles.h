#pragma once

namespace controlcenter {

/**
 * Makes the window a window to assistive technologies, and its heading a text of its own;
 * services are groups of what is said of them, and the theme button has its list.
 */
void installAccessibleRoles();

} // namespace controlcenter
