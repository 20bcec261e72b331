#include "pages/assistantsettingwidget.h"
#include "tests/gui/pagelog.h"
#include "tests/support/isolatedhome.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QCheckBox>
#include <QPointer>
#include <QTimer>
#include <QtTest>
#include <qpa/qwindowsysteminterface.h>

#include <functional>
#include <memory>

// Voice wake-up, one-shot mode and the dock icon: the controls of the assistant page that depend on
// each other or on what happens elsewhere, and the one call that waits while events are processed.

using testsupport::IsolatedHome;
using testsupport::LogCapture;
using testsupport::ServiceCall;
using testsupport::ServiceProcess;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;

namespace {

const QString oneShotTip = QStringLiteral("Hello, Alani. What's the weather like in Beijing?");
const QString wakeupTip = QStringLiteral("Say \"Hello, Alani\" to wake up AI Assistant");

/** A shown page and its controls. */
class Page
{
public:
    Page()
        : m_page(new AssistantSettingWidget(nullptr))
    {
        m_page->resize(640, 600);
        m_page->show();
        m_page->activateWindow();
        if (!QTest::qWaitForWindowActive(m_page))
            QTest::qFail("the page does not become active", __FILE__, __LINE__);
    }
    ~Page() { delete m_page; }
    Q_DISABLE_COPY(Page)

    AssistantSettingWidget *widget() const { return m_page; }
    SwitchWidget *wakeup() const { return row("Voice Wakeup"); }
    SwitchWidget *dock() const { return row("Show in the Dock"); }
    QCheckBox *oneShot() const
    {
        return testsupport::checkBoxTitled(m_page, QStringLiteral("OneShot"));
    }
    TipsLabel *tip() const { return m_page->findChildren<TipsLabel *>().at(1); }

    void clickWakeup() const
    {
        QTest::mouseClick(testsupport::switchButton(wakeup()), Qt::LeftButton);
    }
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
    SwitchWidget *row(const char *title) const
    {
        return testsupport::switchTitled(m_page, QLatin1String(title));
    }

    QPointer<AssistantSettingWidget> m_page;
};

const QString stateOff = QStringLiteral("wake-up off, one-shot off disabled, no tip");
const QString stateOn = QStringLiteral("wake-up on, one-shot off, ") + wakeupTip;
const QString stateOneShot = QStringLiteral("wake-up on, one-shot on, ") + oneShotTip;

} // namespace

class AssistantPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void wakeupOnWaitsForTheServiceAndEnablesOneShot();
    void wakeupOffUnchecksOneShotTellsTheServiceAndHidesTheTip();
    void wakeupOnAgainLeavesOneShotUnchecked();
    void oneShotFollowsClickAndSpace();
    void oneShotInTheStoreAloneStaysOffAlsoAfterWakeupIsOn();
    void wakeupFailuresChangeNothingOnScreen_data();
    void wakeupFailuresChangeNothingOnScreen();
    void wakeupLogsNothing();
    void keysAloneOperateTheFirstGroup();
    void nextPageShowsWhatTheServiceStored();

    void thePageMayBeDeletedWhileWakeupWaits_data();
    void thePageMayBeDeletedWhileWakeupWaits();
    void theLastFlipWinsWhileWakeupWaits_data();
    void theLastFlipWinsWhileWakeupWaits();
    void otherControlsWorkWhileWakeupWaits();
    void aKeyPressedWhileWakeupWaitsArrivesAfterIt();
    void theServiceMayDieWhileWakeupWaits();

    void dockSwitchSendsTheOppositeAndDoesNotWait();
    void dockSwitchFollowsTheServiceAndSendsNothingBack();
    void dockSlotSendsNothingBack_data();
    void dockSlotSendsNothingBack();
    void dockSwitchWorksAfterTheServiceCameLate();
    void thePageLetsGoOfTheDockWhenItGoes();
    void logsItsEnd();

private:
    /** Starts @p wait, which waits for the held reply of @p member, and runs @p meanwhile in it. */
    void whileHeld(const QString &member, const std::function<void()> &wait,
                   const std::function<void()> &meanwhile);
    QStringList members(ServiceProcess &service);

    std::unique_ptr<IsolatedHome> m_home;
    std::unique_ptr<ServiceProcess> m_assistant;
    ServiceProcess m_dock{QStringLiteral("dock")};
};

void AssistantPageTest::initTestCase()
{
    m_home = std::make_unique<IsolatedHome>();
}

void AssistantPageTest::init()
{
    m_assistant = std::make_unique<ServiceProcess>(QStringLiteral("assistant"));
    QVERIFY(m_assistant->start());
    if (!m_dock.isRunning())
        QVERIFY(m_dock.start());
    m_dock.setValue(QStringLiteral("hidden"), false);
    m_dock.reset();
    m_dock.joinBus();
}

void AssistantPageTest::cleanup()
{
    m_assistant.reset();
    QFile::remove(m_home->wakeupSettingsFile());
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void AssistantPageTest::whileHeld(const QString &member, const std::function<void()> &wait,
                                  const std::function<void()> &meanwhile)
{
    m_assistant->script(member, QStringLiteral("hold"));
    bool waited = false;
    QTimer::singleShot(0, this, [&] {
        QVERIFY(m_assistant->waitForCalls(member));
        waited = true;
        meanwhile();
        if (m_assistant->isRunning())
            QVERIFY(m_assistant->release(member) > 0);
    });
    wait();
    QVERIFY(waited);
}

QStringList AssistantPageTest::members(ServiceProcess &service)
{
    QStringList names;
    const QList<ServiceCall> calls = service.calls();
    for (const ServiceCall &call : calls)
        names.append(call.member);
    return names;
}

void AssistantPageTest::wakeupOnWaitsForTheServiceAndEnablesOneShot()
{
    const Page page;
    QCOMPARE(page.state(), stateOff);
    page.clickWakeup();
    // The service has answered and the check box has changed when the click is over.
    QCOMPARE(page.state(), stateOn);
    QCOMPARE(members(*m_assistant), QStringList{QStringLiteral("enableIvw")});
    QVERIFY(m_assistant->calls().constFirst().replyExpected);
    QCOMPARE(m_assistant->value(QStringLiteral("wakeup.enabled")), QVariant(true));
}

void AssistantPageTest::wakeupOffUnchecksOneShotTellsTheServiceAndHidesTheTip()
{
    m_assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    m_assistant->setValue(QStringLiteral("wakeup.oneshot"), true);
    const Page page;
    QCOMPARE(page.state(), stateOneShot);
    page.clickWakeup();
    QCOMPARE(page.state(), stateOff);
    QCOMPARE(page.tip()->text(), wakeupTip);
    QVERIFY(m_assistant->waitForCalls(QStringLiteral("disableOneshot")));
    QCOMPARE(members(*m_assistant),
             (QStringList{QStringLiteral("disableIvw"), QStringLiteral("disableOneshot")}));
    QVERIFY(!m_assistant->calls().at(1).replyExpected);
}

void AssistantPageTest::wakeupOnAgainLeavesOneShotUnchecked()
{
    m_assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    m_assistant->setValue(QStringLiteral("wakeup.oneshot"), true);
    const Page page;
    page.clickWakeup();
    page.clickWakeup();
    QCOMPARE(page.state(), stateOn);
    QVERIFY(m_assistant->waitForCalls(QStringLiteral("disableOneshot")));
    QCOMPARE(members(*m_assistant),
             (QStringList{QStringLiteral("disableIvw"), QStringLiteral("disableOneshot"),
                          QStringLiteral("enableIvw")}));
}

void AssistantPageTest::oneShotFollowsClickAndSpace()
{
    m_assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    const Page page;
    QCOMPARE(page.state(), stateOn);
    page.clickOneShot();
    QCOMPARE(page.state(), stateOneShot);
    QVERIFY(m_assistant->waitForCalls(QStringLiteral("enableOneshot")));
    QVERIFY(!m_assistant->calls().constFirst().replyExpected);

    page.oneShot()->setFocus();
    QTest::keyClick(page.oneShot(), Qt::Key_Space);
    QCOMPARE(page.state(), stateOn);
    QVERIFY(m_assistant->waitForCalls(QStringLiteral("disableOneshot")));
    QCOMPARE(members(*m_assistant),
             (QStringList{QStringLiteral("enableOneshot"), QStringLiteral("disableOneshot")}));
}

void AssistantPageTest::oneShotInTheStoreAloneStaysOffAlsoAfterWakeupIsOn()
{
    m_assistant->setValue(QStringLiteral("wakeup.oneshot"), true);
    const Page page;
    QCOMPARE(page.state(), stateOff);
    page.clickWakeup();
    QCOMPARE(page.state(), stateOn);
    QCOMPARE(members(*m_assistant), QStringList{QStringLiteral("enableIvw")});
}

void AssistantPageTest::wakeupFailuresChangeNothingOnScreen_data()
{
    QTest::addColumn<QString>("behaviour"); // null: the service is absent
    QTest::addColumn<QVariant>("argument");
    QTest::newRow("absent") << QString() << QVariant();
    QTest::newRow("error") << "error" << QVariant("no");
    QTest::newRow("another type") << "reply" << QVariant("text");
    QTest::newRow("a refusing code") << "reply" << QVariant(-1);
    QTest::newRow("no value") << "reply-list" << QVariant(QVariantList());
}

void AssistantPageTest::wakeupFailuresChangeNothingOnScreen()
{
    QFETCH(QString, behaviour);
    QFETCH(QVariant, argument);
    if (behaviour.isNull()) {
        m_assistant->leaveBus();
    } else {
        m_assistant->script(QStringLiteral("enableIvw"), behaviour, argument);
        m_assistant->script(QStringLiteral("disableIvw"), behaviour, argument);
    }
    const Page page;
    const LogCapture log;
    page.clickWakeup();
    QCOMPARE(page.state(), stateOn);
    page.clickOneShot();
    QCOMPARE(page.state(), stateOneShot);
    page.clickWakeup();
    QCOMPARE(page.state(), stateOff);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList());
}

void AssistantPageTest::wakeupLogsNothing()
{
    const Page page;
    const LogCapture log;
    page.clickWakeup();
    page.clickOneShot();
    page.clickWakeup();
    QCOMPARE(pageLines(log), QStringList());
}

void AssistantPageTest::keysAloneOperateTheFirstGroup()
{
    const Page page;
    testsupport::switchButton(page.wakeup())->setFocus(Qt::TabFocusReason);
    QTest::keyClick(page.widget()->focusWidget(), Qt::Key_Space);
    QCOMPARE(page.state(), stateOn);
    QTest::keyClick(page.widget()->focusWidget(), Qt::Key_Tab);
    QCOMPARE(page.widget()->focusWidget(), page.oneShot());
    QTest::keyClick(page.widget()->focusWidget(), Qt::Key_Space);
    QCOMPARE(page.state(), stateOneShot);
}

void AssistantPageTest::nextPageShowsWhatTheServiceStored()
{
    {
        const Page page;
        page.clickWakeup();
        page.clickOneShot();
        QVERIFY(m_assistant->waitForCalls(QStringLiteral("enableOneshot")));
    }
    const Page next;
    QCOMPARE(next.state(), stateOneShot);
}

void AssistantPageTest::thePageMayBeDeletedWhileWakeupWaits_data()
{
    QTest::addColumn<bool>("atOnce");
    QTest::addColumn<bool>("byKey");
    QTest::newRow("at once, clicked") << true << false;
    QTest::newRow("at once, by key") << true << true;
    QTest::newRow("scheduled, clicked") << false << false;
    QTest::newRow("scheduled, by key") << false << true;
}

void AssistantPageTest::thePageMayBeDeletedWhileWakeupWaits()
{
    QFETCH(bool, atOnce);
    QFETCH(bool, byKey);
    const Page page;
    QPointer<AssistantSettingWidget> widget = page.widget();
    whileHeld(
        QStringLiteral("enableIvw"),
        [&] {
            if (byKey)
                QTest::keyClick(testsupport::switchButton(page.wakeup()), Qt::Key_Space);
            else
                page.clickWakeup();
        },
        [&] {
            if (atOnce) {
                delete widget;
            } else {
                widget->deleteLater();
                testsupport::flushDeferredDeletes();
            }
            QVERIFY(widget.isNull());
        });
    // The service has its request all the same.
    QCOMPARE(m_assistant->value(QStringLiteral("wakeup.enabled")), QVariant(true));
}

void AssistantPageTest::theLastFlipWinsWhileWakeupWaits_data()
{
    QTest::addColumn<int>("flips"); // in the wait of the first one
    QTest::addColumn<QString>("state");
    QTest::newRow("off again") << 1 << stateOff;
    QTest::newRow("off and on") << 2 << stateOn;
    QTest::newRow("off, on, off") << 3 << stateOff;
}

void AssistantPageTest::theLastFlipWinsWhileWakeupWaits()
{
    QFETCH(int, flips);
    QFETCH(QString, state);
    const Page page;
    whileHeld(
        QStringLiteral("enableIvw"), [&] { page.clickWakeup(); },
        [&] {
            m_assistant->script(QStringLiteral("enableIvw"), QStringLiteral("answer"));
            for (int flip = 0; flip < flips; ++flip)
                page.clickWakeup();
            QCOMPARE(page.state(), state);
        });
    QCOMPARE(page.state(), state);
    QCOMPARE(m_assistant->value(QStringLiteral("wakeup.enabled")),
             QVariant(page.wakeup()->checked()));
}

void AssistantPageTest::otherControlsWorkWhileWakeupWaits()
{
    m_assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    const Page page;
    bool dockFollowed = false;
    whileHeld(
        QStringLiteral("disableIvw"), [&] { page.clickWakeup(); },
        [&] {
            page.clickOneShot();
            QVERIFY(page.oneShot()->isChecked());
            QCOMPARE(page.tip()->text(), oneShotTip);
            m_dock.setValue(QStringLiteral("hidden"), true);
            dockFollowed = QTest::qWaitFor([&] { return !page.dock()->checked(); });
        });
    QVERIFY(dockFollowed);
    QCOMPARE(page.state(), stateOff);
    QVERIFY(m_assistant->waitForCalls(QStringLiteral("disableOneshot")));
}

// What the user does meanwhile waits, too: the window system's events stay in Qt's queue.
void AssistantPageTest::aKeyPressedWhileWakeupWaitsArrivesAfterIt()
{
    const Page page;
    QVERIFY(page.dock()->checked());
    m_assistant->script(QStringLiteral("enableIvw"), QStringLiteral("hold"));
    QTimer turns; // of the loop in which the page waits
    int turnsLeft = 20;
    connect(&turns, &QTimer::timeout, this, [&] {
        if (--turnsLeft > 0)
            return;
        turns.stop();
        m_assistant->release(QStringLiteral("enableIvw"));
    });
    QTimer::singleShot(0, this, [&] {
        QVERIFY(m_assistant->waitForCalls(QStringLiteral("enableIvw")));
        testsupport::switchButton(page.dock())->setFocus();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            // QTest's keys pass the queue of the window system's events by.
            QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
                page.widget()->windowHandle(), type, Qt::Key_Space, Qt::NoModifier);
        }
        turns.start(0);
    });
    page.clickWakeup();
    QCOMPARE(turnsLeft, 0);
    QVERIFY(page.dock()->checked());
    QTRY_VERIFY(!page.dock()->checked());
    QCOMPARE(page.state(), stateOn);
}

void AssistantPageTest::theServiceMayDieWhileWakeupWaits()
{
    const Page page;
    whileHeld(
        QStringLiteral("enableIvw"), [&] { page.clickWakeup(); }, [this] { m_assistant->kill(); });
    QCOMPARE(page.state(), stateOn);
}

void AssistantPageTest::dockSwitchSendsTheOppositeAndDoesNotWait()
{
    const Page page;
    QVERIFY(page.dock()->checked());
    m_dock.reset();
    m_dock.script(QStringLiteral("setDockHideStatus"), QStringLiteral("hold"));
    const LogCapture log;
    for (bool show : {false, true}) {
        QTest::mouseClick(testsupport::switchButton(page.dock()), Qt::LeftButton);
        QCOMPARE(page.dock()->checked(), show);
    }
    QVERIFY(m_dock.waitForCalls(QStringLiteral("setDockHideStatus"), 2));
    const QList<ServiceCall> calls = m_dock.calls();
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.at(0).arguments, QJsonArray{true});
    QCOMPARE(calls.at(1).arguments, QJsonArray{false});
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotPluginShowSet | false")), 1);
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotPluginShowSet | true")), 1);
    QCOMPARE(m_dock.release(QStringLiteral("setDockHideStatus")), 2);
}

void AssistantPageTest::dockSwitchFollowsTheServiceAndSendsNothingBack()
{
    const Page page;
    m_dock.reset();
    const LogCapture log;
    m_dock.setValue(QStringLiteral("hidden"), true);
    QTRY_VERIFY(!page.dock()->checked());
    m_dock.setValue(QStringLiteral("hidden"), false);
    QTRY_VERIFY(page.dock()->checked());
    QCOMPARE(m_dock.calls().size(), 0);
    QCOMPARE(pageLines(log), (QStringList{QStringLiteral("slotdockHideChange | true"),
                                          QStringLiteral("slotdockHideChange | false")}));
    // The user's own flips are sent again afterwards.
    QTest::keyClick(testsupport::switchButton(page.dock()), Qt::Key_Space);
    QVERIFY(m_dock.waitForCalls(QStringLiteral("setDockHideStatus")));
    QCOMPARE(m_dock.calls().constFirst().arguments, QJsonArray{true});
}

void AssistantPageTest::dockSlotSendsNothingBack_data()
{
    QTest::addColumn<bool>("hide");
    QTest::newRow("taken away") << true;
    QTest::newRow("shown, as it is already") << false;
}

void AssistantPageTest::dockSlotSendsNothingBack()
{
    QFETCH(bool, hide);
    const Page page;
    m_dock.reset();
    const LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(page.widget(), "slotdockHideChange", Q_ARG(bool, hide)));
    QCOMPARE(page.dock()->checked(), !hide);
    QCOMPARE(pageLines(log),
             QStringList{QStringLiteral("slotdockHideChange | ") +
                         (hide ? QStringLiteral("true") : QStringLiteral("false"))});
    QCOMPARE(m_dock.calls().size(), 0);
}

void AssistantPageTest::dockSwitchWorksAfterTheServiceCameLate()
{
    m_dock.setValue(QStringLiteral("hidden"), true);
    m_dock.leaveBus();
    const Page page;
    QVERIFY(page.dock()->checked());
    m_dock.joinBus();
    m_dock.setValue(QStringLiteral("hidden"), false);
    m_dock.setValue(QStringLiteral("hidden"), true);
    QTRY_VERIFY(!page.dock()->checked());
    QTest::keyClick(testsupport::switchButton(page.dock()), Qt::Key_Space);
    QVERIFY(m_dock.waitForCalls(QStringLiteral("setDockHideStatus")));
    QCOMPARE(m_dock.value(QStringLiteral("hidden")), QVariant(false));
}

void AssistantPageTest::thePageLetsGoOfTheDockWhenItGoes()
{
    {
        const Page page;
    }
    const LogCapture log;
    m_dock.setValue(QStringLiteral("hidden"), true);
    const Page next;
    m_dock.setValue(QStringLiteral("hidden"), false);
    QTRY_VERIFY(next.dock()->checked());
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotdockHideChange | true")), 0);
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotdockHideChange | false")), 1);
}

void AssistantPageTest::logsItsEnd()
{
    const LogCapture log;
    {
        const AssistantSettingWidget page(nullptr);
    }
    const testsupport::LogRecord end = log.find(QStringLiteral("~AssistantSettingWidget"));
    QCOMPARE(end.type, QtDebugMsg);
    QCOMPARE(end.category, QStringLiteral("default"));
    QCOMPARE(end.function,
             QStringLiteral("virtual AssistantSettingWidget::~AssistantSettingWidget()"));
    QCOMPARE(pageLines(log), (QStringList{QStringLiteral("AssistantSettingWidget"),
                                          QStringLiteral("~AssistantSettingWidget")}));
}

TEST_CLASS(QApplication, AssistantPageTest)
#include "assistantpage.moc"
