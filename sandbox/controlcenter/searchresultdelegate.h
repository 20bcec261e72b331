#pragma once

#include <QStyledItemDelegate>

namespace controlcenter {

/** Draws one search result: the setting's name, and below it where it stands. */
class SearchResultDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Role { WhereRole = Qt::UserRole + 1 };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace controlcenter
