// The control-center window and services that change, hang and go.

#include "contracts/contract.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/navigationcolumn.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/services/control/servicecontrol.h"
#include "tests/support/busrecorder.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QPointer>
#include <QtTest>

#include <algorithm>
#include <functional>

using namespace controlcenter;
using testsupport::BusMessage;
using testsupport::BusRecorder;
using testsupport::ServiceProcess;

/** The page of services follows services that change, come, go and hang, without ever waiting. */
class WindowServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void itKnowsTheValues();
    void itKnowsAllValuesAtOnceAndInOrder();
    void itFollowsACall();
    void aFloodOfCallsIsAskedAboutTenTimesASecond();
    void whileNobodyLooksNothingIsAsked();
    void itFollowsAServiceThatEndsAndComesBack();
    void aServiceThatHangsDoesNotHoldUpTheWindow();
    void aServiceThatHangsIsSilentUntilItGoesOn();
    void aServiceThatWasNeverThere();
    void theLatestFaultCountsInWhateverOrderAnswersCome();

private:
    QString shown() const;
    QScopedPointer<ServiceProcess> m_dock;
    QScopedPointer<ServiceWatch> m_watch;
};

namespace {

const QString key = QStringLiteral("hidden");
const QString busName = QStringLiteral("com.corvane.aiassistant.dock");

void setHidden(bool hidden)
{
    const Contract::Method method = Contract::DockIcon::setDockHideStatus();
    QDBusMessage call = QDBusMessage::createMethodCall(method.object.service, method.object.path,
                                                       method.object.interface, method.name);
    call.setArguments({hidden});
    QVERIFY(QDBusConnection::sessionBus().send(call));
}

// A service's control that answers the first script after the second.
class LateControl : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return QString(); }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() != QLatin1String("Script")) {
            connection.send(message.createErrorReply(QDBusError::NotSupported, QString()));
        } else if (m_first.type() == QDBusMessage::InvalidMessage) {
            m_first = message;
        } else {
            connection.send(message.createReply());
            connection.send(m_first.createReply());
        }
        return true;
    }

private:
    QDBusMessage m_first;
};

// How often the watch has asked for a value.
int questions(const BusRecorder &recorder)
{
    const QList<BusMessage> calls = recorder.calls();
    return int(std::count_if(calls.cbegin(), calls.cend(), [](const BusMessage &call) {
        return call.member == QLatin1String("Value");
    }));
}

} // namespace

// The value under the key, or nothing.
QString WindowServicesTest::shown() const
{
    for (const auto &value : m_watch->values())
        if (value.first == key)
            return value.second;
    return QString();
}

void WindowServicesTest::init()
{
    m_watch.reset();
    m_dock.reset(new ServiceProcess(QStringLiteral("dock")));
    QVERIFY(m_dock->start());
    m_watch.reset(new ServiceWatch(sandbox::serviceNamed(QStringLiteral("dock"))));
}

void WindowServicesTest::itKnowsTheValues()
{
    QCOMPARE(m_watch->state(), ServiceWatch::Unknown);
    m_watch->refresh();
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Running);
    QTRY_COMPARE(shown(), QStringLiteral("false"));
    QCOMPARE(m_watch->busName(), busName);
}

void WindowServicesTest::itKnowsAllValuesAtOnceAndInOrder()
{
    ServiceProcess assistant(QStringLiteral("assistant"));
    QVERIFY(assistant.start());
    ServiceWatch watch(sandbox::serviceNamed(QStringLiteral("assistant")));
    QStringList keys;
    connect(&watch, &ServiceWatch::changed, &watch, [&] {
        if (keys.isEmpty())
            for (const auto &value : watch.values())
                keys.append(value.first);
    });
    watch.refresh();
    QTRY_COMPARE(watch.state(), ServiceWatch::Running);
    QVERIFY(keys.size() > 1);
    QCOMPARE(keys, sandbox::ServiceControl(QStringLiteral("assistant")).keys());
}

void WindowServicesTest::itFollowsACall()
{
    m_watch->setFollowing(true);
    QTRY_COMPARE(shown(), QStringLiteral("false"));
    setHidden(true);
    QTRY_COMPARE(shown(), QStringLiteral("true"));
}

void WindowServicesTest::aFloodOfCallsIsAskedAboutTenTimesASecond()
{
    m_watch->setFollowing(true);
    QTRY_COMPARE(shown(), QStringLiteral("false"));
    BusRecorder recorder;
    QVERIFY(recorder.start());
    QSignalSpy called(m_watch->findChild<sandbox::ServiceControl *>(),
                      &sandbox::ServiceControl::CallReceived);
    QElapsedTimer elapsed;
    elapsed.start();
    bool hidden = false;
    // Many rounds of questions, if each call began one.
    while (elapsed.elapsed() < 500 || called.count() <= 20) {
        hidden = !hidden;
        setHidden(hidden);
        QVERIFY(called.wait());
    }
    setHidden(true);
    QTRY_COMPARE(shown(), QStringLiteral("true"));
    QVERIFY(recorder.sync());
    const int keys = m_watch->values().size();
    QVERIFY2(questions(recorder) <= (elapsed.elapsed() / 100 + 1) * keys,
             qPrintable(QString::number(questions(recorder))));
}

// Another watch, which somebody looks at, tells that there was time to ask.
void WindowServicesTest::whileNobodyLooksNothingIsAsked()
{
    m_watch->refresh();
    QTRY_COMPARE(shown(), QStringLiteral("false"));
    const QSignalSpy changed(m_watch.data(), &ServiceWatch::changed);
    ServiceWatch other(sandbox::serviceNamed(QStringLiteral("dock")));
    other.setFollowing(true);
    for (const bool hidden : {true, false, true}) {
        setHidden(hidden);
        const QString text = hidden ? QStringLiteral("true") : QStringLiteral("false");
        QTRY_COMPARE(other.values().value(0).second, text);
    }
    QCOMPARE(changed.count(), 0);
    m_watch->setFollowing(true);
    QTRY_COMPARE(shown(), QStringLiteral("true"));
}

void WindowServicesTest::itFollowsAServiceThatEndsAndComesBack()
{
    m_watch->refresh();
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Running);
    QSignalSpy changed(m_watch.data(), &ServiceWatch::changed);
    QVERIFY(m_dock->stop());
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Missing);
    QVERIFY(changed.count() > 0);
    QVERIFY(m_watch->values().isEmpty());
    QVERIFY(m_dock->start());
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Running);
}

void WindowServicesTest::aServiceThatHangsDoesNotHoldUpTheWindow()
{
    m_dock->suspend();
    QElapsedTimer timer;
    timer.start();
    m_watch->refresh();
    QCoreApplication::processEvents();
    QVERIFY(timer.elapsed() < 1000); // the bus itself would wait for 25 seconds
    m_dock->resume();
    QTRY_COMPARE(shown(), QStringLiteral("false"));
}

void WindowServicesTest::aServiceThatHangsIsSilentUntilItGoesOn()
{
    m_dock->suspend();
    m_watch->setFollowing(true);
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Silent);
    m_dock->resume();
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Running);
    QCOMPARE(shown(), QStringLiteral("false"));
}

void WindowServicesTest::aServiceThatWasNeverThere()
{
    ServiceWatch watch({QStringLiteral("cellar"), QStringLiteral("com.corvane.cellar"),
                        QDBusConnection::SessionBus, QString()});
    watch.refresh();
    QTRY_COMPARE(watch.state(), ServiceWatch::Missing);
    QVERIFY(watch.values().isEmpty());
}

// Qt itself delivers an answer late that came before it was waited for.
void WindowServicesTest::theLatestFaultCountsInWhateverOrderAnswersCome()
{
    const QString name = QStringLiteral("cellar");
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    LateControl control;
    QVERIFY(bus.registerVirtualObject(sandbox::controlPath(), &control));
    QVERIFY(bus.registerService(sandbox::controlBusName(name)));
    ServiceWatch watch(
        {name, QStringLiteral("com.corvane.cellar"), QDBusConnection::SessionBus, QString()});
    QList<sandbox::Fault> shown; // as its row does
    connect(&watch, &ServiceWatch::changed, this, [&] {
        if (!watch.isCausing())
            shown.append(watch.fault());
    });
    watch.cause({sandbox::Fault::Slow, 1000});
    watch.cause({sandbox::Fault::Slow, 5000});
    QTRY_VERIFY(!shown.isEmpty());
    QVERIFY(shown.constFirst() == (sandbox::Fault{sandbox::Fault::Slow, 5000}));
    QDBusConnection::disconnectFromBus(name);
}

TEST_CLASS(QCoreApplication, WindowServicesTest)

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
const QString readCall = QStringLiteral("getIatEnable"); // the page's constructor waits for it

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
    if (member != readCall || !m_meanwhile)
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
    m_assistant.script(readCall, QStringLiteral("hold"));
    m_meanwhile = [this] {
        navigation()->setCurrentEntry(QStringLiteral("keyboard"));
        m_assistant.release(readCall);
    };
    m_window->openPage(page);
    QVERIFY(!m_meanwhile);
    QVERIFY(!m_window->currentPage());
    QVERIFY(!m_window->moduleList());
    QVERIFY(isGone(first));
    QVERIFY(isGone(list));
    QCOMPARE(m_window->currentTitle(), QStringLiteral("Shortcuts"));

    m_assistant.reset();
    m_window->openPage(page);
    QCOMPARE(m_window->currentTitle(), page);
    QVERIFY(m_window->currentPage());
}

void WindowWaitingTest::theWindowCanBeClosed()
{
    m_assistant.script(readCall, QStringLiteral("hold"));
    m_meanwhile = [this] {
        m_window->close();
        m_assistant.release(readCall);
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
    m_assistant.script(readCall, QStringLiteral("vanish"));
    m_meanwhile = [] {
    };
    m_window->openPage(page);
    QCOMPARE(m_window->currentTitle(), page);
    QVERIFY(m_window->currentPage());
    QVERIFY(m_assistant.waitForEnd());
}

TEST_CLASS(QApplication, WindowWaitingTest)
#include "windowservices.moc"
