#pragma once

#include <QAccessibleWidget>

class VoiceAnimationWidget;

/**
 * What assistive technologies see of the wave of a voice test: an animation that can be pressed,
 * which is a click on it.
 */
class WaveAccessible : public QAccessibleWidget
{
public:
    explicit WaveAccessible(VoiceAnimationWidget *wave);

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
};
