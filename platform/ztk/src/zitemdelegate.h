#pragma once

#include <QStyledItemDelegate>

namespace Ztk {
namespace Widget {

/** Draws the rows of a ZListView: icon, then text, on a rounded background. */
class ZItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    /** Icons grow with the text. */
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace Widget
} // namespace Ztk
