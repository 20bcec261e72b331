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

TEST_CLASS(testsupport::NoApplication, WindowSearchTest)
#include "windowsearch.moc"
