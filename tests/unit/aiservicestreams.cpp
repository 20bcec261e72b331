#include "sandbox/services/aiservice/phraselistener.h"
#include "sandbox/services/aiservice/phrasemodel.h"
#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/testprogram.h"

#include <QtTest>

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
#include "aiservicestreams.moc"
