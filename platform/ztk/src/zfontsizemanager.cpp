#include "ztk/zfontsizemanager.h"

namespace Ztk {
namespace Widget {

ZFontSizeManager *ZFontSizeManager::instance()
{
    static ZFontSizeManager manager;
    return &manager;
}

QFont ZFontSizeManager::get(SizeType type, const QFont &base) const
{
    QFont font = base;
    font.setPixelSize(fontPixelSize(type));
    return font;
}

int ZFontSizeManager::fontPixelSize(SizeType type) const
{
    static const int sizes[] = {40, 30, 24, 20, 17, 14, 13, 12, 11, 10};
    return sizes[type];
}

} // namespace Widget
} // namespace Ztk
