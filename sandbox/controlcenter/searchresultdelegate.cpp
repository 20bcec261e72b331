#include "sandbox/controlcenter/searchresultdelegate.h"

#include "sandbox/controlcenter/palettecolors.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/zpainting.h>

#include <QPainter>

using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int paddingX = 12; // px
constexpr int paddingY = 6;  // px
constexpr qreal radius = 7;  // px

constexpr int lineGap = 2; // px

QFont whereFont(const QFont &base)
{
    return ZFontSizeManager::instance()->get(ZFontSizeManager::T8, base);
}

/** The height of the line as it is drawn: some scripts need more than the font's usual height. */
int lineHeight(const QFont &font, const QString &text)
{
    const QFontMetrics metrics(font);
    return qMax(metrics.height(), metrics.boundingRect(QRect(), Qt::TextSingleLine, text).height());
}

} // namespace

void SearchResultDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPalette &palette = option.palette;
    const bool selected = option.state & QStyle::State_Selected;

    QColor name = palette.color(QPalette::Text);
    QColor where = ZPainting::blend(palette.color(QPalette::Base), name, 0.62);
    if (selected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.color(QPalette::Highlight));
        painter->drawRoundedRect(option.rect, radius, radius);
        name = palette.color(QPalette::HighlightedText);
        where = ZPainting::blend(palette.color(QPalette::Highlight), name, 0.85);
    } else if (option.state & QStyle::State_MouseOver) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(ZPainting::blend(palette.color(QPalette::Base), name, 0.06));
        painter->drawRoundedRect(option.rect, radius, radius);
    }

    const QRect room = option.rect.adjusted(paddingX, paddingY, -paddingX, -paddingY);
    painter->setLayoutDirection(option.direction);
    painter->setFont(option.font);
    painter->setPen(name);
    const Qt::Alignment lead = QStyle::visualAlignment(option.direction, Qt::AlignLeading);
    painter->drawText(room, int(lead | Qt::AlignTop),
                      option.fontMetrics.elidedText(index.data(Qt::DisplayRole).toString(),
                                                    Qt::ElideRight, room.width()));
    const QFont small = whereFont(option.font);
    painter->setFont(small);
    painter->setPen(where);
    painter->drawText(room, int(lead | Qt::AlignBottom),
                      QFontMetrics(small).elidedText(index.data(WhereRole).toString(),
                                                     Qt::ElideRight, room.width()));
    painter->restore();
}

QSize SearchResultDelegate::sizeHint(const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    const int name = lineHeight(option.font, index.data(Qt::DisplayRole).toString());
    const int where = lineHeight(whereFont(option.font), index.data(WhereRole).toString());
    return {0, name + lineGap + where + 2 * paddingY};
}

} // namespace controlcenter
