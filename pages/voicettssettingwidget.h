#pragma once

#include <QWidget>

class QComboBox;

namespace zcc {
namespace widgets {
class SwitchWidget;
} // namespace widgets
} // namespace zcc

/**
 * The page "Text to Speech": reading aloud, the floating speech widget, and the reading voice.
 *
 * Reads the assistant's state once, when it is built (events are processed meanwhile), and sends
 * every change at once. Made without a parent; the frame owns it.
 */
class VoiceTTSSettingWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VoiceTTSSettingWidget(QWidget *parent = nullptr);

    void init() {}

public Q_SLOTS:
    void slotVoiceTTSSetting(bool checked);
    void slotVoiceTTSWindowSetting(bool checked);
    void slotVoiceSourceTypeChange(int index);

private:
    zcc::widgets::SwitchWidget *m_switch = nullptr;
    zcc::widgets::SwitchWidget *m_windowSwitch = nullptr;
    QComboBox *m_voiceComboBox = nullptr;
};
