#include "sandbox/services/aiservice/phraselistener.h"
#include "sandbox/services/aiservice/phrasemodel.h"
#include "sandbox/services/aiservice/recognition.h"
#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/spokenrecording.h"
#include "tests/support/testprogram.h"

#include <QThread>
#include <QtTest>

using namespace sandbox;
namespace spokenrecording = testsupport::spokenrecording;

namespace {

QString phrase()
{
    return phrasemodel::words().join(QString());
}

QByteArray bytes(const QVector<qint16> &samples)
{
    return QByteArray(reinterpret_cast<const char *>(samples.constData()),
                      samples.size() * int(sizeof(qint16)));
}

/** What a client of the contract shows after each hypothesis. */
class ClientText
{
public:
    void take(const QVector<Hypothesis> &news)
    {
        for (const Hypothesis &hypothesis : news) {
            const QString piece = hypothesis.words.join(QString());
            if (hypothesis.kind == Hypothesis::Append) {
                m_fixed += m_pending;
                m_pending.clear();
                m_shown.append(m_fixed + piece);
            } else {
                m_pending = piece;
                m_shown.append(m_fixed + m_pending);
            }
        }
    }

    QString text() const { return m_shown.isEmpty() ? QString() : m_shown.last(); }
    QStringList history() const { return m_shown; }

private:
    QString m_fixed;
    QString m_pending;
    QStringList m_shown;
};

/** Hypotheses of @p audio up to its end, without finish(). */
QVector<Hypothesis> heard(PhraseListener *listener, const QVector<qint16> &audio)
{
    constexpr int block = 441; // no divisor of the decoder's own block
    QVector<Hypothesis> result;
    for (int begin = 0; begin < audio.size(); begin += block)
        result += listener->hear(audio.mid(begin, block));
    return result;
}

} // namespace

class AiServiceRecognitionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void phraseIsRecognised_data();
    void phraseIsRecognised();
    void textIsGoodWhileTheTestRuns();
    void partialResultsGrow();
    void secondUtteranceIsAppended();
    void nothingIsRecognised_data();
    void nothingIsRecognised();
    void patienceEnds();
    void patienceLastsWhileSomebodySpeaks();
    void finishTwice();
    void threadSaysTheSame();
    void callerNeverWaits();
    void deletedWhileListening();
    void modelsThatCannotBeWritten();
};

void AiServiceRecognitionTest::phraseIsRecognised_data()
{
    QTest::addColumn<QString>("voice");
    QTest::addColumn<int>("wordsPerMinute");

    const QStringList voices = {QString(), QStringLiteral("+m1"), QStringLiteral("+m3"),
                                QStringLiteral("+f2"), QStringLiteral("+f3")};
    for (const QString &voice : voices) {
        for (const int speed : {120, 150, 175}) {
            const QString name = QStringLiteral("cmn-latn-pinyin") + voice;
            QTest::newRow(QStringLiteral("%1, %2").arg(name).arg(speed).toUtf8()) << name << speed;
        }
    }
}

void AiServiceRecognitionTest::phraseIsRecognised()
{
    QFETCH(QString, voice);
    QFETCH(int, wordsPerMinute);

    PhraseListener listener({});
    QVERIFY(listener.isValid());
    ClientText client;
    client.take(
        heard(&listener, spokenrecording::make(QStringLiteral("speech"), {voice, wordsPerMinute})));
    const QVector<Hypothesis> rest = listener.finish();
    client.take(rest);

    QCOMPARE(client.text(), phrase());
    QVERIFY(!rest.isEmpty() && rest.last().last);
}

void AiServiceRecognitionTest::textIsGoodWhileTheTestRuns()
{
    // The speaker is done after about 6.2 s; the text stands a pause later, without a finish.
    PhraseListener listener({});
    ClientText client;
    client.take(
        heard(&listener, spokenrecording::make(QStringLiteral("speech"), {}, QString(), 7.5)));
    QCOMPARE(client.text(), phrase());
}

void AiServiceRecognitionTest::partialResultsGrow()
{
    PhraseListener listener({});
    ClientText client;
    const auto news = heard(&listener, spokenrecording::make(QStringLiteral("speech")));
    client.take(news);

    QVERIFY2(client.history().size() >= 4, qPrintable(client.history().join(QLatin1Char('\n'))));
    QVERIFY(client.history().first().size() < phrase().size());
    for (int i = 0; i < news.size(); ++i) {
        QCOMPARE(news[i].number, i + 1);
        QVERIFY(!news[i].last);
    }
}

void AiServiceRecognitionTest::secondUtteranceIsAppended()
{
    const auto spoken = spokenrecording::make(QStringLiteral("speech"), {}, QString(), 8.0);
    PhraseListener listener({});
    ClientText client;
    client.take(heard(&listener, spoken));
    QCOMPARE(client.text(), phrase());
    const QVector<Hypothesis> second = heard(&listener, spoken);
    client.take(second);
    client.take(listener.finish());

    QCOMPARE(client.text(), phrase() + phrase());
    QCOMPARE(second.first().kind, Hypothesis::Append);
    QCOMPARE(second.at(1).kind, Hypothesis::Replace);
    QCOMPARE(second.at(1).words, second.first().words);
}

void AiServiceRecognitionTest::nothingIsRecognised_data()
{
    QTest::addColumn<QVector<qint16>>("audio");

    QTest::newRow("digital silence") << spokenrecording::silence(10.0);
    QTest::newRow("quiet room") << spokenrecording::make(QStringLiteral("silence"));

    // The noise of the noisy recording after its speaker has finished.
    const auto noisy = spokenrecording::make(QStringLiteral("noise"), {}, QString(), 12.0);
    QTest::newRow("noise") << noisy.mid(int(6.5 * wavfile::samplesPerSecond));

    const QStringList mandarin = {
        QStringLiteral("今天天气很好，我们去公园散步吧"),
        QStringLiteral("请打开客厅的灯"),
        QStringLiteral("我想听一首歌"),
        QStringLiteral("附近有什么好吃的餐厅"),
        QStringLiteral("把音量调低一点"),
        QStringLiteral("后天下午三点提醒我开车"),
    };
    for (const QString &sentence : mandarin) {
        QTest::newRow(sentence.toUtf8())
            << spokenrecording::make(QStringLiteral("speech"), {}, sentence);
    }
    const QStringList english = {QStringLiteral("The quick brown fox jumps over the lazy dog"),
                                 QStringLiteral("Please turn on the light in the kitchen"),
                                 QStringLiteral("What is the weather like in London today"),
                                 QStringLiteral("One two three four five six seven")};
    for (const QString &sentence : english) {
        QTest::newRow(sentence.toUtf8()) << spokenrecording::make(
            QStringLiteral("speech"), {QStringLiteral("en-us"), 150}, sentence);
    }
}

void AiServiceRecognitionTest::nothingIsRecognised()
{
    QFETCH(QVector<qint16>, audio);

    QVERIFY(!audio.isEmpty());
    PhraseListener listener({});
    ClientText client;
    client.take(heard(&listener, audio));
    client.take(listener.finish());
    QCOMPARE(client.text(), QString());
}

void AiServiceRecognitionTest::patienceEnds()
{
    PhraseListener listener({2000, 10000});
    QVERIFY(heard(&listener, spokenrecording::silence(1.9)).isEmpty());

    const QVector<Hypothesis> end = heard(&listener, spokenrecording::silence(0.2));
    QCOMPARE(end.size(), 1);
    QVERIFY(end.first().last);
    QVERIFY(heard(&listener, spokenrecording::make(QStringLiteral("speech"))).isEmpty());
    QVERIFY(listener.finish().isEmpty());
}

void AiServiceRecognitionTest::patienceLastsWhileSomebodySpeaks()
{
    // Silence before the phrase is shorter than the patience, the phrase itself longer.
    PhraseListener listener({2000, 3000});
    QVector<Hypothesis> news =
        heard(&listener, spokenrecording::make(QStringLiteral("speech"), {}, QString(), 8.0));
    QVERIFY(!news.isEmpty() && !news.last().last);

    news = heard(&listener, spokenrecording::silence(3.0));
    QCOMPARE(news.size(), 1);
    QVERIFY(news.first().last);
    QCOMPARE(news.first().words.join(QString()), phrase());
}

void AiServiceRecognitionTest::finishTwice()
{
    PhraseListener listener({});
    QCOMPARE(listener.finish().size(), 1);
    QVERIFY(listener.finish().isEmpty());
}

void AiServiceRecognitionTest::threadSaysTheSame()
{
    const auto audio = spokenrecording::make(QStringLiteral("speech"));
    PhraseListener listener({});
    QVector<Hypothesis> expected = listener.hear(audio);
    expected += listener.finish();

    QObject threads;
    {
        Recognition recognition({}, &threads);
        QVector<Hypothesis> said;
        connect(&recognition, &Recognition::heard, this, [&](const Hypothesis &hypothesis) {
            QCOMPARE(QThread::currentThread(), thread());
            said.append(hypothesis);
        });
        const QByteArray stream = bytes(audio);
        for (int begin = 0; begin < stream.size(); begin += 501) // cuts samples in half
            recognition.hear(stream.mid(begin, 501));
        recognition.finish();
        QTRY_VERIFY_WITH_TIMEOUT(!said.isEmpty() && said.last().last, 30000);

        QCOMPARE(said.size(), expected.size());
        for (int i = 0; i < said.size(); ++i) {
            QCOMPARE(said[i].words, expected[i].words);
            QCOMPARE(said[i].kind, expected[i].kind);
        }
    }
    QTRY_VERIFY(threads.children().isEmpty());
}

void AiServiceRecognitionTest::callerNeverWaits()
{
    const QByteArray audio = bytes(spokenrecording::make(QStringLiteral("speech")));
    QObject threads;
    QElapsedTimer clock;
    clock.start();
    {
        Recognition recognition({}, &threads);
        for (int i = 0; i < 20; ++i) // far more than is decoded in the time allowed below
            recognition.hear(audio);
        recognition.finish();
    }
    QVERIFY2(clock.elapsed() < 200, qPrintable(QString::number(clock.elapsed())));
    QTRY_VERIFY_WITH_TIMEOUT(threads.children().isEmpty(), 30000);
}

void AiServiceRecognitionTest::deletedWhileListening()
{
    const QByteArray audio = bytes(spokenrecording::make(QStringLiteral("speech")));
    QObject threads;
    auto recognition = std::make_unique<Recognition>(PhraseListener::Patience(), &threads);
    int said = 0;
    connect(recognition.get(), &Recognition::heard, this, [&] { ++said; });
    recognition->hear(audio.left(audio.size() / 2));
    QTRY_VERIFY_WITH_TIMEOUT(said > 0, 30000);

    recognition->hear(audio);
    recognition->finish();
    recognition.reset();
    const int before = said;
    QTRY_VERIFY_WITH_TIMEOUT(threads.children().isEmpty(), 30000);
    QCOMPARE(said, before);
}

void AiServiceRecognitionTest::modelsThatCannotBeWritten()
{
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // nobody can write there
    const bool valid = PhraseListener({}).isValid();
    QObject threads;
    {
        Recognition recognition({}, &threads);
        QSignalSpy failed(&recognition, &Recognition::failed);
        recognition.hear(bytes(spokenrecording::silence(1.0)));
        recognition.finish();
        failed.wait();
        qputenv("TMPDIR", temporary); // where it is empty, it counts as unset
        QVERIFY(!valid);
        QCOMPARE(failed.count(), 1);
    }
    QTRY_VERIFY(threads.children().isEmpty());
}

TEST_CLASS(QCoreApplication, AiServiceRecognitionTest)
#include "aiservicerecognition.moc"
