// The voice test panel with services that refuse, hang, die, talk nonsense or talk too late, and
// with microphones that go. After each of these the next run must work. Each function in a process
// of its own.

#include "pages/showntext.h"
#include "tests/bus/voiceservice.h"
#include "tests/support/impatientbus.h"
#include "tests/support/isolatedtests.h"
#include "tests/support/timertracker.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <QApplication>
#include <QDBusObjectPath>

#include <memory>

using testsupport::everythingArrived;
using testsupport::everythingIsQueued;
using testsupport::ImpatientBus;
using testsupport::ScriptedAudio;
using testsupport::ServiceProcess;
using testsupport::TimerTracker;
using testsupport::VoicePage;
using testsupport::VoiceService;

namespace {

constexpr int testMs = 10000;

const QString title = QStringLiteral("Voice Test");
const QString wave = QStringLiteral("(wave)");
const QString words = QStringLiteral("明天早上");

const QString aqcPath = QStringLiteral("/session/aqc/1");
const QString iatPath = QStringLiteral("/session/iat/1");

const QString createSession = QStringLiteral("createSession");
const QString startAqc = QStringLiteral("startAqc");
const QString startIat = QStringLiteral("startIat");
const QString putAudio = QStringLiteral("putAudio");

ScriptedAudio &audio()
{
    return ScriptedAudio::instance();
}

QByteArray block()
{
    return QByteArray(1600, '\x11');
}

QVariant path(const char *text)
{
    return QVariant::fromValue(QDBusObjectPath(QLatin1String(text)));
}

/** A recogniser's message with the hypothesis @p text, as the session @p id sends it. */
QString message(const QString &id, const QString &text)
{
    const QJsonObject object{{QStringLiteral("session_id"), id}, {QStringLiteral("text"), text}};
    return QString::fromUtf8(QJsonDocument(object).toJson());
}

QString panel(const QString &recognised)
{
    return QStringList({title, recognised, VoicePage::phrase(), wave}).join(QLatin1Char('|'));
}

QString finishedPanel(const QString &recognised, const QString &verdict)
{
    return QStringList({title, recognised, verdict, VoicePage::againLink()}).join(QLatin1Char('|'));
}

/** A page on a machine that is online, and the AI service. */
class World
{
public:
    bool open(bool withService = true)
    {
        if (!network.start() || (withService && !service.start()))
            return false;
        network.setValue(QStringLiteral("state"), 70u);
        page = std::make_unique<VoicePage>();
        return true;
    }

    /** Everything that the panel shows, from top to bottom. */
    QString shown() const { return page->texts().join(QLatin1Char('|')); }

    /** The user gives up; then the panel is as new. */
    void cancel() const { QTest::mouseClick(page->wave(), Qt::LeftButton); }

    /** The ten seconds are over. */
    bool timeIsUp() const
    {
        const QList<QTimer *> timers = m_tracker.timers(testMs);
        return timers.size() == 1 && TimerTracker::fire(timers.first());
    }

    /** No microphone is open, once what is scheduled for deletion has gone. */
    static bool microphoneIsClosed()
    {
        return QTest::qWaitFor([] { return audio().captures().isEmpty(); });
    }

    /** A whole run with words and a verdict. Empty when nothing of what came before hurts it. */
    QString nextRun()
    {
        service.reset();
        if (page->wave())
            cancel();
        if (!microphoneIsClosed())
            return QStringLiteral("the microphone was open before");
        if (!page->clickLink() || shown() != panel(QString()))
            return shown();
        if (audio().hear(block()) != 1)
            return QStringLiteral("not one recording");
        if (!service.waitForCalls(putAudio, 2))
            return QStringLiteral("the audio does not reach both sessions");
        const QString check = service.calls(startAqc).value(0).path;
        const QString recognition = service.calls(startIat).value(0).path;
        if (service.heard(check) != block() || service.heard(recognition) != block())
            return QStringLiteral("other audio than recorded");
        service.recognise(recognition, words);
        if (!QTest::qWaitFor([this] { return shown() == panel(words); }))
            return shown();
        service.notify(check, QStringLiteral("1000"));
        const QString good = finishedPanel(words, QStringLiteral("It sounds good"));
        if (!QTest::qWaitFor([this, good] { return shown() == good; }))
            return shown();
        return microphoneIsClosed() ? QString() : QStringLiteral("the microphone is left open");
    }

    ServiceProcess network{QStringLiteral("networkmanager")};
    VoiceService service;

private:
    TimerTracker m_tracker; // before the page: it must see the timer's birth

public:
    std::unique_ptr<VoicePage> page;
};

} // namespace

class VoiceTestBad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceIsAbsent();
    void serviceRefuses();
    void serviceHangsInCreateSession();
    void serviceHangsInStartIat();
    void serviceDiesInCreateSession();
    void serviceDiesInStartIat();
    void serviceDiesInTheMiddle();
    void wrongTypesOfSessions();
    void wrongTypesOfStarts();
    void emptyPaths();

    void resultsThatAreNone();
    void tenMegabytes();
    void resultsOfAnotherSession();
    void resultsAfterTheEnd();
    void richText();

    void verdictsWithUnknownCodes();
    void verdictTwice();
    void verdictBeforeTheStartIsAnswered();
    void verdictAfterThePageIsGone();

    void noMicrophone();
    void microphoneGoes();
    void defaultMicrophoneChanges();
    void microphoneIsOpenOnlyDuringARun();
};

// Counts as started: the wave runs until the user gives up.
void VoiceTestBad::serviceIsAbsent()
{
    World world;
    QVERIFY(world.open(false));
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    QCOMPARE(audio().hear(block()), 1);
    QVERIFY(world.timeIsUp());
    QVERIFY(world.microphoneIsClosed());
    QCOMPARE(world.shown(), panel(QString()));
    QVERIFY(world.service.start());
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::serviceRefuses()
{
    World world;
    QVERIFY(world.open());
    for (int code : {5, -3, 1000}) {
        world.service.setValue(QStringLiteral("code.aqc"), code);
        QVERIFY(world.page->clickLink());
        QVERIFY(
            world.shown().endsWith(QStringLiteral("|Service exception|") + VoicePage::againLink()));
    }
    QCOMPARE(audio().built(), 0);
    world.service.setValue(QStringLiteral("code.aqc"), 0);
    QCOMPARE(world.nextRun(), QString());

    // Recognition alone: the test runs without it.
    world.service.setValue(QStringLiteral("code.iat"), 5);
    world.service.reset();
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    world.service.notify(world.service.calls(startAqc).value(0).path, QStringLiteral("1008"));
    QTRY_COMPARE(world.shown(), finishedPanel(QString(), QStringLiteral("Too many noises")));
    world.service.setValue(QStringLiteral("code.iat"), 0);
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::serviceHangsInCreateSession()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    World world;
    QVERIFY(world.open());
    world.service.suspend();
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    QCOMPARE(audio().hear(block()), 1);
    QVERIFY(world.timeIsUp());
    QVERIFY(world.microphoneIsClosed());
    world.service.resume();
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), panel(QString()));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::serviceHangsInStartIat()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    World world;
    QVERIFY(world.open());
    world.service.script(startIat, QStringLiteral("hold"));
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    // Its answer comes to nobody; the quality check goes on.
    QCOMPARE(world.service.release(startIat), 1);
    world.service.notify(aqcPath, QStringLiteral("1008"));
    QTRY_COMPARE(world.shown(), finishedPanel(QString(), QStringLiteral("Too many noises")));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::serviceDiesInCreateSession()
{
    World world;
    QVERIFY(world.open());
    world.service.script(createSession, QStringLiteral("vanish"));
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    QVERIFY(world.service.waitForEnd());
    QVERIFY(world.service.start());
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::serviceDiesInStartIat()
{
    World world;
    QVERIFY(world.open());
    world.service.script(startIat, QStringLiteral("vanish"));
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    QVERIFY(world.service.waitForEnd());
    QVERIFY(world.service.start());
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::serviceDiesInTheMiddle()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    world.service.recognise(iatPath, words);
    QTRY_COMPARE(world.shown(), panel(words));
    world.service.kill();
    for (int i = 0; i < 20; ++i)
        QCOMPARE(audio().hear(block()), 1);
    QVERIFY(world.timeIsUp());
    QVERIFY(world.microphoneIsClosed());
    QCOMPARE(world.shown(), panel(words));
    QVERIFY(world.service.start());
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::wrongTypesOfSessions()
{
    World world;
    QVERIFY(world.open());
    const struct
    {
        QVariantList answer;
        bool refused;
    } rows[] = {
        {{path("/b")}, false},
        {{path("/c"), 9, 9}, false},
        {{}, false},
        {{QStringLiteral("/d"), 9}, true},
        {{path("/e"), QStringLiteral("bad")}, false},
        {{path("/f"), true}, true},
        {{9, path("/g")}, false},
    };
    for (const auto &row : rows) {
        world.service.script(createSession, QStringLiteral("reply-list"), row.answer);
        QVERIFY(world.page->clickLink());
        QCOMPARE(world.shown().contains(QStringLiteral("Service exception")), row.refused);
        QCOMPARE(world.shown().contains(wave), !row.refused);
        QCOMPARE(world.nextRun(), QString());
    }
}

void VoiceTestBad::wrongTypesOfStarts()
{
    World world;
    QVERIFY(world.open());
    for (const QVariant &answer :
         {QVariant(3), QVariant(true), path("/a"), QVariant(QStringList({QStringLiteral("a")}))}) {
        world.service.script(startAqc, QStringLiteral("reply"), answer);
        world.service.script(startIat, QStringLiteral("reply"), answer);
        QVERIFY(world.page->clickLink());
        QCOMPARE(world.shown(), panel(QString()));
        QCOMPARE(audio().hear(block()), 1);
        QCOMPARE(world.nextRun(), QString());
    }
}

// Without a session of its own the panel must not take others' words and verdicts for its own.
void VoiceTestBad::emptyPaths()
{
    World world;
    QVERIFY(world.open());
    world.service.script(createSession, QStringLiteral("error"), QStringLiteral("no room"));
    QVERIFY(world.page->clickLink());
    QCOMPARE(audio().hear(block()), 1);
    world.service.notify(aqcPath, QStringLiteral("1008"));
    world.service.recognise(iatPath, words);
    // Even with the session id that an answer which never came leaves.
    world.service.send(
        iatPath, message(QString(), QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":"a"}]}]})")));
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), panel(QString()));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::resultsThatAreNone()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    const QString id = QStringLiteral("id of ") + iatPath;
    const struct
    {
        const char *name;
        QString sent;
        QString shown; // afterwards
    } rows[] = {
        {"not JSON", QStringLiteral("hello"), words},
        {"empty", QString(), words},
        {"an array", QStringLiteral("[1,2]"), words},
        {"deeper than a parser goes", QString(100000, QLatin1Char('[')), words},
        {"no text", QStringLiteral(R"({"session_id":"%1"})").arg(id), words},
        {"a number as text", QStringLiteral(R"({"session_id":"%1","text":5})").arg(id), words},
        {"an object as text", QStringLiteral(R"({"session_id":"%1","text":{"pgs":"rpl"}})").arg(id),
         words},
        {"text that is not JSON", message(id, QStringLiteral("hello")), words},
        {"no mark", message(id, QStringLiteral(R"({"ws":[{"cw":[{"w":"x"}]}]})")), words},
        {"no slots", message(id, QStringLiteral(R"({"pgs":"rpl"})")), QString()},
        {"slots are an object",
         message(id, QStringLiteral(R"({"pgs":"rpl","ws":{"cw":[{"w":"x"}]}})")), QString()},
        {"no candidates", message(id, QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[]}]})")),
         QString()},
        {"a number as word",
         message(id, QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":5}]}]})")), QString()},
        {"a number as mark", message(id, QStringLiteral(R"({"pgs":1,"ws":[{"cw":[{"w":"x"}]}]})")),
         words + QLatin1Char('x')},
    };
    for (const auto &row : rows) {
        // Every row begins with nothing but the words; "append" has fixed some in the one before.
        world.service.recognise(iatPath, words);
        QTRY_VERIFY2(world.shown() == panel(words), row.name);
        world.service.send(iatPath, row.sent);
        QVERIFY(everythingArrived());
        QVERIFY2(world.shown() == panel(row.shown), row.name);
    }
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::tenMegabytes()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    // What is logged has that size, too.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QString text(10 * 1024 * 1024, QLatin1Char('w'));
    world.service.recognise(iatPath, text);
    QTRY_VERIFY_WITH_TIMEOUT(!world.page->texts().at(1).isEmpty(), 60000);
    QCOMPARE(world.page->texts().at(1), showntext::cut(text, showntext::longestWords));
    QApplication::processEvents(); // and painted
    world.service.notify(aqcPath, text);
    QTRY_VERIFY_WITH_TIMEOUT(!world.page->texts().contains(wave), 60000);
    QCOMPARE(world.page->texts().at(2), QString());
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::resultsOfAnotherSession()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    world.cancel();
    QVERIFY(world.page->clickLink());
    const QString secondIat = QStringLiteral("/session/iat/2");
    // From the session before, also through the present one's object, and from a stranger's.
    world.service.recognise(iatPath, QStringLiteral("old"));
    world.service.send(secondIat,
                       message(QStringLiteral("id of ") + iatPath,
                               QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":"late"}]}]})")));
    world.service.recognise(QStringLiteral("/session/iat/77"), QStringLiteral("foreign"));
    world.service.notify(aqcPath, QStringLiteral("1008"));
    world.service.notify(QStringLiteral("/session/aqc/77"), QStringLiteral("1003"));
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), panel(QString()));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::resultsAfterTheEnd()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    world.service.recognise(iatPath, words);
    QTRY_COMPARE(world.shown(), panel(words));

    // When the ten seconds are over nobody listens to the recogniser, but to the verdict.
    QVERIFY(world.timeIsUp());
    world.service.recognise(iatPath, QStringLiteral("late"));
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), panel(words));
    world.service.notify(aqcPath, QStringLiteral("1008"));
    const QString finished = finishedPanel(words, QStringLiteral("Too many noises"));
    QTRY_COMPARE(world.shown(), finished);
    world.service.recognise(iatPath, QStringLiteral("later"));
    world.service.setValue(QStringLiteral("end"), QStringList(iatPath));
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), finished);
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::richText()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    const QString rich =
        QStringLiteral("<h1>loud</h1><img src='file:///etc/hostname'><a href='x'>&amp;</a>");
    world.service.recognise(iatPath, rich);
    QTRY_COMPARE(world.shown(), panel(rich));
    auto *label = qobject_cast<QLabel *>(world.page->layout()->itemAt(1)->widget());
    QCOMPARE(label->textFormat(), Qt::PlainText);
    world.service.notify(aqcPath, QStringLiteral("<b>1004</b>"));
    QTRY_COMPARE(world.shown(),
                 finishedPanel(rich, QStringLiteral("Turn down the input volume and try again")));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::verdictsWithUnknownCodes()
{
    World world;
    QVERIFY(world.open());
    for (const char *code : {"9999", "", "{\"code\":\"1011\"}", "100 4", "no code at all"}) {
        for (const QString &heard : {QString(), words}) {
            world.service.reset();
            QVERIFY(world.page->clickLink());
            if (!heard.isEmpty()) {
                world.service.recognise(world.service.calls(startIat).value(0).path, heard);
                QTRY_COMPARE(world.shown(), panel(heard));
            }
            world.service.notify(world.service.calls(startAqc).value(0).path, QLatin1String(code));
            QTRY_COMPARE(
                world.shown(),
                finishedPanel(heard, heard.isEmpty()
                                         ? QStringLiteral("Turn up the input volume and try again")
                                         : QString()));
            QVERIFY(world.microphoneIsClosed());
        }
    }
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::verdictTwice()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    // The second one waits behind the first when that ends the test.
    QVERIFY(everythingArrived());
    world.service.notify(aqcPath, QStringLiteral("1008"));
    world.service.notify(aqcPath, QStringLiteral("1003"));
    QVERIFY(everythingIsQueued());
    QVERIFY(everythingArrived());
    const QString noisy = finishedPanel(QString(), QStringLiteral("Too many noises"));
    QCOMPARE(world.shown(), noisy);
    world.service.notify(aqcPath, QStringLiteral("1003"));
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), noisy);
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::verdictBeforeTheStartIsAnswered()
{
    World world;
    QVERIFY(world.open());
    world.service.script(startAqc, QStringLiteral("hold"));
    QVERIFY(world.page->clickLink());
    world.service.notify(aqcPath, QStringLiteral("1003"));
    const QString silent = finishedPanel(QString(), QStringLiteral("No sound recorded"));
    QTRY_COMPARE(world.shown(), silent);
    QCOMPARE(world.service.release(startAqc), 1);
    QVERIFY(everythingArrived());
    QCOMPARE(world.shown(), silent);
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::verdictAfterThePageIsGone()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    QVERIFY(everythingArrived());
    // One that is on its way when the page goes, and one that comes when there is another page.
    world.service.recognise(iatPath, words);
    world.service.notify(aqcPath, QStringLiteral("1008"));
    QVERIFY(everythingIsQueued());
    world.page.reset();
    QVERIFY(world.microphoneIsClosed());
    world.page = std::make_unique<VoicePage>();
    world.service.notify(aqcPath, QStringLiteral("1003"));
    QVERIFY(everythingArrived());
    QCOMPARE(world.page->texts(), QStringList({title, VoicePage::runLink()}));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::noMicrophone()
{
    World world;
    QVERIFY(world.open());
    audio().setDevices({});
    QVERIFY(world.page->clickLink());
    QCOMPARE(world.shown(), panel(QString()));
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    QCOMPARE(world.shown(), panel(QString()));
    QVERIFY(world.timeIsUp());
    world.service.notify(aqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(world.shown(), finishedPanel(QString(), QStringLiteral("No sound recorded")));
    audio().setDevices({{"plugged in", true}});
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::microphoneGoes()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    QCOMPARE(audio().hear(block()), 1);
    audio().setDevices({});
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(world.microphoneIsClosed());
    QVERIFY(world.timeIsUp());
    world.service.notify(aqcPath, QStringLiteral("1005"));
    QTRY_COMPARE(
        world.shown(),
        finishedPanel(QString(), QStringLiteral("Turn up the input volume and try again")));
    audio().setDevices({{"mic", true}});
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::defaultMicrophoneChanges()
{
    World world;
    QVERIFY(world.open());
    QVERIFY(world.page->clickLink());
    AudioRecorder::getInstance()->DefaultSourceChanged(QDBusObjectPath(QStringLiteral("/s")));
    QVERIFY(world.microphoneIsClosed());
    QCOMPARE(world.shown(), panel(QString()));
    QCOMPARE(world.nextRun(), QString());
}

void VoiceTestBad::microphoneIsOpenOnlyDuringARun()
{
    World world;
    QVERIFY(world.open());
    QCOMPARE(audio().built(), 0);
    QVERIFY(world.page->clickLink());
    QCOMPARE(audio().openCaptures().size(), 1);
    world.cancel();
    QVERIFY(world.microphoneIsClosed());

    QVERIFY(world.page->clickLink());
    QCOMPARE(audio().openCaptures().size(), 1);
    QVERIFY(world.timeIsUp());
    QVERIFY(world.microphoneIsClosed());
    world.service.notify(QStringLiteral("/session/aqc/2"), QStringLiteral("1003"));
    QTRY_COMPARE(world.shown(), finishedPanel(QString(), QStringLiteral("No sound recorded")));
    QVERIFY(world.microphoneIsClosed());

    // A verdict before the ten seconds are over, then the page is left, then the window is closed.
    QVERIFY(world.page->clickLink());
    world.service.notify(QStringLiteral("/session/aqc/3"), QStringLiteral("1003"));
    QTRY_COMPARE(world.shown(), finishedPanel(QString(), QStringLiteral("No sound recorded")));
    QVERIFY(world.microphoneIsClosed());
    QVERIFY(world.page->clickLink());
    QCOMPARE(audio().openCaptures().size(), 1);
    world.page->destroy();
    QVERIFY(world.microphoneIsClosed());
    QCOMPARE(audio().built(), 4);
}

ISOLATED_TEST_MAIN(QApplication, VoiceTestBad, ScriptedAudio::install())
#include "voicetestbad.moc"
