#pragma once

#include "plugin/assistzlistview.h"
#include "plugin/thirdlistwidget.h"
#include "tests/support/logcapture.h"
#include "tests/support/modulepages.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QCheckBox>
#include <QFile>
#include <QMetaMethod>
#include <QScrollArea>
#include <QtTest>

#include <memory>

// The module's list and pages on the screen, and the services that they talk to.

namespace testsupport {

/** The short names of the pages for which the list asks, in order. */
class PageRequests : public QObject
{
    Q_OBJECT

public:
    explicit PageRequests(ThirdListWidget *list)
    {
        for (const ModulePage &page : modulePages())
            connect(list, qPrintable(QStringLiteral("2") + page.requestSignal), this, SLOT(note()));
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(m_requests);
        return taken;
    }

private Q_SLOTS:
    void note()
    {
        const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
        for (const ModulePage &page : modulePages())
            if (page.requestSignal == QLatin1String(signal.methodSignature()))
                m_requests.append(page.shortName);
    }

private:
    QStringList m_requests;
};

/** The list on the screen, with the focus on its view. */
struct ShownList
{
    std::unique_ptr<ThirdListWidget> list = std::make_unique<ThirdListWidget>(nullptr);
    std::unique_ptr<PageRequests> requests = std::make_unique<PageRequests>(list.get());
    AssistZListView *view = list->findChild<AssistZListView *>();

    /** False when it does not get the focus. */
    bool show()
    {
        list->resize(240, 400);
        list->show();
        list->activateWindow();
        if (!QTest::qWaitForWindowActive(list.get()))
            return false;
        view->setFocus();
        return view->hasFocus();
    }

    static int lastRow() { return modulePages().size() - 1; }
    int currentRow() const { return view->currentIndex().row(); }
    void setCurrentRow(int row) { view->setCurrentIndex(view->model()->index(row, 0)); }
};

/** The module's page of that name, newly made as for its list. */
QWidget *newPage(const QString &name);

/** The services that a page talks to while it is built, in a home of their own. */
struct PageServices
{
    IsolatedHome home;
    ServiceProcess assistant{QStringLiteral("assistant")};
    ServiceProcess dock{QStringLiteral("dock")};
    ServiceProcess keybinding{QStringLiteral("keybinding")};

    /** False, with a log line, when one does not start. */
    bool start() { return assistant.start() && dock.start() && keybinding.start(); }

    /** Forgets scripts and calls, and the wake-up service's store. */
    void reset()
    {
        for (ServiceProcess *service : {&assistant, &dock, &keybinding})
            service->reset();
        QFile::remove(home.wakeupSettingsFile());
    }
};

/** A page on the screen, ready for keys, and what the assistant's service hears of it. */
struct ShownPage : PageServices
{
    std::unique_ptr<QWidget> page;

    /** Everything is off, and each list on its first entry. */
    void switchOff()
    {
        assistant.reset();
        assistant.joinBus();
        for (const char *key : {"iat.enabled", "tts.enabled", "tts.window", "trans.enabled"})
            assistant.setValue(QLatin1String(key), false);
        assistant.setValue(QStringLiteral("iat.language"), QStringLiteral("zh_cn"));
        assistant.setValue(QStringLiteral("tts.speaker"), QStringLiteral("x_tovali"));
        assistant.setValue(QStringLiteral("trans.language"), QStringLiteral("cn|en"));
    }

    /** Shows the page of that name; no call is recorded yet. False when it does not become active.
     */
    bool open(const QString &name)
    {
        page.reset(newPage(name));
        page->resize(640, 480);
        page->show();
        page->activateWindow();
        const bool active = QTest::qWaitForWindowActive(page.get());
        assistant.reset();
        dock.reset();
        return active;
    }

    /** The one call that the assistant received; fails the test when there is another number. */
    ServiceCall onlyCall(const QString &member)
    {
        ServiceCall call;
        [&] {
            QVERIFY(assistant.waitForCalls(member));
            QCOMPARE(assistant.calls().size(), 1);
            call = assistant.calls().constFirst();
            QVERIFY(!call.replyExpected);
        }();
        assistant.reset();
        return call;
    }
};

const QString oneShotTip = QStringLiteral("Hello, Alani. What's the weather like in Beijing?");
const QString wakeupTip = QStringLiteral("Say \"Hello, Alani\" to wake up AI Assistant");

/** A shown assistant page, and the controls above its voice test. */
class AssistantControls : public AssistantPage
{
public:
    zcc::widgets::SwitchWidget *wakeup() const { return row("Voice Wakeup"); }
    zcc::widgets::SwitchWidget *dock() const { return row("Show in the Dock"); }
    QCheckBox *oneShot() const { return checkBoxTitled(get(), QStringLiteral("OneShot")); }
    zcc::widgets::TipsLabel *tip() const
    {
        return get()->findChildren<zcc::widgets::TipsLabel *>().at(1);
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
        return switchTitled(get(), QLatin1String(title));
    }
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

/**
 * The module's pages in every state that a user can bring them to, on running services.
 *
 * A page is shown as the control center shows it, in a window that scrolls.
 */
class AccessiblePages
{
public:
    /** Names of the states, the page first: "Desktop AI Assistant, voice test running". */
    static QStringList states();

    /** Starts the services; false, with a log line, when one does not start. */
    bool start();

    /**
     * Opens the page of a state in a window @p width pixels wide, and brings it to the state. False
     * when that fails.
     */
    bool open(const QString &state, int width);

    /** Closes the page; the services are as at the start. */
    void close();

    QWidget *window() const { return m_window.get(); }
    QWidget *page() const { return m_window->widget(); }

private:
    bool bringVoiceTestTo(const QString &state);

    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    ServiceProcess m_aiService{QStringLiteral("aiservice")};
    std::unique_ptr<QScrollArea> m_window;
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

/**
 * What the pages and their calls to services have logged, in order. The voice test's recorder lives
 * as long as the process and logs whenever it looks for a microphone.
 */
inline QStringList pageLines(const LogCapture &log)
{
    QStringList lines;
    for (const LogRecord &record : log.records())
        if (record.file.contains(QLatin1String("pages/")) ||
            record.file.contains(QLatin1String("proxy/")))
            lines.append(record.text);
    return lines;
}

} // namespace testsupport
