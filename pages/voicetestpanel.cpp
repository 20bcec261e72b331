// Part of the class AssistantSettingWidget: the voice test panel, the last row of the page, rebuilt
// on every change of state. Such a change is mostly asked for by a widget of the old panel, so
// nothing is deleted at once.

#include "pages/accessiblefactory.h"
#include "pages/assistantsettingwidget.h"
#include "pages/pagelayout.h"
#include "pages/showntext.h"
#include "pages/voicetestverdict.h"
#include "pages/wordslabel.h"
#include "proxy/assistantstateproxy.h"
#include "voice/aqcwrapper.h"
#include "voice/secondclickfilter.h"
#include "voice/voiceanimationwidget.h"
#include "voice/waveaccessible.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <ztk/zcommandlinkbutton.h>
#include <ztk/zguiapplicationhelper.h>

#include <QAccessible>
#include <QDebug>
#include <QLabel>
#include <QVBoxLayout>

using zcc::widgets::SettingsItem;
using Ztk::Gui::ZGuiApplicationHelper;
using Ztk::Widget::ZCommandLinkButton;
using Ztk::Widget::ZFontSizeManager;

namespace {

constexpr int panelMinimumHeight = 120; // px
constexpr int testMinimumWidth = 340;   // px, of the wave and the recognised words
constexpr int waveMinimumHeight = 42;   // px

QColor panelTipColor()
{
    return pagelayout::tipColor(ZGuiApplicationHelper::instance()->themeType() ==
                                ZGuiApplicationHelper::LightType);
}

/** Draws the label in the tip colour. A plain label would draw in its window text colour. */
void showTipColor(QLabel *label)
{
    label->setForegroundRole(QPalette::Text);
    pagelayout::setTextColor(label, panelTipColor());
}

/** Takes a widget out of the panel; it goes when events are next processed. */
template <typename Widget>
void release(QVBoxLayout *layout, QPointer<Widget> &widget)
{
    if (layout)
        layout->removeWidget(widget);
    widget->deleteLater();
    widget.clear();
}

} // namespace

void AssistantSettingWidget::refreshVoiceTestUI(VoiceTestUIType state)
{
    // The window's focus, which it keeps while another window is in use.
    QWidget *focused = window()->focusWidget();
    const bool panelHadFocus = focused && (focused == m_testButton || focused == m_animationWidget);
    if (panelHadFocus)
        focused->clearFocus(); // or it would wander to a control elsewhere while the panel is gone

    aqcClean(state);
    switch (state) {
    case VoiceTestInit:
        voiceTestInit();
        break;
    case VoiceTesting:
        voiceTesting();
        break;
    case VoiceTestEnd:
        voiceTestEnd();
        break;
    }
    m_settingsGroup->appendItem(m_voiceTestItem);

    if (panelHadFocus) {
        if (m_testButton)
            m_testButton->setFocus();
        else if (m_animationWidget)
            m_animationWidget->setFocus();
    }
    if (state == VoiceTestEnd)
        announce(m_promptLabel);
}

void AssistantSettingWidget::aqcClean(VoiceTestUIType next)
{
    if (m_promptLabel)
        release(m_voiceTestLayout, m_promptLabel);

    // Title and recognised words of a test stay in the finished panel, whose item adopts them.
    for (QPointer<QLabel> *label : {&m_voiceTestTitle, &m_recognisedLabel}) {
        if (!*label)
            continue;
        if (next != VoiceTestEnd)
            release(m_voiceTestLayout, *label);
        else if (m_voiceTestLayout)
            m_voiceTestLayout->removeWidget(*label);
    }

    if (m_animationWidget) {
        m_animationWidget->stopPaint();
        if (m_aqcWrapper) {
            m_aqcWrapper->stop();
            // Recognised words stay connected: they only ever replace the text.
            disconnect(m_aqcWrapper, &AqcWrapper::signalUpdateAudioLevel, m_animationWidget,
                       &VoiceAnimationWidget::updateMaxLevel);
            disconnect(m_aqcWrapper, &AqcWrapper::signalAqcResult, this,
                       &AssistantSettingWidget::slotAqcResult);
        }
        release(m_voiceTestLayout, m_animationWidget);
    }

    if (m_testButton)
        release(m_voiceTestLayout, m_testButton);

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
    beginVoiceTestPanel(QMargins(10, 10, 10, 10));
    m_voiceTestLayout->setAlignment(Qt::AlignTop);
    m_voiceTestLayout->addSpacing(10);

    addTestButton(tr("Click here to test"), Qt::AlignCenter);
    m_voiceTestItem->setLayout(m_voiceTestLayout);
}

void AssistantSettingWidget::voiceTesting()
{
    beginVoiceTestPanel(QMargins(10, 10, 0, 0));

    if (!m_recognisedLabel)
        m_recognisedLabel = new WordsLabel(this);
    m_recognisedLabel->setMinimumWidth(testMinimumWidth);
    m_recognisedLabel->setMaximumWidth(m_voiceTestItem->maximumWidth());
    pagelayout::setFontStep(m_recognisedLabel, ZFontSizeManager::T8);
    showTipColor(m_recognisedLabel);
    m_voiceTestLayout->addWidget(m_recognisedLabel, 0, Qt::AlignHCenter | Qt::AlignTop);

    // The phrase is said in the recogniser's language, whatever the interface's.
    const QString prompt = QStringLiteral("现在请说\"阿岚，帮我预约明天早上10点的视频会议\"");
    addPrompt(prompt);

    qDebug() << "animationwidget start";
    accessiblefactory::install<VoiceAnimationWidget, WaveAccessible>();
    m_animationWidget = new VoiceAnimationWidget(m_voiceTestItem);
    connect(m_animationWidget, &VoiceAnimationWidget::signalStopPaint, this,
            [this] { refreshVoiceTestUI(VoiceTestInit); });
    m_animationWidget->setMinimumWidth(testMinimumWidth);
    m_animationWidget->setMaximumWidth(m_voiceTestItem->maximumWidth());
    m_animationWidget->setMinimumHeight(waveMinimumHeight);
    //: Read out for the moving wave, which shows how loud the microphone hears the user.
    m_animationWidget->setAccessibleName(tr("Microphone level"));
    // The wave gets the focus: what is to be said is heard with it, as it is seen beside it.
    m_animationWidget->setAccessibleDescription(prompt + QLatin1Char('\n') +
                                                tr("Press Space or Escape to cancel the test"));
    m_animationWidget->setCursor(Qt::PointingHandCursor);
    m_animationWidget->setToolTip(tr("Click to cancel the test"));
    m_voiceTestLayout->addWidget(m_animationWidget, 0, Qt::AlignBottom);
    m_animationWidget->startPaint();

    if (m_aqcWrapper && m_aqcWrapper->start() == 0) {
        connect(m_aqcWrapper, &AqcWrapper::signalAqcResult, this,
                &AssistantSettingWidget::slotAqcResult);
        connect(m_aqcWrapper, &AqcWrapper::signalUpdateAudioLevel, m_animationWidget,
                &VoiceAnimationWidget::updateMaxLevel);
        connect(m_aqcWrapper, &AqcWrapper::signaleIatResult, this,
                &AssistantSettingWidget::slotIatResult);
    } else {
        //: Result of the voice test: the AI service could not start it.
        m_verdict = tr("Service exception");
        refreshVoiceTestUI(VoiceTestEnd);
    }

    // After a failed start these are the finished panel's: it keeps its layout and gains a stretch.
    m_voiceTestItem->setLayout(m_voiceTestLayout);
    m_voiceTestLayout->addStretch();
    if (m_animationWidget)
        m_animationWidget->raise(); // the panel's last part, also to assistive technologies
}

void AssistantSettingWidget::voiceTestEnd()
{
    qInfo() << "voiceTestEnd";
    beginVoiceTestPanel(QMargins(10, 10, 10, 10));

    if (m_recognisedLabel)
        m_voiceTestLayout->addWidget(m_recognisedLabel, 0, Qt::AlignHCenter | Qt::AlignTop);

    addPrompt(m_verdict);
    m_promptLabel->setMargin(0);
    m_voiceTestLayout->addSpacing(0);

    addTestButton(tr("Click here to test again"), Qt::AlignHCenter | Qt::AlignTop);
    m_testButton->setAccessibleDescription(
        m_verdict); // read out with the link, which gets the focus
    m_voiceTestItem->setLayout(m_voiceTestLayout);
}

void AssistantSettingWidget::beginVoiceTestPanel(const QMargins &margins)
{
    if (!m_voiceTestItem)
        m_voiceTestItem = new SettingsItem;
    m_voiceTestItem->setMinimumHeight(panelMinimumHeight);
    m_voiceTestItem->addBackground();

    m_voiceTestLayout = new QVBoxLayout;
    m_voiceTestLayout->setContentsMargins(margins);
    m_voiceTestLayout->setSpacing(0);

    if (!m_voiceTestTitle)
        //: Title of the microphone test.
        m_voiceTestTitle = new QLabel(tr("Voice Test"), this);
    pagelayout::setFontStep(m_voiceTestTitle, ZFontSizeManager::T6);
    m_voiceTestTitle->setAlignment(Qt::AlignLeft | Qt::AlignHCenter);
    m_voiceTestTitle->setMargin(0);
    // The margins are the same in mirrored layouts, where the title begins on the other side.
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    m_voiceTestTitle->setIndent(mirrored ? margins.left() - margins.right() : 0);
    m_voiceTestLayout->addWidget(m_voiceTestTitle, 0, Qt::AlignLeft);
}

void AssistantSettingWidget::addPrompt(const QString &text)
{
    if (!m_promptLabel)
        m_promptLabel = new QLabel(this);
    m_promptLabel->setTextFormat(Qt::PlainText);
    m_promptLabel->setText(text);
    m_promptLabel->setAlignment(Qt::AlignCenter);
    m_promptLabel->setWordWrap(true);
    m_promptLabel->adjustSize();
    m_voiceTestLayout->addWidget(m_promptLabel);
    pagelayout::setFontStep(m_promptLabel, ZFontSizeManager::T8);
    showTipColor(m_promptLabel);
}

void AssistantSettingWidget::addTestButton(const QString &text, Qt::Alignment alignment)
{
    if (!m_testButton) {
        m_testButton = new ZCommandLinkButton(text, this);
        // It takes the place of the wave, where a click ends a test.
        new SecondClickFilter(m_testButton);
    }
    pagelayout::setFontStep(m_testButton, ZFontSizeManager::T6);
    connect(m_testButton, &ZCommandLinkButton::clicked, this,
            &AssistantSettingWidget::startVoiceTest);
    m_voiceTestLayout->addWidget(m_testButton, 0, alignment);
}

void AssistantSettingWidget::recolourVoiceTest()
{
    for (QLabel *label : {m_promptLabel.data(), m_recognisedLabel.data()})
        if (label)
            pagelayout::setTextColor(label, panelTipColor());
}

void AssistantSettingWidget::startVoiceTest()
{
    if (AssistantStateProxy::checkNetworkState()) {
        refreshVoiceTestUI(VoiceTesting);
    } else {
        //: Result of the voice test: it needs the network.
        m_verdict = tr("Network unavailable");
        refreshVoiceTestUI(VoiceTestEnd);
    }
}

void AssistantSettingWidget::slotAqcResult(const QString &result)
{
    qDebug() << "slotAqcResult"
             << "result:" << result;

    const QString words = m_recognisedLabel ? m_recognisedLabel->text() : QString();
    switch (voiceTestVerdict(result, words)) {
    case VoiceTestVerdict::None:
        m_verdict.clear();
        break;
    case VoiceTestVerdict::Good:
        //: Result of the voice test: the recording is clear.
        m_verdict = tr("It sounds good");
        break;
    case VoiceTestVerdict::TooLoud:
        m_verdict = tr("Turn down the input volume and try again");
        break;
    case VoiceTestVerdict::TooQuiet:
        m_verdict = tr("Turn up the input volume and try again");
        break;
    case VoiceTestVerdict::TooNoisy:
        //: Result of the voice test: it is too noisy around the user.
        m_verdict = tr("Too many noises");
        break;
    case VoiceTestVerdict::NoSound:
        m_verdict = tr("No sound recorded");
        break;
    }
    refreshVoiceTestUI(VoiceTestEnd);
}

void AssistantSettingWidget::slotIatResult(QString text, int, bool)
{
    if (!m_recognisedLabel)
        return;
    // Each run adds a connection to this slot: the same text comes as often, and is read out once.
    const QString shown = showntext::cut(text, showntext::longestWords);
    const bool isNew = m_recognisedLabel->text() != shown;
    m_recognisedLabel->clear();
    m_recognisedLabel->setText(shown);
    if (isNew)
        announce(m_recognisedLabel);
}

void AssistantSettingWidget::announce(QLabel *label)
{
    QAccessibleEvent alert(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
