#include "ztk/zstandarditem.h"

namespace Ztk {
namespace Widget {

ZStandardItem::ZStandardItem() = default;

ZStandardItem::ZStandardItem(const QString &text)
    : QStandardItem(text)
{
}

ZStandardItem::ZStandardItem(const QIcon &icon, const QString &text)
    : QStandardItem(icon, text)
{
}

QStandardItem *ZStandardItem::clone() const
{
    return new ZStandardItem(*this);
}

} // namespace Widget
} // namespace Ztk
