#include "ztk/zcommandlinkbutton.h"

#include "ztk/zfocustracker.h"
#include "ztk/zpainting.h"
#include "ztk/zstyle.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace Ztk {
namespace Widget {

namespace {
constexpr int padding = 10; ///< On either side of the text, so that the focus ring has room.
constexpr int edge = 3;     ///< Above and below the ring: it keeps off what is next to the link.
} // namespace

ZCommandLinkButton::ZCommandLinkButton(const QString &text, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ZCommandLinkButton::sizeHint() const
{
    const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
    return QSize(label.width() + 2 * padding,
                 qMax(label.height() + padding, ZStyle::minimumHitHeight));
}

QSize ZCommandLinkButton::minimumSizeHint() const
{
    return sizeHint();
}

void ZCommandLinkButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor link = palette().color(QPalette::Link);
    const QRect panel = rect().adjusted(0, edge, 0, -edge);
    const bool over = isEnabled() && (isDown() || underMouse());
    if (over) {
        QColor wash = link;
        wash.setAlphaF(isDown() ? 0.18 : 0.10);
        ZPainting::fillRounded(&painter, panel, ZPainting::controlRadius, wash);
    }
    painter.setPen(link);
    ZPainting::drawText(&painter, rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    if (ZFocusTracker::showsFocus(this))
        ZPainting::drawFocusRing(&painter, panel, ZPainting::controlRadius, palette());
}

void ZCommandLinkButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat())
            click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

bool ZCommandLinkButton::event(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}

} // namespace Widget
} // namespace Ztk
