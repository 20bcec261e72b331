#include "sandbox/controlcenter/sidebar.h"

#include "sandbox/controlcenter/palettecolors.h"

#include <QPainter>

namespace controlcenter {

SideBar::SideBar(QWidget *parent)
    : QWidget(parent)
{
    constexpr int leastWidth = 228; // px
    setMinimumWidth(leastWidth);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

void SideBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), sideBarColor(palette()));
    const int edge = layoutDirection() == Qt::RightToLeft ? 0 : width() - 1;
    painter.fillRect(edge, 0, 1, height(), separatorColor(palette()));
}

} // namespace controlcenter
