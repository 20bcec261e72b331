#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class AqcWrapper;
class AssistantDockServiceInterface;
class QCheckBox;
class QLabel;
class QMargins;
class QVBoxLayout;
class VoiceAnimationWidget;

namespace Ztk {
namespace Widget {
class ZCommandLinkButton;
} // namespace Widget
} // namespace Ztk

namespace zcc {
namespace widgets {
class SettingsGroup;
class SettingsItem;
class SwitchWidget;
class TipsLabel;
} // namespace widgets
} // namespace zcc

/**
 * The page "Desktop AI Assistant": voice wake-up, one-shot mode, language, dock icon and voice
 * test.
 *
 * Reads the services' state once, when it is built, follows the dock icon's changes, and sends
 * every change of the user at once. Made without a parent; the frame owns it.
 */
class AssistantSettingWidget : public QWidget
{
    Q_OBJECT

public:
    /** The states of the voice test panel. */
    enum VoiceTestUIType {
        VoiceTestInit, ///< Title and the link that starts a test.
        VoiceTesting,  ///< Recognised words, the phrase to say, the wave.
        VoiceTestEnd,  ///< Recognised words, the verdict, the link that starts another test.
    };

    explicit AssistantSettingWidget(QWidget *parent = nullptr);
    ~AssistantSettingWidget() override;

    void init() {}

public Q_SLOTS:
    void slotVoiceWakeupSetting(bool on);
    void slotVoiceSourceTypeChange(int type);
    void slotlanguageTypeChange(int index);
    void slotPluginShowSet(bool show);
    void slotdockHideChange(bool hide);
    void slotOneShotMode(int state);
    void slotAqcResult(const QString &result);
    void slotIatResult(QString text, int type, bool last);

private:
    void addDescription();
    void addWakeupGroup();
    void addSettingsGroup();
    bool dockIconShown() const;

    // Voice test panel
    void refreshVoiceTestUI(VoiceTestUIType state);
    void aqcClean(VoiceTestUIType next);
    void voiceTestInit();
    void voiceTesting();
    void voiceTestEnd();
    void beginVoiceTestPanel(const QMargins &margins);
    void addPrompt(const QString &text);
    void addTestButton(const QString &text, Qt::Alignment alignment);
    void recolourVoiceTest();
    void startVoiceTest();
    void announce(QLabel *label);

    QVBoxLayout *m_mainLayout = nullptr;
    zcc::widgets::TipsLabel *m_descriptionLabel = nullptr;
    zcc::widgets::SettingsGroup *m_wakeupGroup = nullptr;
    zcc::widgets::SwitchWidget *m_voiceWakeupSwitch = nullptr;
    zcc::widgets::TipsLabel *m_wakeupTipsLabel = nullptr;
    zcc::widgets::SettingsGroup *m_settingsGroup = nullptr;
    zcc::widgets::SettingsItem *m_languageItem = nullptr;
    zcc::widgets::SwitchWidget *m_dockSwitch = nullptr;
    AssistantDockServiceInterface *m_dockInterface = nullptr;
    QCheckBox *m_oneShotCheckBox = nullptr;
    const QString m_oneShotTip; // shown while one-shot mode is on
    const QString m_wakeupTip;  // shown while it is off
    unsigned m_wakeupRequests = 0;

    // Voice test panel: null while the widget does not exist
    QPointer<QLabel> m_promptLabel; // the phrase to say, then the verdict
    QPointer<QVBoxLayout> m_voiceTestLayout;
    QPointer<VoiceAnimationWidget> m_animationWidget;
    QPointer<Ztk::Widget::ZCommandLinkButton> m_testButton;
    QPointer<zcc::widgets::SettingsItem> m_voiceTestItem;
    QPointer<QLabel> m_voiceTestTitle;
    QPointer<AqcWrapper> m_aqcWrapper; // outlives the page
    QString m_verdict;
    QPointer<QLabel> m_recognisedLabel;
};
