#include "switchbutton.h"

#include <ztk/zfocustracker.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/zpainting.h>

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QVariantAnimation>

namespace zcc {
namespace widgets {

using Ztk::Widget::ZFocusTracker;
using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZPainting;

namespace {

constexpr QSize usualTrack(42, 24);
constexpr int knobInset = 3;
constexpr int ringSpace = 4; ///< Around the track: the focus ring and the gap before it.
constexpr int slideMs = 140;

QSize trackSize()
{
    const ZFontSizeManager *sizes = ZFontSizeManager::instance();
    return {sizes->scaled(usualTrack.width()), sizes->scaled(usualTrack.height())};
}

} // namespace

SwitchButton::SwitchButton(QWidget *parent)
    : QAbstractButton(parent)
    , m_slide(new QVariantAnimation(this))
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_slide->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_position = value.toReal();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, [this](bool on) {
        slideTo(on);
        // Changed past setSwitched(), by an assistive technology for instance.
        if (!m_settling)
            Q_EMIT switched(on);
    });
}

void SwitchButton::setSwitched(bool on)
{
    if (on == isChecked())
        return;
    m_settling = true;
    setChecked(on);
    m_settling = false;
    Q_EMIT switched(on);
}

void SwitchButton::nextCheckState()
{
    setSwitched(!isChecked());
}

QSize SwitchButton::sizeHint() const
{
    return trackSize() + QSize(2 * ringSpace, 2 * ringSpace);
}

void SwitchButton::slideTo(bool checked)
{
    m_slide->stop();
    const int limit = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (limit <= 0 || !isVisible()) {
        m_position = checked ? 1 : 0;
        update();
        return;
    }
    m_slide->setDuration(qMin(limit, slideMs));
    m_slide->setStartValue(m_position);
    m_slide->setEndValue(checked ? 1.0 : 0.0);
    m_slide->start();
}

void SwitchButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QRectF track =
        QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, trackSize(), rect());
    const QColor off = palette().color(group, QPalette::Dark);
    const QColor on = palette().color(group, QPalette::Highlight);
    QColor fill = ZPainting::blend(off, on, m_position);
    if (isEnabled() && (isDown() || underMouse())) {
        fill =
            ZPainting::blend(fill, palette().color(QPalette::WindowText), isDown() ? 0.18 : 0.10);
    }
    ZPainting::fillRounded(&painter, track, track.height() / 2, fill);

    const qreal knobSize = track.height() - 2 * knobInset;
    const qreal way = track.width() - track.height();
    const qreal offset =
        layoutDirection() == Qt::RightToLeft ? way * (1 - m_position) : way * m_position;
    const QRectF knob(track.left() + knobInset + offset, track.top() + knobInset, knobSize,
                      knobSize);
    const QColor knobColor =
        ZPainting::blend(palette().color(group, QPalette::Base),
                         palette().color(group, QPalette::HighlightedText), m_position);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(knobColor);
    painter.drawEllipse(knob);

    if (ZFocusTracker::showsFocus(this)) {
        ZPainting::drawFocusRing(&painter,
                                 track.adjusted(-ringSpace, -ringSpace, ringSpace, ringSpace),
                                 track.height() / 2 + ringSpace, palette());
    }
}

void SwitchButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat())
            click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace widgets
} // namespace zcc
