#include "ztk/zguiapplicationhelper.h"

#include "zicontheme.h"
#include "zthemepalettes.h"

#include <QApplication>
#include <QWindow>

namespace Ztk {
namespace Gui {

namespace {

// Where Qt draws the frames of windows itself, on Wayland, a frame keeps the colours that it was
// made with. Without a frame for a moment, a window gets another one.
void renewFrames()
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return;
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->frameMargins().isNull())
            continue;
        window->setFlag(Qt::FramelessWindowHint, true);
        window->setFlag(Qt::FramelessWindowHint, false);
    }
}

} // namespace

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
    if (!changed)
        return;
    renewFrames();
    Q_EMIT themeTypeChanged(type);
}

} // namespace Gui
} // namespace Ztk
