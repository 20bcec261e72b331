#include "menulook.h"

#include "controllook.h"
#include "inputlook.h"
#include "ztk/zfontsizemanager.h"
#include "ztk/zpainting.h"
#include "ztk/zstyle.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyleOption>

namespace Ztk {
namespace Widget {
namespace menulook {

using namespace controllook;

namespace {

constexpr int rowInset = 4; ///< Between the panel's edge and the mark behind an entry.
/** Between that mark's edge and what stands on it: below the text of a combo box is that of its
 * entries. */
constexpr int itemPadding = inputlook::sidePadding - listMargins.left() - rowInset;
constexpr int usualSymbolSize = 16;
constexpr int gap = 8;
constexpr int separatorHeight = 9;
constexpr qreal frameAmount = 0.2; ///< Of the text's colour in the frame.

int symbolSize()
{
    return ZFontSizeManager::instance()->scaled(usualSymbolSize);
}

bool hasIcon(const QStyleOptionMenuItem *option)
{
    return !option->icon.isNull();
}

} // namespace

QColor surface()
{
    return QApplication::palette("QMenu").color(QPalette::Window);
}

void drawPanel(QPainter *painter, const QStyleOption *option, const QColor &fill, qreal radius)
{
    const QColor frame = ZPainting::lineColor(option->palette, fill, frameAmount);
    painter->fillRect(option->rect, frame); // also what the shape's steps leave of the corners
    const qreal line = ZPainting::hairline(painter);
    ZPainting::fillRounded(painter, QRectF(option->rect).adjusted(line, line, -line, -line),
                           qMax(0.0, radius - line), fill);
}

QRegion panelShape(const QSize &size)
{
    const QPainterPath path =
        ZPainting::roundedPath(QRectF(QPointF(), size), panelRadius, panelRadius);
    return QRegion(path.toFillPolygon().toPolygon());
}

void drawItem(QPainter *painter, const QStyleOptionMenuItem *option, bool ofComboBox)
{
    const QRect row = option->rect.adjusted(rowInset, 1, -rowInset, -1);
    if (option->menuItemType == QStyleOptionMenuItem::Separator) {
        painter->fillRect(
            QRectF(row.left(), row.center().y(), row.width(), ZPainting::hairline(painter)),
            option->palette.color(QPalette::Mid));
        return;
    }
    const bool selected = option->state & QStyle::State_Selected;
    const QColor textColor = color(option, selected ? QPalette::HighlightedText : QPalette::Text);
    if (selected) {
        ZPainting::fillRounded(painter, row, ZPainting::controlRadius - 1,
                               color(option, QPalette::Highlight));
    }

    // From the leading side: the check mark's column, icon, text; mirrored as a whole at the end.
    const auto place = [option](const QRect &rect) {
        return QStyle::visualRect(option->direction, option->rect, rect);
    };
    QRect rest = row.adjusted(itemPadding, 0, -itemPadding, 0);
    const auto takeSymbol = [&rest]() {
        const QRect symbol(rest.left(), rest.center().y() - symbolSize() / 2 + 1, symbolSize(),
                           symbolSize());
        rest.setLeft(rest.left() + symbolSize() + gap);
        return symbol;
    };
    QRect checkRect;
    if (ofComboBox) {
        checkRect = QRect(rest.right() + 1 - symbolSize(), rest.center().y() - symbolSize() / 2 + 1,
                          symbolSize(), symbolSize());
        rest.setRight(checkRect.left() - gap);
    } else {
        checkRect = takeSymbol();
    }
    if (option->checked && option->checkType != QStyleOptionMenuItem::NotCheckable)
        drawSymbol(painter, place(checkRect), "ztk_check", textColor);
    if (hasIcon(option))
        ZPainting::drawIcon(painter, place(takeSymbol()), option->icon, textColor);
    if (option->menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRect right(rest.right() - symbolSize(), rest.center().y() - symbolSize() / 2 + 1,
                          symbolSize(), symbolSize());
        painter->save();
        const QRect arrowRect = place(right);
        painter->translate(arrowRect.center());
        painter->rotate(option->direction == Qt::RightToLeft ? 90 : -90);
        drawSymbol(painter, QRect(-symbolSize() / 2, -symbolSize() / 2, symbolSize(), symbolSize()),
                   "ztk_chevron_down", textColor);
        painter->restore();
        rest.setRight(right.left() - gap);
    }

    painter->save();
    painter->setFont(option->font);
    painter->setPen(textColor);
    painter->setLayoutDirection(option->direction);
    const QStringList parts = option->text.split(QLatin1Char('\t'));
    ZPainting::drawText(painter, place(rest),
                        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, parts.first());
    if (parts.size() > 1)
        painter->drawText(place(rest), Qt::AlignRight | Qt::AlignVCenter, parts.at(1));
    painter->restore();
}

QSize itemSize(const QStyleOptionMenuItem *option)
{
    if (option->menuItemType == QStyleOptionMenuItem::Separator)
        return QSize(2 * rowInset, separatorHeight);
    const QFontMetrics metrics(option->font);
    int width = 2 * (rowInset + itemPadding) + symbolSize() + gap;
    if (hasIcon(option))
        width += symbolSize() + gap;
    if (option->menuItemType == QStyleOptionMenuItem::SubMenu)
        width += gap + symbolSize();
    const QStringList parts = option->text.split(QLatin1Char('\t'));
    width += metrics.size(Qt::TextShowMnemonic, parts.first()).width();
    if (parts.size() > 1)
        width += 3 * gap + metrics.size(Qt::TextSingleLine, parts.at(1)).width();
    return QSize(width, qMax(metrics.height() + 2 * gap, ZStyle::minimumHitHeight));
}

} // namespace menulook
} // namespace Widget
} // namespace Ztk
