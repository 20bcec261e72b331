#pragma once

#include "voice/wavelevel.h"
#include "voice/waveshape.h"

#include <QTimer>
#include <QWidget>

/**
 * The moving picture of a voice test: three translucent waves that rise from the bottom edge and
 * swell with the microphone's level. A click on it, Space or Escape asks to end the test; the
 * second click of a double click that began on another widget does not.
 *
 * Hidden at first. Its owner shows and hides it by startPaint() and stopPaint(), and sets its
 * accessible name. The waves move by one step with every frame that is painted, their level with
 * every tick of the timer.
 */
class VoiceAnimationWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VoiceAnimationWidget(QWidget *parent = nullptr);

    /** Shows the waves and lets them move; once more while they do changes nothing. */
    void startPaint();
    /** Hides them, back at rest. */
    void stopPaint();

    /**
     * The height of wave @p line (1 to 3; 0 for any other) in pixels above the bottom edge, at @p x
     * pixels right of the middle.
     */
    double getAudioLineY(double x, int line);

public Q_SLOTS:
    /** Follows the microphone's level, 0.0 to 1.0. */
    void updateMaxLevel(double level);

Q_SIGNALS:
    /** The user asks to end the test. */
    void signalStopPaint();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void advanceLevel();
    void requestStop();

    QTimer m_frameTimer;
    WaveShape::Phases m_phases = {};
    WaveLevel m_level;
    WaveShape m_shape;
    bool m_painting = false;
    bool m_keyboardFocus = false; // the focus came by keyboard, so it is shown
};
