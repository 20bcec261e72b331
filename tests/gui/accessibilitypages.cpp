#include "tests/gui/accessibilitypages.h"

#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zcommandlinkbutton.h>

#include <QDBusObjectPath>
#include <QtTest>

using testsupport::ServiceProcess;
using Ztk::Widget::ZCommandLinkButton;

namespace accessibility {

namespace {

constexpr int windowHeight = 560; // px, of the control center at its smallest

const QString spokenWords = QStringLiteral("阿岚帮我预约明天早上10点的视频会议");

QWidget *newPage(const QString &name)
{
    if (name == QLatin1String("speech to text"))
        return new VoiceIatSettingWidget;
    if (name == QLatin1String("text to speech"))
        return new VoiceTTSSettingWidget;
    if (name == QLatin1String("translation"))
        return new TextTranslateSettingWidget;
    return new AssistantSettingWidget;
}

} // namespace

QStringList Pages::states()
{
    return {QStringLiteral("assistant, voice test not begun"),
            QStringLiteral("assistant, waking up by voice"),
            QStringLiteral("assistant, voice test running"),
            QStringLiteral("assistant, voice test with words"),
            QStringLiteral("assistant, voice test finished"),
            QStringLiteral("assistant, voice test refused"),
            QStringLiteral("assistant, voice test offline"),
            QStringLiteral("speech to text"),
            QStringLiteral("text to speech"),
            QStringLiteral("translation")};
}

bool Pages::start()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network, &m_aiService})
        if (!service->start())
            return false;
    return true;
}

bool Pages::open(const QString &state, int width)
{
    m_window.reset(new QScrollArea);
    m_window->setFocusPolicy(Qt::NoFocus);
    m_window->setWidgetResizable(true);
    m_window->setFrameShape(QFrame::NoFrame);
    m_window->resize(width, windowHeight);
    m_window->setWidget(newPage(state.section(QLatin1Char(','), 0, 0)));
    m_window->show();
    m_window->activateWindow();
    return QTest::qWaitForWindowActive(m_window.get()) && bringVoiceTestTo(state);
}

void Pages::close()
{
    m_window.reset();
    testsupport::flushDeferredDeletes();
    m_network.setValue(QStringLiteral("state"), 70u);
    m_aiService.reset();
}

bool Pages::bringVoiceTestTo(const QString &state)
{
    if (state.endsWith(QLatin1String("waking up by voice"))) {
        page()->findChild<zcc::widgets::SwitchWidget *>()->setChecked(true);
        return true;
    }
    if (!state.contains(QLatin1String("voice test")) || state.endsWith(QLatin1String("not begun")))
        return true;

    if (state.endsWith(QLatin1String("offline")))
        m_network.setValue(QStringLiteral("state"), 20u);
    if (state.endsWith(QLatin1String("refused")))
        m_aiService.script(QStringLiteral("createSession"), QStringLiteral("reply-list"),
                           QVariantList{QVariant::fromValue(QDBusObjectPath("/")), 1});
    auto *link = page()->findChild<ZCommandLinkButton *>();
    link->setFocus(Qt::TabFocusReason);
    QTest::keyClick(link, Qt::Key_Space);
    if (state.endsWith(QLatin1String("words")) || state.endsWith(QLatin1String("finished")))
        QMetaObject::invokeMethod(page(), "slotIatResult", Q_ARG(QString, spokenWords),
                                  Q_ARG(int, 1), Q_ARG(bool, false));
    if (state.endsWith(QLatin1String("finished")))
        QMetaObject::invokeMethod(page(), "slotAqcResult", Q_ARG(QString, QStringLiteral("1000")));
    testsupport::flushDeferredDeletes();

    const bool running =
        state.endsWith(QLatin1String("running")) || state.endsWith(QLatin1String("words"));
    return running == !page()->findChild<ZCommandLinkButton *>();
}

} // namespace accessibility
