#pragma once

namespace zcc {
namespace widgets {

/**
 * What assistive technologies take rows and groups of settings for: groups of what is in them. To
 * Qt every frame is a window's border.
 */
class GroupingRole
{
public:
    GroupingRole() = delete;

    /** Makes it known to Qt; further calls do nothing. */
    static void install();
};

} // namespace widgets
} // namespace zcc
