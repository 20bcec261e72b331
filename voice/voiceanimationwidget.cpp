#include "voice/voiceanimationwidget.h"

#include "voice/secondclickfilter.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <cmath>

namespace {

constexpr int frameMs = 15;

// Circle numbers as the wave's shape was drawn with them.
constexpr double pi = 3.1415926;
constexpr double twoPi = 6.2831852;
constexpr double eightPi = 25.1327408;

// Radians per painted frame: pi / 12, pi / 13 and pi / 18.
constexpr double phaseStep1 = 0.26179938333333336;
constexpr double phaseStep2 = 0.24166096923076924;
constexpr double phaseStep3 = 0.17453292222222222;

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
    m_phase1 = 0.0;
    m_phase2 = 0.0;
    m_phase3 = 0.0;
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
    m_level.advance();
    update();
}

double VoiceAnimationWidget::getAudioLineY(double x, int line)
{
    const double w = width();
    const double h = height();
    const double level = m_level.current() / 100.0;
    switch (line) {
    case 1: {
        const double envelope = h * 0.25 * level * (std::cos(twoPi / w * x) + 0.9);
        return (std::sin(4 / w * pi * x + m_phase1) + 2.0) * 0.7 * envelope;
    }
    case 2: {
        if (!(x > -0.25 * w && x < 0.5 * w))
            return 0.0;
        const double envelope = h / 5 * level * (std::cos(eightPi * (x - w / 6) / (3 * w)) + 1.0);
        return (std::sin(4 / w * pi * x - m_phase2) + 1.5) * 0.9 * envelope;
    }
    case 3: {
        if (!(x > -0.5 * w && x < 0.015625 * w))
            return 0.0;
        const double envelope = h / 6 * level * (std::cos(4 * x * pi / w - pi) + 1.0);
        return (std::sin(4 / w * pi * x + m_phase3) + 1.6) * 0.8 * envelope;
    }
    default:
        return 0.0;
    }
}

void VoiceAnimationWidget::paintEvent(QPaintEvent *)
{
    if (!m_painting)
        return;

    const double w = width();
    const double left = -w / 2;
    const double right = w / 2;

    QPainter painter(this);
    painter.save();
    painter.translate(w / 2, height());
    painter.scale(1, -1); // heights grow upwards

    // A frame that nobody sees does not move the waves.
    m_phase1 += phaseStep1;
    m_phase2 += phaseStep2;
    m_phase3 += phaseStep3;

    QPainterPath waves[3];
    for (QPainterPath &wave : waves)
        wave.moveTo(left, 0);
    for (int column = 0; left + column <= right; ++column) {
        const double x = left + column;
        for (int i = 0; i < 3; ++i)
            waves[i].lineTo(x, getAudioLineY(x, i + 1));
    }
    for (QPainterPath &wave : waves)
        wave.lineTo(right, 0);

    QLinearGradient gradient(left, 0, right, 0);
    gradient.setColorAt(0, QColor(14, 136, 250, 160));
    gradient.setColorAt(1, QColor(147, 247, 67, 160));

    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QColor(0, 0, 0, 0));
    painter.setBrush(gradient);
    for (const QPainterPath &wave : waves)
        painter.drawPath(wave);
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
