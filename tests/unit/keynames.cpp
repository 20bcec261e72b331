#include "pages/keydisplaynames.h"
#include "pages/keylabel.h"
#include "pages/shortcutitem.h"
#include "tests/support/testprogram.h"

#include <QtTest>

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
#include "keynames.moc"
