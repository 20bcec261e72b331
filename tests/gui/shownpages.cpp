#include "tests/gui/shownpages.h"

#include "plugin/pagetable.h"

#include <ztk/zcommandlinkbutton.h>

#include <QDBusObjectPath>
#include <QtTest>

using Ztk::Widget::ZCommandLinkButton;

namespace testsupport {

namespace {

constexpr int windowHeight = 560; // px, of the control center at its smallest

const QString spokenWords = QStringLiteral("阿岚帮我预约明天早上10点的视频会议");

} // namespace

QWidget *newPage(const QString &name)
{
    for (const PageEntry &entry : pageTable())
        if (name == QLatin1String(entry.name))
            return entry.newPage();
    qFatal("the module has no page \"%s\"", qPrintable(name));
}

QStringList AccessiblePages::states()
{
    QStringList states;
    for (const char *state : {"voice test not begun", "waking up by voice", "voice test running",
                              "voice test with words", "voice test finished", "voice test refused",
                              "voice test offline"})
        states.append(modulePages().constFirst().name + QStringLiteral(", ") +
                      QLatin1String(state));
    for (const ModulePage &page : featurePages())
        states.append(page.name);
    return states;
}

bool AccessiblePages::start()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network, &m_aiService})
        if (!service->start())
            return false;
    return true;
}

bool AccessiblePages::open(const QString &state, int width)
{
    m_window = std::make_unique<QScrollArea>();
    m_window->setFocusPolicy(Qt::NoFocus);
    m_window->setWidgetResizable(true);
    m_window->setFrameShape(QFrame::NoFrame);
    m_window->resize(width, windowHeight);
    m_window->setWidget(newPage(state.section(QLatin1Char(','), 0, 0)));
    m_window->show();
    m_window->activateWindow();
    return QTest::qWaitForWindowActive(m_window.get()) && bringVoiceTestTo(state);
}

void AccessiblePages::close()
{
    m_window.reset();
    flushDeferredDeletes();
    m_network.setValue(QStringLiteral("state"), 70u);
    m_aiService.reset();
}

bool AccessiblePages::bringVoiceTestTo(const QString &state)
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
    flushDeferredDeletes();

    const bool running =
        state.endsWith(QLatin1String("running")) || state.endsWith(QLatin1String("words"));
    return running == !page()->findChild<ZCommandLinkButton *>();
}

} // namespace testsupport
