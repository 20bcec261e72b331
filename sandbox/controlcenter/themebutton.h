#pragma once

#include <QAbstractButton>

namespace controlcenter {

/** Switches between the light and the dark theme: checked is dark. Shows the sun or the moon. */
class ThemeButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ThemeButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
};

} // namespace controlcenter
