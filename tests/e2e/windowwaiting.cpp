#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/navigationcolumn.h"
#include "sandbox/services/control/servicecontrol.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPointer>
#include <QtTest>

#include <functional>

using namespace controlcenter;
using testsupport::ServiceProcess;

/** What happens to the window while a page waits for its service: keys wait, too, but programs do
 * not. */
class WindowWaitingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void aPageThatComesAfterTheUserHasLeftIsDisposedOf();
    void theWindowCanBeClosed();
    void theServiceMayVanish();

private:
    /** The service has received a call. */
    void callReceived(const QString &member);
    NavigationColumn *navigation() const;
    /** Waits until nothing is left of @p widget. */
    static bool isGone(const QPointer<QWidget> &widget);

    ServiceProcess m_assistant{QStringLiteral("assistant")};
    QScopedPointer<sandbox::ServiceControl> m_control; // of the assistant
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    zccV20::ModuleInterface *m_module = nullptr;
    QScopedPointer<ControlCenterWindow> m_window;
    std::function<void()> m_meanwhile; ///< done once, when the page has begun to wait
};

namespace {

const QString page = QStringLiteral("Speech to Text");
const QString read = QStringLiteral("getIatEnable"); // the page's constructor waits for it

} // namespace

void WindowWaitingTest::initTestCase()
{
    const LoadedModule loaded = loadModule(QStringLiteral(MODULE_FILE));
    QVERIFY2(loaded.module, qPrintable(loaded.error));
    m_module = loaded.module;
    QVERIFY(m_keybinding.start());
}

void WindowWaitingTest::init()
{
    if (!m_assistant.isRunning()) {
        QVERIFY(m_assistant.start());
        m_control.reset(
            new sandbox::ServiceControl(QStringLiteral("assistant"), m_assistant.connection()));
        connect(m_control.data(), &sandbox::ServiceControl::CallReceived, this,
                &WindowWaitingTest::callReceived);
    }
    m_assistant.reset();
    QCoreApplication::processEvents(); // what it told before
    m_window.reset(new ControlCenterWindow(m_module));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    m_window->openModule();
}

void WindowWaitingTest::callReceived(const QString &member)
{
    if (member != read || !m_meanwhile)
        return;
    const auto meanwhile = std::move(m_meanwhile);
    m_meanwhile = nullptr;
    meanwhile();
}

NavigationColumn *WindowWaitingTest::navigation() const
{
    return m_window->findChild<NavigationColumn *>();
}

bool WindowWaitingTest::isGone(const QPointer<QWidget> &widget)
{
    return QTest::qWaitFor([&widget] { return widget.isNull(); });
}

void WindowWaitingTest::aPageThatComesAfterTheUserHasLeftIsDisposedOf()
{
    const QPointer<QWidget> first = m_window->currentPage();
    const QPointer<QWidget> list = m_window->moduleList();
    QVERIFY(first && list);
    m_assistant.script(read, QStringLiteral("hold"));
    m_meanwhile = [this] {
        navigation()->setCurrentEntry(QStringLiteral("keyboard"));
        m_assistant.release(read);
    };
    m_window->openPage(page);
    QVERIFY(!m_meanwhile);
    QVERIFY(!m_window->currentPage());
    QVERIFY(!m_window->moduleList());
    QVERIFY(isGone(first));
    QVERIFY(isGone(list));
    QCOMPARE(m_window->currentTitle(), QStringLiteral("Keyboard"));

    m_assistant.reset();
    m_window->openPage(page);
    QCOMPARE(m_window->currentTitle(), page);
    QVERIFY(m_window->currentPage());
}

void WindowWaitingTest::theWindowCanBeClosed()
{
    m_assistant.script(read, QStringLiteral("hold"));
    m_meanwhile = [this] {
        m_window->close();
        m_assistant.release(read);
    };
    m_window->openPage(page);
    QVERIFY(!m_meanwhile);
    QVERIFY(m_window->isHidden());
    QVERIFY(!m_window->currentPage());
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY2(QApplication::topLevelWidgets().isEmpty(), "the late page was left behind");
}

void WindowWaitingTest::theServiceMayVanish()
{
    m_assistant.script(read, QStringLiteral("vanish"));
    m_meanwhile = [] {
    };
    m_window->openPage(page);
    QCOMPARE(m_window->currentTitle(), page);
    QVERIFY(m_window->currentPage());
    QVERIFY(m_assistant.waitForEnd());
}

TEST_CLASS(QApplication, WindowWaitingTest)
#include "windowwaiting.moc"
