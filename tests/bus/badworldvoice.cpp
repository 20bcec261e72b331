#include "tests/bus/badworlds.h"
#include "tests/bus/voiceclients.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <zcc/widgets/settingsgroup.h>
#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QDBusObjectPath>
#include <QtTest>

// The voice test in every bad world. The AI service of these tests works as far as it was asked: it
// sends words and a verdict for the sessions that it has.

using namespace badworlds;
using namespace Contract;
using doctor::World;

namespace {

// Of the test that runs.
Stage *stage = nullptr;
testsupport::TimerTracker *timers = nullptr;
QString checkPath;
QString recognitionPath;

const QString title = QStringLiteral("Voice Test");
const QString said = QStringLiteral("明天早上");

QString panelWith(const QStringList &parts)
{
    return (QStringList(title) + parts).join(QLatin1Char('|'));
}

QVariant sessionObject()
{
    return QVariant::fromValue(QDBusObjectPath(testsupport::iatPath));
}

// What the panel shows.
const QString waveAlone = panelWith({testsupport::VoicePage::phrase()});
const QString waveWithWords = panelWith({said, testsupport::VoicePage::phrase()});
const QString good =
    panelWith({said, QStringLiteral("It sounds good"), testsupport::VoicePage::againLink()});
const QString wordsOnly = panelWith({said, testsupport::VoicePage::againLink()});
const QString verdictOnly = panelWith({QStringLiteral("Turn up the input volume and try again"),
                                       testsupport::VoicePage::againLink()});
const QString offline =
    panelWith({QStringLiteral("Network unavailable"), testsupport::VoicePage::againLink()});

testsupport::ServiceProcess &aiService()
{
    return stage->service(QStringLiteral("voicescript"));
}

// The object of the session, as its first call tells; one that is there if there was none.
QString sessionPath(const QString &firstCall)
{
    const QList<testsupport::ServiceCall> calls = aiService().calls(firstCall);
    const QString path = calls.isEmpty() ? QString() : calls.last().path;
    return path.size() > 1 ? path : testsupport::iatPath;
}

void findSessions()
{
    checkPath = sessionPath(testsupport::startAqc);
    recognitionPath = sessionPath(testsupport::startIat);
}

void settle()
{
    if (!testsupport::everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus")))
        QTest::qFail("the bus does not answer", __FILE__, __LINE__);
    testsupport::flushDeferredDeletes();
}

void clickLink(QWidget *page)
{
    QTest::mouseClick(page->findChild<Ztk::Widget::ZCommandLinkButton *>(), Qt::LeftButton);
}

QString words()
{
    return testsupport::recognised(testsupport::idOf(recognitionPath), "rpl", said, true);
}

void saySomeWords()
{
    aiService().sendSignal(recognitionPath, Recognition::object().interface,
                           Recognition::onResult().name, {words()});
    settle();
}

void judge()
{
    aiService().sendSignal(checkPath, QualityCheck::object().interface,
                           QualityCheck::onNotify().name, {QStringLiteral("1000")});
    settle();
}

void hear()
{
    testsupport::audio().hear(testsupport::block());
}

std::unique_ptr<QWidget> openPage()
{
    auto page = std::make_unique<AssistantSettingWidget>(nullptr);
    page->resize(640, 600);
    page->show();
    return page;
}

std::unique_ptr<QWidget> openDuringTest()
{
    std::unique_ptr<QWidget> page = openPage();
    clickLink(page.get());
    settle();
    findSessions();
    return page;
}

std::unique_ptr<QWidget> openWithWords()
{
    std::unique_ptr<QWidget> page = openDuringTest();
    saySomeWords();
    return page;
}

void runWholeTest(QWidget *page)
{
    clickLink(page);
    hear();
    if (stage->serviceSpeaks()) {
        findSessions();
        saySomeWords();
        judge();
    }
    settle();
}

void runToTheEnd(QWidget *)
{
    hear();
    const QList<QTimer *> all = timers->timers(testsupport::testMs);
    for (QTimer *timer : all)
        if (timer->isActive())
            testsupport::TimerTracker::fire(timer);
    settle();
    if (stage->serviceSpeaks())
        judge();
}

QStringList listed(const char *line)
{
    return QString::fromLatin1(line).split(QLatin1Char(' '));
}

const QStringList starts =
    listed("state() createSession(ss) startAqc() createSession(ss) startIat(a{sv})");
const QStringList blocks = listed("putAudio(ayb) putAudio(ayb)");
const QStringList stops = listed("stopAqc() stopIat() freeSession(ss)");

bool isGone(World world)
{
    return world == World::Absent || world == World::StartFails || world == World::Hung;
}

// How far a whole test gets.
Result wholeTest(const Subject &subject, World world)
{
    const doctor::Effect effect = doctor::failureOf(subject.use, world).effect;
    const QString &member = subject.use.name;
    if (member == NetworkManager::state().name)
        return effect == doctor::Effect::AsUsual ? Result{good, starts + blocks + stops}
                                                 : Result{offline, listed("state()")};
    // Without an object, nothing else is called.
    const Result noSession{waveAlone, listed("state() createSession(ss) createSession(ss)")};
    const Result secondLost{
        waveAlone, listed("state() createSession(ss) startAqc() createSession(ss) putAudio(ayb)")};
    if (isGone(world))
        return noSession;
    if (member == SessionManager::createSession().name) {
        if (effect == doctor::Effect::Senseless)
            return {waveAlone, starts + blocks};
        if (effect == doctor::Effect::None)
            return world == World::Replaced ? secondLost : noSession;
    } else if (member == QualityCheck::startAqc().name) {
        if (world == World::Ends)
            return secondLost;
    } else if (world == World::Ends || world == World::Replaced) {
        return {waveAlone, starts + blocks};
    } else if (effect != doctor::Effect::AsUsual) {
        return {verdictOnly, starts + blocks + stops};
    }
    return {good, starts + blocks + stops};
}

// A verdict comes when all is said, if the service is still there.
Result endOfTest(const Subject &, World world)
{
    if (isGone(world) || world == World::Ends)
        return {waveWithWords, blocks + stops};
    return {good, blocks + stops + listed("stopAqc()")};
}

Result verdict(const Subject &subject, World world)
{
    const doctor::Effect effect = doctor::failureOf(subject.use, world).effect;
    return {QString(), effect == doctor::Effect::None ? QStringList() : stops};
}

Result silence(const Subject &, World)
{
    return {};
}

/** A signal that comes while a voice test runs. */
Action signal(const char *name, std::unique_ptr<QWidget> (*open)(), const Subject &subject,
              const QString *path, Result (*result)(const Subject &, World) = silence)
{
    return {name,
            open,
            [subject, path](QWidget *) {
                stage->sendSignal(subject, path ? *path : subject.object.object.path);
            },
            result,
            {subject}};
}

const QString closed = QStringLiteral("the microphone is closed");
const QString open = QStringLiteral("the microphone is open");

std::vector<Action> tests()
{
    const char *const ai = "voicescript";
    const QString text = QStringLiteral("done");
    const QString started = QStringLiteral(R"({"status":0,"session_id":"%1"})")
                                .arg(testsupport::idOf(testsupport::iatPath));
    return {
        {"voice test",
         openPage,
         runWholeTest,
         wholeTest,
         {sent(NetworkManager::state(), "networkmanager", good, {70U}),
          sent(SessionManager::createSession(), ai, good, {sessionObject(), 0}),
          sent(QualityCheck::startAqc(), ai, good, {text}),
          sent(Recognition::startIat(), ai, good, {started})}},
        {"end of a voice test",
         openWithWords,
         runToTheEnd,
         endOfTest,
         {sent(QualityCheck::putAudio(), ai, good), sent(Recognition::putAudio(), ai, good),
          sent(QualityCheck::stopAqc(), ai, good, {text}), sent(Recognition::stopIat(), ai, good),
          sent(SessionManager::freeSession(), ai, good, {0})}},
    };
}

std::vector<Action> heardSignals()
{
    const char *const ai = "voicescript";
    const QString error = QStringLiteral(R"({"session_id":"%1","errCode":5,"errInfo":"no"})")
                              .arg(testsupport::idOf(testsupport::iatPath));
    const QString result =
        testsupport::recognised(testsupport::idOf(testsupport::iatPath), "rpl", said, true);
    Action source = signal("another microphone", openDuringTest,
                           heard(AudioDaemon::DefaultSourceChanged(), "audio",
                                 {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/source")))},
                                 closed, open, {}),
                           nullptr);
    source.tell = [] {
        return testsupport::audio().openCaptures().isEmpty() ? closed : open;
    };
    return {
        signal("dock", openPage,
               heard(DockIcon::dockHideChange(), "dock", {false},
                     QStringLiteral("Show in the Dock: on"),
                     QStringLiteral("Show in the Dock: off"), {}),
               nullptr),
        signal("verdict", openWithWords,
               heard(QualityCheck::onNotify(), ai, {QStringLiteral("1000")}, good, waveWithWords,
                     wordsOnly),
               &checkPath, verdict),
        signal("words", openDuringTest,
               heard(Recognition::onResult(), ai, {result}, waveWithWords, waveAlone, waveAlone),
               &recognitionPath),
        signal("error", openDuringTest,
               heard(Recognition::onError(), ai, {error}, waveAlone, waveAlone, waveAlone),
               &recognitionPath),
        signal("end", openDuringTest,
               heard(Recognition::onEnd(), ai, {}, waveAlone, waveAlone, waveAlone),
               &recognitionPath),
        source,
    };
}

} // namespace

class BadWorldVoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void calls_data() { addRows(tests(), shortWorlds()); }
    void calls() { play(0); }
    void callsThatTimeOut_data() { addRows(tests(), endlessWorlds()); }
    void callsThatTimeOut() { play(1000); }
    void signalsHeard_data()
    {
        addRows(heardSignals(), shortWorlds() + QVector<World>{World::Hung});
    }
    void signalsHeard() { play(0); }

private:
    void play(int replyLimitMs);

    testsupport::TimerTracker m_timers;
    std::unique_ptr<Stage> m_stage;
};

void BadWorldVoiceTest::play(int replyLimitMs)
{
    if (!m_stage) {
        timers = &m_timers;
        m_stage = std::make_unique<Stage>(
            QStringList{QStringLiteral("voicescript"), QStringLiteral("networkmanager"),
                        QStringLiteral("dock"), QStringLiteral("audio")},
            replyLimitMs, [this](Stage &all) {
                // Tests that were left end by themselves some time later.
                const QList<QTimer *> left = m_timers.timers(testsupport::testMs);
                for (QTimer *timer : left)
                    timer->stop();
                testsupport::audio().setDevices({{"mic", true}});
                all.service(QStringLiteral("networkmanager")).setValue("state", 70U);
                all.service(QStringLiteral("dock")).setValue("hidden", true);
                // Both sessions are one object, whose name the tests know.
                testsupport::ServiceProcess &ai = all.service(QStringLiteral("voicescript"));
                ai.reset();
                ai.setValue("result", QStringList{testsupport::iatPath, QString()});
                ai.script(testsupport::createSession, "reply-list",
                          QVariantList{sessionObject(), 0});
            });
        stage = m_stage.get();
        QVERIFY(m_stage->start());
    }
    QFETCH(Action, action);
    QFETCH(int, subject);
    QFETCH(World, world);
    const QString problem = m_stage->play(action, action.subjects.at(std::size_t(subject)), world);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

ISOLATED_TEST_CLASS(QApplication, BadWorldVoiceTest, testsupport::ScriptedAudio::install())
#include "badworldvoice.moc"
