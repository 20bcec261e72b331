#include "sandbox/controlcenter/backbutton.h"

#include <ztk/zfontsizemanager.h>

#include <QPainter>

namespace controlcenter {

BackButton::BackButton(QWidget *parent)
    : Ztk::Widget::ZIconButton(parent)
{
    setAccessibleName(tr("Back"));
    setToolTip(tr("Back to the list"));
}

void BackButton::paintEvent(QPaintEvent *event)
{
    ZIconButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    const qreal scale = Ztk::Widget::ZFontSizeManager::instance()->scaled(100) / 100.0;
    painter.scale(layoutDirection() == Qt::RightToLeft ? -scale : scale, scale);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.7, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{2.5, -6}, {-3.5, 0}, {2.5, 6}}));
}

} // namespace controlcenter
