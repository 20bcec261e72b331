#include "ztk/zlistview.h"
#include "ztk/zstandarditem.h"

namespace Ztk {
namespace Widget {

ZListView::ZListView(QWidget *parent) : QListView(parent) {}

ZStandardItem::ZStandardItem() = default;
ZStandardItem::ZStandardItem(const QString &text) : QStandardItem(text) {}
ZStandardItem::ZStandardItem(const QIcon &icon, const QString &text) : QStandardItem(icon, text) {}
QStandardItem *ZStandardItem::clone() const { return new ZStandardItem; }

} // namespace Widget
} // namespace Ztk
