#include "pages/keydisplaynames.h"
#include "pages/keylabel.h"
#include "pages/shortcutitem.h"
#include "pages/showntext.h"
#include "sandbox/controlcenter/shortcutspage/keygrabber.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <ctime>

/** The key-name table, what a cap shows for a name, and how an accelerator becomes key names. */
class KeyNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void table_data();
    void table();
    void tableHoldsNothingElse();
    void capText_data();
    void capText();
    void formatter_data();
    void formatter();
    void everyTableNameSurvivesTheFormatter();
};

void KeyNamesTest::table_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");

    const struct
    {
        const char *name;
        const char *text;
    } rows[] = {
        {"exclam", "!"},       {"at", "@"},          {"numbersign", "#"},   {"dollar", "$"},
        {"percent", "%"},      {"asciicircum", "^"}, {"ampersand", "&"},    {"asterisk", "*"},
        {"parenleft", "("},    {"parenright", ")"},  {"underscore", "_"},   {"plus", "+"},
        {"braceleft", "{"},    {"braceright", "}"},  {"bar", "\x7c"},       {"colon", ":"},
        {"quotedbl", "\x22"},  {"less", "\x3c"},     {"greater", ">"},      {"question", "?"},
        {"minus", "-"},        {"equal", "="},       {"brackertleft", "["}, {"breckertright", "]"},
        {"backslash", "\x5c"}, {"semicolon", ";"},   {"apostrophe", "'"},   {"comma", ","},
        {"period", "."},       {"slash", "/"},       {"Up", "\u2191"},      {"Left", "\u2190"},
        {"Down", "\u2193"},    {"Right", "\u2192"},  {"asciitilde", "~"},   {"grave", "`"},
        {"Control", "Ctrl"},   {"Super_L", "Super"}, {"Super_R", "Super"},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << QString::fromUtf8(row.name) << QString::fromUtf8(row.text);
}

void KeyNamesTest::table()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QCOMPARE(keyDisplayNames.value(name), text);
    QCOMPARE(KeyLabel(name, nullptr).text(), text);
}

void KeyNamesTest::tableHoldsNothingElse()
{
    QCOMPARE(keyDisplayNames.size(), 39);
}

void KeyNamesTest::capText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");

    QTest::newRow("no name") << QString() << "None";
    QTest::newRow("empty name") << ""
                                << "None";
    QTest::newRow("a letter") << "a"
                              << "a";
    QTest::newRow("a modifier") << "Alt"
                                << "Alt";
    QTest::newRow("shortened modifier") << "Super"
                                        << "Super";
    QTest::newRow("lower-case arrow name") << "up"
                                           << "up";
    QTest::newRow("upper-case symbol name") << "EXCLAM"
                                            << "EXCLAM";
    QTest::newRow("a name inside a longer one") << "exclamdown"
                                                << "exclamdown";
    QTest::newRow("true name of [") << "bracketleft"
                                    << "bracketleft";
    QTest::newRow("true name of ]") << "bracketright"
                                    << "bracketright";
    QTest::newRow("a blank") << " "
                             << " ";
    QTest::newRow("rich text") << "<b>T</b>"
                               << "<b>T</b>";
}

void KeyNamesTest::capText()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QCOMPARE(KeyLabel(name, nullptr).text(), text);
}

void KeyNamesTest::formatter_data()
{
    QTest::addColumn<QString>("accels");
    QTest::addColumn<QStringList>("names");

    const auto row = [](const char *accels, const char *names) {
        QTest::newRow(*accels ? accels : "(empty)")
            << QString::fromLatin1(accels) << QString::fromLatin1(names).split('|');
    };
    row("<Control><Alt>T", "Ctrl|Alt|T");
    row("<Control><Shift>minus", "Ctrl|Shift|minus");
    row("<Super_L>a", "Super|a");
    row("<Super_R>a", "Super|a");
    row("<Control_L><Alt_R>Delete", "Ctrl|Alt|Delete");
    row("<Shift_L><Shift_R>x", "Shift|Shift|x");
    row("<Super>space", "Super|space");
    row("<Alt>Control_L", "Alt|Ctrl");
    row("Control_R", "Ctrl");
    row("Super_L", "Super");
    row("F9", "F9");
    row("", "");
    row("<Control>", "Ctrl|");
    row("<Control><Alt>", "Ctrl|Alt|");
    row(">", "|");
    row("<", "");
    row("<<Control>>T", "Ctrl||T");
    row("<Control<Alt>T", "CtrlAlt|T");
    row("Control>Alt>T", "Ctrl|Alt|T");
    row("<control>T", "control|T");
    row("<Alt>-", "Alt||");
    row("<Alt>a-b", "Alt|a|b");
    row("-", "|");
    row("<Alt>KP_Left", "Alt|KPeft");
    row("<Alt>Meta_Lock", "Alt|Metaock");
    row("<Alt>XF86_Rotate", "Alt|XF86otate");
    row("<Alt>XF86AudioControl", "Alt|XF86AudioCtrl");
    row("<Alt>ControlControl", "Alt|CtrlCtrl");
    row("<Alt>Con_Ltrol", "Alt|Ctrl");
    row("<Alt>__RL", "Alt|_L");
    row("<Alt>__LR", "Alt|");
    row("<Alt>bracketleft", "Alt|bracketleft");
    row("<Primary>T", "Primary|T");
}

void KeyNamesTest::formatter()
{
    QFETCH(QString, accels);
    QFETCH(QStringList, names);
    QCOMPARE(ShortcutItem::keyNames(accels), names);
}

void KeyNamesTest::everyTableNameSurvivesTheFormatter()
{
    for (auto it = keyDisplayNames.cbegin(); it != keyDisplayNames.cend(); ++it) {
        const QStringList names = ShortcutItem::keyNames(QStringLiteral("<Alt>") + it.key());
        QCOMPARE(names.size(), 2);
        // The three modifiers of the table are shortened before they reach it; the text is the
        // same.
        QCOMPARE(KeyLabel(names.last(), nullptr).text(), it.value());
    }
}

TEST_CLASS(QApplication, KeyNamesTest)

using controlcenter::accelerator;

namespace {
const Qt::KeyboardModifiers noKeys = Qt::NoModifier;
const Qt::KeyboardModifiers controlAlt = Qt::ControlModifier | Qt::AltModifier;
} // namespace

/** What the window stores for a key combination, and what a row then shows for it. */
class KeyNamesGrabbedTest : public QObject
{
    Q_OBJECT

private slots:
    void stored_data();
    void stored();
    void asciiKeysHaveNames();
    void modifiersKeepTheirOrder();
};

void KeyNamesGrabbedTest::stored_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("accels");
    QTest::addColumn<QStringList>("caps");

    const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers,
                        const char *accels, const QStringList &caps) {
        QTest::newRow(name) << key << modifiers << QString::fromLatin1(accels) << caps;
    };
    row("letter", Qt::Key_T, controlAlt, "<Control><Alt>T", {"Ctrl", "Alt", "T"});
    row("digit", Qt::Key_7, controlAlt, "<Control><Alt>7", {"Ctrl", "Alt", "7"});
    row("minus", Qt::Key_Minus, Qt::ControlModifier, "<Control>minus", {"Ctrl", "-"});
    row("greater", Qt::Key_Greater, Qt::ControlModifier | Qt::ShiftModifier,
        "<Control><Shift>greater", {"Ctrl", "Shift", ">"});
    row("space", Qt::Key_Space, Qt::MetaModifier, "<Super>space", {"Super", "space"});
    row("arrow", Qt::Key_Left, Qt::MetaModifier, "<Super>Left", {"Super", QChar(0x2190)});
    row("tab backwards", Qt::Key_Backtab, Qt::AltModifier | Qt::ShiftModifier, "<Alt><Shift>Tab",
        {"Alt", "Shift", "Tab"});
    row("function key alone", Qt::Key_F9, noKeys, "F9", {"F9"});
    row("last function key", Qt::Key_F24, Qt::ShiftModifier, "<Shift>F24", {"Shift", "F24"});
    row("Escape with a modifier", Qt::Key_Escape, Qt::ControlModifier, "<Control>Escape",
        {"Ctrl", "Escape"});
    row("key block", Qt::Key_1, Qt::ControlModifier | Qt::KeypadModifier, "<Control>1",
        {"Ctrl", "1"});

    row("letter alone", Qt::Key_T, noKeys, "", {});
    row("capital letter", Qt::Key_T, Qt::ShiftModifier, "", {});
    row("Return alone", Qt::Key_Return, noKeys, "", {});
    row("Control alone", Qt::Key_Control, Qt::ControlModifier, "", {});
    row("Super alone", Qt::Key_Meta, Qt::MetaModifier, "", {});
    row("AltGr", Qt::Key_AltGr, controlAlt, "", {});
    row("key without a name", Qt::Key_unknown, controlAlt, "", {});
    row("letter outside ASCII", 0x416, controlAlt, "", {});
    row("beyond the function keys", Qt::Key_F25, noKeys, "", {});
}

void KeyNamesGrabbedTest::stored()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, accels);
    QFETCH(QStringList, caps);
    QCOMPARE(accelerator(key, modifiers), accels);
    if (accels.isEmpty())
        return;
    QStringList shown;
    for (const QString &name : ShortcutItem::keyNames(accels))
        shown.append(KeyLabel(name).text());
    QCOMPARE(shown, caps);
}

void KeyNamesGrabbedTest::asciiKeysHaveNames()
{
    for (int key = 0x20; key < 0x7f; ++key) {
        const bool smallLetter = key >= 'a' && key <= 'z'; // Qt has no such keys
        QCOMPARE(accelerator(key, Qt::ControlModifier).isEmpty(), smallLetter);
    }
}

void KeyNamesGrabbedTest::modifiersKeepTheirOrder()
{
    QCOMPARE(accelerator(Qt::Key_A, Qt::MetaModifier | Qt::ShiftModifier | Qt::AltModifier |
                                        Qt::ControlModifier),
             QStringLiteral("<Control><Alt><Shift><Super>A"));
}

TEST_CLASS(QApplication, KeyNamesGrabbedTest)

// How texts of services are cut before they are shown.

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
    void aPartOfALineStaysOne_data();
    void aPartOfALineStaysOne();
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

void ShownTextTest::aPartOfALineStaysOne_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const QString &text, const QString &shown) {
        QTest::newRow(name) << text << shown;
    };
    row("usual", QStringLiteral("Ctrl+Alt+T"), QStringLiteral("Ctrl+Alt+T"));
    row("empty", QString(), QString());
    row("line breaks", QStringLiteral("a\nb\r\nc\u2028d\u2029e\u0085f\vg\fh"),
        QStringLiteral("a b  c d e f g h"));
    row("override", QStringLiteral("a\u202eb"), QStringLiteral("a\u202eb\u202c"));
    row("isolate", QStringLiteral("a\u2067b"), QStringLiteral("a\u2067b\u2069"));
    row("each of them", QStringLiteral("\u202a\u202b\u202d\u202e\u2066\u2067\u2068"),
        QStringLiteral("\u202a\u202b\u202d\u202e\u2066\u2067\u2068"
                       "\u2069\u2069\u2069\u202c\u202c\u202c\u202c"));
    row("closed by itself", QStringLiteral("\u202ea\u202c\u2066b\u2069"),
        QStringLiteral("\u202ea\u202c\u2066b\u2069"));
    row("closed too often", QStringLiteral("a\u202c\u2069\u202e"),
        QStringLiteral("a\u202c\u2069\u202e\u202c"));
    row("an isolate closes what began in it", QStringLiteral("\u2066\u202ea\u2069"),
        QStringLiteral("\u2066\u202ea\u2069"));
    row("but is not closed by its end", QStringLiteral("\u2066\u202c"),
        QStringLiteral("\u2066\u202c\u2069"));
    row("nothing closes in a lone embedding", QStringLiteral("\u202e\u2069"),
        QStringLiteral("\u202e\u2069\u202c"));
}

void ShownTextTest::aPartOfALineStaysOne()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QCOMPARE(showntext::partOfLine(text), shown);
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

#include "shownnames.moc"
