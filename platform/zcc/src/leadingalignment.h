#pragma once

#include <QWidget>

namespace zcc {
namespace widgets {

/**
 * Alignment of a label's text to the side where @p widget 's layout begins. Left to itself, a label
 * follows the direction of its text: an untranslated text would stand on the wrong side.
 */
inline Qt::Alignment leadingAlignment(const QWidget *widget)
{
    const bool mirrored = widget->layoutDirection() == Qt::RightToLeft;
    return (mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter | Qt::AlignAbsolute;
}

} // namespace widgets
} // namespace zcc
