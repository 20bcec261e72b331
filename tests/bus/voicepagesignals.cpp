// The voice test panel with services whose signals are invalid, late, or of another session. After
// each of these the next run must work.

#include "pages/showntext.h"
#include "tests/bus/voiceclients.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"
#include "voice/audiorecorder.h"

#include <QAccessible>
#include <QApplication>

#include <dlfcn.h>

using namespace testsupport;

namespace {

int textsSet = 0;  // how often the words were set on a label
int textsRead = 0; // how often a label with the words was read out to assistive technologies

} // namespace

// The two functions below stand in for Qt's in this program. They count what they are called with
// and pass it on. A member function's "this" is the first argument in the platform's calling
// convention.

#define SET_TEXT "_ZN6QLabel7setTextERK7QString"
#define UPDATE_ACCESSIBILITY "_ZN11QAccessible19updateAccessibilityEP16QAccessibleEvent"

void countedSetText(QLabel *self, const QString &text) __asm__(SET_TEXT);
void countedUpdateAccessibility(QAccessibleEvent *event) __asm__(UPDATE_ACCESSIBILITY);

void countedSetText(QLabel *self, const QString &text)
{
    if (text == words)
        ++textsSet;
    const auto real = reinterpret_cast<decltype(&countedSetText)>(dlsym(RTLD_NEXT, SET_TEXT));
    real(self, text);
}

void countedUpdateAccessibility(QAccessibleEvent *event)
{
    const auto *label = qobject_cast<QLabel *>(event->object());
    if (label && label->text() == words && event->type() == QAccessible::Alert)
        ++textsRead;
    const auto real = reinterpret_cast<decltype(&countedUpdateAccessibility)>(
        dlsym(RTLD_NEXT, UPDATE_ACCESSIBILITY));
    real(event);
}

class VoicePageSignalsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void invalidResults();
    void tenMegabytes();
    void resultsOfAnotherSession();
    void resultsAfterTheEnd();
    void richText();
    void verdictsWithUnknownCodes();
    void verdictTwice();
    void verdictBeforeTheStartIsAnswered();
    void verdictAfterThePageIsGone();
    void resultInTheThirdRun();
    void verdictInTheThirdRun();

private:
    static void startThirdRun(VoiceTestBed &bed);
};

void VoicePageSignalsTest::invalidResults()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    const QString id = idOf(iatPath);
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
        {"text that is not JSON", recogniserMessage(id, QStringLiteral("hello")), words},
        {"no mark", recogniserMessage(id, QStringLiteral(R"({"ws":[{"cw":[{"w":"x"}]}]})")), words},
        {"no slots", recogniserMessage(id, QStringLiteral(R"({"pgs":"rpl"})")), QString()},
        {"slots are an object",
         recogniserMessage(id, QStringLiteral(R"({"pgs":"rpl","ws":{"cw":[{"w":"x"}]}})")),
         QString()},
        {"no candidates",
         recogniserMessage(id, QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[]}]})")), QString()},
        {"a number as word",
         recogniserMessage(id, QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":5}]}]})")),
         QString()},
        {"a number as mark",
         recogniserMessage(id, QStringLiteral(R"({"pgs":1,"ws":[{"cw":[{"w":"x"}]}]})")),
         words + QLatin1Char('x')},
    };
    for (const auto &row : rows) {
        // Every row begins with nothing but the words; "append" has fixed some in the one before.
        bed.service.recognise(iatPath, words);
        QTRY_VERIFY2(bed.shown() == panel(words), row.name);
        bed.service.send(iatPath, row.sent);
        QVERIFY(everythingArrived());
        QVERIFY2(bed.shown() == panel(row.shown), row.name);
    }
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::tenMegabytes()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    // What is logged has that size, too.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QString text(10 * 1024 * 1024, QLatin1Char('w'));
    bed.service.recognise(iatPath, text);
    QTRY_VERIFY_WITH_TIMEOUT(!bed.page->texts().at(1).isEmpty(), 60000);
    QCOMPARE(bed.page->texts().at(1), showntext::cut(text, showntext::longestWords));
    QApplication::processEvents(); // and painted
    bed.service.notify(aqcPath, text);
    QTRY_VERIFY_WITH_TIMEOUT(!bed.page->texts().contains(wave), 60000);
    QCOMPARE(bed.page->texts().at(2), QString());
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::resultsOfAnotherSession()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    bed.cancel();
    QVERIFY(bed.page->clickLink());
    // From the session before, also through the present one's object, and from an unknown one's.
    bed.service.recognise(iatPath, QStringLiteral("old"));
    bed.service.send(
        secondIatPath,
        recogniserMessage(idOf(iatPath),
                          QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":"late"}]}]})")));
    bed.service.recognise(QStringLiteral("/session/iat/77"), QStringLiteral("foreign"));
    bed.service.notify(aqcPath, QStringLiteral("1008"));
    bed.service.notify(QStringLiteral("/session/aqc/77"), QStringLiteral("1003"));
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), panel(QString()));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::resultsAfterTheEnd()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    bed.service.recognise(iatPath, words);
    QTRY_COMPARE(bed.shown(), panel(words));

    // When the ten seconds are over results are ignored, and the verdict still counts.
    QVERIFY(bed.timeIsUp());
    bed.service.recognise(iatPath, QStringLiteral("late"));
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), panel(words));
    bed.service.notify(aqcPath, QStringLiteral("1008"));
    const QString finished = finishedPanel(words, QStringLiteral("Too many noises"));
    QTRY_COMPARE(bed.shown(), finished);
    bed.service.recognise(iatPath, QStringLiteral("later"));
    bed.service.setValue(QStringLiteral("end"), QStringList(iatPath));
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), finished);
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::richText()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    const QString rich =
        QStringLiteral("<h1>loud</h1><img src='file:///etc/hostname'><a href='x'>&amp;</a>");
    bed.service.recognise(iatPath, rich);
    QTRY_COMPARE(bed.shown(), panel(rich));
    auto *label = qobject_cast<QLabel *>(bed.page->layout()->itemAt(1)->widget());
    QCOMPARE(label->textFormat(), Qt::PlainText);
    bed.service.notify(aqcPath, QStringLiteral("<b>1004</b>"));
    QTRY_COMPARE(bed.shown(),
                 finishedPanel(rich, QStringLiteral("Turn down the input volume and try again")));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::verdictsWithUnknownCodes()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    for (const char *code : {"9999", "", "{\"code\":\"1011\"}", "100 4", "no code at all"}) {
        for (const QString &heard : {QString(), words}) {
            bed.service.reset();
            QVERIFY(bed.page->clickLink());
            if (!heard.isEmpty()) {
                bed.service.recognise(bed.service.calls(startIat).value(0).path, heard);
                QTRY_COMPARE(bed.shown(), panel(heard));
            }
            bed.service.notify(bed.service.calls(startAqc).value(0).path, QLatin1String(code));
            QTRY_COMPARE(
                bed.shown(),
                finishedPanel(heard, heard.isEmpty()
                                         ? QStringLiteral("Turn up the input volume and try again")
                                         : QString()));
            QVERIFY(microphoneIsClosed());
        }
    }
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::verdictTwice()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    // The second one waits behind the first when that ends the test.
    QVERIFY(everythingArrived());
    bed.service.notify(aqcPath, QStringLiteral("1008"));
    bed.service.notify(aqcPath, QStringLiteral("1003"));
    QVERIFY(everythingIsQueued());
    QVERIFY(everythingArrived());
    const QString noisy = finishedPanel(QString(), QStringLiteral("Too many noises"));
    QCOMPARE(bed.shown(), noisy);
    bed.service.notify(aqcPath, QStringLiteral("1003"));
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), noisy);
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::verdictBeforeTheStartIsAnswered()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    bed.service.script(startAqc, QStringLiteral("hold"));
    QVERIFY(bed.page->clickLink());
    bed.service.notify(aqcPath, QStringLiteral("1003"));
    const QString silent = finishedPanel(QString(), QStringLiteral("No sound recorded"));
    QTRY_COMPARE(bed.shown(), silent);
    QCOMPARE(bed.service.release(startAqc), 1);
    QVERIFY(everythingArrived());
    QCOMPARE(bed.shown(), silent);
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::verdictAfterThePageIsGone()
{
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    QVERIFY(everythingArrived());
    // One that is on its way when the page goes, and one that comes when there is another page.
    bed.service.recognise(iatPath, words);
    bed.service.notify(aqcPath, QStringLiteral("1008"));
    QVERIFY(everythingIsQueued());
    bed.page.reset();
    QVERIFY(microphoneIsClosed());
    bed.page = std::make_unique<VoicePage>();
    bed.service.notify(aqcPath, QStringLiteral("1003"));
    QVERIFY(everythingArrived());
    QCOMPARE(bed.page->texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    QCOMPARE(bed.nextRun(), QString());
}

void VoicePageSignalsTest::startThirdRun(VoiceTestBed &bed)
{
    QVERIFY(bed.open());
    for (int run = 1; run <= 3; ++run) {
        if (run > 1)
            bed.page->finish(QStringLiteral("1000"));
        QVERIFY(bed.page->clickLink());
        QCOMPARE(bed.service.calls(startIat).size(), run);
    }
}

// Every run adds a connection and none takes it away: the text only replaces itself.
void VoicePageSignalsTest::resultInTheThirdRun()
{
    VoiceTestBed bed;
    startThirdRun(bed);
    bed.service.recognise(QStringLiteral("/session/iat/3"), words);
    QTRY_COMPARE(bed.shown(), panel(words));
    QCOMPARE(textsSet, 3);
    QCOMPARE(textsRead, 1);
}

void VoicePageSignalsTest::verdictInTheThirdRun()
{
    VoiceTestBed bed;
    startThirdRun(bed);
    const LogCapture log;
    bed.service.notify(QStringLiteral("/session/aqc/3"), QStringLiteral("1008"));
    QTRY_COMPARE(bed.shown(), finishedPanel(QString(), QStringLiteral("Too many noises")));
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotAqcResult result: \"1008\"")), 1);
}

ISOLATED_TEST_CLASS(QApplication, VoicePageSignalsTest, ScriptedAudio::install())
#include "voicepagesignals.moc"
