#pragma once

#include <QSize>

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionComboBox;

namespace Ztk {
namespace Widget {

/** Combo boxes and line edits of ZStyle. */
namespace inputlook {

constexpr int sidePadding = 12; ///< Between a control's edge and its text.

/** The closed combo box without its text. */
void drawComboBox(QPainter *painter, const QStyleOptionComboBox *option);

/** The chosen entry of a combo box: icon and text, shortened where it does not fit. */
void drawComboBoxLabel(QPainter *painter, const QStyleOptionComboBox *option, const QRect &field);

QSize comboBoxSize(const QSize &contents);
QRect comboBoxField(const QStyleOption *option);
QRect comboBoxArrow(const QStyleOption *option);

/** Background and frame of a line edit. */
void drawLineEdit(QPainter *painter, const QStyleOption *option);

} // namespace inputlook

} // namespace Widget
} // namespace Ztk
