#pragma once

#include "ztk/ztkglobal.h"

#include <QFont>

namespace Ztk {
namespace Widget {

/** The size steps of the desktop's texts; they follow the application font's size. */
class ZTK_EXPORT ZFontSizeManager
{
public:
    /** From the largest to the smallest; T6 is the size of the application font. */
    enum SizeType { T1, T2, T3, T4, T5, T6, T7, T8, T9, T10 };

    static ZFontSizeManager *instance();

    /**
     * @p base in the size of step @p type; family and the rest stay as they are. From T8 on letters
     * are at least half bold: what is small is often pale, too.
     */
    QFont get(SizeType type, const QFont &base = QFont()) const;

    /** Pixel size of step @p type with the present application font. */
    int fontPixelSize(SizeType type) const;

    /**
     * A measure of @p pixels beside texts of the default size, in proportion to the present ones:
     * in steps of a quarter, at which symbols stay sharp. Never smaller: small texts do not make
     * what is operated harder to hit.
     */
    int scaled(int pixels) const;

private:
    ZFontSizeManager() = default;
};

} // namespace Widget
} // namespace Ztk
