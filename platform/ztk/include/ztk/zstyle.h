#pragma once

#include "ztk/ztkglobal.h"

#include <QProxyStyle>

namespace Ztk {
namespace Widget {

/**
 * The desktop's widget style, in the colours of the palette in force.
 *
 * ZApplicationSetup::install() puts it in force; QApplication owns it. Controls are at least
 * MinimumHitHeight logical pixels high.
 */
class ZTK_EXPORT ZStyle : public QProxyStyle
{
    Q_OBJECT

public:
    static constexpr int MinimumHitHeight = 36;

    /** Icons of the toolkit's own, beyond those of QStyle. */
    enum ToolkitPixmap : unsigned {
        SP_RemoveButton = 0xF000001B, ///< Takes an entry out of a list.
    };

    ZStyle();

    /** The icon of one of the toolkit's own numbers; null for any other. Needs no ZStyle in force.
     */
    static QIcon toolkitIcon(QStyle::StandardPixmap icon);

    QIcon standardIcon(QStyle::StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
};

} // namespace Widget
} // namespace Ztk
