#include "ztk/zguiapplicationhelper.h"

#include "zicontheme.h"
#include "zthemepalettes.h"

#include <QApplication>

namespace Ztk {
namespace Gui {

ZGuiApplicationHelper::ZGuiApplicationHelper() = default;

ZGuiApplicationHelper *ZGuiApplicationHelper::instance()
{
    static ZGuiApplicationHelper helper;
    return &helper;
}

ZGuiApplicationHelper::ColorType ZGuiApplicationHelper::themeType() const
{
    return m_type;
}

void ZGuiApplicationHelper::setThemeType(ColorType type)
{
    const bool changed = type != m_type;
    m_type = type;
    const QPalette palette = themePalette(type);
    ZIconTheme::setTextColor(palette.color(QPalette::WindowText));
    QApplication::setPalette(palette);
    // Menus, and the lists that combo boxes open, lie on a surface of their own like cards.
    QPalette menuPalette = palette;
    menuPalette.setColor(QPalette::Window, palette.color(QPalette::ToolTipBase));
    QApplication::setPalette(menuPalette, "QMenu");
    if (changed)
        Q_EMIT themeTypeChanged(type);
}

} // namespace Gui
} // namespace Ztk
