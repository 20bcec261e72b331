#include "pages/assistantsettingwidget.h"

#include "pages/pagelayout.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <ztk/zcommandlinkbutton.h>

#include <QLabel>
#include <QVBoxLayout>

// The voice test panel: the last row of the page, rebuilt on every change of state.

using zcc::widgets::SettingsItem;
using Ztk::Widget::ZCommandLinkButton;
using Ztk::Widget::ZFontSizeManager;

namespace {

constexpr int panelMinimumHeight = 120; // px

} // namespace

void AssistantSettingWidget::refreshVoiceTestUI(VoiceTestUIType state)
{
    aqcClean(state);
    voiceTestInit();
    m_settingsGroup->appendItem(m_voiceTestItem);
}

void AssistantSettingWidget::aqcClean(VoiceTestUIType next)
{
    if (m_voiceTestTitle) {
        m_voiceTestLayout->removeWidget(m_voiceTestTitle);
        if (next != VoiceTestEnd) {
            m_voiceTestTitle->deleteLater();
            m_voiceTestTitle.clear();
        }
    }
    if (m_testButton) {
        m_voiceTestLayout->removeWidget(m_testButton);
        m_testButton->deleteLater();
        m_testButton.clear();
    }
    if (m_voiceTestItem) {
        m_settingsGroup->removeItem(m_voiceTestItem);
        m_voiceTestItem->deleteLater();
        m_voiceTestItem.clear();
    }
    if (m_voiceTestLayout) {
        m_voiceTestLayout->deleteLater();
        m_voiceTestLayout.clear();
    }
}

void AssistantSettingWidget::voiceTestInit()
{
    if (!m_voiceTestItem)
        m_voiceTestItem = new SettingsItem;
    m_voiceTestItem->setMinimumHeight(panelMinimumHeight);
    m_voiceTestItem->addBackground();

    m_voiceTestLayout = new QVBoxLayout;
    m_voiceTestLayout->setContentsMargins(10, 10, 10, 10);
    m_voiceTestLayout->setSpacing(0);

    if (!m_voiceTestTitle)
        m_voiceTestTitle = new QLabel(tr("Voice Test"), this);
    PageLayout::setFontStep(m_voiceTestTitle, ZFontSizeManager::T6);
    m_voiceTestTitle->setAlignment(Qt::AlignLeft | Qt::AlignHCenter);
    m_voiceTestTitle->setMargin(0);
    m_voiceTestLayout->addWidget(m_voiceTestTitle, 0, Qt::AlignLeft);
    m_voiceTestLayout->setAlignment(Qt::AlignTop);
    m_voiceTestLayout->addSpacing(10);

    if (!m_testButton)
        m_testButton = new ZCommandLinkButton(tr("Click here to test"), this);
    PageLayout::setFontStep(m_testButton, ZFontSizeManager::T6);
    m_voiceTestLayout->addWidget(m_testButton, 0, Qt::AlignHCenter | Qt::AlignVCenter);

    m_voiceTestItem->setLayout(m_voiceTestLayout);
}
