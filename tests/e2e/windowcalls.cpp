// The list of the calls to the services, with real services.

#include "contracts/contract.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/worlddrawer/calllist.h"
#include "sandbox/controlcenter/worlddrawer/callmodel.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zlistview.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest>

#include <memory>

using namespace controlcenter;
using testsupport::ServiceProcess;
using Ztk::Widget::ZListView;

/** Calls are shown as they come and are answered, and nothing is followed while nobody looks. */
class WindowCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aCallIsShownWithItsModeAndAnswer();
    void anAnswerComesWhenItComes();
    void onlyCallsToTheChosenServiceAreShown();
    void theCallsThatAreShownAreCopied();
    void whatIsClearedStaysAway();
    void theListsOwnQuestionsAreNoCalls();
    void hiddenItFollowsNothingAndCatchesUp();
    void aServiceMayEndAndComeBack();
    void aFloodIsShownTenTimesASecondAndTheOldestGo();
    void theLatestIsInSightForWhoeverLooksAtTheEnd();
    void assistiveTechnologiesReadTheRows();

private:
    static QDBusMessage question();
    static void ask();
    static void hide(bool hidden);
    ZListView *list() const { return m_list->findChild<ZListView *>(); }
    QString row(int index) const;
    void press(const QString &button) const;

    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    std::unique_ptr<ServiceWatches> m_watches;
    std::unique_ptr<CallList> m_list;
};

namespace {

const QString ask1 = QStringLiteral("getDockHideStatus(), Dock icon, reply expected, ");

} // namespace

void WindowCallsTest::initTestCase()
{
    Ztk::Widget::ZApplicationSetup::install();
    QVERIFY(m_network.start());
}

void WindowCallsTest::init()
{
    if (!m_dock.isRunning())
        QVERIFY(m_dock.start());
    m_dock.setValue(QStringLiteral("hidden"), false);
    m_dock.reset();
    m_network.reset();
    m_watches = std::make_unique<ServiceWatches>();
    m_list = std::make_unique<CallList>(m_watches.get());
    m_list->resize(360, 400);
    m_list->show();
    QTRY_VERIFY(m_watches->isKnown());
}

void WindowCallsTest::cleanup()
{
    m_list.reset();
    m_watches.reset();
}

QDBusMessage WindowCallsTest::question()
{
    const Contract::Method method = Contract::DockIcon::getDockHideStatus();
    return QDBusMessage::createMethodCall(method.object.service, method.object.path,
                                          method.object.interface, method.name);
}

void WindowCallsTest::ask()
{
    QDBusConnection::sessionBus().asyncCall(question());
}

void WindowCallsTest::hide(bool hidden)
{
    const Contract::Method method = Contract::DockIcon::setDockHideStatus();
    QDBusMessage call = QDBusMessage::createMethodCall(method.object.service, method.object.path,
                                                       method.object.interface, method.name);
    call.setArguments({hidden});
    QDBusConnection::sessionBus().send(call);
}

QString WindowCallsTest::row(int index) const
{
    return list()->model()->index(index, 0).data(Qt::AccessibleTextRole).toString();
}

void WindowCallsTest::press(const QString &button) const
{
    for (QPushButton *each : m_list->findChildren<QPushButton *>())
        if (each->text() == button)
            each->click();
}

void WindowCallsTest::aCallIsShownWithItsModeAndAnswer()
{
    ask();
    QTRY_COMPARE(row(0), ask1 + QStringLiteral("answer: false"));
    hide(true);
    QTRY_COMPARE(row(1), QStringLiteral("setDockHideStatus(true), Dock icon, no reply expected"));
    m_dock.script(QStringLiteral("*"), QStringLiteral("error"), QStringLiteral("no dock"));
    ask();
    QTRY_COMPARE(row(2), ask1 + QStringLiteral("error: no dock"));
    QCOMPARE(list()->model()->rowCount(), 3);
}

void WindowCallsTest::anAnswerComesWhenItComes()
{
    m_dock.script(question().member(), QStringLiteral("hold"));
    ask();
    QTRY_COMPARE(row(0), ask1 + QStringLiteral("no answer yet"));
    QCOMPARE(m_dock.release(question().member()), 1);
    QTRY_COMPARE(row(0), ask1 + QStringLiteral("answer: false"));
    QCOMPARE(list()->model()->rowCount(), 1);
}

void WindowCallsTest::onlyCallsToTheChosenServiceAreShown()
{
    const Contract::Method method = Contract::NetworkManager::state();
    QDBusConnection::systemBus().asyncCall(QDBusMessage::createMethodCall(
        method.object.service, method.object.path, method.object.interface, method.name));
    ask();
    QTRY_COMPARE(list()->model()->rowCount(), 2);
    auto *filter = m_list->findChild<QComboBox *>();
    QCOMPARE(filter->count(), 7);
    const auto choose = [filter](const QString &service) {
        const int wanted = filter->findText(service);
        while (filter->currentIndex() != wanted)
            QTest::keyClick(filter, filter->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    };
    choose(QStringLiteral("Network"));
    QCOMPARE(list()->model()->rowCount(), 1);
    QVERIFY2(row(0).startsWith(method.name + QStringLiteral("(), Network")), qPrintable(row(0)));
    choose(QStringLiteral("Shortcuts"));
    QCOMPARE(list()->model()->rowCount(), 0);
    QVERIFY(!list()->isVisible());
    choose(QStringLiteral("All services"));
    QCOMPARE(list()->model()->rowCount(), 2);
    QVERIFY(list()->isVisible());
}

void WindowCallsTest::theCallsThatAreShownAreCopied()
{
    ask();
    hide(false);
    QTRY_COMPARE(list()->model()->rowCount(), 2);
    QTRY_VERIFY(row(0).endsWith(QLatin1String("answer: false")));
    press(QStringLiteral("Copy"));
    const QString interface = question().interface();
    const QRegularExpression lines(
        QStringLiteral("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3} Dock icon: %1.getDockHideStatus\\(\\): "
                       "reply expected, answer: false\\n"
                       "\\d\\d:\\d\\d:\\d\\d\\.\\d{3} Dock icon: %1.setDockHideStatus\\(false\\): "
                       "no reply expected\\n$")
            .arg(QRegularExpression::escape(interface)));
    const QString copied = QGuiApplication::clipboard()->text();
    QVERIFY2(lines.match(copied).hasMatch(), qPrintable(copied));
}

void WindowCallsTest::whatIsClearedStaysAway()
{
    m_dock.script(question().member(), QStringLiteral("hold"));
    ask();
    QTRY_COMPARE(list()->model()->rowCount(), 1);
    press(QStringLiteral("Clear"));
    QCOMPARE(list()->model()->rowCount(), 0);
    QCOMPARE(m_dock.release(question().member()), 1);
    m_list->hide();
    m_list->show();
    hide(false); // tells that there was time for the others
    QTRY_COMPARE(list()->model()->rowCount(), 1);
    QVERIFY2(row(0).startsWith(QLatin1String("setDockHideStatus")), qPrintable(row(0)));
}

void WindowCallsTest::theListsOwnQuestionsAreNoCalls()
{
    for (ServiceWatch *watch : m_watches->all()) {
        watch->setFollowing(true);
        watch->refresh();
    }
    QSignalSpy answered(m_watches->named(QStringLiteral("dock")), &ServiceWatch::answered);
    QVERIFY(answered.wait());
    ask();
    QTRY_COMPARE(list()->model()->rowCount(), 1);
}

void WindowCallsTest::hiddenItFollowsNothingAndCatchesUp()
{
    m_list->hide();
    const int rules = testsupport::matchRules();
    m_list->show();
    QCOMPARE(testsupport::matchRules(), rules + 5); // the sixth service is on the other bus
    m_list->hide();
    QCOMPARE(testsupport::matchRules(), rules);
    ask();
    hide(true);
    QVERIFY(m_dock.waitForCalls(QStringLiteral("setDockHideStatus")));
    QCoreApplication::processEvents();
    QVERIFY(m_list->text().isEmpty());
    m_list->show();
    QTRY_COMPARE(list()->model()->rowCount(), 2);
    QCOMPARE(row(0), ask1 + QStringLiteral("answer: false"));
    hide(false);
    QTRY_COMPARE(list()->model()->rowCount(), 3);
}

void WindowCallsTest::aServiceMayEndAndComeBack()
{
    ask();
    QTRY_COMPARE(row(0), ask1 + QStringLiteral("answer: false"));
    QVERIFY(m_dock.stop());
    QVERIFY(m_dock.start()); // it counts its calls from one again
    QTRY_COMPARE(m_watches->named(QStringLiteral("dock"))->state(), ServiceWatch::Running);
    m_dock.script(QStringLiteral("*"), QStringLiteral("error"), QStringLiteral("no dock"));
    ask();
    QTRY_COMPARE(row(1), ask1 + QStringLiteral("error: no dock"));
    QCOMPARE(row(0), ask1 + QStringLiteral("answer: false"));
}

void WindowCallsTest::aFloodIsShownTenTimesASecondAndTheOldestGo()
{
    int updates = 0;
    bool updating = false;
    connect(list()->model(), &QAbstractItemModel::rowsInserted, this, [&] {
        if (updating)
            return;
        updating = true;
        ++updates;
        QTimer::singleShot(0, this, [&] { updating = false; });
    });
    QElapsedTimer elapsed;
    elapsed.start();
    int calls = 0;
    while (elapsed.elapsed() < 500 || calls <= CallModel::mostCalls) {
        QDBusConnection::sessionBus().call(question());
        ++calls;
        QCoreApplication::processEvents();
    }
    m_dock.script(QStringLiteral("*"), QStringLiteral("error"), QStringLiteral("the end"));
    ask();
    QTRY_COMPARE(row(CallModel::mostCalls - 1), ask1 + QStringLiteral("error: the end"));
    QCOMPARE(list()->model()->rowCount(), CallModel::mostCalls);
    QVERIFY(updates > 1);
    QVERIFY2(updates <= elapsed.elapsed() / 100 + 1, qPrintable(QString::number(updates)));
    disconnect(list()->model(), nullptr, this, nullptr);
}

void WindowCallsTest::theLatestIsInSightForWhoeverLooksAtTheEnd()
{
    const auto *bar = list()->verticalScrollBar();
    for (int i = 0; i < 30; ++i)
        hide(i % 2);
    QTRY_COMPARE(list()->model()->rowCount(), 30);
    QTRY_VERIFY(bar->maximum() > 0);
    QTRY_COMPARE(bar->value(), bar->maximum());
    list()->scrollToTop();
    hide(true);
    QTRY_COMPARE(list()->model()->rowCount(), 31);
    list()->doItemsLayout();
    QCOMPARE(bar->value(), 0);
}

void WindowCallsTest::assistiveTechnologiesReadTheRows()
{
    ask();
    hide(true);
    QTRY_COMPARE(list()->model()->rowCount(), 2);
    QTRY_VERIFY(row(0).endsWith(QLatin1String("answer: false")));
    QAccessibleInterface *rows = QAccessible::queryAccessibleInterface(list());
    QCOMPARE(rows->role(), QAccessible::List);
    QCOMPARE(rows->text(QAccessible::Name), QStringLiteral("Calls"));
    QCOMPARE(rows->childCount(), 2);
    QCOMPARE(rows->child(0)->role(), QAccessible::ListItem);
    QCOMPARE(rows->child(0)->text(QAccessible::Name), ask1 + QStringLiteral("answer: false"));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_End);
    QCOMPARE(list()->currentIndex().row(), 1);
}

TEST_CLASS(QApplication, WindowCallsTest)
#include "windowcalls.moc"
