// The drawer that switches what the module lives in, with real services.

#include "contracts/contract.h"
#include "doctor/contractuse.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"
#include "sandbox/services/control/servicecontrol.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QComboBox>
#include <QDBusMessage>
#include <QLabel>
#include <QtTest>

using namespace controlcenter;
using testsupport::IsolatedHome;
using testsupport::ServiceProcess;

/** Faults are chosen by key in the drawer, and it tells what is true of the services. */
class WindowWorldTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void f12OpensAndClosesIt();
    void itSaysWhatIsSeen_data();
    void itSaysWhatIsSeen();
    void aServiceFailsAndRecovers_data();
    void aServiceFailsAndRecovers();
    void aServiceThatHangsHoldsUpNothing();
    void pagesShowWhatItSays();
    void theToolsDoingShowsToo();
    void aServiceThatIsGoneCannotBeSteered();
    void theDockAndTheNetworkAreSwitched();
    void itFollowsAgainAfterItWasMinimisedAndClosed();
    void theMicrophoneIsSwitched();
    void aRealMicrophoneIsLeftAlone();

private:
    QComboBox *faults(const QString &service) const;
    bool choose(const QString &service, const QString &fault);
    QString sentences(const QString &service) const;

    const IsolatedHome m_home;
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    zccV20::ModuleInterface *m_module = nullptr;
    QScopedPointer<ControlCenterWindow> m_window;
};

namespace {

const QString dockIcon = QStringLiteral("Dock icon"); // as people call the service
const QString running = QStringLiteral("Running");
const Contract::Method question = Contract::DockIcon::getDockHideStatus();

QDBusPendingCall askDock()
{
    return QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
        question.object.service, question.object.path, question.object.interface, question.name));
}

} // namespace

void WindowWorldTest::initTestCase()
{
    const LoadedModule loaded = loadModule(QStringLiteral(MODULE_FILE));
    QVERIFY2(loaded.module, qPrintable(loaded.error));
    m_module = loaded.module;
    QVERIFY(m_assistant.start());
    QVERIFY(m_keybinding.start());
    QVERIFY(m_network.start());
}

void WindowWorldTest::init()
{
    if (!m_dock.isRunning())
        QVERIFY(m_dock.start());
    m_window.reset(new ControlCenterWindow(m_module));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    m_window->openServices();
    m_window->world()->openDrawer();
    QVERIFY(faults(dockIcon));
    QTRY_VERIFY(faults(dockIcon)->isEnabled());
    QTRY_COMPARE(faults(dockIcon)->currentText(), running);
}

void WindowWorldTest::cleanup()
{
    m_window.reset();
}

QComboBox *WindowWorldTest::faults(const QString &service) const
{
    for (auto *box : m_window->world()->drawer()->findChildren<QComboBox *>())
        if (box->accessibleName() == service)
            return box;
    return nullptr;
}

// By keys, on the way to it through other faults.
bool WindowWorldTest::choose(const QString &service, const QString &fault)
{
    QComboBox *box = faults(service);
    box->setFocus();
    const int wanted = box->findText(fault);
    while (wanted >= 0 && box->currentIndex() != wanted)
        QTest::keyClick(box, box->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    return wanted >= 0;
}

QString WindowWorldTest::sentences(const QString &service) const
{
    for (const QLabel *label : faults(service)->parentWidget()->findChildren<QLabel *>())
        if (label->text() != service)
            return label->isVisible() ? label->text() : QString();
    return QString();
}

void WindowWorldTest::f12OpensAndClosesIt()
{
    m_window->world()->closeDrawer();
    QWidget *before = m_window->focusWidget();
    QVERIFY(before);
    QTest::keyClick(m_window.data(), Qt::Key_F12);
    QVERIFY(m_window->world()->isOpen());
    QVERIFY(m_window->world()->drawer()->isAncestorOf(m_window->focusWidget()));
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Escape);
    QVERIFY(!m_window->world()->isOpen());
    QCOMPARE(m_window->focusWidget(), before);
}

void WindowWorldTest::itSaysWhatIsSeen_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("expected");
    const QString bus = question.object.service;
    const QStringList failure = doctor::failureTexts(bus);
    const QStringList late = doctor::waitTexts(bus, false);
    const QStringList never = doctor::waitTexts(bus, true) + failure;
    QTest::newRow("running") << running << QStringList();
    QTest::newRow("slow") << QStringLiteral("Slow by 5 s") << late;
    QTest::newRow("slower than the bus waits") << QStringLiteral("Slow by 30 s") << never;
    QTest::newRow("refusing") << QStringLiteral("Refusing") << failure;
    QTest::newRow("wrong types") << QStringLiteral("Wrong types") << failure;
    QTest::newRow("hung") << QStringLiteral("Hung") << never;
    QTest::newRow("stopped") << QStringLiteral("Stopped") << failure;
}

void WindowWorldTest::itSaysWhatIsSeen()
{
    QFETCH(QString, fault);
    QFETCH(QStringList, expected);
    QVERIFY(choose(dockIcon, fault));
    // Also when all that the services have to say has come.
    QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
    QCOMPARE(faults(dockIcon)->currentText(), fault);
    QCOMPARE(sentences(dockIcon), expected.join(QLatin1Char('\n')));
    QVERIFY(choose(dockIcon, running));
    QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
    QCOMPARE(faults(dockIcon)->currentText(), running);
    QCOMPARE(sentences(dockIcon), QString());
}

void WindowWorldTest::aServiceFailsAndRecovers_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("isError");
    QTest::addColumn<QString>("signature");
    QTest::addColumn<int>("leastMs");
    QTest::newRow("slow") << QStringLiteral("Slow by 1 s") << false << QStringLiteral("b") << 990;
    QTest::newRow("refusing") << QStringLiteral("Refusing") << true << QStringLiteral("s") << 0;
    QTest::newRow("wrong types") << QStringLiteral("Wrong types") << false << QStringLiteral("d")
                                 << 0;
    QTest::newRow("stopped") << QStringLiteral("Stopped") << true << QStringLiteral("s") << 0;
}

void WindowWorldTest::aServiceFailsAndRecovers()
{
    QFETCH(QString, fault);
    QFETCH(bool, isError);
    QFETCH(QString, signature);
    QFETCH(int, leastMs);
    QVERIFY(choose(dockIcon, fault));
    QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
    QElapsedTimer elapsed;
    elapsed.start();
    QDBusPendingCall answer = askDock();
    QTRY_VERIFY(answer.isFinished());
    QVERIFY(elapsed.elapsed() >= leastMs);
    QCOMPARE(answer.isError(), isError);
    QCOMPARE(answer.reply().signature(), signature);

    QVERIFY(choose(dockIcon, running));
    QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
    answer = askDock();
    QTRY_VERIFY(answer.isFinished());
    QVERIFY(!answer.isError());
    QCOMPARE(answer.reply().signature(), QStringLiteral("b"));
}

void WindowWorldTest::aServiceThatHangsHoldsUpNothing()
{
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(choose(dockIcon, QStringLiteral("Hung")));
    QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
    const QDBusPendingCall answer = askDock();
    // It is closed and opened, and other services are steered.
    m_window->world()->closeDrawer();
    m_window->world()->openDrawer();
    QVERIFY(choose(QStringLiteral("Assistant"), QStringLiteral("Refusing")));
    QVERIFY(choose(QStringLiteral("Assistant"), running));
    QVERIFY(elapsed.elapsed() < 5000); // the bus itself would wait for 25 seconds
    QVERIFY(!answer.isFinished());
    QTRY_COMPARE(faults(dockIcon)->currentText(), QStringLiteral("Hung"));
    QVERIFY(choose(dockIcon, running));
    QTRY_VERIFY(answer.isFinished());
    QVERIFY(!answer.isError());
}

void WindowWorldTest::pagesShowWhatItSays()
{
    m_dock.setValue(QStringLiteral("hidden"), true);
    const auto isShown = [this] {
        m_window->openPage(modulepages::assistant);
        QWidget *box = findControl(m_window->currentPage(), QStringLiteral("Show in the Dock"));
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(box);
        return accessible && accessible->state().checked;
    };
    QVERIFY(!isShown());
    for (const char *fault : {"Refusing", "Wrong types", "Stopped"}) {
        QVERIFY(choose(dockIcon, QString::fromLatin1(fault)));
        QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
        QVERIFY2(isShown(), fault); // "is on whatever the dock shows"
    }
    QVERIFY(choose(dockIcon, running));
    QTRY_COMPARE(m_window->world()->drawer()->isSettled(), true);
    QVERIFY(!isShown());
    m_dock.setValue(QStringLiteral("hidden"), false);
}

void WindowWorldTest::theToolsDoingShowsToo()
{
    const QString every = QStringLiteral("*");
    m_dock.script(every, QStringLiteral("delay"), 2500);
    QTRY_COMPARE(faults(dockIcon)->currentText(), QStringLiteral("Slow by 2.5 s"));
    m_dock.script(every, QStringLiteral("error"), QStringLiteral("no dock"));
    QTRY_COMPARE(faults(dockIcon)->currentText(), QStringLiteral("Refusing"));
    m_dock.leaveBus();
    QTRY_COMPARE(faults(dockIcon)->currentText(), QStringLiteral("Stopped"));
    m_dock.joinBus();
    m_dock.reset();
    QTRY_COMPARE(faults(dockIcon)->currentText(), running);
}

void WindowWorldTest::aServiceThatIsGoneCannotBeSteered()
{
    QVERIFY(m_dock.stop());
    QTRY_VERIFY(!faults(dockIcon)->isEnabled());
    QCOMPARE(faults(dockIcon)->currentText(), QStringLiteral("Stopped"));
    QVERIFY(m_dock.start());
    QTRY_VERIFY(faults(dockIcon)->isEnabled());
    QTRY_COMPARE(faults(dockIcon)->currentText(), running);
}

void WindowWorldTest::theDockAndTheNetworkAreSwitched()
{
    const QString icon = QStringLiteral("Icon in the dock");
    const QString hidden = QStringLiteral("hidden");
    QTRY_COMPARE(faults(icon)->currentText(), QStringLiteral("Shown"));
    QVERIFY(choose(icon, QStringLiteral("Hidden")));
    QTRY_COMPARE(m_dock.value(hidden), QVariant(true));
    m_dock.setValue(hidden, false); // as another program would
    QTRY_COMPARE(faults(icon)->currentText(), QStringLiteral("Shown"));

    const QString connection = QStringLiteral("Connection");
    const QString failure =
        doctor::failureTexts(Contract::NetworkManager::object().service).join(QLatin1Char('\n'));
    QTRY_COMPARE(faults(connection)->currentText(), QStringLiteral("Connected"));
    QCOMPARE(sentences(connection), QString());
    QVERIFY(choose(connection, QStringLiteral("Disconnected")));
    QTRY_COMPARE(m_network.value(QStringLiteral("state")), QVariant(20u));
    QCOMPARE(sentences(connection), failure);
    QVERIFY(choose(connection, QStringLiteral("Connected")));
    QTRY_COMPARE(m_network.value(QStringLiteral("state")), QVariant(70u));
    QTRY_COMPARE(sentences(connection), QString());
}

// It is told of both; so is the page of services, which is not seen here.
void WindowWorldTest::itFollowsAgainAfterItWasMinimisedAndClosed()
{
    const QString icon = QStringLiteral("Icon in the dock");
    m_window->openPage(modulepages::translation);
    QHideEvent minimised;
    QApplication::sendEvent(m_window->world()->drawer(), &minimised);
    m_window->world()->closeDrawer();
    m_window->world()->openDrawer();
    for (const bool hidden : {true, false}) {
        m_dock.setValue(QStringLiteral("hidden"), hidden);
        QTRY_COMPARE(faults(icon)->currentText(),
                     hidden ? QStringLiteral("Hidden") : QStringLiteral("Shown"));
    }
}

// What a virtual microphone is steered by; it needs no sound for that.
void WindowWorldTest::theMicrophoneIsSwitched()
{
    QTemporaryDir folder;
    const auto write = [&](const char *name, const QByteArray &text) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() &&
               file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    };
    const auto read = [&](const char *name) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
    };
    for (const char *sound : {"speech.wav", "noise.wav", "loud.wav", "quiet.wav", "silence.wav"})
        QVERIFY(write(sound, "sound"));
    QVERIFY(write("kind", "quiet\n"));
    QVERIFY(write("plug", "#!/bin/sh\necho $1 >\"${0%/*}/plugged\"\n"));
    qputenv("SANDBOX_MICROPHONE", folder.path().toLocal8Bit());
    ServiceProcess audio(QStringLiteral("audio"));
    QVERIFY(audio.start());
    qunsetenv("SANDBOX_MICROPHONE");

    const QString microphone = QStringLiteral("Microphone");
    QTRY_VERIFY(faults(microphone)->isEnabled());
    QVERIFY(choose(microphone, QStringLiteral("Unplugged")));
    QTRY_COMPARE(read("plugged"), QByteArray("out"));
    QVERIFY(choose(microphone, QStringLiteral("Voice in noise")));
    QTRY_COMPARE(read("plugged"), QByteArray("in"));
    QTRY_COMPARE(read("kind"), QByteArray("noise"));
    QTRY_COMPARE(faults(microphone)->currentText(), QStringLiteral("Voice in noise"));
    audio.setValue(QStringLiteral("microphone.sound"), QStringLiteral("silence"));
    QTRY_COMPARE(faults(microphone)->currentText(), QStringLiteral("Silence"));
    // The list goes back to what is in force.
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("quiet.wav"))));
    QVERIFY(choose(microphone, QStringLiteral("Too quiet")));
    QTRY_COMPARE(faults(microphone)->currentText(), QStringLiteral("Silence"));
    sandbox::ServiceControl control(QStringLiteral("audio"));
    QVERIFY(!control.setValue(QStringLiteral("microphone.sound"), QStringLiteral("../noise")));
    QCOMPARE(control.error(), QStringLiteral("there is no sound \"../noise\", but loud, noise, "
                                             "silence, speech"));
    QCOMPARE(read("kind"), QByteArray("silence"));
}

void WindowWorldTest::aRealMicrophoneIsLeftAlone()
{
    ServiceProcess audio(QStringLiteral("audio"));
    QVERIFY(audio.start());
    QTRY_VERIFY(faults(QStringLiteral("Sound"))->isEnabled());
    QTRY_VERIFY(!faults(QStringLiteral("Microphone"))->isVisible());
}

TEST_CLASS(QApplication, WindowWorldTest)
#include "windowworld.moc"
