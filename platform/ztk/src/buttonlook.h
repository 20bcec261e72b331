#pragma once

#include <QSize>

class QPainter;
class QRect;
class QStyle;
class QStyleOption;
class QStyleOptionButton;
class QWidget;

namespace Ztk {
namespace Widget {

/** Push buttons, key caps and check boxes of ZStyle. */
namespace buttonlook {

constexpr int indicatorGap = 8; ///< Between indicator and text.
/** Around indicator and text, where the focus ring stands. */
constexpr int indicatorPadding = 5;

/** Background, text, icon and focus of a push button. */
void drawPushButton(QPainter *painter, const QStyleOptionButton *option, const QStyle *style,
                    const QWidget *widget);

/** Indicator, icon, text and focus of a check box. */
void drawCheckBox(QPainter *painter, const QStyleOptionButton *option);

/** The box of a check box: empty, checked, or a bar for the state in between. */
void drawCheckIndicator(QPainter *painter, const QStyleOption *option);

QSize pushButtonSize(const QSize &contents);
QSize checkBoxSize(const QStyleOptionButton *option);

/** Side of a check box's indicator; it grows with the text. */
int indicatorSize();

/** Where the indicator of a check box stands. */
QRect indicatorRect(const QStyleOption *option);

/** Where its text stands. */
QRect labelRect(const QStyleOption *option);

/** Indicator and text together, with room for the focus ring. */
QRect focusRect(const QStyleOptionButton *option);

} // namespace buttonlook

} // namespace Widget
} // namespace Ztk
