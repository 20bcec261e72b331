#include "pages/voicettssettingwidget.h"

#include "pages/pagelayout.h"
#include "proxy/assistantstateproxy.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/switchwidget.h>

#include <QComboBox>
#include <QDebug>
#include <QVBoxLayout>

using zcc::widgets::SwitchWidget;

VoiceTTSSettingWidget::VoiceTTSSettingWidget(QWidget *parent)
    : QWidget(parent)
{
    qDebug() << "VoiceTTSSettingWidget";

    QVBoxLayout *layout = pagelayout::addMainLayout(this);

    const QString shortcut = AssistantStateProxy::getShortCut(QStringLiteral("text-to-speech"), 0);
    pagelayout::addHint(
        layout,
        //: %1 is a key combination such as Ctrl+Alt+T; the quoted text is this page's title.
        tr("Press the shortcuts (%1) or click \"Text to Speech\" in the context menu "
           "to read the selected text out."),
        shortcut);

    auto *group = pagelayout::addGroup(layout, 10);

    m_switch = pagelayout::newSwitch(tr("Text to Speech"));
    group->appendItem(m_switch);
    if (AssistantStateProxy::queryVoiceTTSState())
        m_switch->setChecked(true);
    connect(m_switch, &SwitchWidget::checkedChanged, this,
            &VoiceTTSSettingWidget::slotVoiceTTSSetting);

    //: Switch: the small floating window that is there while text is read aloud.
    m_windowSwitch = pagelayout::newSwitch(tr("Show Speech Widget"));
    group->appendItem(m_windowSwitch);
    if (AssistantStateProxy::queryVoiceTTSWindowState())
        m_windowSwitch->setChecked(true);
    connect(m_windowSwitch, &SwitchWidget::checkedChanged, this,
            &VoiceTTSSettingWidget::slotVoiceTTSWindowSetting);

    //: Title of a list of voices: woman, man, child.
    m_voiceComboBox = pagelayout::addComboBoxRow(group, tr("Voice Gender")).comboBox;
    //: A woman's voice.
    m_voiceComboBox->addItem(tr("Female"));
    //: A man's voice.
    m_voiceComboBox->addItem(tr("Male"));
    //: A child's voice.
    m_voiceComboBox->addItem(tr("Children"));
    m_voiceComboBox->setCurrentIndex(AssistantStateProxy::getVoiceTTSSpeaker());

    layout->addStretch();
    connect(m_voiceComboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &VoiceTTSSettingWidget::slotVoiceSourceTypeChange);
}

void VoiceTTSSettingWidget::slotVoiceTTSSetting(bool checked)
{
    qDebug() << "slotVoiceTTSSetting"
             << "|" << (checked ? "true" : "false");
    AssistantStateProxy::setVoiceTTSState(checked);
}

void VoiceTTSSettingWidget::slotVoiceTTSWindowSetting(bool checked)
{
    AssistantStateProxy::setVoiceTTSWindowState(checked);
}

void VoiceTTSSettingWidget::slotVoiceSourceTypeChange(int index)
{
    qDebug() << "slotVoiceSourceTypeChange"
             << "|" << index;
    AssistantStateProxy::setVoiceTTSSpeaker(index);
}
