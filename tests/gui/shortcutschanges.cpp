#include "tests/gui/shortcutparts.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPushButton>

using namespace testsupport;

/** Changes on the page of shortcuts: in edit mode, in conflict, undone, and without the service. */
class ShortcutsChangesTest : public QObject, private ShownShortcutsPage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(startService()); }
    void cleanup();
    void takenShortcutIsTakenOverWhenPressedTwice();
    void ownShortcutIsNoConflict();
    void lastChangeCanBeUndone();
    void usualShortcutsComeBack();
    void editModeRemoves();
    void editModeKeepsFocus();
    void editModeChanges();
    void serviceErrorIsToldUntilItGoes();
    void absentServiceIsTold();
    void serviceThatVanishesIsTold();
};

void ShortcutsChangesTest::cleanup()
{
    close();
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void ShortcutsChangesTest::takenShortcutIsTakenOverWhenPressedTwice()
{
    QVERIFY(open());
    clickCaps(speechId);
    press(Qt::Key_T, controlAlt);
    QVERIFY(m_page->message().contains(QStringLiteral("Translation")));
    QCOMPARE(visible(speechId), QStringLiteral("line")); // it waits on
    press(Qt::Key_P, controlAlt); // another one's: the first is no longer meant
    QVERIFY(m_page->message().contains(QStringLiteral("Text to Speech")));
    press(Qt::Key_T, controlAlt);
    QCOMPARE(stored(translationId), QStringList("<Control><Alt>T"));
    press(Qt::Key_T, controlAlt);
    QTRY_COMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "T"}));
    QTRY_COMPARE(shown(translationId), QStringList("None"));
    QCOMPARE(stored(speechId), QStringList("<Control><Alt>T"));
    QCOMPARE(stored(translationId), QStringList());
    QCOMPARE(stored(readId), QStringList("<Control><Alt>P"));

    QTRY_VERIFY(m_page->undoButton()->isVisible());
    m_page->undoButton()->click();
    QTRY_COMPARE(shown(translationId), QStringList({"Ctrl", "Alt", "T"}));
    QTRY_COMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "I"}));
}

void ShortcutsChangesTest::ownShortcutIsNoConflict()
{
    QVERIFY(open());
    clickCaps(speechId);
    press(Qt::Key_I, controlAlt);
    QCOMPARE(visible(speechId), QStringLiteral("caps"));
    QCOMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "I"}));
    QCOMPARE(m_page->message(), QString());
}

void ShortcutsChangesTest::lastChangeCanBeUndone()
{
    QVERIFY(open());
    QVERIFY(!m_page->undoButton()->isVisible());
    m_page->row(readId)->onRemoveClick();
    QTRY_VERIFY(m_page->message().contains(QStringLiteral("Text to Speech")));
    QVERIFY(m_page->undoButton()->isVisible());
    QCOMPARE(shown(readId), QStringList("None"));
    m_page->undoButton()->setFocus();
    press(Qt::Key_Space);
    QTRY_COMPARE(shown(readId), QStringList({"Ctrl", "Alt", "P"}));
    QVERIFY(!m_page->undoButton()->isVisible()); // once
    QVERIFY(m_page->editButton()->hasFocus());

    clickCaps(readId);
    press(Qt::Key_F5);
    QTRY_VERIFY(m_page->message().contains(QStringLiteral("F5")));
    QVERIFY(m_page->undoButton()->isVisible());
    showAgain();
    QVERIFY(!m_page->undoButton()->isVisible());
}

void ShortcutsChangesTest::usualShortcutsComeBack()
{
    QVERIFY(open());
    QVERIFY(!m_page->restoreButton()->isVisible());
    m_page->editButton()->click();
    m_page->row(speechId)->onRemoveClick();
    QTRY_COMPARE(shown(speechId), QStringList("None"));
    m_page->restoreButton()->click();
    for (const auto &shortcut : shortcuts())
        QTRY_COMPARE(stored(shortcut.id), QStringList(shortcut.standard));
    QTRY_VERIFY(m_page->undoButton()->isVisible());
    m_page->undoButton()->click();
    QTRY_COMPARE(stored(speechId), QStringList());
    QTRY_COMPARE(stored(readId), QStringList("<Control><Alt>P"));
}

void ShortcutsChangesTest::editModeRemoves()
{
    QVERIFY(open());
    clickThroughWindow(m_page->editButton());
    for (const auto &shortcut : shortcuts())
        QCOMPARE(visible(shortcut.id), QStringLiteral("edit remove"));
    QCoreApplication::processEvents();
    clickThroughWindow(RowParts(*m_page->row(speechId)).remove);
    QTRY_COMPARE(shown(speechId), QStringList("None"));
    QCOMPARE(stored(speechId), QStringList());
    QCOMPARE(visible(speechId), QStringLiteral("edit remove"));

    clickThroughWindow(m_page->editButton());
    for (const auto &shortcut : shortcuts())
        QCOMPARE(visible(shortcut.id), QStringLiteral("caps"));
    QCoreApplication::processEvents();
    clickCaps(speechId);
    press(Qt::Key_F5);
    QTRY_COMPARE(shown(speechId), QStringList("F5"));
    QCOMPARE(stored(speechId), QStringList("F5"));
}

void ShortcutsChangesTest::editModeKeepsFocus()
{
    QVERIFY(open());
    m_page->editButton()->setChecked(true);
    for (const char *name : {"remove", "edit"}) {
        auto *button = m_page->row(speechId)->findChild<QWidget *>(name);
        button->setFocus();
        press(Qt::Key_Space);
        if (button->objectName() == QLatin1String("edit"))
            press(Qt::Key_F5);
        const QStringList expected(button->objectName() == QLatin1String("edit") ? "F5" : "None");
        QTRY_COMPARE(shown(speechId), expected);
        QVERIFY2(button->hasFocus(), name);
    }

    // Leaving the window ends the wait, too.
    const auto *edit = RowParts(*m_page->row(speechId)).edit;
    press(Qt::Key_Space);
    QVERIFY(!m_page->message().isEmpty());
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTRY_COMPARE(m_page->message(), QString());
    QCOMPARE(m_window->focusWidget(), edit);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QVERIFY(edit->hasFocus());
}

void ShortcutsChangesTest::editModeChanges()
{
    QVERIFY(open());
    clickThroughWindow(m_page->editButton());
    QCoreApplication::processEvents();
    clickThroughWindow(RowParts(*m_page->row(readId)).edit);
    QVERIFY(m_page->message().contains(QStringLiteral("Text to Speech")));
    QCOMPARE(visible(readId), QStringLiteral("line"));
    press(Qt::Key_J, controlAlt);
    QTRY_COMPARE(shown(readId), QStringList({"Ctrl", "Alt", "J"}));
    QCOMPARE(visible(readId), QStringLiteral("edit remove"));
    QCOMPARE(stored(readId), QStringList("<Control><Alt>J"));
}

void ShortcutsChangesTest::serviceErrorIsToldUntilItGoes()
{
    QVERIFY(open());
    const LogCapture log;
    m_service->script(QStringLiteral("GetShortcut"), QStringLiteral("error"),
                      QString(1 << 20, QLatin1Char('x')));
    showAgain();
    QTRY_VERIFY(!m_page->message().isEmpty());
    QVERIFY(!m_page->message().contains(QLatin1String("xxx")));
    QVERIFY(!m_page->row(speechId)->isEnabled() && !m_page->editButton()->isEnabled());
    QVERIFY(!log.texts().filter(QStringLiteral("xxx")).isEmpty());
    m_service->reset();
    QTRY_COMPARE(m_page->message(), QString()); // without anybody asking for it
    QTRY_VERIFY(m_page->row(speechId)->isEnabled());
    clickCaps(speechId);
    press(Qt::Key_F5);
    QTRY_COMPARE(shown(speechId), QStringList("F5"));
}

void ShortcutsChangesTest::absentServiceIsTold()
{
    QVERIFY(m_service->stop());
    m_window = std::make_unique<QWidget>();
    m_page = new ShortcutsPage(shortcuts(), m_window.get());
    m_window->show();
    QTRY_VERIFY(!m_page->message().isEmpty());
    QVERIFY(shown(speechId).isEmpty());
    QVERIFY(!m_page->row(speechId)->isEnabled());
    QVERIFY(m_service->start());
    QTRY_COMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "I"}));
    QTRY_VERIFY(m_page->row(speechId)->isEnabled()); // when all of them are known
}

// When the new shortcut is to be stored: the old one stays on show.
void ShortcutsChangesTest::serviceThatVanishesIsTold()
{
    QVERIFY(open());
    clickCaps(speechId);
    m_service->kill();
    press(Qt::Key_J, controlAlt);
    QTRY_VERIFY(!m_page->message().isEmpty());
    QCOMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "I"}));
    QCOMPARE(visible(speechId), QStringLiteral("caps"));
    QVERIFY(!m_page->undoButton()->isVisible());
}

TEST_CLASS(QApplication, ShortcutsChangesTest)
#include "shortcutschanges.moc"
