// How texts of services are cut before they are shown.

#include "pages/showntext.h"

#include "tests/support/testprogram.h"

#include <QtTest>

#include <ctime>

namespace {

const QChar sign(0x2026);

QString utf16(std::initializer_list<ushort> units)
{
    QString text;
    for (const ushort unit : units)
        text += QChar(unit);
    return text;
}

} // namespace

class ShownTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatFitsStaysWhole();
    void whatIsLongerEndsWithTheSign();
    void charactersStayWhole_data();
    void charactersStayWhole();
    void aMegabyteCostsNothing_data();
    void aMegabyteCostsNothing();
};

void ShownTextTest::whatFitsStaysWhole()
{
    for (const int length : {0, 1, 9, 10}) {
        const QString text(length, QLatin1Char('x'));
        QCOMPARE(showntext::cut(text, 10), text);
    }
    QVERIFY(showntext::cut(QString(), 10).isEmpty());
}

void ShownTextTest::whatIsLongerEndsWithTheSign()
{
    QCOMPARE(showntext::cut(QStringLiteral("0123456789A"), 10), QStringLiteral("012345678") + sign);
    for (const int limit :
         {showntext::longestWords, showntext::longestShortcut, showntext::longestTitle}) {
        const QString most(limit, QLatin1Char('x'));
        QCOMPARE(showntext::cut(most, limit), most);
        QCOMPARE(showntext::cut(most + QLatin1Char('x'), limit), most.left(limit - 1) + sign);
    }
}

void ShownTextTest::charactersStayWhole_data()
{
    QTest::addColumn<QString>("before"); // what is left of a text that begins like this
    QTest::addColumn<QString>("character");
    const QString eight = QStringLiteral("01234567");
    const QString nine = QStringLiteral("012345678");
    const QString face = utf16({0xd83d, 0xde00});
    const QString accented = utf16({'e', 0x0301});
    const QString musicalMark = utf16({0xd834, 0xdd65}); // combines, beyond the basic plane
    QTest::newRow("surrogate pair, second unit too many") << eight << face;
    QTest::newRow("surrogate pair, wholly too many") << nine << face;
    QTest::newRow("combining mark too many") << eight << accented;
    QTest::newRow("combining mark of two units, too many") << eight << 'o' + musicalMark;
    QTest::newRow("combining mark behind a surrogate pair")
        << QStringLiteral("0123456") << face + QChar(0x0308);
    QTest::newRow("vowel sign") << eight << utf16({0x0915, 0x0940});
    QTest::newRow("syllable of three letters") << eight << utf16({0x1112, 0x1161, 0x11ab});
    QTest::newRow("line break of two") << eight << QStringLiteral("\r\n");
}

void ShownTextTest::charactersStayWhole()
{
    QFETCH(QString, before);
    QFETCH(QString, character);
    const QString rest(20, QLatin1Char('x'));
    QCOMPARE(showntext::cut(before + character + rest, 10), before + sign);
}

void ShownTextTest::aMegabyteCostsNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const int megabyte = 1 << 20;
    const QString letters(megabyte, QLatin1Char('x'));
    const QString marks(megabyte, QChar(0x0301));
    QTest::newRow("letters") << letters << letters.left(showntext::longestWords - 1) + sign;
    // One character, too long to be shown at all.
    QTest::newRow("combining marks on one letter") << 'e' + marks << QString(sign);
    QTest::newRow("on the second letter") << QStringLiteral("xe") + marks << 'x' + QString(sign);
    QTest::newRow("combining marks alone") << marks << QString(sign);
}

void ShownTextTest::aMegabyteCostsNothing()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    const std::clock_t start = std::clock(); // of this program: others may be busy
    const QString result = showntext::cut(text, showntext::longestWords);
    const double cost = 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC;
    QVERIFY2(cost < 10, qPrintable(QString::number(cost)));
    QCOMPARE(result, shown);
}

TEST_CLASS(QApplication, ShownTextTest)
#include "showntext.moc"
