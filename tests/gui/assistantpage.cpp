#include "tests/gui/shownpages.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QtTest>

using namespace testsupport;

/** Voice wake-up, one-shot mode and the dock icon: the controls of the assistant page that depend
 * on each other or on what happens elsewhere. */
class AssistantPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
    void dockSwitchSendsTheOppositeAndDoesNotWait();
    void dockSwitchFollowsTheServiceAndSendsNothingBack();
    void dockSlotSendsNothingBack_data();
    void dockSlotSendsNothingBack();
    void dockSwitchWorksAfterTheServiceCameLate();
    void thePageLetsGoOfTheDockWhenItGoes();
    void logsItsEnd();

private:
    AssistantServices m_services;
};

void AssistantPageTest::init()
{
    QVERIFY(m_services.start());
}

void AssistantPageTest::cleanup()
{
    m_services.stop();
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void AssistantPageTest::wakeupOnWaitsForTheServiceAndEnablesOneShot()
{
    const AssistantControls page;
    QCOMPARE(page.state(), stateOff);
    page.clickWakeup();
    // The service has answered and the check box has changed when the click is over.
    QCOMPARE(page.state(), stateOn);
    QCOMPARE(calledMembers(*m_services.assistant), QStringList{QStringLiteral("enableIvw")});
    QVERIFY(m_services.assistant->calls().constFirst().replyExpected);
    QCOMPARE(m_services.assistant->value(QStringLiteral("wakeup.enabled")), QVariant(true));
}

void AssistantPageTest::wakeupOffUnchecksOneShotTellsTheServiceAndHidesTheTip()
{
    m_services.assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    m_services.assistant->setValue(QStringLiteral("wakeup.oneshot"), true);
    const AssistantControls page;
    QCOMPARE(page.state(), stateOneShot);
    page.clickWakeup();
    QCOMPARE(page.state(), stateOff);
    QCOMPARE(page.tip()->text(), wakeupTip);
    QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("disableOneshot")));
    QCOMPARE(calledMembers(*m_services.assistant),
             (QStringList{QStringLiteral("disableIvw"), QStringLiteral("disableOneshot")}));
    QVERIFY(!m_services.assistant->calls().at(1).replyExpected);
}

void AssistantPageTest::wakeupOnAgainLeavesOneShotUnchecked()
{
    m_services.assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    m_services.assistant->setValue(QStringLiteral("wakeup.oneshot"), true);
    const AssistantControls page;
    page.clickWakeup();
    page.clickWakeup();
    QCOMPARE(page.state(), stateOn);
    QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("disableOneshot")));
    QCOMPARE(calledMembers(*m_services.assistant),
             (QStringList{QStringLiteral("disableIvw"), QStringLiteral("disableOneshot"),
                          QStringLiteral("enableIvw")}));
}

void AssistantPageTest::oneShotFollowsClickAndSpace()
{
    m_services.assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    const AssistantControls page;
    QCOMPARE(page.state(), stateOn);
    page.clickOneShot();
    QCOMPARE(page.state(), stateOneShot);
    QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("enableOneshot")));
    QVERIFY(!m_services.assistant->calls().constFirst().replyExpected);

    page.oneShot()->setFocus();
    QTest::keyClick(page.oneShot(), Qt::Key_Space);
    QCOMPARE(page.state(), stateOn);
    QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("disableOneshot")));
    QCOMPARE(calledMembers(*m_services.assistant),
             (QStringList{QStringLiteral("enableOneshot"), QStringLiteral("disableOneshot")}));
}

void AssistantPageTest::oneShotInTheStoreAloneStaysOffAlsoAfterWakeupIsOn()
{
    m_services.assistant->setValue(QStringLiteral("wakeup.oneshot"), true);
    const AssistantControls page;
    QCOMPARE(page.state(), stateOff);
    page.clickWakeup();
    QCOMPARE(page.state(), stateOn);
    QCOMPARE(calledMembers(*m_services.assistant), QStringList{QStringLiteral("enableIvw")});
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
        m_services.assistant->leaveBus();
    } else {
        m_services.assistant->script(QStringLiteral("enableIvw"), behaviour, argument);
        m_services.assistant->script(QStringLiteral("disableIvw"), behaviour, argument);
    }
    const AssistantControls page;
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
    const AssistantControls page;
    const LogCapture log;
    page.clickWakeup();
    page.clickOneShot();
    page.clickWakeup();
    QCOMPARE(pageLines(log), QStringList());
}

void AssistantPageTest::keysAloneOperateTheFirstGroup()
{
    const AssistantControls page;
    testsupport::switchButton(page.wakeup())->setFocus(Qt::TabFocusReason);
    QTest::keyClick(page.get()->focusWidget(), Qt::Key_Space);
    QCOMPARE(page.state(), stateOn);
    QTest::keyClick(page.get()->focusWidget(), Qt::Key_Tab);
    QCOMPARE(page.get()->focusWidget(), page.oneShot());
    QTest::keyClick(page.get()->focusWidget(), Qt::Key_Space);
    QCOMPARE(page.state(), stateOneShot);
}

void AssistantPageTest::nextPageShowsWhatTheServiceStored()
{
    {
        const AssistantControls page;
        page.clickWakeup();
        page.clickOneShot();
        QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("enableOneshot")));
    }
    const AssistantControls next;
    QCOMPARE(next.state(), stateOneShot);
}

void AssistantPageTest::dockSwitchSendsTheOppositeAndDoesNotWait()
{
    const AssistantControls page;
    QVERIFY(page.dock()->checked());
    m_services.dock.reset();
    m_services.dock.script(QStringLiteral("setDockHideStatus"), QStringLiteral("hold"));
    const LogCapture log;
    for (bool show : {false, true}) {
        QTest::mouseClick(testsupport::switchButton(page.dock()), Qt::LeftButton);
        QCOMPARE(page.dock()->checked(), show);
    }
    QVERIFY(m_services.dock.waitForCalls(QStringLiteral("setDockHideStatus"), 2));
    const QList<ServiceCall> calls = m_services.dock.calls();
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.at(0).arguments, QJsonArray{true});
    QCOMPARE(calls.at(1).arguments, QJsonArray{false});
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotPluginShowSet | false")), 1);
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotPluginShowSet | true")), 1);
    QCOMPARE(m_services.dock.release(QStringLiteral("setDockHideStatus")), 2);
}

void AssistantPageTest::dockSwitchFollowsTheServiceAndSendsNothingBack()
{
    const AssistantControls page;
    m_services.dock.reset();
    const LogCapture log;
    m_services.dock.setValue(QStringLiteral("hidden"), true);
    QTRY_VERIFY(!page.dock()->checked());
    m_services.dock.setValue(QStringLiteral("hidden"), false);
    QTRY_VERIFY(page.dock()->checked());
    QCOMPARE(m_services.dock.calls().size(), 0);
    QCOMPARE(pageLines(log), (QStringList{QStringLiteral("slotdockHideChange | true"),
                                          QStringLiteral("slotdockHideChange | false")}));
    // The user's own flips are sent again afterwards.
    QTest::keyClick(testsupport::switchButton(page.dock()), Qt::Key_Space);
    QVERIFY(m_services.dock.waitForCalls(QStringLiteral("setDockHideStatus")));
    QCOMPARE(m_services.dock.calls().constFirst().arguments, QJsonArray{true});
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
    const AssistantControls page;
    m_services.dock.reset();
    const LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(page.get(), "slotdockHideChange", Q_ARG(bool, hide)));
    QCOMPARE(page.dock()->checked(), !hide);
    QCOMPARE(pageLines(log),
             QStringList{QStringLiteral("slotdockHideChange | ") +
                         (hide ? QStringLiteral("true") : QStringLiteral("false"))});
    QCOMPARE(m_services.dock.calls().size(), 0);
}

void AssistantPageTest::dockSwitchWorksAfterTheServiceCameLate()
{
    m_services.dock.setValue(QStringLiteral("hidden"), true);
    m_services.dock.leaveBus();
    const AssistantControls page;
    QVERIFY(page.dock()->checked());
    m_services.dock.joinBus();
    m_services.dock.setValue(QStringLiteral("hidden"), false);
    m_services.dock.setValue(QStringLiteral("hidden"), true);
    QTRY_VERIFY(!page.dock()->checked());
    QTest::keyClick(testsupport::switchButton(page.dock()), Qt::Key_Space);
    QVERIFY(m_services.dock.waitForCalls(QStringLiteral("setDockHideStatus")));
    QCOMPARE(m_services.dock.value(QStringLiteral("hidden")), QVariant(false));
}

void AssistantPageTest::thePageLetsGoOfTheDockWhenItGoes()
{
    {
        const AssistantControls page;
    }
    const LogCapture log;
    m_services.dock.setValue(QStringLiteral("hidden"), true);
    const AssistantControls next;
    m_services.dock.setValue(QStringLiteral("hidden"), false);
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
