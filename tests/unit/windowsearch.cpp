#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/search.h"
#include "tests/support/testprogram.h"

#include <QtTest>

using namespace controlcenter;

/** What the window's search finds, and in which order. */
class WindowSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void findsByAnyWordInAnyCase();
    void namesThatBeginWithTheTextComeFirst();
    void wordsMayStandInDifferentNames();
    void blankTextFindsNothing();
    void unknownTextFindsNothing();
    void absentEntriesAreNotFound();
    void aTranslatedPageLeadsToItsKey();
    void aPageThatWasNotRegisteredIsItsOwnKey();
    void everyWordIsMatchedWhereverItStands_data();
    void everyWordIsMatchedWhereverItStands();

private:
    QStringList found(const QString &text) const;

    ModuleRegistry m_registry;
};

namespace {

const QString module = QStringLiteral("Tools");

} // namespace

void WindowSearchTest::init()
{
    m_registry = ModuleRegistry();
    m_registry.addPage(QStringLiteral("Speech"), QStringLiteral("Sprache"));
    m_registry.addSearchEntry({module, QStringLiteral("Sprache"), QString()}, true);
    m_registry.addSearchEntry({module, QStringLiteral("Sprache"), QStringLiteral("Voice Test")},
                              true);
    m_registry.addSearchEntry({module, QStringLiteral("Sprache"), QStringLiteral("Test")}, true);
    m_registry.addSearchEntry({module, QStringLiteral("Sprache"), QStringLiteral("Hidden")}, false);
}

QStringList WindowSearchTest::found(const QString &text) const
{
    QStringList items;
    const auto entries = findEntries(m_registry.searchEntries(), text);
    for (const SearchEntry &entry : entries)
        items.append(entry.item.isEmpty() ? entry.page : entry.item);
    return items;
}

void WindowSearchTest::findsByAnyWordInAnyCase()
{
    QCOMPARE(found(QStringLiteral("vOICE")), QStringList{QStringLiteral("Voice Test")});
}

void WindowSearchTest::namesThatBeginWithTheTextComeFirst()
{
    QCOMPARE(found(QStringLiteral("test")),
             (QStringList{QStringLiteral("Test"), QStringLiteral("Voice Test")}));
}

void WindowSearchTest::wordsMayStandInDifferentNames()
{
    QCOMPARE(found(QStringLiteral("  sprache   voice ")),
             QStringList{QStringLiteral("Voice Test")});
}

void WindowSearchTest::blankTextFindsNothing()
{
    QVERIFY(found(QStringLiteral("  ")).isEmpty());
}

void WindowSearchTest::unknownTextFindsNothing()
{
    QVERIFY(found(QStringLiteral("printer")).isEmpty());
}

void WindowSearchTest::absentEntriesAreNotFound()
{
    QVERIFY(found(QStringLiteral("hidden")).isEmpty());
}

void WindowSearchTest::aTranslatedPageLeadsToItsKey()
{
    QCOMPARE(m_registry.pageName(QStringLiteral("Sprache")), QStringLiteral("Speech"));
    QCOMPARE(m_registry.translatedPage(QStringLiteral("Speech")), QStringLiteral("Sprache"));
}

void WindowSearchTest::aPageThatWasNotRegisteredIsItsOwnKey()
{
    QCOMPARE(m_registry.pageName(QStringLiteral("Other")), QStringLiteral("Other"));
}

void WindowSearchTest::everyWordIsMatchedWhereverItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("parts"); // start+length

    const auto row = [](const char *text, const char *query, const char *parts) {
        QTest::newRow(query) << QString::fromUtf8(text) << QString::fromUtf8(query)
                             << QString::fromLatin1(parts);
    };
    row("Voice Test", "voice", "0+5");
    row("Voice Test", " TEST  vo", "6+4 0+2");
    row("Test of a test", "test", "0+4 10+4");
    row("Voice Test", "printer", "");
    row("Voice Test", " ", "");
    row("语音测试", "测试", "2+2");
}

void WindowSearchTest::everyWordIsMatchedWhereverItStands()
{
    QFETCH(QString, text);
    QFETCH(QString, query);
    QStringList parts;
    for (const TextPart &part : matchedParts(text, query))
        parts.append(QStringLiteral("%1+%2").arg(part.start).arg(part.length));
    QTEST(parts.join(QLatin1Char(' ')), "parts");
}

TEST_CLASS(testsupport::NoApplication, WindowSearchTest)
#include "windowsearch.moc"
