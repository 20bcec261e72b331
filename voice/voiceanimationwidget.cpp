#include "voice/voiceanimationwidget.h"

#include "voice/secondclickfilter.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QtMath>

namespace {

constexpr int frameMs = 15;

// Radians per painted frame: 3.1415926 by 12, 13 and 18.
constexpr WaveShape::Phases phaseSteps = {0.26179938333333336, 0.24166096923076924,
                                          0.17453292222222222};

} // namespace

VoiceAnimationWidget::VoiceAnimationWidget(QWidget *parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::TabFocus);
    // It takes the place of the link that starts a test.
    new SecondClickFilter(this);
    hide(); // also from a parent that is shown: only startPaint() shows it
    connect(&m_frameTimer, &QTimer::timeout, this, &VoiceAnimationWidget::advanceLevel);
}

void VoiceAnimationWidget::startPaint()
{
    m_painting = true;
    m_frameTimer.start(frameMs);
    show();
}

void VoiceAnimationWidget::stopPaint()
{
    m_painting = false;
    m_frameTimer.stop();
    m_phases.fill(0.0);
    m_level.reset();
    update();
    hide();
}

void VoiceAnimationWidget::updateMaxLevel(double level)
{
    m_level.follow(level);
}

void VoiceAnimationWidget::advanceLevel()
{
    // What is above the waves, in the frame before and in this one, does not change.
    const double before = m_level.current();
    m_level.advance();
    m_shape.resize(size());
    const double reach = m_shape.reach(qMax(before, m_level.current()) / 100.0);
    const int rows = qMin(height(), qCeil(reach) + 1); // one for pixels that are no whole ones
    update(0, height() - rows, width(), rows);
}

double VoiceAnimationWidget::getAudioLineY(double x, int line)
{
    if (line < 1 || line > WaveShape::lineCount)
        return 0.0;
    m_shape.resize(size());
    return m_shape.height(line - 1, x, m_phases[size_t(line - 1)], m_level.current() / 100.0);
}

void VoiceAnimationWidget::paintEvent(QPaintEvent *)
{
    if (!m_painting)
        return;

    m_shape.resize(size());
    QLinearGradient gradient(-width() / 2.0, 0, width() / 2.0, 0);
    gradient.setColorAt(0, QColor(14, 136, 250, 160));
    gradient.setColorAt(1, QColor(147, 247, 67, 160));

    QPainter painter(this);
    painter.save();
    painter.translate(width() / 2.0, height());
    painter.scale(1, -1); // heights grow upwards
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QColor(0, 0, 0, 0));
    painter.setBrush(gradient);
    for (size_t i = 0; i < m_phases.size(); ++i) {
        m_phases[i] += phaseSteps[i]; // a frame that nobody sees does not move the waves
        painter.drawPolygon(m_shape.outline(int(i), m_phases[i], m_level.current() / 100.0));
    }
    painter.restore();

    if (m_keyboardFocus && hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.state |= QStyle::State_KeyboardFocusChange;
        option.rect.adjust(0, 0, -2, 0); // off the edge of the panel, which the wave reaches
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void VoiceAnimationWidget::mousePressEvent(QMouseEvent *)
{
    // Taken, as its release is.
}

void VoiceAnimationWidget::mouseReleaseEvent(QMouseEvent *)
{
    requestStop();
}

void VoiceAnimationWidget::resizeEvent(QResizeEvent *)
{
    // Every frame is drawn for the size of its moment.
}

void VoiceAnimationWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space && event->key() != Qt::Key_Escape) {
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        requestStop();
}

void VoiceAnimationWidget::focusInEvent(QFocusEvent *event)
{
    switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_keyboardFocus = true;
        break;
    case Qt::MouseFocusReason:
        m_keyboardFocus = false;
        break;
    case Qt::OtherFocusReason: // a page moves the focus on; how did the user come here?
        m_keyboardFocus = window()->testAttribute(Qt::WA_KeyboardFocusChange);
        break;
    default: // the window or a menu gives the focus back
        break;
    }
    QWidget::focusInEvent(event);
}

// The last act of its callers: whoever listens usually takes the widget away.
void VoiceAnimationWidget::requestStop()
{
    if (!isHidden())
        Q_EMIT signalStopPaint();
}
