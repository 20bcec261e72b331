#include "pages/texttranslatesettingwidget.h"

#include "pages/pagelayout.h"
#include "proxy/assistantstateproxy.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/switchwidget.h>

#include <QComboBox>
#include <QDebug>
#include <QVBoxLayout>

using zcc::widgets::SwitchWidget;

TextTranslateSettingWidget::TextTranslateSettingWidget(QWidget *parent)
    : QWidget(parent)
{
    qDebug() << "TextTranslateSettingWidget";

    QVBoxLayout *layout = pagelayout::addMainLayout(this);

    const QString shortcut = AssistantStateProxy::getShortCut(QStringLiteral("translation"), 0);
    pagelayout::addHint(
        layout,
        //: %1 is a key combination such as Ctrl+Alt+T; the quoted text is this page's title.
        tr("Press the shortcuts (%1) or click \"Translation\" in the context menu to "
           "translate the selected text."),
        shortcut);

    auto *group = pagelayout::addGroup(layout, 10);

    m_switch = pagelayout::newSwitch(tr("Translation"));
    group->appendItem(m_switch);
    m_switch->setChecked(AssistantStateProxy::queryAssistantTransState());
    connect(m_switch, &SwitchWidget::checkedChanged, this,
            &TextTranslateSettingWidget::slotVoiceSetting);

    m_directionComboBox = pagelayout::addComboBoxRow(group, tr("Language")).comboBox;
    //: Direction of translation: from Chinese into English.
    m_directionComboBox->addItem(tr("CN-EN"));
    //: Direction of translation: from English into Chinese.
    m_directionComboBox->addItem(tr("EN-CN"));
    const QString direction = AssistantStateProxy::getAssistantTransLang();
    m_directionComboBox->setCurrentIndex(direction == QLatin1String("cn|en") ? 0 : 1);

    layout->addStretch();
    connect(m_directionComboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &TextTranslateSettingWidget::slotlanguageTypeChange);
}

void TextTranslateSettingWidget::slotVoiceSetting(bool checked)
{
    qDebug() << "slotVoiceSetting"
             << "|" << (checked ? "true" : "false");
    AssistantStateProxy::setAssistantTransState(checked);
}

void TextTranslateSettingWidget::slotVoiceSourceTypeChange(int) {}

void TextTranslateSettingWidget::slotlanguageTypeChange(int index)
{
    qDebug() << "slotlanguageTypeChange"
             << "|" << index;
    // Equality with 1: a cleared list (-1) sends the first direction.
    AssistantStateProxy::setAssistantTransLang(index == 1 ? QStringLiteral("en|cn")
                                                          : QStringLiteral("cn|en"));
}

void TextTranslateSettingWidget::slotPluginShowChange(bool) {}
