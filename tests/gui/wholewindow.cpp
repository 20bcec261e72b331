#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/navigationcolumn.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <memory>

using namespace controlcenter;
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
#include "wholewindow.moc"
