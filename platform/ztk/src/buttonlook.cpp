#include "buttonlook.h"

#include "controllook.h"
#include "ztk/zfontsizemanager.h"
#include "ztk/zpainting.h"
#include "ztk/zstyle.h"

#include <QPainter>
#include <QStyleOption>

namespace Ztk {
namespace Widget {
namespace buttonlook {

using namespace controllook;

namespace {

constexpr int pushButtonPadding = 16;
constexpr int pushButtonMinimumWidth = 72;
constexpr qreal keyCapRadius = 5;
constexpr int keyCapPadding = 12;       ///< Text height and this make the height of a key cap.
constexpr qreal capHoverAmount = 0.14;  ///< Of the letters' colour in a cap under the mouse.
constexpr qreal keyCapEdge = 2;         ///< The visible front edge of the key.
constexpr qreal keyCapEdgeAmount = 0.5; ///< Of the text's colour in it: to be told from the face.
constexpr qreal checkBoxRadius = 5;
constexpr int usualIndicatorSize = 18;
constexpr qreal indicatorStroke = 1.5;

/** Key caps are push buttons without a shadow; every other button has one in its palette. */
bool isKeyCap(const QStyleOptionButton *option)
{
    return option->palette.shadow().color().alpha() == 0;
}

/** The mouse is over the caps of a row, and the row takes clicks: it takes the focus, too, then. */
bool isClickableCapUnderMouse(const QWidget *widget)
{
    const QWidget *caps = widget ? widget->parentWidget() : nullptr;
    const QWidget *row = caps ? caps->parentWidget() : nullptr;
    return row && caps->underMouse() && row->isEnabled() && row->focusPolicy() != Qt::NoFocus;
}

/** A key as seen from above: its top face in the roles Light and Dark, its text in ButtonText. */
void drawKeyCap(QPainter *painter, const QStyleOptionButton *option, const QWidget *widget)
{
    // The caption's owner hands over no state: a key cap is neither enabled nor disabled.
    const QPalette &palette = option->palette;
    const auto active = [&palette](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role);
    };
    QRectF cap(option->rect);
    const qreal height = painter->fontMetrics().height() + keyCapPadding;
    if (cap.height() > height) {
        cap.setTop(cap.top() + (cap.height() - height) / 2);
        cap.setHeight(height);
    }
    const qreal line = ZPainting::hairline(painter);
    const QColor edge = ZPainting::lineColor(palette, active(QPalette::Light), keyCapEdgeAmount);
    ZPainting::fillRounded(painter, cap, keyCapRadius, edge);

    const QRectF face = cap.adjusted(line, line, -line, -keyCapEdge);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const qreal hover = isClickableCapUnderMouse(widget) ? capHoverAmount : 0;
    QLinearGradient shading(face.topLeft(), face.bottomLeft());
    shading.setColorAt(
        0, ZPainting::blend(active(QPalette::Light), active(QPalette::ButtonText), hover));
    shading.setColorAt(
        1, ZPainting::blend(active(QPalette::Dark), active(QPalette::ButtonText), hover));
    painter->fillPath(ZPainting::roundedPath(ZPainting::snapped(painter, face), keyCapRadius - line,
                                             keyCapRadius - line),
                      shading);
    painter->setPen(active(QPalette::ButtonText));
    painter->drawText(face.translated(0, ZPainting::middleShift(painter->fontMetrics())),
                      Qt::AlignCenter, option->text);
    painter->restore();
}

} // namespace

void drawPushButton(QPainter *painter, const QStyleOptionButton *option, const QStyle *style,
                    const QWidget *widget)
{
    if (isKeyCap(option)) {
        drawKeyCap(painter, option, widget);
        return;
    }
    const bool main = (option->features & QStyleOptionButton::DefaultButton) ||
                      (option->state & QStyle::State_On);
    const QColor fill =
        stateFill(option, color(option, main ? QPalette::Highlight : QPalette::Button));
    QRectF panel(option->rect);
    const bool flat = (option->features & QStyleOptionButton::Flat) &&
                      !(option->state & (QStyle::State_Sunken | QStyle::State_MouseOver));
    if (!flat && main && showsFocus(option)) {
        // Ring and button have one colour, so a gap keeps them apart.
        ZPainting::drawFocusRing(painter, panel, ZPainting::controlRadius, option->palette);
        panel.adjust(3, 3, -3, -3);
        ZPainting::fillRounded(painter, panel, ZPainting::controlRadius - 3, fill);
    } else {
        drawPanel(painter, option, panel, ZPainting::controlRadius, flat ? Qt::transparent : fill,
                  main || flat ? Qt::transparent : color(option, QPalette::Mid));
    }
    QStyleOptionButton label = *option;
    label.rect = style->subElementRect(QStyle::SE_PushButtonContents, option, widget);
    if (main)
        label.palette.setColor(QPalette::ButtonText, color(option, QPalette::HighlightedText));
    style->drawControl(QStyle::CE_PushButtonLabel, &label, painter, widget);
}

void drawCheckBox(QPainter *painter, const QStyleOptionButton *option)
{
    QStyleOptionButton indicator = *option;
    indicator.rect = indicatorRect(option);
    drawCheckIndicator(painter, &indicator);

    QRect label = labelRect(option);
    const QColor textColor = color(option, QPalette::WindowText);
    if (!option->icon.isNull()) {
        const QRect iconRect = QStyle::alignedRect(
            option->direction, Qt::AlignLeft | Qt::AlignVCenter, option->iconSize, label);
        ZPainting::drawIcon(painter, iconRect, option->icon, textColor);
        const int used = option->iconSize.width() + indicatorGap;
        label.adjust(option->direction == Qt::LeftToRight ? used : 0, 0,
                     option->direction == Qt::RightToLeft ? -used : 0, 0);
    }
    painter->save();
    painter->setPen(textColor);
    painter->setLayoutDirection(option->direction);
    ZPainting::drawText(painter, label, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                        option->text);
    painter->restore();
    if (showsFocus(option)) {
        ZPainting::drawFocusRing(painter, focusRect(option), ZPainting::controlRadius,
                                 option->palette);
    }
}

void drawCheckIndicator(QPainter *painter, const QStyleOption *option)
{
    const bool partly = option->state & QStyle::State_NoChange;
    const QRectF box(option->rect);
    if (!partly && !(option->state & QStyle::State_On)) {
        ZPainting::fillRounded(painter, box, checkBoxRadius,
                               stateFill(option, color(option, QPalette::Base)));
        ZPainting::frameRounded(painter, box, checkBoxRadius, color(option, QPalette::Dark),
                                indicatorStroke);
        return;
    }
    ZPainting::fillRounded(painter, box, checkBoxRadius,
                           stateFill(option, color(option, QPalette::Highlight)));
    const QColor mark = color(option, QPalette::HighlightedText);
    if (partly) {
        const qreal inset = box.width() / 4;
        ZPainting::fillRounded(
            painter, QRectF(box.left() + inset, box.center().y() - 1, box.width() - 2 * inset, 2),
            1, mark);
    } else {
        drawSymbol(painter, option->rect.adjusted(1, 1, -1, -1), "ztk_check", mark);
    }
}

QSize pushButtonSize(const QSize &contents)
{
    return QSize(contents.width() + 2 * pushButtonPadding, contents.height() + pushButtonPadding)
        .expandedTo(QSize(pushButtonMinimumWidth, ZStyle::minimumHitHeight));
}

QSize checkBoxSize(const QStyleOptionButton *option)
{
    const QSize text = option->fontMetrics.size(Qt::TextShowMnemonic, option->text);
    int width = 2 * indicatorPadding + indicatorSize();
    if (!option->text.isEmpty())
        width += indicatorGap + text.width();
    if (!option->icon.isNull())
        width += indicatorGap + option->iconSize.width();
    return QSize(width, qMax(text.height() + 2 * indicatorPadding, ZStyle::minimumHitHeight));
}

int indicatorSize()
{
    return ZFontSizeManager::instance()->scaled(usualIndicatorSize);
}

QRect indicatorRect(const QStyleOption *option)
{
    const QRect place = option->rect.adjusted(indicatorPadding, 0, -indicatorPadding, 0);
    return QStyle::alignedRect(option->direction, Qt::AlignLeft | Qt::AlignVCenter,
                               QSize(indicatorSize(), indicatorSize()), place);
}

QRect labelRect(const QStyleOption *option)
{
    const QRect place = option->rect.adjusted(indicatorPadding + indicatorSize() + indicatorGap, 0,
                                              -indicatorPadding, 0);
    return QStyle::visualRect(option->direction, option->rect, place);
}

QRect focusRect(const QStyleOptionButton *option)
{
    const QSize size = checkBoxSize(option).boundedTo(option->rect.size());
    const int height = qMin(size.height(), qMax(indicatorSize(), option->fontMetrics.height()) +
                                               2 * indicatorPadding);
    return QStyle::alignedRect(option->direction, Qt::AlignLeft | Qt::AlignVCenter,
                               QSize(size.width(), height), option->rect);
}

} // namespace buttonlook
} // namespace Widget
} // namespace Ztk
