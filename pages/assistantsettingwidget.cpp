#include "pages/assistantsettingwidget.h"

#include "assistantdockserviceinterface.h"
#include "bus/buscalls.h"
#include "bus/serviceproxy.h"
#include "pages/pagelayout.h"
#include "proxy/assistantstateproxy.h"
#include "voice/aqcwrapper.h"
#include "voice/voiceanimationwidget.h"
#include "voice/voicetestregistry.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>
#include <ztk/zguiapplicationhelper.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDebug>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

using zcc::widgets::SettingsItem;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;
using Ztk::Gui::ZGuiApplicationHelper;
using Ztk::Widget::ZFontSizeManager;

namespace {

/**
 * Moves a tip to the tips' left edge. Its top and right margins change places; with the usual
 * margins of 0 nothing moves.
 */
void arrangeTipMargins(QLabel *tip)
{
    const QMargins old = tip->contentsMargins();
    tip->setContentsMargins(pagelayout::tipLeftMargin, old.right(), old.top(), old.bottom());
}

} // namespace

AssistantSettingWidget::AssistantSettingWidget(QWidget *parent)
    : QWidget(parent)
    //: What to say while the wake-up word and a command go in one sentence.
    , m_oneShotTip(tr("Hello, Alani. What's the weather like in Beijing?"))
    //: The quoted words are what the user says aloud.
    , m_wakeupTip(tr("Say \"Hello, Alani\" to wake up AI Assistant"))
    , m_aqcWrapper(VoiceTestRegistry::createVoiceTest())
{
    qDebug() << "AssistantSettingWidget";

    m_mainLayout = pagelayout::addMainLayout(this);
    addDescription();
    addWakeupGroup();
    addSettingsGroup();
    m_mainLayout->addStretch();
}

AssistantSettingWidget::~AssistantSettingWidget()
{
    qDebug() << "~AssistantSettingWidget";
    delete m_dockInterface;
    m_dockInterface = nullptr;
    // After the application object no widget can be hidden any more.
    if (QCoreApplication::instance())
        aqcClean(VoiceTestInit);
}

void AssistantSettingWidget::addDescription()
{
    m_descriptionLabel =
        pagelayout::newTip(this, tr("AI Assistant boosts your productivity by executing "
                                    "voice commands, such as checking the "
                                    "weather, creating events, etc."));
    arrangeTipMargins(m_descriptionLabel);
    m_mainLayout->addWidget(m_descriptionLabel);
    m_mainLayout->addSpacing(10);
}

void AssistantSettingWidget::addWakeupGroup()
{
    m_wakeupGroup = pagelayout::addGroup(m_mainLayout, 1);
    auto *wakeupItem = new SettingsItem;
    wakeupItem->addBackground();
    m_wakeupGroup->appendItem(wakeupItem);
    auto *wakeupLayout = new QVBoxLayout(wakeupItem);
    wakeupLayout->setContentsMargins(0, 0, 0, 0);
    wakeupLayout->setSpacing(0);

    const AssistantStateProxy::StoredWakeup stored = AssistantStateProxy::storedWakeup();
    const bool wakeupOn = stored.enabled;
    const bool oneShotOn = wakeupOn && stored.oneShot;

    m_voiceWakeupSwitch = pagelayout::newSwitch(tr("Voice Wakeup"));
    m_voiceWakeupSwitch->setChecked(wakeupOn);
    connect(m_voiceWakeupSwitch, &SwitchWidget::checkedChanged, this,
            &AssistantSettingWidget::slotVoiceWakeupSetting);
    wakeupLayout->addWidget(m_voiceWakeupSwitch);
    wakeupLayout->addSpacing(0);

    auto *oneShotItem = new SettingsItem;
    auto *oneShotLayout = new QVBoxLayout(oneShotItem);
    oneShotLayout->setContentsMargins(5, 5, 5, 5);
    //: Check box: say the wake-up word and the command in one sentence, without a pause.
    m_oneShotCheckBox = new QCheckBox(tr("OneShot"));
    pagelayout::setFontStep(m_oneShotCheckBox, ZFontSizeManager::T6);
    m_oneShotCheckBox->setEnabled(wakeupOn);
    m_oneShotCheckBox->setChecked(oneShotOn);
    m_wakeupTipsLabel = pagelayout::newTip(this, oneShotOn ? m_oneShotTip : m_wakeupTip);
    m_wakeupTipsLabel->setVisible(wakeupOn);
    oneShotLayout->addWidget(m_oneShotCheckBox);
    wakeupLayout->addWidget(oneShotItem);
    connect(m_oneShotCheckBox, &QCheckBox::stateChanged, this,
            &AssistantSettingWidget::slotOneShotMode);

    arrangeTipMargins(m_wakeupTipsLabel);
    m_mainLayout->addWidget(m_wakeupTipsLabel);
    m_mainLayout->addSpacing(10);
}

void AssistantSettingWidget::addSettingsGroup()
{
    m_settingsGroup = pagelayout::addGroup(m_mainLayout, 10);

    // One entry, and the voice wake-up knows no other language.
    const pagelayout::ComboBoxRow language =
        pagelayout::addComboBoxRow(m_settingsGroup, tr("Language"));
    m_languageItem = language.item;
    //: Name of a spoken language: Mandarin Chinese.
    language.comboBox->addItem(tr("中文-普通话"));
    connect(language.comboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &AssistantSettingWidget::slotlanguageTypeChange);

    const Contract::Object dock = Contract::DockIcon::object();
    m_dockInterface = new ServiceProxy<AssistantDockServiceInterface>(
        dock.service, dock.path, QDBusConnection::sessionBus(), this);
    //: Switch: the assistant's icon in the desktop's dock (taskbar).
    m_dockSwitch = pagelayout::newSwitch(tr("Show in the Dock"));
    m_settingsGroup->appendItem(m_dockSwitch);
    m_dockSwitch->setChecked(dockIconShown());
    connect(m_dockInterface, &AssistantDockServiceInterface::dockHideChange, this,
            &AssistantSettingWidget::slotdockHideChange);
    connect(m_dockSwitch, &SwitchWidget::checkedChanged, this,
            &AssistantSettingWidget::slotPluginShowSet);

    refreshVoiceTestUI(VoiceTestInit);
    connect(ZGuiApplicationHelper::instance(), &ZGuiApplicationHelper::themeTypeChanged, this,
            &AssistantSettingWidget::recolourVoiceTest);
}

bool AssistantSettingWidget::dockIconShown() const
{
    const QDBusMessage hidden =
        buscalls::waitFor(m_dockInterface->connection(), m_dockInterface->getDockHideStatus());
    return !buscalls::valueOr<bool>(hidden, false);
}

void AssistantSettingWidget::slotVoiceWakeupSetting(bool on)
{
    // While the call waits, keys and clicks are held back and all other events are processed: the
    // frame may destroy this page, or an assistive technology may flip the switch again. Waits end
    // last-in first-out, so an older request must not have the last word.
    const QPointer<AssistantSettingWidget> self(this);
    const unsigned request = ++m_wakeupRequests;
    AssistantStateProxy::setVoiceWakeupState(on);
    if (!self || request != m_wakeupRequests)
        return;

    m_oneShotCheckBox->setEnabled(on);
    if (!on)
        m_oneShotCheckBox->setChecked(false);
    m_wakeupTipsLabel->setVisible(on);
    update();
}

void AssistantSettingWidget::slotVoiceSourceTypeChange(int type)
{
    qDebug() << "slotVoiceSourceTypeChange"
             << "|" << type;
    AssistantStateProxy::setAssistantSpeaker(type);
}

void AssistantSettingWidget::slotlanguageTypeChange(int index)
{
    qDebug() << "slotlanguageTypeChange"
             << "|" << index;
}

void AssistantSettingWidget::slotPluginShowSet(bool show)
{
    qDebug() << "slotPluginShowSet"
             << "|" << (show ? "true" : "false");
    m_dockInterface->setDockHideStatus(!show);
}

void AssistantSettingWidget::slotdockHideChange(bool hide)
{
    qDebug() << "slotdockHideChange"
             << "|" << (hide ? "true" : "false");
    // The service already knows: nothing is sent back.
    const QSignalBlocker blocker(m_dockSwitch);
    m_dockSwitch->setChecked(!hide);
}

void AssistantSettingWidget::slotOneShotMode(int state)
{
    AssistantStateProxy::setOneShotMode(state);
    m_wakeupTipsLabel->setText(state != 0 ? m_oneShotTip : m_wakeupTip);
}
