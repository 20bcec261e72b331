#include "sandbox/controlcenter/themebutton.h"

#include <ztk/zfocustracker.h>
#include <ztk/zpainting.h>

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

using Ztk::Widget::ZFocusTracker;
using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int side = 36;          // px, a comfortable target
constexpr qreal buttonRadius = 8; // px
constexpr qreal penWidth = 1.7;   // px

void drawSun(QPainter &painter)
{
    constexpr int rays = 8;
    painter.drawEllipse(QPointF(), 4, 4);
    for (int ray = 0; ray < rays; ++ray) {
        const qreal angle = ray * 2 * M_PI / rays;
        const QPointF direction(qCos(angle), qSin(angle));
        painter.drawLine(direction * 6.8, direction * 8.8);
    }
}

void drawMoon(QPainter &painter)
{
    QPainterPath disc;
    disc.addEllipse(QPointF(), 7.5, 7.5);
    QPainterPath shadow;
    shadow.addEllipse(QPointF(4.2, -3.4), 6.6, 6.6);
    painter.drawPath(disc.subtracted(shadow));
}

} // namespace

ThemeButton::ThemeButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Dark theme"));
    setToolTip(tr("Light or dark theme"));
    setFixedSize(side, side);
}

QSize ThemeButton::sizeHint() const
{
    return {side, side};
}

void ThemeButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const QColor text = palette().color(QPalette::WindowText);
    if (underMouse() || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(
            ZPainting::blend(palette().color(QPalette::Window), text, isDown() ? 0.16 : 0.08));
        painter.drawRoundedRect(rect(), buttonRadius, buttonRadius);
    }
    if (ZFocusTracker::showsFocus(this))
        ZPainting::drawFocusRing(&painter, rect(), buttonRadius, palette());

    painter.translate(QRectF(rect()).center());
    painter.setPen(QPen(text, penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    if (isChecked())
        drawMoon(painter);
    else
        drawSun(painter);
}

bool ThemeButton::event(QEvent *event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        update();
    return QAbstractButton::event(event);
}

} // namespace controlcenter
