#pragma once

#include <QWidget>

class QComboBox;

namespace zcc {
namespace widgets {
class SwitchWidget;
} // namespace widgets
} // namespace zcc

/**
 * The page "Speech to Text": dictation on or off, and the language that it listens to.
 *
 * Reads the assistant's state once, when it is built (events are processed meanwhile), and sends
 * every change at once. Made without a parent; the frame owns it.
 */
class VoiceIatSettingWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VoiceIatSettingWidget(QWidget *parent = nullptr);

    void init() {}

public Q_SLOTS:
    void slotVoiceSetting(bool checked);
    void slotVoiceSourceTypeChange(int index);
    void slotlanguageTypeChange(int index);
    void slotPluginShowChange(bool checked);

private:
    zcc::widgets::SwitchWidget *m_switch = nullptr;
    QComboBox *m_languageComboBox = nullptr;
};
