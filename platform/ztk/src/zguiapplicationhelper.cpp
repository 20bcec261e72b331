#include "ztk/zguiapplicationhelper.h"

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
    if (type == m_type)
        return;
    m_type = type;
    Q_EMIT themeTypeChanged(type);
}

} // namespace Gui
} // namespace Ztk
