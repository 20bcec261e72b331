#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/frame.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/moduleview.h"
#include "sandbox/controlcenter/navigationcolumn.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <memory>

using namespace controlcenter;
using testsupport::ScriptedModule;
using zccV20::FrameProxyInterface;

/** The frame drives a module in the documented order, and owns and disposes of what it pushes. */
class WindowFrameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void preparesInTheDocumentedOrder();
    void keepsWhatTheModuleRegisters();
    void firstPushIsTheListAndTheNextThePage();
    void aReplacedPageIsDeletedLater();
    void leavingDisposesOfListAndPage();
    void leavingTwiceTellsTheModuleOnce();
    void openingAgainStartsAfresh();
    void openingAPageActivatesFirst();
    void openingAPageOfTheOpenModuleDoesNotActivateAgain();
    void aPagePushedAfterLeavingIsDisposedOf();
    void otherPushTypesAreRefused();

private:
    ModuleRegistry m_registry;
    QScopedPointer<ModuleView> m_view;
    QScopedPointer<Frame> m_frame;
    QScopedPointer<ScriptedModule> m_module;
};

void WindowFrameTest::init()
{
    m_registry = ModuleRegistry();
    m_view.reset(new ModuleView);
    m_frame.reset(new Frame(&m_registry, m_view.data()));
    m_module.reset(new ScriptedModule);
    m_frame->prepare(m_module.data());
}

void WindowFrameTest::cleanup()
{
    m_frame.reset();
    m_view.reset();
    m_module.reset();
}

void WindowFrameTest::preparesInTheDocumentedOrder()
{
    QCOMPARE(m_module->calls,
             (QStringList{QStringLiteral("preInitialize"), QStringLiteral("initialize")}));
}

void WindowFrameTest::keepsWhatTheModuleRegisters()
{
    QCOMPARE(m_registry.pages(), QStringList{QStringLiteral("Page")});
    QCOMPARE(m_registry.translatedPage(QStringLiteral("Page")), QStringLiteral("Seite"));
    QCOMPARE(m_registry.searchEntries().size(), 2);
    QVERIFY(m_registry.searchEntries().at(0).item.isEmpty());
    QCOMPARE(m_registry.searchEntries().at(1).item, QStringLiteral("Ding"));
}

void WindowFrameTest::firstPushIsTheListAndTheNextThePage()
{
    QSignalSpy shown(m_frame.data(), &Frame::pageShown);
    m_frame->open(m_module.data());
    QCOMPARE(m_view->list(), m_module->pushed.at(0).data());
    QCOMPARE(m_view->page(), m_module->pushed.at(1).data());
    QVERIFY(m_view->isAncestorOf(m_view->list()));
    QVERIFY(m_view->isAncestorOf(m_view->page()));
    QCOMPARE(shown.count(), 1);
}

void WindowFrameTest::aReplacedPageIsDeletedLater()
{
    m_frame->open(m_module.data());
    const QPointer<QWidget> first = m_view->page();
    m_module->push();
    QVERIFY(first); // the module may be inside one of its signals
    QVERIFY(first->isHidden());
    QCOMPARE(m_view->page(), m_module->pushed.at(2).data());
    QCOMPARE(m_module->calls.last(), QStringLiteral("contentPopped"));
    QTRY_VERIFY(!first);
    QVERIFY(m_view->page());
}

void WindowFrameTest::leavingDisposesOfListAndPage()
{
    m_frame->open(m_module.data());
    m_frame->leave();
    QVERIFY(m_module->calls.contains(QStringLiteral("deactive")));
    QVERIFY(!m_view->list());
    QVERIFY(!m_view->page());
    QTRY_VERIFY(!m_module->pushed.at(0) && !m_module->pushed.at(1));
}

void WindowFrameTest::leavingTwiceTellsTheModuleOnce()
{
    m_frame->open(m_module.data());
    m_frame->leave();
    m_frame->leave();
    QCOMPARE(m_module->calls.count(QStringLiteral("deactive")), 1);
}

void WindowFrameTest::openingAgainStartsAfresh()
{
    m_frame->open(m_module.data());
    m_frame->open(m_module.data());
    QCOMPARE(m_module->calls.count(QStringLiteral("active")), 2);
    QCOMPARE(m_module->calls.count(QStringLiteral("deactive")), 1);
    QCOMPARE(m_view->list(), m_module->pushed.at(2).data());
    QCOMPARE(m_view->page(), m_module->pushed.at(3).data());
}

void WindowFrameTest::openingAPageActivatesFirst()
{
    m_module->calls.clear();
    m_frame->openPage(m_module.data(), QStringLiteral("Page"));
    QCOMPARE(m_module->calls.at(0), QStringLiteral("active"));
    QVERIFY(m_module->calls.contains(QStringLiteral("load Page")));
    QCOMPARE(m_view->page(), m_module->pushed.at(2).data());
}

void WindowFrameTest::openingAPageOfTheOpenModuleDoesNotActivateAgain()
{
    m_frame->open(m_module.data());
    m_frame->openPage(m_module.data(), QStringLiteral("Page"));
    QCOMPARE(m_module->calls.count(QStringLiteral("active")), 1);
}

// A page waits for a service while it is built; the user goes elsewhere meanwhile.
void WindowFrameTest::aPagePushedAfterLeavingIsDisposedOf()
{
    m_module->whileActivating = [this] {
        m_frame->leave();
    };
    m_frame->open(m_module.data());
    QVERIFY(!m_view->list());
    QVERIFY(!m_view->page());
    QTRY_VERIFY(!m_module->pushed.at(0) && !m_module->pushed.at(1));
}

void WindowFrameTest::otherPushTypesAreRefused()
{
    m_frame->open(m_module.data());
    QWidget *page = m_view->page();
    QTest::ignoreMessage(QtWarningMsg, "this window shows columns only, not push type 1");
    m_module->push(FrameProxyInterface::Overlay);
    QCOMPARE(m_view->page(), page);
    QTRY_VERIFY(!m_module->pushed.at(2));
}

TEST_CLASS(QApplication, WindowFrameTest)

using controlcenter::NavigationColumn;

/** The window's main navigation: where entries stand, and when they open. */
class WindowNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anEntryStandsBehindTheOneItFollows();
    void anEntryThatFollowsAnUnknownOneStandsLast();
    void openingIsToldOnce();
    void theArrowKeysOpen();
    void anUnknownEntryOpensNothing();
    void itIsAsWideAsItsLongestEntry();

private:
    QStringList texts() const;

    QScopedPointer<NavigationColumn> m_column;
};

void WindowNavigationTest::init()
{
    m_column.reset(new NavigationColumn);
    m_column->addEntry(QStringLiteral("keyboard"), QStringLiteral("Keyboard"), QIcon());
    m_column->addEntry(QStringLiteral("mouse"), QStringLiteral("Mouse"), QIcon());
}

QStringList WindowNavigationTest::texts() const
{
    QStringList result;
    for (int row = 0; row < m_column->model()->rowCount(); ++row)
        result.append(m_column->model()->index(row, 0).data().toString());
    return result;
}

void WindowNavigationTest::anEntryStandsBehindTheOneItFollows()
{
    m_column->addEntry(QStringLiteral("voice"), QStringLiteral("Voice"), QIcon(),
                       QStringLiteral("keyboard"));
    QCOMPARE(texts(), (QStringList{QStringLiteral("Keyboard"), QStringLiteral("Voice"),
                                   QStringLiteral("Mouse")}));
    QCOMPARE(m_column->entryText(QStringLiteral("voice")), QStringLiteral("Voice"));
}

void WindowNavigationTest::anEntryThatFollowsAnUnknownOneStandsLast()
{
    m_column->addEntry(QStringLiteral("voice"), QStringLiteral("Voice"), QIcon(),
                       QStringLiteral("printer"));
    QCOMPARE(texts().constLast(), QStringLiteral("Voice"));
}

void WindowNavigationTest::openingIsToldOnce()
{
    QSignalSpy opened(m_column.data(), &NavigationColumn::entryOpened);
    m_column->setCurrentEntry(QStringLiteral("mouse"));
    m_column->setCurrentEntry(QStringLiteral("mouse"));
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toString(), QStringLiteral("mouse"));
    QCOMPARE(m_column->currentEntry(), QStringLiteral("mouse"));
}

void WindowNavigationTest::theArrowKeysOpen()
{
    m_column->setCurrentEntry(QStringLiteral("keyboard"));
    QSignalSpy opened(m_column.data(), &NavigationColumn::entryOpened);
    QTest::keyClick(m_column.data(), Qt::Key_Down);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toString(), QStringLiteral("mouse"));
}

void WindowNavigationTest::anUnknownEntryOpensNothing()
{
    QSignalSpy opened(m_column.data(), &NavigationColumn::entryOpened);
    m_column->setCurrentEntry(QStringLiteral("printer"));
    QCOMPARE(opened.count(), 0);
    QVERIFY(m_column->currentEntry().isEmpty());
}

void WindowNavigationTest::itIsAsWideAsItsLongestEntry()
{
    const int before = m_column->sizeHint().width();
    const QString text = QStringLiteral("A name that is much longer than the others");
    m_column->addEntry(QStringLiteral("long"), text, QIcon());
    QVERIFY(m_column->sizeHint().width() > before);
    QVERIFY(m_column->sizeHint().width() > m_column->fontMetrics().horizontalAdvance(text));
}

TEST_CLASS(QApplication, WindowNavigationTest)

using testsupport::ShownRow;

/** What a desktop shows of the window, and the keys that every window has. */
class WholeWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ShownRow::setUpApplication(); }
    void init();
    void cleanup() { m_window.reset(); }
    void theTitleSaysWhereOneIs();
    void theIconIsAPictureOfItsOwn();
    void itIsClosedByItsKeys_data();
    void itIsClosedByItsKeys();

private:
    testsupport::ScriptedModule m_module;
    std::unique_ptr<ControlCenterWindow> m_window;
};

void WholeWindowTest::init()
{
    m_window = std::make_unique<ControlCenterWindow>(&m_module);
    m_module.calls.clear();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void WholeWindowTest::theTitleSaysWhereOneIs()
{
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Control Center"));
    m_window->openServices();
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Services – Control Center"));
    m_window->openModule(); // its list has no row: there is no page's name
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Scripted – Control Center"));
    m_window->openShortcuts();
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Shortcuts – Control Center"));
}

/** With colours of its own: it stands on panels that are light or dark as they like. */
void WholeWindowTest::theIconIsAPictureOfItsOwn()
{
    const QImage icon = m_window->windowIcon().pixmap(48).toImage();
    QCOMPARE(icon.size(), QSize(48, 48));
    QVERIFY(testsupport::pictures::count(icon, Qt::white, {}, 60) > 20);
    QVERIFY(testsupport::pictures::count(icon, QColor("#1769e0"), {}, 30) > 500);
    QCOMPARE(icon.pixelColor(0, 0).alpha(), 0);
}

void WholeWindowTest::itIsClosedByItsKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Ctrl+W") << int(Qt::Key_W);
    QTest::newRow("Ctrl+Q") << int(Qt::Key_Q);
}

void WholeWindowTest::itIsClosedByItsKeys()
{
    QFETCH(int, key);
    m_window->openModule();
    QTest::keyClick(m_window->windowHandle(), Qt::Key(key), Qt::ControlModifier);
    QVERIFY(!m_window->isVisible());
    QVERIFY(m_module.calls.contains(QStringLiteral("deactive")));
}

TEST_CLASS(QApplication, WholeWindowTest)

#include "windowparts.moc"
