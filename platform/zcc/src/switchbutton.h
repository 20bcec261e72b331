#pragma once

#include <QAbstractButton>

class QVariantAnimation;

namespace zcc {
namespace widgets {

/** The switch of a SwitchWidget: a track with a knob that slides to the trailing side when on. */
class SwitchButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit SwitchButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;

    /** Sets the state; emits switched() when it is another one. */
    void setSwitched(bool on);

Q_SIGNALS:
    /**
     * The state has changed. Whoever hears of it may delete this button: QAbstractButton still uses
     * itself after its own toggled().
     */
    void switched(bool on);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void nextCheckState() override;

private:
    void slideTo(bool checked);

    bool m_settling = false;    ///< setSwitched() will say that the state has changed.
    QVariantAnimation *m_slide; ///< Moves the knob; the checked state does not wait for it.
    qreal m_position = 0;       ///< Of the knob: 0.0 off, 1.0 on.
};

} // namespace widgets
} // namespace zcc
