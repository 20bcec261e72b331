#pragma once

#include "pages/assistantsettingwidget.h"
#include "tests/support/isolatedhome.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QCheckBox>
#include <QPointer>
#include <QtTest>

#include <memory>

namespace testsupport {

const QString oneShotTip = QStringLiteral("Hello, Alani. What's the weather like in Beijing?");
const QString wakeupTip = QStringLiteral("Say \"Hello, Alani\" to wake up AI Assistant");

/** A shown assistant page and its controls. */
class AssistantControls
{
public:
    AssistantControls()
        : m_page(new AssistantSettingWidget(nullptr))
    {
        m_page->resize(640, 600);
        m_page->show();
        m_page->activateWindow();
        if (!QTest::qWaitForWindowActive(m_page))
            QTest::qFail("the page does not become active", __FILE__, __LINE__);
    }
    ~AssistantControls() { delete m_page; }
    Q_DISABLE_COPY(AssistantControls)

    AssistantSettingWidget *widget() const { return m_page; }
    zcc::widgets::SwitchWidget *wakeup() const { return row("Voice Wakeup"); }
    zcc::widgets::SwitchWidget *dock() const { return row("Show in the Dock"); }
    QCheckBox *oneShot() const { return checkBoxTitled(m_page, QStringLiteral("OneShot")); }
    zcc::widgets::TipsLabel *tip() const
    {
        return m_page->findChildren<zcc::widgets::TipsLabel *>().at(1);
    }

    void clickWakeup() const { QTest::mouseClick(switchButton(wakeup()), Qt::LeftButton); }
    void clickOneShot() const
    {
        // On the box itself, at the leading end.
        QTest::mouseClick(oneShot(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(8, oneShot()->height() / 2));
    }

    /** "wake-up on/off, one-shot on/off/disabled, TIP or no tip". */
    QString state() const
    {
        return QStringLiteral("wake-up %1, one-shot %2%3, %4")
            .arg(onOff(wakeup()->checked()), onOff(oneShot()->isChecked()),
                 oneShot()->isEnabled() ? QString() : QStringLiteral(" disabled"),
                 tip()->isVisible() ? tip()->text() : QStringLiteral("no tip"));
    }

private:
    static QString onOff(bool on) { return on ? QStringLiteral("on") : QStringLiteral("off"); }
    zcc::widgets::SwitchWidget *row(const char *title) const
    {
        return switchTitled(m_page, QLatin1String(title));
    }

    QPointer<AssistantSettingWidget> m_page;
};

const QString stateOff = QStringLiteral("wake-up off, one-shot off disabled, no tip");
const QString stateOn = QStringLiteral("wake-up on, one-shot off, ") + wakeupTip;
const QString stateOneShot = QStringLiteral("wake-up on, one-shot on, ") + oneShotTip;

/** The services of that page: the assistant's is new for each test. */
struct AssistantServices
{
    IsolatedHome home;
    std::unique_ptr<ServiceProcess> assistant;
    ServiceProcess dock{QStringLiteral("dock")};

    /** False, with a log line, when one does not start. */
    bool start()
    {
        assistant = std::make_unique<ServiceProcess>(QStringLiteral("assistant"));
        if (!assistant->start() || (!dock.isRunning() && !dock.start()))
            return false;
        dock.setValue(QStringLiteral("hidden"), false);
        dock.reset();
        dock.joinBus();
        return true;
    }

    void stop()
    {
        assistant.reset();
        QFile::remove(home.wakeupSettingsFile());
    }
};

/** The methods that were called, in order. */
inline QStringList calledMembers(ServiceProcess &service)
{
    QStringList names;
    const QList<ServiceCall> calls = service.calls();
    for (const ServiceCall &call : calls)
        names.append(call.member);
    return names;
}

} // namespace testsupport
