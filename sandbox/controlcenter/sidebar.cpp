#include "sandbox/controlcenter/sidebar.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <QPainter>
#include <QVBoxLayout>

namespace controlcenter {
namespace {

constexpr int leastWidth = 228; // px
constexpr int sideMargin = 12;  // px

} // namespace

SideBar::SideBar(QWidget *search, QWidget *entries, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(sideMargin, sideMargin, sideMargin, sideMargin);
    layout->setSpacing(sideMargin);
    layout->addWidget(search);
    layout->addWidget(entries, 1);
}

QSize SideBar::sizeHint() const
{
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
