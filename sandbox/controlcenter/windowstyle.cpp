#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zpainting.h>

#include <QEvent>
#include <QPalette>
#include <QStyle>

using Ztk::Widget::ZPainting;

namespace controlcenter {

QColor separatorColor(const QPalette &palette)
{
    return ZPainting::lineColor(palette, palette.color(QPalette::Window), 0.1);
}

QColor sideBarColor(const QPalette &palette)
{
    return ZPainting::blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                            0.035);
}

QColor secondaryTextColor(const QPalette &palette)
{
    return ZPainting::blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                            0.7);
}

LeadingLabel::LeadingLabel(const QString &text, Qt::Alignment vertical, QWidget *parent)
    : QLabel(text, parent)
    , m_vertical(vertical)
{
    setTextFormat(Qt::PlainText);
    align();
}

void LeadingLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        align();
    QLabel::changeEvent(event);
}

void LeadingLabel::align()
{
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute |
                 m_vertical);
}

} // namespace controlcenter
