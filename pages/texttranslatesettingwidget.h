#pragma once

#include <QWidget>

class QComboBox;

namespace zcc {
namespace widgets {
class SwitchWidget;
} // namespace widgets
} // namespace zcc

/**
 * The page "Translation": translating the selected text, and in which direction.
 *
 * Reads the assistant's state once, when it is built (events are processed meanwhile), and sends
 * every change at once. Made without a parent; the frame owns it.
 */
class TextTranslateSettingWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TextTranslateSettingWidget(QWidget *parent = nullptr);

    void init() {}

public Q_SLOTS:
    void slotVoiceSetting(bool checked);
    void slotVoiceSourceTypeChange(int index);
    void slotlanguageTypeChange(int index);
    void slotPluginShowChange(bool checked);

private:
    zcc::widgets::SwitchWidget *m_switch = nullptr;
    QComboBox *m_directionComboBox = nullptr;
};
