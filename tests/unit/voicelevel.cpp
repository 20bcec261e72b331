// The microphone's sink: which blocks leave it, and with which level.

#include "tests/support/testprogram.h"
#include "voice/audioinfo.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

QAudioFormat format(int size, QAudioFormat::SampleType type,
                    QAudioFormat::Endian order = QAudioFormat::LittleEndian, int channels = 1)
{
    QAudioFormat f;
    f.setSampleRate(16000);
    f.setChannelCount(channels);
    f.setSampleSize(size);
    f.setCodec(QStringLiteral("audio/pcm"));
    f.setByteOrder(order);
    f.setSampleType(type);
    return f;
}

QAudioFormat captureFormat()
{
    return format(16, QAudioFormat::SignedInt);
}

// The bytes of one number, least significant first, written without the code under test.
QByteArray littleEndian(quint64 bits, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result.append(static_cast<char>((bits >> (8 * i)) & 0xff));
    return result;
}

QByteArray bigEndian(quint64 bits, int bytes)
{
    QByteArray result = littleEndian(bits, bytes);
    std::reverse(result.begin(), result.end());
    return result;
}

QByteArray floatBytes(float value)
{
    static_assert(std::numeric_limits<float>::is_iec559, "the tables hold IEEE floats");
    quint32 bits;
    std::memcpy(&bits, &value, sizeof bits);
    return littleEndian(bits, 4);
}

// 16-bit samples, as the recorder's format has them.
QByteArray samples(std::initializer_list<int> values)
{
    QByteArray result;
    for (int value : values)
        result += littleEndian(static_cast<quint16>(value), 2);
    return result;
}

// The level of one block, or -1 when none is reported.
double levelOf(const QAudioFormat &f, const QByteArray &block)
{
    AudioInfo info(f);
    QSignalSpy levels(&info, &AudioInfo::levelUpdated);
    info.start();
    if (info.write(block) != block.size() || levels.count() > 1)
        return -2;
    return levels.isEmpty() ? -1 : levels.first().first().toDouble();
}

} // namespace

class VoiceLevelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fullScale_data();
    void fullScale();
    void unmeasuredFormats_data();
    void unmeasuredFormats();
    void blocks_data();
    void blocks();
    void floats_data();
    void floats();
    void channelsCountAlike();
    void unalignedSamples();
    void formatWithoutChannels();
    void blockComesBeforeItsLevel();
    void blockIsACopy();
    void sinkOpensAndCloses();
};

void VoiceLevelTest::fullScale_data()
{
    QTest::addColumn<QAudioFormat>("fmt");
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<double>("level");

    const auto signedInt = QAudioFormat::SignedInt;
    const auto unsignedInt = QAudioFormat::UnSignedInt;
    const auto big = QAudioFormat::BigEndian;
    QTest::newRow("8 signed") << format(8, signedInt) << littleEndian(100, 1) << 100 / 127.0;
    QTest::newRow("8 signed, smallest") << format(8, signedInt) << littleEndian(0x80, 1) << 1.0;
    QTest::newRow("8 signed, negative")
        << format(8, signedInt) << littleEndian(0xff, 1) << 1 / 127.0;
    QTest::newRow("8 unsigned") << format(8, unsignedInt) << littleEndian(200, 1) << 200 / 255.0;
    QTest::newRow("8 unsigned, largest") << format(8, unsignedInt) << littleEndian(255, 1) << 1.0;
    QTest::newRow("16 signed") << format(16, signedInt) << littleEndian(1000, 2) << 1000 / 32767.0;
    QTest::newRow("16 signed, smallest") << format(16, signedInt) << littleEndian(0x8000, 2) << 1.0;
    QTest::newRow("16 signed, largest") << format(16, signedInt) << littleEndian(0x7fff, 2) << 1.0;
    QTest::newRow("16 signed, big endian")
        << format(16, signedInt, big) << bigEndian(1000, 2) << 1000 / 32767.0;
    QTest::newRow("16 unsigned") << format(16, unsignedInt) << littleEndian(40000, 2)
                                 << 40000 / 65535.0;
    QTest::newRow("16 unsigned, big endian")
        << format(16, unsignedInt, big) << bigEndian(258, 2) << 258 / 65535.0;
    QTest::newRow("32 signed") << format(32, signedInt) << littleEndian(1 << 20, 4)
                               << (1 << 20) / 2147483647.0;
    QTest::newRow("32 signed, smallest")
        << format(32, signedInt) << littleEndian(0x80000000u, 4) << 1.0;
    QTest::newRow("32 signed, big endian")
        << format(32, signedInt, big) << bigEndian(0xff000000u, 4) << 16777216 / 2147483647.0;
    QTest::newRow("32 unsigned") << format(32, unsignedInt) << littleEndian(3000000000u, 4)
                                 << 3000000000.0 / 4294967295.0;
    QTest::newRow("32 unsigned, big endian")
        << format(32, unsignedInt, big) << bigEndian(0x01000000u, 4) << 16777216 / 4294967295.0;
    QTest::newRow("32 float") << format(32, QAudioFormat::Float) << floatBytes(0.25f)
                              << 536870912.0 / 2147483647.0;
}

void VoiceLevelTest::fullScale()
{
    QFETCH(QAudioFormat, fmt);
    QFETCH(QByteArray, block);
    QFETCH(double, level);
    QCOMPARE(levelOf(fmt, block), level);
}

void VoiceLevelTest::unmeasuredFormats_data()
{
    QTest::addColumn<QAudioFormat>("fmt");
    QTest::newRow("8 float") << format(8, QAudioFormat::Float);
    QTest::newRow("8 unknown") << format(8, QAudioFormat::Unknown);
    QTest::newRow("16 float") << format(16, QAudioFormat::Float);
    QTest::newRow("16 unknown") << format(16, QAudioFormat::Unknown);
    QTest::newRow("24 signed") << format(24, QAudioFormat::SignedInt);
    QTest::newRow("32 unknown") << format(32, QAudioFormat::Unknown);
    QTest::newRow("64 signed") << format(64, QAudioFormat::SignedInt);
    QTest::newRow("nothing set") << QAudioFormat();
}

void VoiceLevelTest::unmeasuredFormats()
{
    QFETCH(QAudioFormat, fmt);
    AudioInfo info(fmt);
    QSignalSpy levels(&info, &AudioInfo::levelUpdated);
    QSignalSpy blocks(&info, &AudioInfo::audioWrite);
    info.start();
    const QByteArray block(48, 'x');
    QCOMPARE(info.write(block), 48);
    QCOMPARE(blocks.count(), 1);
    QCOMPARE(blocks.first().first().toByteArray(), block);
    QCOMPARE(levels.count(), 0);
}

void VoiceLevelTest::blocks_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<double>("level");
    QTest::newRow("empty") << QByteArray("") << 0.0;
    QTest::newRow("shorter than a frame") << QByteArray("\x7f", 1) << 0.0;
    QTest::newRow("silence") << QByteArray(3200, '\0') << 0.0;
    QTest::newRow("one smallest sample") << samples({-32768}) << 1.0;
    QTest::newRow("one largest sample") << samples({32767}) << 1.0;
    QTest::newRow("peak first") << samples({-500, 3, 2}) << 500 / 32767.0;
    QTest::newRow("peak last") << samples({3, 2, 500}) << 500 / 32767.0;
    QTest::newRow("negative peak") << samples({499, -500, 499}) << 500 / 32767.0;
    QTest::newRow("only negative") << samples({-3, -2, -1}) << 3 / 32767.0;
    QTest::newRow("half a sample at the end")
        << samples({100}) + QByteArray("\xff", 1) << 100 / 32767.0;
}

void VoiceLevelTest::blocks()
{
    QFETCH(QByteArray, block);
    QFETCH(double, level);
    AudioInfo info(captureFormat());
    QSignalSpy levels(&info, &AudioInfo::levelUpdated);
    QSignalSpy copies(&info, &AudioInfo::audioWrite);
    info.start();
    QCOMPARE(info.writeData(block.constData(), block.size()), qint64(block.size()));
    QCOMPARE(copies.count(), 1);
    QCOMPARE(copies.first().first().toByteArray(), block);
    QCOMPARE(levels.count(), 1);
    QCOMPARE(levels.first().first().toDouble(), level);
}

void VoiceLevelTest::floats_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<double>("level");
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    QTest::newRow("silence") << floatBytes(0.0f) << 0.0;
    QTest::newRow("negative") << floatBytes(-0.5f) << 1073741824.0 / 2147483647.0;
    QTest::newRow("full") << floatBytes(1.0f) << 1.0;
    QTest::newRow("beyond full") << floatBytes(-1e30f) << 1.0;
    QTest::newRow("infinite") << floatBytes(inf) << 1.0;
    QTest::newRow("negative infinite") << floatBytes(-inf) << 1.0;
    QTest::newRow("not a number") << floatBytes(nan) << 0.0;
    QTest::newRow("not a number first")
        << floatBytes(nan) + floatBytes(0.5f) << 1073741824.0 / 2147483647.0;
    QTest::newRow("not a number last")
        << floatBytes(0.5f) + floatBytes(nan) << 1073741824.0 / 2147483647.0;
    // 0.6 of one step: truncated away.
    QTest::newRow("below one step") << floatBytes(0.6f / 2147483648.0f) << 0.0;
}

void VoiceLevelTest::floats()
{
    QFETCH(QByteArray, block);
    QFETCH(double, level);
    QCOMPARE(levelOf(format(32, QAudioFormat::Float), block), level);

    QByteArray swapped;
    for (int i = 0; i < block.size(); i += 4) {
        QByteArray sample = block.mid(i, 4);
        std::reverse(sample.begin(), sample.end());
        swapped += sample;
    }
    QCOMPARE(levelOf(format(32, QAudioFormat::Float, QAudioFormat::BigEndian), swapped), level);
}

void VoiceLevelTest::channelsCountAlike()
{
    const QAudioFormat stereo = format(16, QAudioFormat::SignedInt, QAudioFormat::LittleEndian, 2);
    QCOMPARE(levelOf(stereo, samples({10, 20, 30, 700})), 700 / 32767.0);
    // The third sample is half a frame and does not count.
    QCOMPARE(levelOf(stereo, samples({10, 20, 700})), 20 / 32767.0);
}

void VoiceLevelTest::unalignedSamples()
{
    const QByteArray block = QByteArray("\xff", 1) + samples({7, -300, 8});
    AudioInfo info(captureFormat());
    QSignalSpy levels(&info, &AudioInfo::levelUpdated);
    info.updateLevel(block.constData() + 1, block.size() - 1);
    QCOMPARE(levels.first().first().toDouble(), 300 / 32767.0);
}

void VoiceLevelTest::formatWithoutChannels()
{
    QCOMPARE(levelOf(format(16, QAudioFormat::SignedInt, QAudioFormat::LittleEndian, 0),
                     samples({1000})),
             0.0);
}

void VoiceLevelTest::blockComesBeforeItsLevel()
{
    AudioInfo info(captureFormat());
    QStringList order;
    connect(&info, &AudioInfo::levelUpdated, this, [&order] { order << QStringLiteral("level"); });
    connect(&info, &AudioInfo::audioWrite, this, [&order] { order << QStringLiteral("block"); });
    info.start();
    info.write(samples({1}));
    QCOMPARE(order, QStringList({QStringLiteral("block"), QStringLiteral("level")}));
}

void VoiceLevelTest::blockIsACopy()
{
    AudioInfo info(captureFormat());
    QByteArray received;
    connect(&info, &AudioInfo::audioWrite, this,
            [&received](const QByteArray &data) { received = data; });
    info.start();
    char raw[] = {1, 2, 3, 4};
    info.write(raw, sizeof raw);
    raw[0] = 99;
    QCOMPARE(received, QByteArray("\1\2\3\4"));
}

void VoiceLevelTest::sinkOpensAndCloses()
{
    AudioInfo info(captureFormat());
    QVERIFY(!info.isOpen());
    info.start();
    QCOMPARE(info.openMode(), QIODevice::OpenMode(QIODevice::WriteOnly));
    char byte = 'x';
    QCOMPARE(info.readData(&byte, 1), qint64(0));
    QCOMPARE(byte, 'x');
    info.stop();
    QVERIFY(!info.isOpen());
    info.start();
    QVERIFY(info.isWritable());
}

TEST_CLASS(QCoreApplication, VoiceLevelTest)
#include "voicelevel.moc"
