#include "zitemdelegate.h"

#include "ztk/zfocustracker.h"
#include "ztk/zfontsizemanager.h"
#include "ztk/zlistview.h"
#include "ztk/zpainting.h"

#include <QApplication>
#include <QListView>
#include <QMargins>
#include <QPainter>

Q_DECLARE_METATYPE(QMargins)

namespace Ztk {
namespace Widget {

namespace {

constexpr int iconTextGap = 10;
constexpr int minimumRowHeight = 36;
constexpr int ringGap = 3; ///< From a row's edge to the ground of a selected row with the ring.
constexpr int rowGap = 2;  ///< Between the backgrounds of two rows, so that they stay apart.
const QMargins defaultMargins(10, 6, 10, 6);

QMargins itemMargins(const QModelIndex &index)
{
    const QVariant value = index.data(ZListView::MarginsRole);
    return value.canConvert<QMargins>() ? value.value<QMargins>() : defaultMargins;
}

bool hasIcon(const QStyleOptionViewItem &option)
{
    return option.features & QStyleOptionViewItem::HasDecoration;
}

/** The item's rectangle without its margins; left and right change places in mirrored layouts. */
QRect contentRect(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QMargins margins = itemMargins(index);
    if (option.direction == Qt::RightToLeft)
        margins = QMargins(margins.right(), margins.top(), margins.left(), margins.bottom());
    return option.rect.marginsRemoved(margins);
}

int textWidth(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    int width = contentRect(option, index).width();
    if (hasIcon(option))
        width -= option.decorationSize.width() + iconTextGap;
    return qMax(0, width);
}

} // namespace

void ZItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &given,
                          const QModelIndex &index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QPalette &palette = option.palette;
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool selected = option.state & QStyle::State_Selected;
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;

    const QRectF row = QRectF(option.rect).adjusted(0, rowGap / 2.0, 0, -rowGap / 2.0);
    const bool ring =
        (option.state & QStyle::State_HasFocus) && ZFocusTracker::showsFocus(option.widget);
    const QColor textColor =
        palette.color(group, selected ? QPalette::HighlightedText : QPalette::WindowText);
    if (selected) {
        // Ring and row may have one colour, so a gap keeps them apart.
        const qreal inset = ring ? ringGap : 0;
        ZPainting::fillRounded(painter, row.adjusted(inset, inset, -inset, -inset),
                               ZPainting::controlRadius - inset,
                               palette.color(group, QPalette::Highlight));
    } else if (enabled && (option.state & QStyle::State_MouseOver)) {
        QColor hover = palette.color(QPalette::WindowText);
        hover.setAlphaF(0.07);
        ZPainting::fillRounded(painter, row, ZPainting::controlRadius, hover);
    }
    if (ring) // in the one colour of all rings, also where the list has a palette of its own
        ZPainting::drawFocusRing(painter, row, ZPainting::controlRadius, QApplication::palette());

    const QRect content = contentRect(option, index);
    QRect textRect = content;
    if (hasIcon(option)) {
        const QRect iconRect = QStyle::alignedRect(
            option.direction, Qt::AlignLeft | Qt::AlignVCenter, option.decorationSize, content);
        ZPainting::drawIcon(painter, iconRect, option.icon, textColor);
        if (option.direction == Qt::RightToLeft)
            textRect.setRight(iconRect.left() - iconTextGap - 1);
        else
            textRect.setLeft(iconRect.right() + iconTextGap + 1);
    }
    painter->save();
    painter->setFont(option.font);
    painter->setPen(textColor);
    painter->setLayoutDirection(option.direction);
    ZPainting::drawText(painter, textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                        option.text);
    painter->restore();
}

void ZItemDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const ZFontSizeManager *sizes = ZFontSizeManager::instance();
    option->decorationSize = QSize(sizes->scaled(option->decorationSize.width()),
                                   sizes->scaled(option->decorationSize.height()));
}

QSize ZItemDelegate::sizeHint(const QStyleOptionViewItem &given, const QModelIndex &index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QMargins margins = itemMargins(index);
    const auto *view = qobject_cast<const QListView *>(option.widget);
    // Long names wrap inside the list's width instead of being cut off.
    if (view)
        option.rect.setWidth(view->viewport()->width());
    const QFontMetrics metrics(option.font);
    const QSize text = metrics
                           .boundingRect(QRect(0, 0, textWidth(option, index), QWIDGETSIZE_MAX),
                                         Qt::AlignLeft | Qt::TextWordWrap, option.text)
                           .size();
    const int iconHeight = hasIcon(option) ? option.decorationSize.height() : 0;
    const int height = qMax(text.height(), iconHeight) + margins.top() + margins.bottom();
    return QSize(option.rect.width(), qMax(height, minimumRowHeight));
}

} // namespace Widget
} // namespace Ztk
