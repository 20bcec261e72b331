#include "ztk/zfontsizemanager.h"

#include <QApplication>
#include <QFontInfo>

namespace Ztk {
namespace Widget {

namespace {

// The steps at the desktop's default of 14 px; other sizes keep these proportions.
constexpr int defaultSizes[] = {40, 30, 24, 20, 17, 14, 13, 12, 11, 10};
constexpr int defaultApplicationSize = defaultSizes[ZFontSizeManager::T6];

} // namespace

ZFontSizeManager *ZFontSizeManager::instance()
{
    static ZFontSizeManager manager;
    return &manager;
}

QFont ZFontSizeManager::get(SizeType type, const QFont &base) const
{
    QFont font = base;
    font.setPixelSize(fontPixelSize(type));
    if (type >= T8)
        font.setWeight(qMax(font.weight(), int(QFont::DemiBold)));
    return font;
}

int ZFontSizeManager::fontPixelSize(SizeType type) const
{
    const qreal applicationSize = QFontInfo(QApplication::font()).pixelSize();
    return qMax(1, qRound(applicationSize * defaultSizes[type] / defaultApplicationSize));
}

int ZFontSizeManager::scaled(int pixels) const
{
    const int quarters = qMax(4, 4 * fontPixelSize(T6) / defaultApplicationSize);
    return pixels * quarters / 4;
}

} // namespace Widget
} // namespace Ztk
