#include "inputlook.h"

#include "controllook.h"
#include "ztk/zfontsizemanager.h"
#include "ztk/zpainting.h"
#include "ztk/zstyle.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>

namespace Ztk {
namespace Widget {
namespace inputlook {

using namespace controllook;

namespace {
constexpr int usualArrowSize = 16;
constexpr int arrowPadding = 9; ///< Between the arrow and the edge of the combo box.
constexpr int verticalPadding = 6;
constexpr int iconGap = 8;
constexpr int bearings = 6; ///< Combo boxes measure the ink of their texts, and lines are wider.

int arrowSize()
{
    return ZFontSizeManager::instance()->scaled(usualArrowSize);
}

} // namespace

void drawComboBox(QPainter *painter, const QStyleOptionComboBox *option)
{
    const QColor fill =
        stateFill(option, color(option, option->editable ? QPalette::Base : QPalette::Button));
    drawPanel(painter, option, option->rect, ZPainting::controlRadius, fill,
              color(option, QPalette::Mid));
    drawSymbol(painter, comboBoxArrow(option), "ztk_chevron_down",
               color(option, QPalette::ButtonText));
}

void drawComboBoxLabel(QPainter *painter, const QStyleOptionComboBox *option, const QRect &field)
{
    QRect textRect = field;
    const QColor textColor = color(option, QPalette::ButtonText);
    if (!option->currentIcon.isNull()) {
        const QRect iconRect = QStyle::alignedRect(
            option->direction, Qt::AlignLeft | Qt::AlignVCenter, option->iconSize, field);
        ZPainting::drawIcon(painter, iconRect, option->currentIcon, textColor);
        const int used = iconRect.width() + iconGap;
        textRect.adjust(option->direction == Qt::LeftToRight ? used : 0, 0,
                        option->direction == Qt::RightToLeft ? -used : 0, 0);
    }
    if (option->currentText.isEmpty() || option->editable)
        return;
    painter->save();
    painter->setPen(textColor);
    painter->setLayoutDirection(option->direction);
    ZPainting::drawText(
        painter, textRect, Qt::AlignLeft | Qt::AlignVCenter,
        painter->fontMetrics().elidedText(option->currentText, Qt::ElideRight, textRect.width()));
    painter->restore();
}

QSize comboBoxSize(const QSize &contents)
{
    const int width = sidePadding + contents.width() + bearings + 2 * arrowPadding + arrowSize();
    return QSize(width, qMax(contents.height() + 2 * verticalPadding, ZStyle::minimumHitHeight));
}

QRect comboBoxField(const QStyleOption *option)
{
    const QRect field =
        option->rect.adjusted(sidePadding, 1, -(2 * arrowPadding + arrowSize()), -1);
    return QStyle::visualRect(option->direction, option->rect, field);
}

QRect comboBoxArrow(const QStyleOption *option)
{
    return QStyle::alignedRect(option->direction, Qt::AlignRight | Qt::AlignVCenter,
                               QSize(arrowSize(), arrowSize()),
                               option->rect.adjusted(arrowPadding, 0, -arrowPadding, 0));
}

void drawLineEdit(QPainter *painter, const QStyleOption *option)
{
    // A text cursor is not easily seen: an edited field is marked however the focus came to it.
    const bool focused = option->state & QStyle::State_HasFocus;
    ZPainting::fillRounded(painter, option->rect, ZPainting::controlRadius,
                           color(option, QPalette::Base));
    if (focused) {
        ZPainting::drawFocusRing(painter, option->rect, ZPainting::controlRadius, option->palette);
        return;
    }
    const bool over =
        (option->state & QStyle::State_MouseOver) && (option->state & QStyle::State_Enabled);
    ZPainting::frameRounded(painter, option->rect, ZPainting::controlRadius,
                            color(option, over ? QPalette::Dark : QPalette::Mid),
                            ZPainting::hairline(painter));
}

} // namespace inputlook
} // namespace Widget
} // namespace Ztk
