#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/spokenrecording.h"
#include "tests/support/virtualmicrophone.h"
#include "voice/aqcwrapper.h"

#include <QtTest>

#include <algorithm>

using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;
namespace SpokenRecording = testsupport::SpokenRecording;

namespace {

using sandbox::WavFile::samplesPerSecond;

/** What a capture may lose or add while it starts, in samples. */
constexpr int startUp = samplesPerSecond / 2;

const QString phrase = QStringLiteral("阿岚帮我预约明天早上10点的视频会议");

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

} // namespace

/** Whole voice tests: spoken into the virtual microphone, recorded by the module, judged by the
 * real AI service. */
class MicrophoneVoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void verdictAndWords_data();
    void verdictAndWords();

private:
    VirtualMicrophone m_microphone;
    ServiceProcess m_aiService{QStringLiteral("aiservice")};
    ServiceProcess m_audioDaemon{QStringLiteral("audio")};
};

void MicrophoneVoiceTest::initTestCase()
{
    QVERIFY(m_microphone.start(QStringLiteral("speech")));
    QVERIFY(m_audioDaemon.start());
    QVERIFY(m_aiService.start());
}

void MicrophoneVoiceTest::cleanupTestCase()
{
    QVERIFY(m_aiService.stop());
    QVERIFY(m_audioDaemon.stop());
    QVERIFY(m_microphone.stop());
}

void MicrophoneVoiceTest::verdictAndWords_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QRegularExpression>("text");

    const QRegularExpression anything;
    const QRegularExpression nothing(QStringLiteral("^$"));
    QTest::newRow("speech") << "speech"
                            << "1000"
                            << QRegularExpression(QLatin1Char('^') + phrase + QLatin1Char('$'));
    QTest::newRow("noise") << "noise"
                           << "1008" << anything;
    QTest::newRow("loud") << "loud"
                          << "1004" << anything;
    QTest::newRow("quiet") << "quiet"
                           << "1005" << anything;
    QTest::newRow("silence") << "silence"
                             << "1003" << nothing;
}

void MicrophoneVoiceTest::verdictAndWords()
{
    QFETCH(QString, kind);
    QFETCH(QString, code);
    QFETCH(QRegularExpression, text);

    QVERIFY(m_microphone.changeKind(kind));
    const QTemporaryDir recordings;
    m_aiService.setValue(QStringLiteral("recordDirectory"), recordings.path());

    AqcWrapper voiceTest;
    QSignalSpy verdicts(&voiceTest, &AqcWrapper::signalAqcResult);
    double loudest = 0.0;
    connect(&voiceTest, &AqcWrapper::signalUpdateAudioLevel, this,
            [&](double level) { loudest = qMax(loudest, level); });
    QString words;
    connect(&voiceTest, &AqcWrapper::signaleIatResult, this,
            [&](const QString &result) { words = result; });
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(voiceTest.start(), 0);
    QVERIFY(verdicts.wait(20000));
    const qint64 elapsed = clock.elapsed();

    QVERIFY2(elapsed >= 10000 && elapsed < 11000, qPrintable(QString::number(elapsed)));
    QCOMPARE(verdicts.count(), 1);
    const QString verdict = verdicts.first().first().toString();
    QVERIFY2(verdict.contains(code), qPrintable(verdict));
    QVERIFY2(text.match(words).hasMatch(), qPrintable(words));

    // What left the microphone is what both sessions heard: nothing lost, nothing doubled.
    const QDir folder(recordings.path());
    const QStringList files = folder.entryList(QDir::Files, QDir::Name);
    QCOMPARE(files.size(), 2);
    const auto checked = SpokenRecording::read(folder.filePath(files.first()));
    const auto recognised = SpokenRecording::read(folder.filePath(files.last()));
    const auto source = SpokenRecording::read(m_microphone.recordingFile(kind));
    QVERIFY(files.first().startsWith(QStringLiteral("aqc-")));
    QVERIFY(files.last().startsWith(QStringLiteral("iat-")));
    QVERIFY2(checked == recognised,
             qPrintable(QStringLiteral("%1, %2").arg(checked.size()).arg(recognised.size())));
    const double seconds = double(checked.size()) / samplesPerSecond;
    QVERIFY2(seconds > 9.5 && seconds < 10.5, qPrintable(QString::number(seconds)));
    const Match same = match(checked, source, startUp);
    QVERIFY2(same.heardEnd == checked.size(), qPrintable(same.text()));
    QVERIFY2(same.sourceBegin < startUp, qPrintable(same.text()));

    const auto peak = *std::max_element(checked.cbegin(), checked.cend(),
                                        [](int a, int b) { return std::abs(a) < std::abs(b); });
    QCOMPARE(loudest, qMin(1.0, std::abs(int(peak)) / 32767.0));
}

QTEST_GUILESS_MAIN(MicrophoneVoiceTest)
#include "microphonevoicetest.moc"
