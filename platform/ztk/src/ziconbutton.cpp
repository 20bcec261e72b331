#include "ztk/ziconbutton.h"

#include "ztk/zfocustracker.h"
#include "ztk/zfontsizemanager.h"
#include "ztk/zpainting.h"
#include "ztk/zstyle.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace Ztk {
namespace Widget {

namespace {
constexpr int usualIconSize = 16;
constexpr int roomyPadding = 4; ///< Around the icon, where the button is larger than the icon.
} // namespace

ZIconButton::ZIconButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    const int side = ZFontSizeManager::instance()->scaled(usualIconSize);
    setIconSize(QSize(side, side));
}

ZIconButton::ZIconButton(QStyle::StandardPixmap icon, QWidget *parent)
    : ZIconButton(parent)
{
    const QIcon own = ZStyle::toolkitIcon(icon);
    setIcon(own.isNull() ? style()->standardIcon(icon, nullptr, this) : own);
}

QSize ZIconButton::sizeHint() const
{
    const QSize padded = iconSize() + QSize(2 * roomyPadding, 2 * roomyPadding);
    return padded.expandedTo(QSize(ZStyle::minimumHitHeight, ZStyle::minimumHitHeight));
}

void ZIconButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const qreal radius = qMin<qreal>(ZPainting::controlRadius, height() / 4.0);
    if (isEnabled() && (isDown() || underMouse())) {
        QColor overlay = palette().color(QPalette::WindowText);
        overlay.setAlphaF(isDown() ? 0.16 : 0.09);
        ZPainting::fillRounded(&painter, rect(), radius, overlay);
    }
    QRect iconRect(QPoint(), iconSize().boundedTo(size()));
    iconRect.moveCenter(rect().center());
    ZPainting::drawIcon(&painter, iconRect, icon(), palette().color(QPalette::WindowText));
    if (ZFocusTracker::showsFocus(this))
        ZPainting::drawFocusRing(&painter, rect(), radius, palette());
}

void ZIconButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat())
            click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

bool ZIconButton::event(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        update();
    return QAbstractButton::event(event);
}

} // namespace Widget
} // namespace Ztk
