// The voice test panel with services that refuse, hang or die, and with microphones that go. After
// each of these the next run must work.

#include "tests/bus/voiceclients.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "voice/audiorecorder.h"

#include <QApplication>
#include <QDBusObjectPath>

using namespace testsupport;

namespace {

QVariant path(const char *text)
{
    return QVariant::fromValue(QDBusObjectPath(QLatin1String(text)));
}

} // namespace

class VoicePageFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceIsAbsent();
    void serviceRefuses();
    void serviceHangsInCreateSession();
    void serviceHangsInStartIat();
    void serviceDiesInTheMiddle();
    void wrongTypesOfSessions();
    void emptyPaths();
    void noMicrophone();
    void microphoneGoes();
    void defaultMicrophoneChanges();
    void microphoneIsOpenOnlyDuringARun();
};

// Counts as started: the wave runs until the user gives up.
void VoicePageFailuresTest::serviceIsAbsent()
{
    VoiceTestBed bed;
    QVERIFY(bed.open(false));
    QVERIFY(bed.page->clickLink());
    QCOMPARE(bed.shown(), panel(QString()));
    QCOMPARE(audio().hear(block()), 1);
    QVERIFY(bed.timeIsUp());
    QVERIFY(microphoneIsClosed());
    QCOMPARE(bed.shown(), panel(QString()));
    QVERIFY(bed.service.start());
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::serviceRefuses()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    for (int code : {5, -3, 1000}) {
        bed.service.setValue(QStringLiteral("code.aqc"), code);
        QVERIFY(bed.page->clickLink());
        QVERIFY(
            bed.shown().endsWith(QStringLiteral("|Service exception|") + VoicePage::againLink()));
    }
    QCOMPARE(audio().built(), 0);
    bed.service.setValue(QStringLiteral("code.aqc"), 0);
    QCOMPARE(bed.nextRun(), QString());

    // Recognition alone: the test runs without it.
    bed.service.setValue(QStringLiteral("code.iat"), 5);
    bed.service.reset();
    QVERIFY(bed.page->clickLink());
    QCOMPARE(bed.shown(), panel(QString()));
    bed.service.notify(bed.service.calls(startAqc).value(0).path, QStringLiteral("1008"));
    QTRY_COMPARE(bed.shown(), finishedPanel(QString(), QStringLiteral("Too many noises")));
    bed.service.setValue(QStringLiteral("code.iat"), 0);
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::serviceHangsInCreateSession()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    VoiceTestBed bed;
    QVERIFY(bed.open());
    bed.service.suspend();
    QVERIFY(bed.page->clickLink());
    QCOMPARE(bed.shown(), panel(QString()));
    QCOMPARE(audio().hear(block()), 1);
    QVERIFY(bed.timeIsUp());
    QVERIFY(microphoneIsClosed());
    bed.service.resume();
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), panel(QString()));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::serviceHangsInStartIat()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    VoiceTestBed bed;
    QVERIFY(bed.open());
    bed.service.script(startIat, QStringLiteral("hold"));
    QVERIFY(bed.page->clickLink());
    QCOMPARE(bed.shown(), panel(QString()));
    // Its answer is dropped; the quality check goes on.
    QCOMPARE(bed.service.release(startIat), 1);
    bed.service.notify(aqcPath, QStringLiteral("1008"));
    QTRY_COMPARE(bed.shown(), finishedPanel(QString(), QStringLiteral("Too many noises")));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::serviceDiesInTheMiddle()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    bed.service.recognise(iatPath, words);
    QTRY_COMPARE(bed.shown(), panel(words));
    bed.service.kill();
    for (int i = 0; i < 20; ++i)
        QCOMPARE(audio().hear(block()), 1);
    QVERIFY(bed.timeIsUp());
    QVERIFY(microphoneIsClosed());
    QCOMPARE(bed.shown(), panel(words));
    QVERIFY(bed.service.start());
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::wrongTypesOfSessions()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
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
        bed.service.script(createSession, QStringLiteral("reply-list"), row.answer);
        QVERIFY(bed.page->clickLink());
        QCOMPARE(bed.shown().contains(QStringLiteral("Service exception")), row.refused);
        QCOMPARE(bed.shown().contains(wave), !row.refused);
        QCOMPARE(bed.nextRun(), QString());
    }
}

// Without a session of its own the panel must not take others' words and verdicts for its own.
void VoicePageFailuresTest::emptyPaths()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    bed.service.script(createSession, QStringLiteral("error"), QStringLiteral("no room"));
    QVERIFY(bed.page->clickLink());
    QCOMPARE(audio().hear(block()), 1);
    bed.service.notify(aqcPath, QStringLiteral("1008"));
    bed.service.recognise(iatPath, words);
    // Even with the session id that an answer which never came leaves.
    bed.service.send(
        iatPath,
        recogniserMessage(QString(), QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":"a"}]}]})")));
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), panel(QString()));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::noMicrophone()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    audio().setDevices({});
    QVERIFY(bed.page->clickLink());
    QCOMPARE(bed.shown(), panel(QString()));
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    QCOMPARE(bed.shown(), panel(QString()));
    QVERIFY(bed.timeIsUp());
    bed.service.notify(aqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(bed.shown(), finishedPanel(QString(), QStringLiteral("No sound recorded")));
    audio().setDevices({{"plugged in", true}});
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::microphoneGoes()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    QCOMPARE(audio().hear(block()), 1);
    audio().setDevices({});
    QTRY_VERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(microphoneIsClosed());
    QVERIFY(bed.timeIsUp());
    bed.service.notify(aqcPath, QStringLiteral("1005"));
    QTRY_COMPARE(
        bed.shown(),
        finishedPanel(QString(), QStringLiteral("Turn up the input volume and try again")));
    audio().setDevices({{"mic", true}});
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::defaultMicrophoneChanges()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    AudioRecorder::getInstance()->DefaultSourceChanged(QDBusObjectPath(QStringLiteral("/s")));
    QVERIFY(microphoneIsClosed());
    QCOMPARE(bed.shown(), panel(QString()));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageFailuresTest::microphoneIsOpenOnlyDuringARun()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QCOMPARE(audio().built(), 0);
    QVERIFY(bed.page->clickLink());
    QCOMPARE(audio().openCaptures().size(), 1);
    bed.cancel();
    QVERIFY(microphoneIsClosed());

    QVERIFY(bed.page->clickLink());
    QCOMPARE(audio().openCaptures().size(), 1);
    QVERIFY(bed.timeIsUp());
    QVERIFY(microphoneIsClosed());
    bed.service.notify(secondAqcPath, QStringLiteral("1003"));
    QTRY_COMPARE(bed.shown(), finishedPanel(QString(), QStringLiteral("No sound recorded")));
    QVERIFY(microphoneIsClosed());

    // A verdict before the ten seconds are over, then the page is left, then the window is closed.
    QVERIFY(bed.page->clickLink());
    bed.service.notify(QStringLiteral("/session/aqc/3"), QStringLiteral("1003"));
    QTRY_COMPARE(bed.shown(), finishedPanel(QString(), QStringLiteral("No sound recorded")));
    QVERIFY(microphoneIsClosed());
    QVERIFY(bed.page->clickLink());
    QCOMPARE(audio().openCaptures().size(), 1);
    bed.page->destroy();
    QVERIFY(microphoneIsClosed());
    QCOMPARE(audio().built(), 4);
}

ISOLATED_TEST_CLASS(QApplication, VoicePageFailuresTest, ScriptedAudio::install())
#include "voicepagefailures.moc"
