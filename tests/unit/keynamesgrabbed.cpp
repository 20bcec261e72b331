#include "pages/keylabel.h"
#include "pages/shortcutitem.h"
#include "sandbox/controlcenter/shortcutspage/accelerator.h"
#include "tests/support/testprogram.h"

#include <QtTest>

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
#include "keynamesgrabbed.moc"
