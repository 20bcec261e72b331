#include "pages/voicetestverdict.h"

#include "tests/support/testprogram.h"

#include <QtTest>

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
#include "voicetestverdict.moc"
