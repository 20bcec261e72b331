#include "zthemepalettes.h"

#include <cstddef>

namespace Ztk {
namespace Gui {

namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    const char *enabled;
    const char *disabled;
};

// Text on its background has a contrast of at least 4.5:1; frames of controls (Mid), outlines of
// check boxes and switches (Dark), and what of these is disabled at least 3:1. Pages tell the
// themes apart by BrightText: exactly black means light.
const RoleColor lightColors[] = {
    {QPalette::Window, "#f3f4f7", "#f3f4f7"},
    {QPalette::WindowText, "#1d2129", "#868d98"},
    {QPalette::Base, "#ffffff", "#fafbfc"},
    {QPalette::AlternateBase, "#f7f8fa", "#f7f8fa"},
    {QPalette::Text, "#1d2129", "#868d98"},
    {QPalette::Button, "#eef0f4", "#f4f5f8"},
    {QPalette::ButtonText, "#1d2129", "#868d98"},
    {QPalette::BrightText, "#000000", "#000000"},
    {QPalette::Light, "#ffffff", "#ffffff"},
    {QPalette::Midlight, "#e8ebf0", "#eef0f4"},
    {QPalette::Mid, "#828995", "#c3c8d0"},
    {QPalette::Dark, "#6b7480", "#868d98"},
    {QPalette::Shadow, "#3a3f47", "#868d98"},
    {QPalette::Highlight, "#1769e0", "#8490a6"},
    {QPalette::HighlightedText, "#ffffff", "#ffffff"},
    {QPalette::Link, "#1259c3", "#868d98"},
    {QPalette::LinkVisited, "#6b3fb5", "#868d98"},
    {QPalette::ToolTipBase, "#ffffff", "#ffffff"},
    {QPalette::ToolTipText, "#1d2129", "#1d2129"},
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    {QPalette::PlaceholderText, "#68707c", "#868d98"},
#endif
};

const RoleColor darkColors[] = {
    {QPalette::Window, "#1b1d21", "#1b1d21"},
    {QPalette::WindowText, "#e6e9ee", "#6f7783"},
    {QPalette::Base, "#272a30", "#23262b"},
    {QPalette::AlternateBase, "#2c3036", "#2c3036"},
    {QPalette::Text, "#e6e9ee", "#6f7783"},
    {QPalette::Button, "#373b43", "#2d3036"},
    {QPalette::ButtonText, "#e6e9ee", "#6f7783"},
    {QPalette::BrightText, "#ffffff", "#ffffff"},
    {QPalette::Light, "#4a4f59", "#3d4149"},
    {QPalette::Midlight, "#40454e", "#363a41"},
    {QPalette::Mid, "#7f8794", "#50565f"},
    {QPalette::Dark, "#9aa3b0", "#6f7783"},
    {QPalette::Shadow, "#000000", "#000000"},
    {QPalette::Highlight, "#5b9dff", "#6b7688"},
    {QPalette::HighlightedText, "#08152b", "#1b1d21"},
    {QPalette::Link, "#8ab8ff", "#6f7783"},
    {QPalette::LinkVisited, "#c3a6ff", "#6f7783"},
    {QPalette::ToolTipBase, "#373b43", "#373b43"},
    {QPalette::ToolTipText, "#e6e9ee", "#e6e9ee"},
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    {QPalette::PlaceholderText, "#9aa3b0", "#6f7783"},
#endif
};

// Everything has a contrast of at least 7:1, what is disabled included.
const RoleColor contrastColors[] = {
    {QPalette::Window, "#000000", "#000000"},
    {QPalette::WindowText, "#ffffff", "#a8a8a8"},
    {QPalette::Base, "#000000", "#000000"},
    {QPalette::AlternateBase, "#1a1a1a", "#1a1a1a"},
    {QPalette::Text, "#ffffff", "#a8a8a8"},
    {QPalette::Button, "#000000", "#000000"},
    {QPalette::ButtonText, "#ffffff", "#a8a8a8"},
    {QPalette::BrightText, "#ffffff", "#ffffff"},
    {QPalette::Light, "#ffffff", "#a8a8a8"},
    {QPalette::Midlight, "#d0d0d0", "#a8a8a8"},
    {QPalette::Mid, "#ffffff", "#a8a8a8"},
    {QPalette::Dark, "#ffffff", "#a8a8a8"},
    {QPalette::Shadow, "#000000", "#000000"},
    {QPalette::Highlight, "#ffe600", "#a8a8a8"},
    {QPalette::HighlightedText, "#000000", "#000000"},
    {QPalette::Link, "#80dfff", "#a8a8a8"},
    {QPalette::LinkVisited, "#e6b8ff", "#a8a8a8"},
    {QPalette::ToolTipBase, "#000000", "#000000"},
    {QPalette::ToolTipText, "#ffffff", "#ffffff"},
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
    {QPalette::PlaceholderText, "#d0d0d0", "#a8a8a8"},
#endif
};

template <std::size_t count>
QPalette toPalette(const RoleColor (&colors)[count])
{
    QPalette palette;
    for (const RoleColor &color : colors) {
        palette.setColor(QPalette::Active, color.role, QColor(color.enabled));
        palette.setColor(QPalette::Inactive, color.role, QColor(color.enabled));
        palette.setColor(QPalette::Disabled, color.role, QColor(color.disabled));
    }
    return palette;
}

} // namespace

QPalette themePalette(ZGuiApplicationHelper::ColorType type)
{
    switch (type) {
    case ZGuiApplicationHelper::DarkType:
        return toPalette(darkColors);
    case ZGuiApplicationHelper::ContrastType:
        return toPalette(contrastColors);
    default:
        return toPalette(lightColors);
    }
}

} // namespace Gui
} // namespace Ztk
