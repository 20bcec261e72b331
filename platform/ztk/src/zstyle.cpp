#include "ztk/zstyle.h"

#include <QIcon>
#include <QStyleFactory>

namespace Ztk {
namespace Widget {

ZStyle::ZStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

QIcon ZStyle::toolkitIcon(QStyle::StandardPixmap icon)
{
    if (icon == QStyle::StandardPixmap(SP_RemoveButton))
        return QIcon::fromTheme(QStringLiteral("ztk_remove"));
    return QIcon();
}

QIcon ZStyle::standardIcon(QStyle::StandardPixmap icon, const QStyleOption *option,
                           const QWidget *widget) const
{
    const QIcon own = toolkitIcon(icon);
    return own.isNull() ? QProxyStyle::standardIcon(icon, option, widget) : own;
}

} // namespace Widget
} // namespace Ztk
