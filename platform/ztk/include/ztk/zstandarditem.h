#pragma once

#include "ztk/ztkglobal.h"

#include <QStandardItem>

namespace Ztk {
namespace Widget {

/** An item of a ZListView. */
class ZTK_EXPORT ZStandardItem : public QStandardItem
{
public:
    ZStandardItem();
    explicit ZStandardItem(const QString &text);
    ZStandardItem(const QIcon &icon, const QString &text);

    QStandardItem *clone() const override;
};

} // namespace Widget
} // namespace Ztk
