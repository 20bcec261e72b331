#include "tests/support/testprogram.h"
#include "tests/support/translationsreader.h"

#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using namespace testsupport;

// The seven message catalogues against the sources, against each other and against themselves. Each
// check names the messages at fault, so that a failure says what to mend.

namespace {

const QString everyQuotationMark = QStringLiteral("\"“”„«»‹›「」『』");

QStringList placeholders(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("%L?\\d+|%n"));
    QStringList found;
    for (auto matches = pattern.globalMatch(text); matches.hasNext();)
        found.append(matches.next().captured());
    found.sort();
    return found;
}

int quotationMarks(const QString &text)
{
    return int(std::count_if(text.cbegin(), text.cend(),
                             [](QChar c) { return everyQuotationMark.contains(c); }));
}

QStringList without(const QStringList &all, const QStringList &removed)
{
    QStringList rest;
    for (const QString &entry : all)
        if (!removed.contains(entry))
            rest.append(entry);
    return rest;
}

// Cells of the first table after `heading` in a Markdown text, the table's own heading included.
QVector<QStringList> tableRows(const QString &markdown, const QString &heading)
{
    QVector<QStringList> rows;
    const QStringList lines = markdown.split(QLatin1Char('\n'));
    for (int i = qMax(0, lines.indexOf(heading)); i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (!line.startsWith(QLatin1Char('|'))) {
            if (rows.isEmpty())
                continue;
            break;
        }
        QStringList cells;
        for (const QString &cell : line.mid(1, line.size() - 2).split(QLatin1Char('|')))
            cells.append(cell.trimmed());
        rows.append(cells);
    }
    return rows;
}

// Fails the running test with one line per message at fault.
#define VERIFY_NONE(faults)                                                                        \
    QVERIFY2((faults).isEmpty(), qPrintable((faults).join(QLatin1Char('\n'))))

} // namespace

class TranslationsCataloguesTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void isNeitherStaleNorAhead_data() { addLanguages(); }
    void isNeitherStaleNorAhead();
    void isFinished_data() { addLanguages(); }
    void isFinished();
    void keepsPlaceholders_data() { addLanguages(); }
    void keepsPlaceholders();
    void keepsQuotationMarks_data() { addLanguages(); }
    void keepsQuotationMarks();
    void hasNoStrayBlank_data() { addLanguages(); }
    void hasNoStrayBlank();
    void hasNoMessageTwice_data() { addLanguages(); }
    void hasNoMessageTwice();
    void saysTheSameForTheSameText_data() { addLanguages(); }
    void saysTheSameForTheSameText();
    void quotesTheTitleThatThePageShows_data() { addLanguages(); }
    void quotesTheTitleThatThePageShows();
    void englishIsTheSourceText_data();
    void englishIsTheSourceText();
    void everyOtherLanguageIsTranslated_data();
    void everyOtherLanguageIsTranslated();
    void regionUsesItsOwnWords_data();
    void regionUsesItsOwnWords();
    void hongKongIsNoCopyOfTaiwan();
    void uyghurKeepsShortcutsLeftToRight();
    void glossarySaysWhatTheCataloguesSay();

private:
    void addLanguages();
    const Catalogue &catalogue() const;
    QStringList faulty(bool (*isFaulty)(const CatalogueMessage &)) const;

    QHash<QString, Catalogue> m_catalogues;
    Catalogue m_extracted; // what lupdate finds in the sources today
};

void TranslationsCataloguesTest::initTestCase()
{
    for (const QString &language : catalogueLanguages()) {
        const Catalogue read = Catalogue::fromFile(QStringLiteral(SOURCE_ROOT "/translations/") +
                                                   catalogueFileName(language));
        QVERIFY2(read.error.isEmpty(), qPrintable(read.error));
        QVERIFY2(!read.messages.isEmpty(), qPrintable(language + " has no messages"));
        m_catalogues.insert(language, read);
    }

    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QString target = folder.filePath(QStringLiteral("extracted.ts"));
    QProcess lupdate;
    lupdate.setWorkingDirectory(QStringLiteral(SOURCE_ROOT));
    lupdate.start(
        QStringLiteral(LUPDATE),
        QStringList{QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none")}
            << QStringList{TEXT_SOURCES}
            << QStringList{QStringLiteral("-I"), QStringLiteral("."), QStringLiteral("-ts"),
                           target});
    QVERIFY2(lupdate.waitForFinished(), qPrintable(lupdate.errorString()));
    QVERIFY2(lupdate.exitStatus() == QProcess::NormalExit && lupdate.exitCode() == 0,
             lupdate.readAllStandardError().constData());
    m_extracted = Catalogue::fromFile(target);
    QVERIFY2(m_extracted.error.isEmpty(), qPrintable(m_extracted.error));
    QVERIFY(!m_extracted.messages.isEmpty());
}

void TranslationsCataloguesTest::addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : catalogueLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

const Catalogue &TranslationsCataloguesTest::catalogue() const
{
    QFETCH(QString, language);
    return *m_catalogues.constFind(language);
}

QStringList TranslationsCataloguesTest::faulty(bool (*isFaulty)(const CatalogueMessage &)) const
{
    QStringList result;
    for (const CatalogueMessage &message : catalogue().messages)
        if (isFaulty(message))
            result.append(message.key() + QLatin1String(" -> ") + message.translation);
    return result;
}

void TranslationsCataloguesTest::isNeitherStaleNorAhead()
{
    const QStringList missing = without(m_extracted.keys(), catalogue().keys());
    const QStringList vanished = without(catalogue().keys(), m_extracted.keys());
    QVERIFY2(missing.isEmpty() && vanished.isEmpty(),
             qPrintable("Build the target update-translations, then translate. Not there yet:\n" +
                        missing.join(QLatin1Char('\n')) + "\nNo longer in the sources:\n" +
                        vanished.join(QLatin1Char('\n'))));
}

void TranslationsCataloguesTest::isFinished()
{
    VERIFY_NONE(faulty([](const CatalogueMessage &message) {
        return !message.type.isEmpty() || message.translation.isEmpty();
    }));
}

void TranslationsCataloguesTest::keepsPlaceholders()
{
    VERIFY_NONE(faulty([](const CatalogueMessage &message) {
        return placeholders(message.source) != placeholders(message.translation);
    }));
}

void TranslationsCataloguesTest::keepsQuotationMarks()
{
    VERIFY_NONE(faulty([](const CatalogueMessage &message) {
        return quotationMarks(message.source) != quotationMarks(message.translation);
    }));
}

void TranslationsCataloguesTest::hasNoStrayBlank()
{
    VERIFY_NONE(faulty([](const CatalogueMessage &message) {
        return message.translation != message.translation.simplified();
    }));
}

void TranslationsCataloguesTest::hasNoMessageTwice()
{
    QSet<QString> seen;
    QStringList twice;
    for (const CatalogueMessage &message : catalogue().messages) {
        const QString identity = message.context + QLatin1Char('\n') + message.source +
                                 QLatin1Char('\n') + message.comment;
        if (seen.contains(identity))
            twice.append(message.key());
        seen.insert(identity);
    }
    VERIFY_NONE(twice);

    QStringList contexts = catalogue().contexts;
    QCOMPARE(contexts.removeDuplicates(), 0);
}

// A search result and the row that it leads to, or a page's list entry and its switch, read alike.
void TranslationsCataloguesTest::saysTheSameForTheSameText()
{
    QHash<QString, QString> said;
    QStringList different;
    for (const CatalogueMessage &message : catalogue().messages) {
        const QString identity = message.source + QLatin1Char('\n') + message.comment;
        const QString first = said.value(identity, message.translation);
        if (first != message.translation)
            different.append(message.key() + QLatin1String(" -> ") + message.translation +
                             QLatin1String(", elsewhere ") + first);
        said.insert(identity, first);
    }
    VERIFY_NONE(different);
}

// The hint tells the user to click the context menu's entry, which has the page's own title.
void TranslationsCataloguesTest::quotesTheTitleThatThePageShows()
{
    static const QRegularExpression quoted(QStringLiteral("\"([^\"]+)\" in the context menu"));
    QStringList wrong;
    int hints = 0;
    for (const CatalogueMessage &message : catalogue().messages) {
        const auto match = quoted.match(message.source);
        if (!match.hasMatch())
            continue;
        ++hints;
        const QString title = catalogue().translation(message.context, match.captured(1));
        const int at = message.translation.indexOf(title);
        if (title.isEmpty() || at < 1 ||
            !everyQuotationMark.contains(message.translation[at - 1]) ||
            !everyQuotationMark.contains(message.translation[at + title.size()]))
            wrong.append(message.key() + QLatin1String(" -> ") + message.translation);
    }
    VERIFY_NONE(wrong);
    QCOMPARE(hints, 3);
}

void TranslationsCataloguesTest::englishIsTheSourceText_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("en") << QStringLiteral("en");
    QTest::newRow("en_US") << QStringLiteral("en_US");
}

void TranslationsCataloguesTest::englishIsTheSourceText()
{
    VERIFY_NONE(faulty(
        [](const CatalogueMessage &message) { return message.translation != message.source; }));
}

void TranslationsCataloguesTest::everyOtherLanguageIsTranslated_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : catalogueLanguages())
        if (!language.startsWith(QLatin1String("en")))
            QTest::newRow(qPrintable(language)) << language;
}

// No English word is left over. Short ones like "AI" may stay, and what is printed on a key.
void TranslationsCataloguesTest::everyOtherLanguageIsTranslated()
{
    VERIFY_NONE(faulty([](const CatalogueMessage &message) {
        static const QRegularExpression word(QStringLiteral("(?!Esc)[A-Za-z]{3,}"));
        return word.match(message.translation).hasMatch();
    }));
}

void TranslationsCataloguesTest::regionUsesItsOwnWords_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("source"); // a message of any context
    QTest::addColumn<QString>("word");
    QTest::addColumn<QStringList>("foreignWords"); // the other regions' words and characters

    const auto cn = QStringLiteral("zh_CN");
    const auto hk = QStringLiteral("zh_HK");
    const auto tw = QStringLiteral("zh_TW");
    const auto network = QStringLiteral("Network unavailable");
    QTest::newRow("network, zh_CN") << cn << network << "网络" << QStringList{"網絡", "網路"};
    QTest::newRow("network, zh_HK") << hk << network << "網絡" << QStringList{"网络", "網路"};
    QTest::newRow("network, zh_TW") << tw << network << "網路" << QStringList{"网络", "網絡"};
    const auto assistant = QStringLiteral("Desktop AI Assistant");
    QTest::newRow("assistant, zh_CN")
        << cn << assistant << "智能助手" << QStringList{"智慧", "助理"};
    QTest::newRow("assistant, zh_HK")
        << hk << assistant << "智能助理" << QStringList{"智慧", "助手"};
    QTest::newRow("assistant, zh_TW")
        << tw << assistant << "智慧助理" << QStringList{"智能", "助手"};
    const auto shortcut = QStringLiteral("Enter a new shortcut");
    QTest::newRow("shortcut, zh_CN") << cn << shortcut << "快捷键" << QStringList{"快捷鍵", "快速"};
    QTest::newRow("shortcut, zh_HK") << hk << shortcut << "快捷鍵" << QStringList{"快捷键", "快速"};
    QTest::newRow("shortcut, zh_TW") << tw << shortcut << "快速鍵" << QStringList{"快捷"};
    const auto mandarin = QStringLiteral("中文-普通话");
    QTest::newRow("Mandarin, zh_CN") << cn << mandarin << "普通话" << QStringList{"普通話", "國語"};
    QTest::newRow("Mandarin, zh_HK") << hk << mandarin << "普通話" << QStringList{"普通话", "國語"};
    QTest::newRow("Mandarin, zh_TW") << tw << mandarin << "國語" << QStringList{"普通"};
    const auto widget = QStringLiteral("Show Speech Widget");
    QTest::newRow("window, zh_CN") << cn << widget << "窗" << QStringList{"視窗"};
    QTest::newRow("window, zh_HK") << hk << widget << "懸浮視窗" << QStringList{"浮動", "悬"};
    QTest::newRow("window, zh_TW") << tw << widget << "浮動視窗" << QStringList{"懸浮", "悬"};
}

void TranslationsCataloguesTest::regionUsesItsOwnWords()
{
    QFETCH(QString, source);
    QFETCH(QString, word);
    QFETCH(QStringList, foreignWords);
    bool used = false;
    for (const CatalogueMessage &message : catalogue().messages) {
        if (message.source == source)
            used = used || message.translation.contains(word);
        for (const QString &foreign : foreignWords)
            QVERIFY2(!message.translation.contains(foreign),
                     qPrintable(message.key() + " -> " + message.translation));
    }
    QVERIFY2(used, qPrintable(source + " without " + word));
}

void TranslationsCataloguesTest::hongKongIsNoCopyOfTaiwan()
{
    const Catalogue &taiwan = *m_catalogues.constFind(QStringLiteral("zh_TW"));
    const Catalogue &hongKong = *m_catalogues.constFind(QStringLiteral("zh_HK"));
    QSet<QString> sources;
    QSet<QString> different;
    for (const CatalogueMessage &message : hongKong.messages) {
        sources.insert(message.source);
        if (taiwan.translation(message.context, message.source) != message.translation)
            different.insert(message.source);
    }
    // Many short words are the same in both regions; whole sentences hardly ever are.
    QVERIFY2(different.size() * 2 > sources.size(),
             qPrintable(QStringLiteral("%1 of %2").arg(different.size()).arg(sources.size())));
}

// A key combination ends in a letter or in a sign; between marks, its parts keep their order.
void TranslationsCataloguesTest::uyghurKeepsShortcutsLeftToRight()
{
    const QString marked = QStringLiteral("\u200e%1\u200e");
    QStringList unmarked;
    for (const CatalogueMessage &message : m_catalogues.value(QStringLiteral("ug")).messages)
        if (message.source.contains(QLatin1String("shortcuts (%1)")) &&
            !message.translation.contains(marked))
            unmarked.append(message.key());
    VERIFY_NONE(unmarked);
}

void TranslationsCataloguesTest::glossarySaysWhatTheCataloguesSay()
{
    QFile file(QStringLiteral(SOURCE_ROOT "/docs/glossary.md"));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
    const QVector<QStringList> rows =
        tableRows(QString::fromUtf8(file.readAll()), QStringLiteral("## Titles and labels"));
    QVERIFY(rows.size() > 2); // the heading, the line below it, and terms

    const QStringList languages = rows.first(); // the first column is the source text
    QStringList wrong;
    for (const QStringList &row : rows.mid(2)) {
        QCOMPARE(row.size(), languages.size());
        for (int column = 1; column < row.size(); ++column) {
            const auto &messages = m_catalogues.value(languages[column]).messages;
            const bool said = std::any_of(messages.cbegin(), messages.cend(), [&](const auto &m) {
                return m.source == row.first() && m.translation == row[column];
            });
            if (!said)
                wrong.append(languages[column] + QLatin1String(": ") + row.first() +
                             QLatin1String(" -> ") + row[column]);
        }
    }
    VERIFY_NONE(wrong);
}

TEST_CLASS(QCoreApplication, TranslationsCataloguesTest)
#include "translationscatalogues.moc"
