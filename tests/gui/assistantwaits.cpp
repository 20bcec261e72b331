#include "tests/gui/shownpages.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QTimer>
#include <QtTest>
#include <qpa/qwindowsysteminterface.h>

#include <functional>

using namespace testsupport;

/** Voice wake-up is the one call that waits while events are processed: anything may happen
 * meanwhile. */
class AssistantWaitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thePageMayBeDeletedWhileWakeupWaits_data();
    void thePageMayBeDeletedWhileWakeupWaits();
    void theLastFlipWinsWhileWakeupWaits_data();
    void theLastFlipWinsWhileWakeupWaits();
    void otherControlsWorkWhileWakeupWaits();
    void aKeyPressedWhileWakeupWaitsArrivesAfterIt();
    void theServiceMayDieWhileWakeupWaits();

private:
    /** Starts @p wait, which waits for the held reply of @p member, and runs @p meanwhile in it. */
    void whileHeld(const QString &member, const std::function<void()> &wait,
                   const std::function<void()> &meanwhile);

    AssistantServices m_services;
};

void AssistantWaitsTest::init()
{
    QVERIFY(m_services.start());
}

void AssistantWaitsTest::cleanup()
{
    m_services.stop();
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void AssistantWaitsTest::thePageMayBeDeletedWhileWakeupWaits_data()
{
    QTest::addColumn<bool>("atOnce");
    QTest::addColumn<bool>("byKey");
    QTest::newRow("at once, clicked") << true << false;
    QTest::newRow("at once, by key") << true << true;
    QTest::newRow("scheduled, clicked") << false << false;
    QTest::newRow("scheduled, by key") << false << true;
}

void AssistantWaitsTest::thePageMayBeDeletedWhileWakeupWaits()
{
    QFETCH(bool, atOnce);
    QFETCH(bool, byKey);
    const AssistantControls page;
    QPointer<AssistantSettingWidget> widget = page.get();
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
    QCOMPARE(m_services.assistant->value(QStringLiteral("wakeup.enabled")), QVariant(true));
}

void AssistantWaitsTest::theLastFlipWinsWhileWakeupWaits_data()
{
    QTest::addColumn<int>("flips"); // in the wait of the first one
    QTest::addColumn<QString>("state");
    QTest::newRow("off again") << 1 << stateOff;
    QTest::newRow("off and on") << 2 << stateOn;
    QTest::newRow("off, on, off") << 3 << stateOff;
}

void AssistantWaitsTest::theLastFlipWinsWhileWakeupWaits()
{
    QFETCH(int, flips);
    QFETCH(QString, state);
    const AssistantControls page;
    whileHeld(
        QStringLiteral("enableIvw"), [&] { page.clickWakeup(); },
        [&] {
            m_services.assistant->script(QStringLiteral("enableIvw"), QStringLiteral("answer"));
            for (int flip = 0; flip < flips; ++flip)
                page.clickWakeup();
            QCOMPARE(page.state(), state);
        });
    QCOMPARE(page.state(), state);
    QCOMPARE(m_services.assistant->value(QStringLiteral("wakeup.enabled")),
             QVariant(page.wakeup()->checked()));
}

void AssistantWaitsTest::otherControlsWorkWhileWakeupWaits()
{
    m_services.assistant->setValue(QStringLiteral("wakeup.enabled"), true);
    const AssistantControls page;
    bool dockFollowed = false;
    whileHeld(
        QStringLiteral("disableIvw"), [&] { page.clickWakeup(); },
        [&] {
            page.clickOneShot();
            QVERIFY(page.oneShot()->isChecked());
            QCOMPARE(page.tip()->text(), oneShotTip);
            m_services.dock.setValue(QStringLiteral("hidden"), true);
            dockFollowed = QTest::qWaitFor([&] { return !page.dock()->checked(); });
        });
    QVERIFY(dockFollowed);
    QCOMPARE(page.state(), stateOff);
    QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("disableOneshot")));
}

// What the user does meanwhile waits, too: the window system's events stay in Qt's queue.
void AssistantWaitsTest::aKeyPressedWhileWakeupWaitsArrivesAfterIt()
{
    const AssistantControls page;
    QVERIFY(page.dock()->checked());
    m_services.assistant->script(QStringLiteral("enableIvw"), QStringLiteral("hold"));
    QTimer turns; // of the loop in which the page waits
    int turnsLeft = 20;
    connect(&turns, &QTimer::timeout, this, [&] {
        if (--turnsLeft > 0)
            return;
        turns.stop();
        m_services.assistant->release(QStringLiteral("enableIvw"));
    });
    QTimer::singleShot(0, this, [&] {
        QVERIFY(m_services.assistant->waitForCalls(QStringLiteral("enableIvw")));
        testsupport::switchButton(page.dock())->setFocus();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            // QTest's keys pass the queue of the window system's events by.
            QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
                page.get()->windowHandle(), type, Qt::Key_Space, Qt::NoModifier);
        }
        turns.start(0);
    });
    page.clickWakeup();
    QCOMPARE(turnsLeft, 0);
    QVERIFY(page.dock()->checked());
    QTRY_VERIFY(!page.dock()->checked());
    QCOMPARE(page.state(), stateOn);
}

void AssistantWaitsTest::theServiceMayDieWhileWakeupWaits()
{
    const AssistantControls page;
    whileHeld(
        QStringLiteral("enableIvw"), [&] { page.clickWakeup(); },
        [this] { m_services.assistant->kill(); });
    QCOMPARE(page.state(), stateOn);
}

void AssistantWaitsTest::whileHeld(const QString &member, const std::function<void()> &wait,
                                   const std::function<void()> &meanwhile)
{
    m_services.assistant->script(member, QStringLiteral("hold"));
    bool waited = false;
    QTimer::singleShot(0, this, [&] {
        QVERIFY(m_services.assistant->waitForCalls(member));
        waited = true;
        meanwhile();
        if (m_services.assistant->isRunning())
            QVERIFY(m_services.assistant->release(member) > 0);
    });
    wait();
    QVERIFY(waited);
}

TEST_CLASS(QApplication, AssistantWaitsTest)
#include "assistantwaits.moc"
