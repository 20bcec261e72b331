#include "sandbox/services/aiservice/wavfile.h"
#include "tests/e2e/windowprogram.h"
#include "tests/support/busrecorder.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/spokenrecording.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualmicrophone.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using namespace testsupport;

namespace {

using sandbox::wavfile::samplesPerSecond;

/** What a capture may lose or add while it starts, in samples. */
constexpr int startUp = samplesPerSecond / 2;

/** What the microphone hears in the tour's whole tests, in their order, and the verdicts' codes. */
const QVector<QPair<QString, QString>> wholeTests = {
    {QStringLiteral("speech"), QStringLiteral("1000")},
    {QStringLiteral("loud"), QStringLiteral("1004")},
    {QStringLiteral("quiet"), QStringLiteral("1005")},
    {QStringLiteral("noise"), QStringLiteral("1008")},
    {QStringLiteral("silence"), QStringLiteral("1003")}};

/** Where a recording has what the microphone played, sample for sample. Counted in samples. */
struct Match
{
    int heardBegin = 0; ///< of the part of what was heard that is the same as the source
    int heardEnd = 0;
    int sourceBegin = 0;

    QString text() const
    {
        return QStringLiteral("the same from %1 to %2, in the source from %3")
            .arg(heardBegin)
            .arg(heardEnd)
            .arg(sourceBegin);
    }
};

/** Finds the tenth of a second at @p anchor in @p source and goes from there as far as it is equal.
 */
Match match(const QVector<qint16> &heard, const QVector<qint16> &source, int anchor)
{
    const auto key = heard.cbegin() + anchor;
    const auto found =
        std::search(source.cbegin(), source.cend(), key, key + samplesPerSecond / 10);
    if (found == source.cend())
        return {};
    const int shift = int(found - source.cbegin()) - anchor;
    int begin = anchor;
    while (begin > 0 && begin + shift > 0 && heard[begin - 1] == source[begin - 1 + shift])
        --begin;
    int end = anchor;
    while (end < heard.size() && end + shift < source.size() && heard[end] == source[end + shift])
        ++end;
    return {begin, end, begin + shift};
}

/** What the session number @p number has heard; each test opens two, first the quality check's. */
QVector<qint16> heardBy(const char *ability, int number, const QTemporaryDir &recordings)
{
    const QString name = QStringLiteral("%1-%2.wav").arg(QLatin1String(ability)).arg(number);
    return spokenrecording::read(recordings.filePath(name));
}

} // namespace

/** The part of the tour that speaks into a microphone: whole voice tests and their verdicts. */
class WindowVoiceTourTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyVoiceTestEndsWithTheRightVerdict();
    void withoutAVirtualMicrophoneTheTourFails();
};

void WindowVoiceTourTest::everyVoiceTestEndsWithTheRightVerdict()
{
    VirtualMicrophone microphone;
    QVERIFY(microphone.start(QStringLiteral("speech")));
    qputenv("SANDBOX_MICROPHONE",
            QFileInfo(microphone.recordingFile(QStringLiteral("speech"))).path().toLocal8Bit());
    ServiceProcess ai(QStringLiteral("aiservice"));
    ServiceProcess audio(QStringLiteral("audio"));
    ServiceProcess assistant(QStringLiteral("assistant"));
    ServiceProcess dock(QStringLiteral("dock"));
    ServiceProcess network(QStringLiteral("networkmanager"));
    for (ServiceProcess *service : {&ai, &audio, &assistant, &dock, &network})
        QVERIFY(service->start());

    const QTemporaryDir recordings;
    ai.setValue(QStringLiteral("recordDirectory"), recordings.path());
    BusRecorder bus;
    QVERIFY(bus.start());

    const QTemporaryDir pictures;
    const WindowRun run =
        runTour(pictures.path(), {QStringLiteral("--section"), QStringLiteral("voice")});
    const QString problem = failureOf(run, pictures.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));

    QVERIFY(bus.sync());
    QStringList verdicts;
    for (const BusMessage &message : bus.messages())
        if (message.member == QLatin1String("onNotify"))
            verdicts << message.arguments.first().toString();
    QVERIFY(verdicts.size() >= wholeTests.size());
    for (int i = 0; i < wholeTests.size(); ++i) {
        const auto &[kind, code] = wholeTests.at(i);
        QVERIFY2(verdicts.at(i).contains(code), qPrintable(verdicts.at(i)));
        // What left the microphone is what both sessions heard: nothing lost, nothing doubled.
        const auto checked = heardBy("aqc", 2 * i + 1, recordings);
        const auto recognised = heardBy("iat", 2 * i + 2, recordings);
        QVERIFY2(checked == recognised, qPrintable(kind));
        const double seconds = double(checked.size()) / samplesPerSecond;
        QVERIFY2(seconds > 9.5 && seconds < 10.5, qPrintable(QString::number(seconds)));
        const Match same =
            match(checked, spokenrecording::read(microphone.recordingFile(kind)), startUp);
        QVERIFY2(same.heardEnd == checked.size(), qPrintable(kind + same.text()));
        QVERIFY2(same.sourceBegin < startUp, qPrintable(kind + same.text()));
    }
}

// Nobody's room is recorded by a tour.
void WindowVoiceTourTest::withoutAVirtualMicrophoneTheTourFails()
{
    qunsetenv("SANDBOX_MICROPHONE");
    const QTemporaryDir pictures;
    const WindowRun run = runTour(
        pictures.path(), {QStringLiteral("--section"), QStringLiteral("voice")}, Warnings::Allowed);
    QCOMPARE(run.exitCode, 1);
    QVERIFY(!run.lines.filter(QStringLiteral("no virtual microphone")).isEmpty());
}

TEST_CLASS(QCoreApplication, WindowVoiceTourTest)
#include "windowvoicetour.moc"
