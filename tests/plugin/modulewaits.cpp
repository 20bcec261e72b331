#include "doctor/contractuse.h"
#include "plugin/tavrenaiassitantcontrolplugin.h"
#include "sandbox/services/control/servicelist.h"
#include "tests/support/fakeframe.h"
#include "tests/support/modulepages.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "tests/support/widgets.h"
#include "voice/aiservicesession.h"
#include "voice/processwide.h"
#include "voice/voicetestregistry.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zcommandlinkbutton.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

#include <map>
#include <memory>

// Everything that can happen to the module while a call of it waits, for every call that does: once
// events are processed again. What is left then is what is left without that.

using doctor::Mode;
using testsupport::FakeFrame;
using testsupport::ModulePage;
using testsupport::ServiceProcess;

namespace {

constexpr int lateMs = 150;   // the answer, where nothing is processed meanwhile
constexpr int limitMs = 5000; // much less than the bus's

/** What makes the module wait. */
enum class Action { OpensPage, SwitchesWakeup, StartsVoiceTest };

/** A call that waits, and the page that makes it. */
struct Waiting
{
    QString member; // INTERFACE.NAME
    QString service;
    bool processesEvents;
    Action action;
    ModulePage page; // open at first
};

const char *const interruptions[] = {"nothing",     "page goes",     "page replaced",
                                     "column goes", "module goes",   "program quits",
                                     "other page",  "switched again"};

/** Whether the page that is shown is there afterwards. */
bool pageStays(const QString &how)
{
    return how == QLatin1String("nothing") || how == QLatin1String("module goes") ||
           how == QLatin1String("program quits") || how == QLatin1String("switched again");
}

/** Who is @p busName here. */
QString serviceOf(const QString &busName)
{
    for (const sandbox::ServiceIdentity &service : sandbox::serviceList())
        if (service.busName == busName)
            return service.name == QLatin1String("aiservice") ? QStringLiteral("voicescript")
                                                              : service.name;
    qFatal("nobody is %s", qPrintable(busName));
}

/** One for each page where it waits, as the table tells by the page's name. */
QVector<Waiting> waitingCalls()
{
    QVector<Waiting> all;
    for (const doctor::ObjectUse &object : doctor::contractUses())
        for (const doctor::MemberUse &use : object.members) {
            if (use.mode != Mode::WaitProcessingEvents && use.mode != Mode::WaitProcessingNothing)
                continue;
            Waiting waiting{object.object.interface + QLatin1Char('.') + use.name,
                            serviceOf(object.object.service),
                            use.mode == Mode::WaitProcessingEvents, Action::OpensPage,
                            testsupport::modulePage(testsupport::assistantPage)};
            if (use.when.contains(QLatin1String("voice test")))
                waiting.action = Action::StartsVoiceTest;
            else if (use.when.contains(QLatin1String("is switched")))
                waiting.action = Action::SwitchesWakeup;
            if (waiting.action != Action::OpensPage) {
                all.append(waiting);
                continue;
            }
            for (const ModulePage &page : testsupport::modulePages()) {
                waiting.page = page;
                if (use.when.contains(QLatin1Char('"') + page.name + QLatin1Char('"')))
                    all.append(waiting);
            }
        }
    return all;
}

/** What a person sees on the page. */
QStringList seenOn(const QWidget *page)
{
    QStringList seen = testsupport::labelTexts(page);
    for (const auto *row : page->findChildren<zcc::widgets::SwitchWidget *>())
        seen.append(row->checked() ? QStringLiteral("on") : QStringLiteral("off"));
    for (const auto *box : page->findChildren<QCheckBox *>())
        seen.append(box->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled"));
    for (const auto *list : page->findChildren<QComboBox *>())
        seen.append(list->currentText());
    return seen;
}

} // namespace

Q_DECLARE_METATYPE(Waiting)

class ModuleWaitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void anythingMayHappenMeanwhile_data();
    void anythingMayHappenMeanwhile();

private:
    void prepare(const Waiting &waiting);
    void act(const Waiting &waiting);
    void interrupt(const QString &how, const Waiting &waiting);
    void flip(const QString &title);
    void runInterrupted(const Waiting &waiting, const QString &how);
    void compareOpened(const QString &how, const Waiting &waiting, int pushesBefore);
    void compareWakeup(const QString &how, const Waiting &waiting);
    void compareVoiceTest(const QString &how);
    QStringList moreObjects() const;
    void clear();

    testsupport::TimerTracker m_tracker;
    std::map<QString, std::unique_ptr<ServiceProcess>> m_services;
    std::unique_ptr<FakeFrame> m_frame;
    QPointer<TavrenAIAssitantControlPlugin> m_module;
    QPointer<QWidget> m_shown; // at first
    QStringList m_usual;       // seen on it
    // Of a process that has no page.
    int m_rules = 0;
    QHash<QByteArray, int> m_objects; // by class
};

void ModuleWaitsTest::initTestCase()
{
    testsupport::audio().setDevices({{"mic", true}});
    for (const char *name : {"assistant", "dock", "keybinding", "networkmanager", "voicescript"}) {
        auto &service = m_services[QLatin1String(name)];
        service = std::make_unique<ServiceProcess>(QLatin1String(name));
        QVERIFY(service->start());
    }
    // What is not as it would be without an answer.
    ServiceProcess &assistant = *m_services.at(QStringLiteral("assistant"));
    for (const char *key : {"iat.enabled", "tts.enabled", "tts.window", "trans.enabled"})
        assistant.setValue(QLatin1String(key), true);
    assistant.setValue("iat.language", "en_us");
    assistant.setValue("trans.language", "cn|en");
    assistant.setValue("tts.speaker", "x_morven");
    m_services.at(QStringLiteral("networkmanager"))->setValue("state", 70U);

    // What is made once stays.
    for (const Waiting &waiting : waitingCalls()) {
        prepare(waiting);
        act(waiting);
        clear();
    }
    m_rules = testsupport::matchRules();
    m_objects = m_tracker.classes();
    QVERIFY(m_rules > 0);
}

void ModuleWaitsTest::cleanup()
{
    clear();
}

void ModuleWaitsTest::prepare(const Waiting &waiting)
{
    for (const auto &service : m_services)
        service.second->reset();
    m_services.at(QStringLiteral("assistant"))
        ->setValue("wakeup.enabled", waiting.member.endsWith(QLatin1String("disableIvw")));
    m_frame = std::make_unique<FakeFrame>();
    m_module = new TavrenAIAssitantControlPlugin;
    m_module->setFrameProxy(m_frame.get());
    m_module->active();
    m_module->load(waiting.page.name);
    testsupport::flushDeferredDeletes();
    QVERIFY(m_frame->showActive());
    m_shown = m_frame->page();
    m_usual = seenOn(m_shown);
}

void ModuleWaitsTest::act(const Waiting &waiting)
{
    if (waiting.action == Action::OpensPage)
        m_module->load(waiting.page.name);
    else if (waiting.action == Action::SwitchesWakeup)
        flip(waiting.page.switches.first());
    else
        m_shown->findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
}

void ModuleWaitsTest::flip(const QString &title)
{
    auto *row = testsupport::switchTitled(m_frame->page(), title);
    QTest::mouseClick(testsupport::switchButton(row), Qt::LeftButton);
}

void ModuleWaitsTest::interrupt(const QString &how, const Waiting &waiting)
{
    if (how == QLatin1String("page goes")) {
        delete m_frame->page();
    } else if (how == QLatin1String("page replaced")) {
        m_frame->pushWidget(nullptr, new QWidget, FakeFrame::NextColumn); // another module's
    } else if (how == QLatin1String("column goes")) {
        m_frame->disposeAll();
    } else if (how == QLatin1String("module goes")) {
        delete m_module;
    } else if (how == QLatin1String("program quits")) {
        QCoreApplication::quit();
    } else if (how == QLatin1String("other page")) {
        m_module->load(waiting.page.name == testsupport::translationPage
                           ? testsupport::speechToTextPage
                           : testsupport::translationPage);
    } else if (how == QLatin1String("switched again")) {
        flip(waiting.page.switches.first());
        if (waiting.action == Action::OpensPage)
            flip(waiting.page.switches.first()); // the new page shows the same as the old one
    }
}

void ModuleWaitsTest::anythingMayHappenMeanwhile_data()
{
    QTest::addColumn<Waiting>("waiting");
    QTest::addColumn<QString>("how");
    for (const Waiting &waiting : waitingCalls())
        for (const char *how : interruptions)
            QTest::addRow("%s, %s, %s", qPrintable(waiting.page.shortName),
                          qPrintable(waiting.member.section(QLatin1Char('.'), -1)), how)
                << waiting << QString::fromLatin1(how);
}

void ModuleWaitsTest::anythingMayHappenMeanwhile()
{
    QFETCH(Waiting, waiting);
    QFETCH(QString, how);
    prepare(waiting);
    const int pushes = m_frame->pushes().size();
    runInterrupted(waiting, how);
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(m_tracker.all<QDBusPendingCallWatcher>().size(), 0);
    testsupport::flushDeferredDeletes();
    QCoreApplication::processEvents();

    if (waiting.action == Action::OpensPage)
        compareOpened(how, waiting, pushes);
    else if (waiting.action == Action::SwitchesWakeup)
        compareWakeup(how, waiting);
    else
        compareVoiceTest(how);
    clear();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
    QCOMPARE(testsupport::matchRules(), m_rules);
    // Answers that nobody waited for may still be under way.
    QTRY_COMPARE(moreObjects().join(QLatin1Char(' ')), QString());
}

// It happens as soon as the service has been asked and events are processed again. Then the answer
// comes, if the program does not quit: nobody waits for it any more.
void ModuleWaitsTest::runInterrupted(const Waiting &waiting, const QString &how)
{
    ServiceProcess &service = *m_services.at(waiting.service);
    service.reset();
    if (waiting.processesEvents)
        service.script(waiting.member, QStringLiteral("hold"));
    else
        service.script(waiting.member, QStringLiteral("delay"), lateMs);

    const QString name = waiting.member.section(QLatin1Char('.'), -1);
    bool returned = false;
    bool happened = false;
    bool whileItWaited = false;
    const auto end = [&] {
        if (returned && happened)
            QCoreApplication::quit();
    };
    QTimer::singleShot(0, this, [&] {
        act(waiting);
        returned = true;
        end();
    });
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        if (!returned && service.calls(name).isEmpty())
            return; // the page still waits for another one
        look.stop();
        whileItWaited = !returned;
        service.script(waiting.member, QStringLiteral("answer")); // the next ones
        interrupt(how, waiting);
        happened = true;
        if (how != QLatin1String("program quits"))
            service.release(waiting.member);
        end();
    });
    look.start(1);
    QElapsedTimer duration;
    duration.start();
    QCoreApplication::exec();
    QVERIFY(returned);
    QVERIFY(happened);
    QCOMPARE(whileItWaited, waiting.processesEvents);
    QVERIFY2(duration.elapsed() < limitMs, qPrintable(QString::number(duration.elapsed())));
    service.reset();
}

// The page that was asked for comes last, whatever came before it.
void ModuleWaitsTest::compareOpened(const QString &how, const Waiting &waiting, int pushesBefore)
{
    const bool others = how == QLatin1String("other page") || how == QLatin1String("page replaced");
    const bool nobodyPushes = how == QLatin1String("module goes") && waiting.processesEvents;
    const QList<FakeFrame::Push> pushes = m_frame->pushes().mid(pushesBefore);
    QCOMPARE(pushes.size(), (others ? 2 : 1) - (nobodyPushes ? 1 : 0));
    if (nobodyPushes)
        return;
    const FakeFrame::Push &own = pushes.at(others && waiting.processesEvents ? 1 : 0);
    QCOMPARE(own.className, waiting.page.className);
    const bool goes = !waiting.processesEvents && !pageStays(how);
    QCOMPARE(own.widget.isNull(), goes);
    if (goes)
        return;
    const bool answered = !waiting.processesEvents || how != QLatin1String("program quits");
    QCOMPARE(seenOn(own.widget) == m_usual, answered);
}

// The last switching has the last word, on the page and in the service.
void ModuleWaitsTest::compareWakeup(const QString &how, const Waiting &waiting)
{
    const bool stays = pageStays(how);
    QCOMPARE(m_shown.isNull(), !stays);
    const bool on = waiting.member.endsWith(QLatin1String("enableIvw")) !=
                    (how == QLatin1String("switched again"));
    QCOMPARE(m_services.at(QStringLiteral("assistant"))->value(QStringLiteral("wakeup.enabled")),
             QVariant(on));
    if (!stays)
        return;
    QCOMPARE(testsupport::switchTitled(m_shown, waiting.page.switches.first())->checked(), on);
    QCOMPARE(m_shown->findChild<QCheckBox *>()->isEnabled(), on);
}

// The test runs, and the microphone is open, as long as its page is there.
void ModuleWaitsTest::compareVoiceTest(const QString &how)
{
    const bool stays = pageStays(how);
    QCOMPARE(m_shown.isNull(), !stays);
    QCOMPARE(testsupport::audio().openCaptures().size(), stays ? 1 : 0);
}

// What there is more of, by class, but for a module's translator: that stays for ever.
QStringList ModuleWaitsTest::moreObjects() const
{
    QStringList more;
    const QHash<QByteArray, int> now = m_tracker.classes();
    for (auto one = now.begin(); one != now.end(); ++one)
        if (one.value() > m_objects.value(one.key()) && one.key() != "QTranslator")
            more.append(QLatin1String(one.key()));
    return more;
}

// The module and its frame go, and then what they leave to the end of the program.
void ModuleWaitsTest::clear()
{
    delete m_module;
    m_frame.reset();
    testsupport::flushDeferredDeletes();
    QCoreApplication::processEvents();
    QCOMPARE(testsupport::audio().openCaptures().size(), 0);
    ProcessWide<VoiceTestRegistry>::dispose();
    testsupport::flushDeferredDeletes();
    QCoreApplication::processEvents();
    QCOMPARE(testsupport::audio().captures().size(), 0);
}

ISOLATED_TEST_CLASS(QApplication, ModuleWaitsTest, testsupport::ScriptedAudio::install())
#include "modulewaits.moc"
