#include "pages/voicetestverdict.h"
#include "tests/support/testprogram.h"
#include "voice/iatwapper.h"

#include <QTest>
#include <QtTest>

namespace {

// What one call of paserIatResultPgs leaves in its outputs. They begin at values that no hypothesis
// gives, so that "left alone" shows.
struct Parsed
{
    int code;
    QString out;
    int type;
    bool isLast;
};

constexpr auto untouchedType = static_cast<IatWapper::IatResultType>(3);

Parsed parse(const QByteArray &text, bool isLast = true)
{
    IatWapper client;
    QString out = QStringLiteral("before|");
    IatWapper::IatResultType type = untouchedType;
    const int code = client.paserIatResultPgs(text.constData(), out, type, isLast);
    return {code, out, type, isLast};
}

} // namespace

/** The recognition client reads one hypothesis. */
class VoiceHypothesesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hypotheses_data();
    void hypotheses();
    void notJson_data();
    void notJson();
    void notJsonIsLogged();
    void lastSegment();
    void longHypothesis();
    void deepHypothesis();
};

void VoiceHypothesesTest::hypotheses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("out");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isLast");

    const auto row = [](const char *name, const QByteArray &text, const QString &out, int type,
                        bool isLast) {
        QTest::newRow(name) << text << out << type << isLast;
    };
    const QString none;
    row("replace", R"({"pgs":"rpl","ls":true,"ws":[{"cw":[{"w":"ab"}]},{"cw":[{"w":"c"}]}]})",
        QStringLiteral("abc"), 1, true);
    row("append", R"({"pgs":"apd","ws":[{"cw":[{"w":"x"}]}]})", QStringLiteral("x"), 2, false);
    row("replace in capitals", R"({"pgs":"RPL"})", none, 2, false);
    row("mark with a space", R"({"pgs":"rpl "})", none, 2, false);
    row("empty mark", R"({"pgs":""})", none, 2, false);
    row("mark is a number", R"({"pgs":1})", none, 2, false);
    row("mark is null", R"({"pgs":null})", none, 2, false);
    row("mark is an object", R"({"pgs":{"rpl":1}})", none, 2, false);
    row("no mark", R"({"ws":[{"cw":[{"w":"y"}]}]})", QStringLiteral("y"), 0, false);
    row("empty object", "{}", none, 0, false);
    row("array", R"([{"pgs":"rpl"}])", none, 0, false);
    row("no slots", R"({"pgs":"rpl","ls":true})", none, 1, true);
    row("slots are an object", R"({"pgs":"rpl","ws":{"cw":[{"w":"z"}]}})", none, 1, false);
    row("slots are a text", R"({"pgs":"rpl","ws":"abc"})", none, 1, false);
    row("slots are of other kinds", R"({"pgs":"rpl","ws":[1,"a",null,[],{"cw":[{"w":"b"}]}]})",
        QStringLiteral("b"), 1, false);
    row("no candidates", R"({"pgs":"rpl","ws":[{"cw":[]},{"cw":[{"w":"b"}]},{}]})",
        QStringLiteral("b"), 1, false);
    row("candidates are an object", R"({"pgs":"rpl","ws":[{"cw":{"w":"q"}}]})", none, 1, false);
    row("first candidate only", R"({"pgs":"rpl","ws":[{"cw":[{"w":"a"},{"w":"b"}]}]})",
        QStringLiteral("a"), 1, false);
    row("first candidate is a text", R"({"pgs":"rpl","ws":[{"cw":["a",{"w":"b"}]}]})", none, 1,
        false);
    row("word is a number", R"({"pgs":"rpl","ws":[{"cw":[{"w":5}]}]})", none, 1, false);
    row("word is missing", R"({"pgs":"rpl","ws":[{"cw":[{"sc":5}]}]})", none, 1, false);
    row("last flag is a text", R"({"pgs":"rpl","ls":"true"})", none, 1, false);
    row("last flag is a number", R"({"pgs":"rpl","ls":1})", none, 1, false);
    row("other fields", R"({"sn":3,"rg":[1,2],"pgs":"rpl","ws":[{"bg":0,"cw":[{"w":"k"}]}]})",
        QStringLiteral("k"), 1, false);
    row("Chinese", QStringLiteral(R"({"pgs":"rpl","ws":[{"cw":[{"w":"今天"}]}]})").toUtf8(),
        QStringLiteral("今天"), 1, false);
    row("rich text stays text", R"({"pgs":"rpl","ws":[{"cw":[{"w":"<b>x</b>"}]}]})",
        QStringLiteral("<b>x</b>"), 1, false);
}

void VoiceHypothesesTest::hypotheses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, out);
    QFETCH(int, type);
    QFETCH(bool, isLast);
    const Parsed parsed = parse(text, !isLast);
    QCOMPARE(parsed.code, 0);
    QCOMPARE(parsed.out, QStringLiteral("before|") + out);
    QCOMPARE(parsed.type, type);
    QCOMPARE(parsed.isLast, isLast);
}

void VoiceHypothesesTest::notJson_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("no text at all") << QByteArray();
    QTest::newRow("words") << QByteArray("hello");
    QTest::newRow("cut off") << QByteArray(R"({"pgs":"rpl","ws":[)");
    QTest::newRow("two objects") << QByteArray("{}{}");
    QTest::newRow("a number") << QByteArray("17");
    QTest::newRow("invalid UTF-8") << QByteArray("{\"pgs\":\"\xff\xfe\"}");
}

void VoiceHypothesesTest::notJson()
{
    QFETCH(QByteArray, text);
    for (const bool isLast : {false, true}) {
        const Parsed parsed = parse(text, isLast);
        QCOMPARE(parsed.code, 0);
        QCOMPARE(parsed.out, QStringLiteral("before|"));
        QCOMPARE(parsed.type, int(untouchedType));
        QCOMPARE(parsed.isLast, isLast);
    }
}

void VoiceHypothesesTest::notJsonIsLogged()
{
    QTest::ignoreMessage(QtDebugMsg, "paserPgs pgs:  no json");
    parse("no json");
}

void VoiceHypothesesTest::lastSegment()
{
    QVERIFY(parse(R"({"ls":true})", false).isLast);
    QVERIFY(!parse(R"({"ls":false})", true).isLast);
    QVERIFY(!parse("{}", true).isLast);
}

void VoiceHypothesesTest::longHypothesis()
{
    const QString word(10 * 1024 * 1024, QLatin1Char('w'));
    const QByteArray text =
        R"({"pgs":"rpl","ws":[{"cw":[{"w":")" + word.toUtf8() + R"("}]},{"cw":[{"w":"!"}]}]})";
    const Parsed parsed = parse(text);
    QCOMPARE(parsed.type, 1);
    QCOMPARE(parsed.out.size(), QStringLiteral("before|").size() + word.size() + 1);
    QVERIFY(parsed.out.endsWith(QLatin1String("ww!")));
}

void VoiceHypothesesTest::deepHypothesis()
{
    // Deeper than the JSON parser goes: not JSON, and no crash.
    const int depth = 100000;
    const Parsed parsed = parse(QByteArray(depth, '[') + QByteArray(depth, ']'));
    QCOMPARE(parsed.out, QStringLiteral("before|"));
}

TEST_CLASS(QCoreApplication, VoiceHypothesesTest)

Q_DECLARE_METATYPE(VoiceTestVerdict)

namespace {

const QStringList allCodes = {"1000", "1001", "1002", "1003", "1004", "1005",
                              "1006", "1007", "1008", "1009", "1010"};

// The codes that say something, from the weakest to the strongest.
const QVector<QPair<QString, VoiceTestVerdict>> strength = {
    {"1000", VoiceTestVerdict::Good},     {"1004", VoiceTestVerdict::TooLoud},
    {"1005", VoiceTestVerdict::TooQuiet}, {"1008", VoiceTestVerdict::TooNoisy},
    {"1003", VoiceTestVerdict::NoSound},
};

VoiceTestVerdict expectedFor(const QStringList &codes, bool words)
{
    int strongest = -1;
    for (int i = 0; i < strength.size(); ++i)
        if (codes.contains(strength.at(i).first))
            strongest = i;
    if (strongest <= 0 && !words)
        return VoiceTestVerdict::TooQuiet;
    if (strongest == strength.size() - 1 && words)
        return VoiceTestVerdict::TooQuiet;
    return strongest < 0 ? VoiceTestVerdict::None : strength.at(strongest).second;
}

} // namespace

class VoiceTestVerdictTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneCodeAlone_data();
    void oneCodeAlone();
    void everyOneAndTwoCodeResult_data();
    void everyOneAndTwoCodeResult();
    void unknownResults_data();
    void unknownResults();
};

void VoiceTestVerdictTest::oneCodeAlone_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<VoiceTestVerdict>("withWords");
    QTest::addColumn<VoiceTestVerdict>("withoutWords");
    using V = VoiceTestVerdict;
    QTest::newRow("1000, good") << "1000" << V::Good << V::TooQuiet;
    QTest::newRow("1001 says nothing") << "1001" << V::None << V::TooQuiet;
    QTest::newRow("1002 says nothing") << "1002" << V::None << V::TooQuiet;
    QTest::newRow("1003, no sound unless words were understood")
        << "1003" << V::TooQuiet << V::NoSound;
    QTest::newRow("1004, too loud") << "1004" << V::TooLoud << V::TooLoud;
    QTest::newRow("1005, too quiet") << "1005" << V::TooQuiet << V::TooQuiet;
    QTest::newRow("1006 says nothing") << "1006" << V::None << V::TooQuiet;
    QTest::newRow("1007 says nothing") << "1007" << V::None << V::TooQuiet;
    QTest::newRow("1008, too noisy") << "1008" << V::TooNoisy << V::TooNoisy;
    QTest::newRow("1009 says nothing") << "1009" << V::None << V::TooQuiet;
    QTest::newRow("1010 says nothing") << "1010" << V::None << V::TooQuiet;
}

void VoiceTestVerdictTest::oneCodeAlone()
{
    QFETCH(QString, code);
    QFETCH(VoiceTestVerdict, withWords);
    QFETCH(VoiceTestVerdict, withoutWords);

    QVERIFY(voiceTestVerdict(code, QStringLiteral("明天")) == withWords);
    QVERIFY(voiceTestVerdict(code, QString()) == withoutWords);
    // Anywhere in the text.
    QVERIFY(voiceTestVerdict("{\"code\":" + code + "}", QStringLiteral("明天")) == withWords);
}

void VoiceTestVerdictTest::everyOneAndTwoCodeResult_data()
{
    QTest::addColumn<QStringList>("codes");
    QTest::addColumn<bool>("words");
    for (const QString &first : allCodes) {
        for (const QString &second : allCodes) {
            for (bool words : {false, true}) {
                QTest::newRow(qPrintable(QStringLiteral("%1 and %2, %3 words")
                                             .arg(first, second, words ? "some" : "no")))
                    << QStringList{first, second} << words;
            }
        }
    }
}

void VoiceTestVerdictTest::everyOneAndTwoCodeResult()
{
    QFETCH(QStringList, codes);
    QFETCH(bool, words);

    const auto verdict = voiceTestVerdict(codes.join(','), words ? "words" : "");
    QCOMPARE(int(verdict), int(expectedFor(codes, words)));
}

void VoiceTestVerdictTest::unknownResults_data()
{
    QTest::addColumn<QString>("result");
    QTest::newRow("empty") << QString();
    QTest::newRow("text") << "all is well";
    QTest::newRow("another number") << "2000";
    QTest::newRow("digits apart") << "1 0 0 4";
    QTest::newRow("full-width digits") << QStringLiteral("１００４");
}

void VoiceTestVerdictTest::unknownResults()
{
    QFETCH(QString, result);
    QVERIFY(voiceTestVerdict(result, QStringLiteral("words")) == VoiceTestVerdict::None);
    QVERIFY(voiceTestVerdict(result, QString()) == VoiceTestVerdict::TooQuiet);
}

TEST_CLASS(QCoreApplication, VoiceTestVerdictTest)

#include "voiceresults.moc"
