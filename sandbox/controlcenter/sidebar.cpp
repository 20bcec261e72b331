#include "sandbox/controlcenter/sidebar.h"

#include "sandbox/controlcenter/palettecolors.h"

#include <QPainter>

namespace controlcenter {

SideBar::SideBar(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize SideBar::sizeHint() const
{
    constexpr int leastWidth = 228; // px
    return QWidget::sizeHint().expandedTo(QSize(leastWidth, 0));
}

void SideBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), sideBarColor(palette()));
    const int edge = layoutDirection() == Qt::RightToLeft ? 0 : width() - 1;
    painter.fillRect(edge, 0, 1, height(), separatorColor(palette()));
}

} // namespace controlcenter
