#include "sandbox/services/aiservice/phraselistener.h"
#include "sandbox/services/aiservice/phrasemodel.h"
#include "sandbox/services/aiservice/qualityverdict.h"
#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/spokenrecording.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <cmath>

using namespace sandbox;

class AiServiceStreamsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesOfBlocks();
    void wavFile();
    void wavFileThatCannotBeWritten();
    void phraseOutOfDecoderOutput_data();
    void phraseOutOfDecoderOutput();
    void everyWordIsPronounced();
    void resultText();
};

void AiServiceStreamsTest::samplesOfBlocks()
{
    PcmReader reader;
    QCOMPARE(reader.read(QByteArray::fromHex("ff7f0080")), (QVector<qint16>{32767, -32768}));
    QCOMPARE(reader.read(QByteArray()), QVector<qint16>());
    QCOMPARE(reader.read(QByteArray::fromHex("0100ff")), QVector<qint16>{1});
    QCOMPARE(reader.read(QByteArray::fromHex("ff02")), QVector<qint16>{-1});
    QCOMPARE(reader.read(QByteArray::fromHex("00")), QVector<qint16>{2});
}

void AiServiceStreamsTest::wavFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("new/heard.wav"));
    WavWriter writer(path);
    QCOMPARE(writer.errorString(), QString());
    writer.append(QByteArray::fromHex("01000200"));
    writer.append(QByteArray::fromHex("03"));
    writer.append(QByteArray::fromHex("00"));

    // Read while the writer is still open, as after a crash.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().toHex(),
             QByteArray("524946462a00000057415645" // RIFF, 42 bytes follow, WAVE
                        "666d7420100000000100"
                        "0100"
                        "803e0000"
                        "007d0000"
                        "0200"
                        "1000"
                        "6461746106000000"
                        "010002000300"));
}

void AiServiceStreamsTest::wavFileThatCannotBeWritten()
{
    WavWriter writer(QStringLiteral("/proc/nowhere/heard.wav"));
    QVERIFY(!writer.errorString().isEmpty());
    writer.append("ab");
    QVERIFY(!QFile::exists(QStringLiteral("/proc/nowhere/heard.wav")));
}

void AiServiceStreamsTest::phraseOutOfDecoderOutput_data()
{
    QTest::addColumn<QString>("decoded");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("fillers only") << "~AA ~K ~S"
                                  << "";
    QTest::newRow("whole phrase") << "~K 阿岚 帮我 预约 明天 早上 10点 的 视频 会议 ~AA"
                                  << "阿岚 帮我 预约 明天 早上 10点 的 视频 会议";
    QTest::newRow("three words are chance") << "阿岚 帮我 ~S 预约"
                                            << "";
    QTest::newRow("four words count") << "明天 ~S 早上 ~S 10点 的"
                                      << "明天 早上 10点 的";
    QTest::newRow("words are missing") << "阿岚 预约 明天 会议"
                                       << "阿岚 预约 明天 会议";
    QTest::newRow("wrong order") << "会议 视频 的 10点"
                                 << "";
    QTest::newRow("spoken twice, the second time not to the end")
        << "10点 的 视频 会议 阿岚 帮我 预约 明天"
        << "10点 的 视频 会议 阿岚 帮我 预约 明天";
    QTest::newRow("stray word before the phrase") << "视频 阿岚 帮我 预约 明天"
                                                  << "阿岚 帮我 预约 明天";
    QTest::newRow("word heard twice") << "阿岚 帮我 预约 ~AA 预约 明天"
                                      << "阿岚 帮我 预约 明天";
}

void AiServiceStreamsTest::phraseOutOfDecoderOutput()
{
    QFETCH(QString, decoded);
    QFETCH(QString, expected);

    QCOMPARE(phrasefilter::phraseWords(decoded.split(QLatin1Char(' '))).join(QLatin1Char(' ')),
             expected);
}

void AiServiceStreamsTest::everyWordIsPronounced()
{
    QCOMPARE(phrasemodel::words().join(QString()),
             QStringLiteral("阿岚帮我预约明天早上10点的视频会议"));

    const QList<QByteArray> lines = phrasemodel::dictionary().split('\n');
    QSet<QByteArray> entries;
    for (const QByteArray &line : lines) {
        const QByteArray entry = line.left(line.indexOf(' '));
        QVERIFY2(line.isEmpty() || line.contains(' '), line.constData());
        QVERIFY2(line.isEmpty() || !entries.contains(entry), entry.constData());
        entries.insert(entry);
    }
    const QByteArray bigrams = phrasemodel::bigrams();
    for (const QString &word : phrasemodel::words()) {
        QVERIFY2(entries.contains(word.toUtf8()), qPrintable(word));
        QVERIFY2(bigrams.contains(' ' + word.toUtf8() + ' '), qPrintable(word));
    }
}

void AiServiceStreamsTest::resultText()
{
    Hypothesis hypothesis;
    hypothesis.words = QStringList{QStringLiteral("明天"), QStringLiteral("早上")};
    hypothesis.number = 3;
    QJsonObject result =
        QJsonDocument::fromJson(hypothesis.toJson(QStringLiteral("a-b")).toUtf8()).object();
    QCOMPARE(result.keys(), (QStringList{QStringLiteral("finish"), QStringLiteral("session_id"),
                                         QStringLiteral("text")}));
    QCOMPARE(result.value(QStringLiteral("session_id")), QJsonValue(QStringLiteral("a-b")));
    QCOMPARE(result.value(QStringLiteral("finish")), QJsonValue(false));
    QCOMPARE(result.value(QStringLiteral("text")).toString(),
             QStringLiteral(R"({"ls":false,"pgs":"rpl","sn":3,)"
                            R"("ws":[{"cw":[{"w":"明天"}]},{"cw":[{"w":"早上"}]}]})"));

    hypothesis.kind = Hypothesis::Append;
    hypothesis.words.clear();
    hypothesis.last = true;
    result = QJsonDocument::fromJson(hypothesis.toJson(QString()).toUtf8()).object();
    QCOMPARE(result.value(QStringLiteral("finish")), QJsonValue(true));
    QCOMPARE(result.value(QStringLiteral("text")).toString(),
             QStringLiteral(R"({"ls":true,"pgs":"apd","sn":3,"ws":[]})"));
}

TEST_CLASS(QCoreApplication, AiServiceStreamsTest)

namespace spokenrecording = testsupport::spokenrecording;

Q_DECLARE_METATYPE(sandbox::QualityFigures)
Q_DECLARE_METATYPE(sandbox::QualityVerdict)

namespace {

constexpr double pi = 3.14159265358979;

QualityFigures measured(const QVector<qint16> &samples)
{
    QualityMeter meter;
    meter.add(samples.constData(), samples.size());
    return meter.figures();
}

/** A tone of 1000 Hz. Its RMS level is 3 dB below @p amplitude. */
QVector<qint16> tone(double amplitude, double seconds, int offset = 0)
{
    QVector<qint16> samples(int(seconds * wavfile::samplesPerSecond));
    for (int i = 0; i < samples.size(); ++i) {
        const double value =
            amplitude * 32767.0 * std::sin(2.0 * pi * 1000.0 * i / wavfile::samplesPerSecond) +
            offset;
        samples[i] = qint16(qBound(-32768.0, std::round(value), 32767.0));
    }
    return samples;
}

QVector<qint16> amplified(QVector<qint16> samples, double decibel)
{
    const double factor = std::pow(10.0, decibel / 20.0);
    for (qint16 &sample : samples)
        sample = qint16(qBound(-32768.0, std::round(sample * factor), 32767.0));
    return samples;
}

QByteArray label(const QString &kind, const spokenrecording::Speaker &speaker)
{
    return QStringLiteral("%1, %2, %3 words a minute")
        .arg(kind, speaker.voice)
        .arg(speaker.wordsPerMinute)
        .toUtf8();
}

} // namespace

class AiServiceQualityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordings_data();
    void recordings();
    void inputVolume_data();
    void inputVolume();
    void verdicts_data();
    void verdicts();
    void levelOfATone();
    void offsetIsNotSound();
    void cutOffWaves();
    void blocksMakeNoDifference();
    void noAudio();
    void noticeHoldsOneCode();
};

void AiServiceQualityTest::recordings_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("voice");
    QTest::addColumn<int>("wordsPerMinute");
    QTest::addColumn<QualityVerdict>("expected");

    const QVector<QPair<QString, QualityVerdict>> kinds = {
        {QStringLiteral("speech"), QualityVerdict::Good},
        {QStringLiteral("noise"), QualityVerdict::TooNoisy},
        {QStringLiteral("loud"), QualityVerdict::TooLoud},
        {QStringLiteral("quiet"), QualityVerdict::TooQuiet},
        {QStringLiteral("silence"), QualityVerdict::NoSound},
    };
    const QVector<spokenrecording::Speaker> speakers = {
        {QStringLiteral("cmn-latn-pinyin"), 150},       {QStringLiteral("cmn-latn-pinyin"), 120},
        {QStringLiteral("cmn-latn-pinyin"), 200},       {QStringLiteral("cmn-latn-pinyin+f2"), 150},
        {QStringLiteral("cmn-latn-pinyin+m3"), 175},    {QStringLiteral("cmn-latn-pinyin+f4"), 130},
        {QStringLiteral("cmn-latn-pinyin+croak"), 150},
    };
    for (const auto &kind : kinds) {
        for (const spokenrecording::Speaker &speaker : speakers) {
            QTest::newRow(label(kind.first, speaker))
                << kind.first << speaker.voice << speaker.wordsPerMinute << kind.second;
        }
    }
}

void AiServiceQualityTest::recordings()
{
    QFETCH(QString, kind);
    QFETCH(QString, voice);
    QFETCH(int, wordsPerMinute);
    QFETCH(QualityVerdict, expected);

    const auto samples = spokenrecording::make(kind, {voice, wordsPerMinute});
    QCOMPARE(samples.size(), 10 * wavfile::samplesPerSecond);
    const QualityFigures figures = measured(samples);
    QVERIFY2(qualityVerdict(figures) == expected, qPrintable(qualityNotice(figures)));
}

void AiServiceQualityTest::inputVolume_data()
{
    QTest::addColumn<double>("decibel");
    QTest::addColumn<QualityVerdict>("expected");

    // The spoken recording peaks at -6 dBFS.
    QTest::newRow("peak at -56 dBFS") << -50.0 << QualityVerdict::NoSound;
    QTest::newRow("peak at -46 dBFS") << -40.0 << QualityVerdict::TooQuiet;
    QTest::newRow("peak at -32 dBFS") << -26.0 << QualityVerdict::TooQuiet;
    QTest::newRow("peak at -24 dBFS") << -18.0 << QualityVerdict::Good;
    QTest::newRow("peak at -6 dBFS") << 0.0 << QualityVerdict::Good;
    QTest::newRow("peak at full scale") << 6.0 << QualityVerdict::Good;
    QTest::newRow("2 dB over full scale") << 8.0 << QualityVerdict::Good;
    QTest::newRow("6 dB over full scale") << 12.0 << QualityVerdict::TooLoud;
    QTest::newRow("20 dB over full scale") << 26.0 << QualityVerdict::TooLoud;
}

void AiServiceQualityTest::inputVolume()
{
    QFETCH(double, decibel);
    QFETCH(QualityVerdict, expected);

    const auto samples = amplified(spokenrecording::make(QStringLiteral("speech")), decibel);
    QVERIFY(!samples.isEmpty());
    const QualityFigures figures = measured(samples);
    QVERIFY2(qualityVerdict(figures) == expected, qPrintable(qualityNotice(figures)));
}

void AiServiceQualityTest::verdicts_data()
{
    QTest::addColumn<QualityFigures>("figures");
    QTest::addColumn<QualityVerdict>("expected");

    const auto row = [](const char *name, double speech, double noise, double clipped,
                        QualityVerdict expected) {
        QTest::newRow(name) << QualityFigures{10.0, speech, noise, clipped} << expected;
    };
    row("clear voice", -20.0, -70.0, 0.0, QualityVerdict::Good);
    row("voice just loud enough", -40.0, -70.0, 0.0, QualityVerdict::Good);
    row("voice just too quiet", -40.5, -70.0, 0.0, QualityVerdict::TooQuiet);
    row("faintest voice", -63.5, -80.0, 0.0, QualityVerdict::TooQuiet);
    row("fainter than a voice", -64.0, -80.0, 0.0, QualityVerdict::NoSound);
    row("quiet room, nobody speaks", -52.0, -55.0, 0.0, QualityVerdict::NoSound);
    row("noisy room, nobody speaks", -40.0, -42.0, 0.0, QualityVerdict::TooNoisy);
    row("voice just clear of a noisy room", -20.0, -35.0, 0.0, QualityVerdict::Good);
    row("voice just lost in a noisy room", -20.0, -34.5, 0.0, QualityVerdict::TooNoisy);
    row("quiet voice in a quiet room", -44.0, -50.0, 0.0, QualityVerdict::TooQuiet);
    row("quiet voice in a noisy room", -44.0, -49.5, 0.0, QualityVerdict::TooNoisy);
    row("a single bang", -20.0, -70.0, 0.05, QualityVerdict::Good);
    row("cut off", -5.0, -70.0, 0.06, QualityVerdict::TooLoud);
    row("cut off in noise", -2.0, -6.0, 0.5, QualityVerdict::TooLoud);
}

void AiServiceQualityTest::verdicts()
{
    QFETCH(QualityFigures, figures);
    QFETCH(QualityVerdict, expected);

    QCOMPARE(qualityVerdict(figures), expected);
}

void AiServiceQualityTest::levelOfATone()
{
    // Four seconds of silence, then one of a tone with an RMS of -23 dB.
    const QualityFigures figures = measured(spokenrecording::silence(4.0) + tone(0.1, 1.0));

    QCOMPARE(figures.seconds, 5.0);
    QVERIFY2(std::abs(figures.speechLevel + 23.0) <= 0.5,
             qPrintable(QString::number(figures.speechLevel)));
    QCOMPARE(figures.noiseLevel, -96.0);
    QCOMPARE(figures.clippedShare, 0.0);
}

void AiServiceQualityTest::offsetIsNotSound()
{
    const QualityFigures figures = measured(tone(0.0, 3.0, 5000));

    QCOMPARE(figures.speechLevel, -96.0);
    QCOMPARE(qualityVerdict(figures), QualityVerdict::NoSound);
}

void AiServiceQualityTest::cutOffWaves()
{
    QVector<qint16> samples = tone(0.5, 2.0); // 100 frames
    samples[1000] = samples[1001] = 32767;
    samples[2000] = samples[2001] = -32768;
    QCOMPARE(measured(samples).clippedShare, 0.0);

    samples[1002] = 32766;
    QCOMPARE(measured(samples).clippedShare, 0.01);
    samples[2002] = -32767;
    QCOMPARE(measured(samples).clippedShare, 0.02);
}

void AiServiceQualityTest::blocksMakeNoDifference()
{
    const auto samples = spokenrecording::make(QStringLiteral("loud"));
    QVERIFY(!samples.isEmpty());
    const QualityFigures whole = measured(samples);

    QualityMeter meter;
    int begin = 0;
    for (int size = 1; begin < samples.size(); size = size % 797 + 3) {
        const int count = qMin(size, samples.size() - begin);
        meter.add(samples.constData() + begin, count);
        begin += count;
    }
    QCOMPARE(meter.figures().speechLevel, whole.speechLevel);
    QCOMPARE(meter.figures().noiseLevel, whole.noiseLevel);
    QCOMPARE(meter.figures().clippedShare, whole.clippedShare);
    QVERIFY(whole.clippedShare > 0.5);
}

void AiServiceQualityTest::noAudio()
{
    QCOMPARE(qualityVerdict(QualityMeter().figures()), QualityVerdict::NoSound);
    QCOMPARE(qualityVerdict(measured(spokenrecording::silence(0.01))), QualityVerdict::NoSound);
    QCOMPARE(qualityVerdict(measured(spokenrecording::silence(10.0))), QualityVerdict::NoSound);
}

void AiServiceQualityTest::noticeHoldsOneCode()
{
    // The client searches the whole text for codes: no level may look like one.
    for (int speech = -96; speech <= 0; ++speech) {
        for (int percent = 0; percent <= 100; ++percent) {
            const QualityFigures figures{10.0, double(speech), -96.0, percent / 100.0};
            const QString notice = qualityNotice(figures);
            int codes = 0;
            for (int code = 1000; code <= 1010; ++code)
                codes += notice.contains(QString::number(code)) ? 1 : 0;
            QVERIFY2(codes == 1, qPrintable(notice));
            QVERIFY2(notice.contains(QString::number(int(qualityVerdict(figures)))),
                     qPrintable(notice));
        }
    }
}

TEST_CLASS(QCoreApplication, AiServiceQualityTest)

#include "aiservicestreams.moc"
