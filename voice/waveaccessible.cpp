#include "voice/waveaccessible.h"

#include "voice/voiceanimationwidget.h"

WaveAccessible::WaveAccessible(VoiceAnimationWidget *wave)
    : QAccessibleWidget(wave, QAccessible::Animation)
{
}

QStringList WaveAccessible::actionNames() const
{
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void WaveAccessible::doAction(const QString &name)
{
    auto *wave = static_cast<VoiceAnimationWidget *>(widget());
    if (name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (!wave->isHidden())
        Q_EMIT wave->signalStopPaint();
}
