#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QDBusMessage>
#include <QtTest>

using controlcenter::ServiceWatch;
using testsupport::ServiceProcess;

/** The page of services follows services that change, come, go and hang, without ever waiting. */
class WindowServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void itKnowsTheValues();
    void itFollowsACall();
    void itFollowsAServiceThatEndsAndComesBack();
    void aServiceThatHangsDoesNotHoldUpTheWindow();
    void aServiceThatWasNeverThere();

private:
    QScopedPointer<ServiceProcess> m_dock;
    QScopedPointer<ServiceWatch> m_watch;
};

namespace {

const QString key = QStringLiteral("hidden");
const QString busName = QStringLiteral("com.corvane.aiassistant.dock");

} // namespace

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
    QTRY_COMPARE(m_watch->values().value(key), QStringLiteral("false"));
    QCOMPARE(m_watch->busName(), busName);
}

void WindowServicesTest::itFollowsACall()
{
    m_watch->refresh();
    QTRY_COMPARE(m_watch->values().value(key), QStringLiteral("false"));
    QDBusMessage call = QDBusMessage::createMethodCall(
        busName, QStringLiteral("/com/corvane/aiassistant/dockIconControl"), busName,
        QStringLiteral("setDockHideStatus"));
    call.setArguments({true});
    QVERIFY(QDBusConnection::sessionBus().send(call));
    QTRY_COMPARE(m_watch->values().value(key), QStringLiteral("true"));
}

void WindowServicesTest::itFollowsAServiceThatEndsAndComesBack()
{
    m_watch->refresh();
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Running);
    QSignalSpy changed(m_watch.data(), &ServiceWatch::changed);
    QVERIFY(m_dock->stop());
    QTRY_COMPARE(m_watch->state(), ServiceWatch::Missing);
    QVERIFY(changed.count() > 0);
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
    QTRY_COMPARE(m_watch->values().value(key), QStringLiteral("false"));
}

void WindowServicesTest::aServiceThatWasNeverThere()
{
    ServiceWatch watch({QStringLiteral("cellar"), QStringLiteral("com.corvane.cellar"),
                        QDBusConnection::SessionBus, QString()});
    watch.refresh();
    QTRY_COMPARE(watch.state(), ServiceWatch::Missing);
    QVERIFY(watch.values().isEmpty());
}

TEST_CLASS(QCoreApplication, WindowServicesTest)
#include "windowservices.moc"
