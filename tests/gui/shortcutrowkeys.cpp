#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"

#include <QAccessible>
#include <QApplication>

using namespace testsupport;
using Ztk::Widget::ZIconButton;

/** ShortcutItem without a mouse: by keys and by assistive technologies. */
class ShortcutRowKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void operableByKeyboard();
    void onlyUnmodifiedKeysAreClicks_data();
    void onlyUnmodifiedKeysAreClicks();
    void keyboardDoesNothingInEditMode();
    void buttonsAreReachedInReadingOrder();
    void endOfEditModeHandsTheFocusOver_data();
    void endOfEditModeHandsTheFocusOver();
    void endOfEditModeLeavesForeignFocus();
    void operableByAssistiveTechnology();
    void disabledRowCannotBePressed();
};

void ShortcutRowKeysTest::cleanup()
{
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void ShortcutRowKeysTest::operableByKeyboard()
{
    FilledRowWindow window;
    QVERIFY(window.showActive());
    QCOMPARE(window.row->accessibleName(), QStringLiteral("Title"));
    QCOMPARE(window.row->accessibleDescription(), QStringLiteral("Ctrl+Alt+T"));

    const QImage unfocused = window.grab().toImage();
    QTest::keyClick(&window, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(window.row));
    QVERIFY2(window.grab().toImage() != unfocused, "the focus cannot be seen");

    for (int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        window.log.lines.clear();
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key));
        QCOMPARE(window.parts.visible(), QStringLiteral("line"));
        QCOMPARE(window.log.lines.size(), 1);
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key));
        QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
        QCOMPARE(window.log.lines.size(), 1);
    }
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowKeysTest::onlyUnmodifiedKeysAreClicks_data()
{
    QTest::addColumn<int>("modifier");
    QTest::addColumn<QString>("visible");
    QTest::newRow("none") << int(Qt::NoModifier) << "line";
    QTest::newRow("Control") << int(Qt::ControlModifier) << "caps";
    QTest::newRow("Alt") << int(Qt::AltModifier) << "caps";
    QTest::newRow("Shift") << int(Qt::ShiftModifier) << "caps";
    QTest::newRow("Meta") << int(Qt::MetaModifier) << "caps";
    QTest::newRow("Control, on the keypad")
        << int(Qt::ControlModifier | Qt::KeypadModifier) << "caps";
    QTest::newRow("on the keypad")
        << int(Qt::KeypadModifier) << "line"; // no modifier of the user's
}

void ShortcutRowKeysTest::onlyUnmodifiedKeysAreClicks()
{
    QFETCH(int, modifier);
    QFETCH(QString, visible);
    for (int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select}) {
        FilledRowWindow window;
        QVERIFY(window.showAndWait());
        QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifier));
        QCoreApplication::sendEvent(window.row, &press);
        QCOMPARE(window.parts.visible(), visible);
        QCOMPARE(press.isAccepted(), visible == QLatin1String("line")); // else it is someone else's
        QKeyEvent held(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifier), QString(), true);
        QCoreApplication::sendEvent(window.row, &held);
        QCOMPARE(window.parts.visible(), visible);
    }
}

void ShortcutRowKeysTest::keyboardDoesNothingInEditMode()
{
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    window.row->onEditMode(true);
    QCOMPARE(window.row->focusPolicy(), Qt::NoFocus);
    QTest::keyClick(window.row.data(), Qt::Key_Space);
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
    QCOMPARE(window.log.lines, QStringList());
    window.row->onEditMode(false);
    QCOMPARE(window.row->focusPolicy(), Qt::TabFocus);
}

// From the title on, by Tab and in what is read aloud.
void ShortcutRowKeysTest::buttonsAreReachedInReadingOrder()
{
    FilledRowWindow window;
    QVERIFY(window.showActive());
    window.row->onEditMode(true);
    for (QWidget *button : {window.parts.edit, window.parts.remove}) {
        QTest::keyClick(&window, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), button);
    }

    QStringList read;
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(window.row);
    for (int i = 0; i < row->childCount(); ++i)
        if (!row->child(i)->state().invisible)
            read.append(row->child(i)->text(QAccessible::Name));
    QCOMPARE(read, QStringList({"Title", "Edit the shortcut for “Title”",
                                "Remove the shortcut for “Title”"}));
}

void ShortcutRowKeysTest::endOfEditModeHandsTheFocusOver_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<bool>("byShortcut");
    QTest::addColumn<bool>("active");
    for (const char *part : {"edit", "remove"}) {
        for (bool byShortcut : {false, true}) {
            for (bool active : {false, true}) {
                QTest::addRow("%s, %s, %s window", part, byShortcut ? "new shortcut" : "end",
                              active ? "active" : "inactive")
                    << part << byShortcut << active;
            }
        }
    }
}

// On a button that is no longer seen, Space would still edit or remove the shortcut.
void ShortcutRowKeysTest::endOfEditModeHandsTheFocusOver()
{
    QFETCH(QString, part);
    QFETCH(bool, byShortcut);
    QFETCH(bool, active);
    FilledRowWindow window;
    QLineEdit other(&window); // stands where the focus would go by itself
    QVERIFY(window.showActive());
    window.row->onEditMode(true);
    window.row->findChild<QWidget *>(part)->setFocus();
    QWidget otherWindow;
    if (!active) {
        otherWindow.show();
        otherWindow.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&otherWindow));
    }

    if (byShortcut)
        window.row->setShortcut(QStringLiteral("F1"));
    else
        window.row->onEditMode(false);
    QCOMPARE(window.focusWidget(), static_cast<QWidget *>(window.row));

    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(window.row->hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    QCOMPARE(window.parts.visible(), QStringLiteral("line"));
    QCOMPARE(window.log.lines.size(), 1);
    QVERIFY(window.log.lines.first().startsWith(QLatin1String("update: ")));
}

void ShortcutRowKeysTest::endOfEditModeLeavesForeignFocus()
{
    FilledRowWindow window;
    QLineEdit other(&window);
    QVERIFY(window.showActive());
    window.row->onEditMode(true);
    window.parts.edit->setFocus();
    other.setFocus();
    window.row->onEditMode(false);
    QVERIFY(other.hasFocus());
}

void ShortcutRowKeysTest::operableByAssistiveTechnology()
{
    FilledRowWindow window;
    QVERIFY(window.showActive());
    const QString press = QAccessibleActionInterface::pressAction();

    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(window.row);
    QVERIFY(row);
    QCOMPARE(row->role(), QAccessible::Button);
    QCOMPARE(row->text(QAccessible::Name), QStringLiteral("Title"));
    QCOMPARE(row->text(QAccessible::Description), QStringLiteral("Ctrl+Alt+T"));
    QVERIFY(row->state().focusable);
    QVERIFY(row->actionInterface()->actionNames().contains(press));
    row->actionInterface()->doAction(press);
    QCOMPARE(window.parts.visible(), QStringLiteral("line"));
    QCOMPARE(window.log.lines, QStringList(QStringLiteral("update: Title, ") + accels));
    row->actionInterface()->doAction(press);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(window.row->hasFocus());

    window.row->onEditMode(true);
    QCOMPARE(row->role(), QAccessible::Grouping);
    QVERIFY(!row->actionInterface()->actionNames().contains(press));
    row->actionInterface()->doAction(press);
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
    QCOMPARE(window.log.lines.size(), 1);
    for (ZIconButton *button : {window.parts.edit, window.parts.remove}) {
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(button);
        QCOMPARE(accessible->role(), QAccessible::Button);
        QVERIFY(!accessible->text(QAccessible::Name).isEmpty());
    }
}

void ShortcutRowKeysTest::disabledRowCannotBePressed()
{
    FilledRowWindow window;
    window.row->setEnabled(false);
    QVERIFY(window.showAndWait());
    const QString press = QAccessibleActionInterface::pressAction();
    QAccessibleActionInterface *actions =
        QAccessible::queryAccessibleInterface(window.row)->actionInterface();

    QVERIFY(!actions->actionNames().contains(press));
    actions->doAction(press);
    window.row->press();
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    QCOMPARE(window.log.lines, QStringList());
}

TEST_CLASS(QApplication, ShortcutRowKeysTest)
#include "shortcutrowkeys.moc"
