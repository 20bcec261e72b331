#include "ztk/zcommandlinkbutton.h"
#include "ztk/ziconbutton.h"

#include <QPainter>

namespace Ztk {
namespace Widget {

ZIconButton::ZIconButton(QWidget *parent) : QAbstractButton(parent) {}
ZIconButton::ZIconButton(QStyle::StandardPixmap icon, QWidget *parent) : QAbstractButton(parent)
{
    setIcon(style()->standardIcon(icon, nullptr, this));
}
QSize ZIconButton::sizeHint() const { return iconSize(); }
void ZIconButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    icon().paint(&painter, rect());
}
bool ZIconButton::event(QEvent *event) { return QAbstractButton::event(event); }

ZCommandLinkButton::ZCommandLinkButton(const QString &text, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(text);
}
QSize ZCommandLinkButton::sizeHint() const { return fontMetrics().size(0, text()); }
QSize ZCommandLinkButton::minimumSizeHint() const { return sizeHint(); }
void ZCommandLinkButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawText(rect(), Qt::AlignCenter, text());
}
bool ZCommandLinkButton::event(QEvent *event) { return QAbstractButton::event(event); }

} // namespace Widget
} // namespace Ztk
