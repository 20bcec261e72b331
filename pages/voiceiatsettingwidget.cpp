#include "pages/voiceiatsettingwidget.h"

#include "pages/pagelayout.h"
#include "proxy/assistantstateproxy.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/switchwidget.h>

#include <QComboBox>
#include <QDebug>
#include <QVBoxLayout>

using zcc::widgets::SwitchWidget;

VoiceIatSettingWidget::VoiceIatSettingWidget(QWidget *parent)
    : QWidget(parent)
{
    qDebug() << "VoiceIatSettingWidget";

    QVBoxLayout *layout = pagelayout::addMainLayout(this);

    const QString shortcut = AssistantStateProxy::getShortCut(QStringLiteral("speech-to-text"), 0);
    pagelayout::addHint(
        layout,
        //: %1 is a key combination such as Ctrl+Alt+T; the quoted text is this page's title.
        tr("Press the shortcuts (%1) or click \"Speech to Text\" in the context menu "
           "to convert your speech to text."),
        shortcut);

    auto *group = pagelayout::addGroup(layout, 10);

    m_switch = pagelayout::newSwitch(tr("Speech to Text"));
    group->appendItem(m_switch);
    const bool on = AssistantStateProxy::queryVoiceIatState();
    qDebug() << "AssistantStateProxy::queryVoiceIatState()" << (on ? "true" : "false");
    if (on)
        m_switch->setChecked(true);
    connect(m_switch, &SwitchWidget::checkedChanged, this,
            &VoiceIatSettingWidget::slotVoiceSetting);

    m_languageComboBox = pagelayout::addComboBoxRow(group, tr("Language")).comboBox;
    //: Name of a spoken language: Mandarin Chinese.
    m_languageComboBox->addItem(tr("中文-普通话"));
    //: Name of a spoken language.
    m_languageComboBox->addItem(tr("English"));
    const QString language = AssistantStateProxy::getVoiceIatLanguage();
    m_languageComboBox->setCurrentIndex(language == QLatin1String("zh_cn") ? 0 : 1);

    layout->addStretch();
    connect(m_languageComboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &VoiceIatSettingWidget::slotlanguageTypeChange);
}

void VoiceIatSettingWidget::slotVoiceSetting(bool checked)
{
    qDebug() << "slotVoiceSetting"
             << "|" << (checked ? "true" : "false");
    AssistantStateProxy::setVoiceIatState(checked);
}

void VoiceIatSettingWidget::slotVoiceSourceTypeChange(int) {}

void VoiceIatSettingWidget::slotlanguageTypeChange(int index)
{
    qDebug() << "slotlanguageTypeChange"
             << "|" << index;
    AssistantStateProxy::setVoiceIatLanguage(index != 0 ? QStringLiteral("en_us")
                                                        : QStringLiteral("zh_cn"));
}

void VoiceIatSettingWidget::slotPluginShowChange(bool) {}
