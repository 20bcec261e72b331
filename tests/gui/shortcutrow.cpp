#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QStyleFactory>
#include <QVBoxLayout>

#include <memory>

using Ztk::Widget::ZIconButton;
using Info = ShortcutItem::ShortcutInfo;

namespace {

const QString accels = QStringLiteral("<Control><Alt>T");
const QString longTitle =
    QStringLiteral("Write what is said into the window that has the keyboard focus");
const QChar ellipsis(0x2026);

/** A window that holds one row at a place and width of the test's choice. */
class RowWindow : public QWidget
{
public:
    explicit RowWindow(int width = 600)
    {
        resize(width, 80);
        row = new ShortcutItem(&m_frame);
        m_frame.setGeometry(0, 0, width, 80);
        setRowWidth(width - 20);
    }

    void setRowWidth(int width)
    {
        m_frame.resize(width + 20, 80);
        row->setGeometry(10, 10, width, 44);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowExposed(this);
    }

    bool showActive()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }

    QPointer<ShortcutItem> row;

private:
    QFrame m_frame{this};
};

/** The signals of a row in the order of their arrival, each as "signal: name, accelerator". */
class SignalLog : public QObject
{
public:
    explicit SignalLog(ShortcutItem *row)
    {
        const auto log = [this](const char *signal) {
            return [this, signal](const Info &info) {
                lines.append(QStringLiteral("%1: %2, %3").arg(signal, info.name, info.accels));
            };
        };
        connect(row, &ShortcutItem::shortcutEditChanged, this, log("edit"));
        connect(row, &ShortcutItem::requestUpdateKey, this, log("update"));
        connect(row, &ShortcutItem::requestRemove, this, log("remove"));
    }

    QStringList lines;
};

} // namespace

/** ShortcutItem: its parts, its three states, its title and its signals. */
class ShortcutRowTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void construction();
    void needsNoParent();
    void showsShortcut_data();
    void showsShortcut();
    void keepsAcceleratorAsGiven();
    void infoDoesNotRename();
    void editModeShowsButtons();
    void shortcutLeavesEveryState();
    void clicksInFirstState();
    void clickAfterClickEndsWait_data();
    void clickAfterClickEndsWait();
    void clicksInEditMode();
    void buttonsSignal();
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
    void acceptsReleaseItself();
    void titleStaysPlain();
    void titleThatFitsIsWhole();
    void longTitleIsElidedToHalf();
    void elisionFollowsWidth();
    void elidedTitleIsRestoredOnceItFits();
    void titleTimerShowsRow();
    void settlesInScrollArea();
    void receiverDeletesRow_data();
    void receiverDeletesRow();
    void receiverSetsShortcut();
    void pendingTimersDieWithRow();
    void mirrorsInRightToLeft();
    void placeholderIsReadable();
    void capsFillTheRowAfterEveryChange();
};

void ShortcutRowTest::cleanup()
{
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void ShortcutRowTest::construction()
{
    RowWindow window;
    ShortcutItem &row = *window.row;
    const RowParts parts(row);
    QCOMPARE(row.sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(row.sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(row.minimumHeight(), 40);
    QVERIFY(row.hasMouseTracking());

    auto *layout = qobject_cast<QHBoxLayout *>(row.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(8, 2, 8, 2));
    QCOMPARE(layout->spacing(), 2);
    QCOMPARE(layout->count(), 6);
    const QList<QWidget *> order = {parts.title,  parts.edit, nullptr,
                                    parts.remove, parts.key,  parts.lineEdit};
    const QList<int> stretches = {0, 1, 0, 1, 0, 0};
    for (int i = 0; i < order.size(); ++i) {
        QCOMPARE(layout->itemAt(i)->widget(), order.at(i));
        QCOMPARE(layout->stretch(i), stretches.at(i));
    }
    QVERIFY(layout->itemAt(2)->spacerItem());
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(layout->itemAt(5)->alignment(), Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));

    QCOMPARE(parts.title->text(), QString());
    QCOMPARE(parts.title->alignment(), Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    QVERIFY(!parts.title->wordWrap());
    QCOMPARE(parts.title->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed,
                                                    parts.title->sizePolicy().controlType()));
    for (const ZIconButton *button : {parts.edit, parts.remove}) {
        QCOMPARE(button->size(), QSize(16, 16));
        QCOMPARE(button->minimumSize(), button->maximumSize());
        QVERIFY(!button->accessibleName().isEmpty());
        QVERIFY(!button->icon().isNull());
    }
    QVERIFY(parts.lineEdit->isReadOnly());
    QCOMPARE(parts.lineEdit->placeholderText(), QStringLiteral("Enter a new shortcut"));

    QVERIFY(window.showAndWait());
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowTest::needsNoParent()
{
    ShortcutItem row;
    row.setShortcut(accels);
    QCOMPARE(row.parentWidget(), nullptr);
    QCOMPARE(capTexts(RowParts(row).key).size(), 3);
}

void ShortcutRowTest::showsShortcut_data()
{
    QTest::addColumn<QString>("accels");
    QTest::addColumn<QStringList>("texts");

    const auto row = [](const char *accels, const QStringList &texts) {
        QTest::newRow(*accels ? accels : "(empty)") << QString::fromLatin1(accels) << texts;
    };
    row("<Control><Alt>T", {"Ctrl", "Alt", "T"});
    row("<Control><Shift>minus", {"Ctrl", "Shift", "-"});
    row("<Super_L>a", {"Super", "a"});
    row("<Super>Up", {"Super", QString(QChar(0x2191))});
    row("<Alt>Control_L", {"Alt", "Ctrl"});
    row("<Alt>bracketleft", {"Alt", "bracketleft"});
    row("<Alt>brackertleft", {"Alt", "["});
    row("", {"None"});
    row("<Control>", {"Ctrl", "None"});
}

void ShortcutRowTest::showsShortcut()
{
    QFETCH(QString, accels);
    QFETCH(QStringList, texts);
    RowWindow window;
    window.row->setShortcut(accels);
    QCOMPARE(capTexts(RowParts(*window.row).key), texts);
}

void ShortcutRowTest::keepsAcceleratorAsGiven()
{
    const QString odd = QStringLiteral("<<Control_L>> -> \t&T");
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(odd);
    SignalLog log(window.row);
    window.row->onShortcutEdit();
    window.row->onRemoveClick();
    QCOMPARE(log.lines, QStringList({QStringLiteral("edit: Title, ") + odd,
                                     QStringLiteral("remove: Title, ") + odd}));
}

void ShortcutRowTest::infoDoesNotRename()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("First"));
    window.row->setShortcutInfo({QStringLiteral("Second"), accels});
    SignalLog log(window.row);
    window.row->onShortcutEdit();
    QCOMPARE(log.lines, QStringList(QStringLiteral("edit: First, ") + accels));
    QCOMPARE(RowParts(*window.row).title->text(), QStringLiteral("First"));
    QCOMPARE(capTexts(RowParts(*window.row).key), QStringList({"Ctrl", "Alt", "T"}));
}

void ShortcutRowTest::editModeShowsButtons()
{
    RowWindow window;
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    window.row->onEditMode(true);
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
    window.row->onEditMode(true);
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
    window.row->onEditMode(false);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowTest::shortcutLeavesEveryState()
{
    RowWindow window;
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);

    window.row->onEditMode(true);
    window.row->setShortcut(QStringLiteral("F1"));
    QCOMPARE(parts.visible(), QStringLiteral("caps"));

    clickThroughWindow(parts.key);
    QCOMPARE(parts.visible(), QStringLiteral("line"));
    window.row->setShortcut(QStringLiteral("F2"));
    QCOMPARE(parts.visible(), QStringLiteral("caps"));

    clickThroughWindow(parts.key);
    window.row->onEditMode(true);
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
    window.row->onEditMode(false);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowTest::clicksInFirstState()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    SignalLog log(window.row);

    clickThroughWindow(parts.title);
    clickThroughWindow(window.row);
    clickThroughWindow(window.row, QPoint(1, 1));
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    QCOMPARE(log.lines, QStringList());

    clickThroughWindow(caps(parts.key).at(1));
    QCOMPARE(parts.visible(), QStringLiteral("line"));
    QCOMPARE(log.lines, QStringList(QStringLiteral("update: Title, ") + accels));
}

void ShortcutRowTest::clickAfterClickEndsWait_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("on the title") << "title";
    QTest::newRow("on the line edit") << "shortcutEdit";
    QTest::newRow("where the caps are") << "key";
    QTest::newRow("between title and line edit") << "";
}

void ShortcutRowTest::clickAfterClickEndsWait()
{
    QFETCH(QString, part);
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    SignalLog log(window.row);
    clickThroughWindow(parts.key);
    QCOMPARE(parts.visible(), QStringLiteral("line"));

    QCoreApplication::sendPostedEvents(); // the line edit takes its place
    const auto *target = part.isEmpty() ? static_cast<QWidget *>(window.row)
                                        : window.row->findChild<QWidget *>(part);
    clickThroughWindow(target);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    QCOMPARE(log.lines.size(), 1);
}

void ShortcutRowTest::clicksInEditMode()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    SignalLog log(window.row);
    window.row->onEditMode(true);

    clickThroughWindow(parts.title);
    clickThroughWindow(window.row, parts.key->geometry().center());
    clickThroughWindow(window.row, QPoint(1, 1));
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
    QCOMPARE(log.lines, QStringList());
}

void ShortcutRowTest::buttonsSignal()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    SignalLog log(window.row);
    window.row->onEditMode(true);
    QCoreApplication::sendPostedEvents(); // the buttons take their places

    clickThroughWindow(parts.edit);
    clickThroughWindow(parts.remove);
    QCOMPARE(log.lines, QStringList({QStringLiteral("edit: Title, ") + accels,
                                     QStringLiteral("remove: Title, ") + accels}));
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
}

void ShortcutRowTest::operableByKeyboard()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showActive());
    const RowParts parts(*window.row);
    SignalLog log(window.row);
    QCOMPARE(window.row->accessibleName(), QStringLiteral("Title"));
    QCOMPARE(window.row->accessibleDescription(), QStringLiteral("Ctrl+Alt+T"));

    const QImage unfocused = window.grab().toImage();
    QTest::keyClick(&window, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(window.row));
    QVERIFY2(window.grab().toImage() != unfocused, "the focus cannot be seen");

    for (int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        log.lines.clear();
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key));
        QCOMPARE(parts.visible(), QStringLiteral("line"));
        QCOMPARE(log.lines.size(), 1);
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key));
        QCOMPARE(parts.visible(), QStringLiteral("caps"));
        QCOMPARE(log.lines.size(), 1);
    }
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowTest::onlyUnmodifiedKeysAreClicks_data()
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

void ShortcutRowTest::onlyUnmodifiedKeysAreClicks()
{
    QFETCH(int, modifier);
    QFETCH(QString, visible);
    for (int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select}) {
        RowWindow window;
        window.row->setShortcut(accels);
        QVERIFY(window.showAndWait());
        QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifier));
        QCoreApplication::sendEvent(window.row, &press);
        QCOMPARE(RowParts(*window.row).visible(), visible);
        QCOMPARE(press.isAccepted(), visible == QLatin1String("line")); // else it is someone else's
    }
}

void ShortcutRowTest::keyboardDoesNothingInEditMode()
{
    RowWindow window;
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    SignalLog log(window.row);
    window.row->onEditMode(true);
    QCOMPARE(window.row->focusPolicy(), Qt::NoFocus);
    QTest::keyClick(window.row.data(), Qt::Key_Space);
    QCOMPARE(RowParts(*window.row).visible(), QStringLiteral("edit remove"));
    QCOMPARE(log.lines, QStringList());
    window.row->onEditMode(false);
    QCOMPARE(window.row->focusPolicy(), Qt::TabFocus);
}

// From the title on, by Tab and in what is read aloud.
void ShortcutRowTest::buttonsAreReachedInReadingOrder()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showActive());
    window.row->onEditMode(true);
    const RowParts parts(*window.row);
    for (QWidget *button : {parts.edit, parts.remove}) {
        QTest::keyClick(&window, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), button);
    }

    QStringList read;
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(window.row);
    for (int i = 0; i < row->childCount(); ++i)
        if (!row->child(i)->state().invisible)
            read.append(row->child(i)->text(QAccessible::Name));
    QCOMPARE(read, QStringList({"Title", "Edit", "Remove"}));
}

void ShortcutRowTest::endOfEditModeHandsTheFocusOver_data()
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
void ShortcutRowTest::endOfEditModeHandsTheFocusOver()
{
    QFETCH(QString, part);
    QFETCH(bool, byShortcut);
    QFETCH(bool, active);
    RowWindow window;
    QLineEdit other(&window); // stands where the focus would go by itself
    window.row->setShortcut(accels);
    QVERIFY(window.showActive());
    window.row->onEditMode(true);
    window.row->findChild<QWidget *>(part)->setFocus();
    QWidget otherWindow;
    if (!active) {
        otherWindow.show();
        otherWindow.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&otherWindow));
    }
    SignalLog log(window.row);

    if (byShortcut)
        window.row->setShortcut(QStringLiteral("F1"));
    else
        window.row->onEditMode(false);
    QCOMPARE(window.focusWidget(), static_cast<QWidget *>(window.row));

    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(window.row->hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    QCOMPARE(RowParts(*window.row).visible(), QStringLiteral("line"));
    QCOMPARE(log.lines.size(), 1);
    QVERIFY(log.lines.first().startsWith(QLatin1String("update: ")));
}

void ShortcutRowTest::endOfEditModeLeavesForeignFocus()
{
    RowWindow window;
    QLineEdit other(&window);
    window.row->setShortcut(accels);
    QVERIFY(window.showActive());
    window.row->onEditMode(true);
    RowParts(*window.row).edit->setFocus();
    other.setFocus();
    window.row->onEditMode(false);
    QVERIFY(other.hasFocus());
}

void ShortcutRowTest::operableByAssistiveTechnology()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showActive());
    const RowParts parts(*window.row);
    SignalLog log(window.row);
    const QString press = QAccessibleActionInterface::pressAction();

    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(window.row);
    QVERIFY(row);
    QCOMPARE(row->role(), QAccessible::Button);
    QCOMPARE(row->text(QAccessible::Name), QStringLiteral("Title"));
    QCOMPARE(row->text(QAccessible::Description), QStringLiteral("Ctrl+Alt+T"));
    QVERIFY(row->state().focusable);
    QVERIFY(row->actionInterface()->actionNames().contains(press));
    row->actionInterface()->doAction(press);
    QCOMPARE(parts.visible(), QStringLiteral("line"));
    QCOMPARE(log.lines, QStringList(QStringLiteral("update: Title, ") + accels));
    row->actionInterface()->doAction(press);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(window.row->hasFocus());

    window.row->onEditMode(true);
    QCOMPARE(row->role(), QAccessible::Grouping);
    QVERIFY(!row->actionInterface()->actionNames().contains(press));
    row->actionInterface()->doAction(press);
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
    QCOMPARE(log.lines.size(), 1);
    for (ZIconButton *button : {parts.edit, parts.remove}) {
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(button);
        QCOMPARE(accessible->role(), QAccessible::Button);
        QVERIFY(!accessible->text(QAccessible::Name).isEmpty());
    }
}

void ShortcutRowTest::disabledRowCannotBePressed()
{
    RowWindow window;
    window.row->setShortcut(accels);
    window.row->setEnabled(false);
    QVERIFY(window.showAndWait());
    SignalLog log(window.row);
    const QString press = QAccessibleActionInterface::pressAction();
    QAccessibleActionInterface *actions =
        QAccessible::queryAccessibleInterface(window.row)->actionInterface();

    QVERIFY(!actions->actionNames().contains(press));
    actions->doAction(press);
    window.row->press();
    QCOMPARE(RowParts(*window.row).visible(), QStringLiteral("caps"));
    QCOMPARE(log.lines, QStringList());
}

// The row takes the release; what stands behind it must not see it.
void ShortcutRowTest::acceptsReleaseItself()
{
    RowWindow window;
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const QPointF middle = window.row->rect().center();
    QMouseEvent release(QEvent::MouseButtonRelease, middle, Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(window.row, &release);
    QVERIFY(release.isAccepted());

    // Half a pixel outside the caps is rounded to the caps' first pixel.
    const RowParts parts(*window.row);
    const QPointF corner = parts.key->geometry().topLeft();
    QMouseEvent outside(QEvent::MouseButtonRelease, corner - QPointF(0.6, 0), Qt::LeftButton,
                        Qt::NoButton, {});
    QCoreApplication::sendEvent(window.row, &outside);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    QMouseEvent inside(QEvent::MouseButtonRelease, corner - QPointF(0.4, 0), Qt::LeftButton,
                       Qt::NoButton, {});
    QCoreApplication::sendEvent(window.row, &inside);
    QCOMPARE(parts.visible(), QStringLiteral("line"));
}

void ShortcutRowTest::titleStaysPlain()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("<b>R&D</b>"));
    const QLabel *title = RowParts(*window.row).title;
    QCOMPARE(title->textFormat(), Qt::PlainText);
    QCOMPARE(title->text(), QStringLiteral("<b>R&D</b>"));
}

void ShortcutRowTest::titleThatFitsIsWhole()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Speech to Text"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    QCoreApplication::processEvents();
    QCOMPARE(RowParts(*window.row).title->text(), QStringLiteral("Speech to Text"));
}

void ShortcutRowTest::longTitleIsElidedToHalf()
{
    RowWindow window(360);
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    QCoreApplication::processEvents();
    const RowParts parts(*window.row);

    const int space = window.row->width() - parts.key->width() - 32;
    const QFontMetrics metrics = parts.title->fontMetrics();
    QVERIFY(metrics.horizontalAdvance(longTitle) > space);
    window.row->setTitle(longTitle);
    QCOMPARE(parts.title->text(), longTitle); // not before the event loop runs
    QTRY_VERIFY(parts.title->text().endsWith(ellipsis));
    QCOMPARE(parts.title->text(), metrics.elidedText(longTitle, Qt::ElideRight, space / 2));
    QVERIFY(metrics.horizontalAdvance(parts.title->text()) <= space / 2);

    SignalLog log(window.row);
    window.row->onShortcutEdit();
    QCOMPARE(log.lines, QStringList(QStringLiteral("edit: %1, %2").arg(longTitle, accels)));
}

void ShortcutRowTest::elisionFollowsWidth()
{
    RowWindow window(900);
    window.row->setShortcut(accels);
    window.row->setTitle(longTitle);
    QVERIFY(window.showAndWait());
    QCoreApplication::processEvents();
    const RowParts parts(*window.row);
    QCOMPARE(parts.title->text(), longTitle);

    window.setRowWidth(340);
    QTRY_VERIFY(parts.title->text().endsWith(ellipsis));
    window.setRowWidth(880);
    QTRY_COMPARE(parts.title->text(), longTitle);
    window.setRowWidth(100); // the caps alone are wider
    QTRY_VERIFY(parts.title->text() != longTitle);
    window.setRowWidth(880);
    QTRY_COMPARE(parts.title->text(), longTitle);
}

// The measure is the text as it stands: an elided title fits at the next resize and comes back
// whole, and the resize after that elides it again.
void ShortcutRowTest::elidedTitleIsRestoredOnceItFits()
{
    RowWindow window(900);
    window.row->setShortcut(accels);
    window.row->setTitle(longTitle);
    QVERIFY(window.showAndWait());
    QCoreApplication::processEvents();
    const RowParts parts(*window.row);

    window.setRowWidth(340);
    QTRY_VERIFY(parts.title->text().endsWith(ellipsis));
    window.setRowWidth(341);
    QTRY_COMPARE(parts.title->text(), longTitle);
    window.setRowWidth(342);
    QTRY_VERIFY(parts.title->text().endsWith(ellipsis));
}

void ShortcutRowTest::titleTimerShowsRow()
{
    RowWindow window;
    QVERIFY(window.showAndWait());
    window.row->hide();
    window.row->setTitle(QStringLiteral("Title"));
    QVERIFY(!window.row->isVisible());
    QTRY_VERIFY(window.row->isVisible());
}

// A page that is narrower than the full title, in a container that follows the row's wishes: the
// row must come to rest instead of being elided and restored for ever.
void ShortcutRowTest::settlesInScrollArea()
{
    QScrollArea area;
    area.setWidgetResizable(true);
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *row = new ShortcutItem;
    layout->addWidget(row);
    row->setTitle(longTitle);
    row->setShortcut(accels);
    area.setWidget(page);
    area.resize(RowParts(*row).key->width() + 340, 200);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QTRY_VERIFY(RowParts(*row).title->text().endsWith(ellipsis));

    // Whatever is still under way runs dry after a few rounds.
    class ResizeCounter : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Resize ? 1 : 0;
            return false;
        }
        int count = 0;
    } resizes;
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    row->installEventFilter(&resizes);
    for (int i = 0; i < 100; ++i)
        QCoreApplication::processEvents();
    QCOMPARE(resizes.count, 0);
    QVERIFY(row->width() <= area.viewport()->width());
}

void ShortcutRowTest::receiverDeletesRow_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("edit button") << "edit";
    QTest::newRow("remove button") << "remove";
    QTest::newRow("caps") << "key";
    QTest::newRow("keyboard") << "";
}

void ShortcutRowTest::receiverDeletesRow()
{
    QFETCH(QString, part);
    RowWindow window;
    window.row->setTitle(longTitle);
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const auto remove = [&window] {
        delete window.row;
    };
    connect(window.row, &ShortcutItem::shortcutEditChanged, &window, remove);
    connect(window.row, &ShortcutItem::requestUpdateKey, &window, remove);
    connect(window.row, &ShortcutItem::requestRemove, &window, remove);

    if (part.isEmpty()) {
        QTest::keyClick(window.row.data(), Qt::Key_Space);
    } else {
        window.row->onEditMode(part != QLatin1String("key"));
        QCoreApplication::sendPostedEvents();
        clickThroughWindow(window.row->findChild<QWidget *>(part));
    }
    QVERIFY(window.row.isNull());
    QCoreApplication::processEvents();
}

void ShortcutRowTest::receiverSetsShortcut()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    connect(window.row, &ShortcutItem::requestUpdateKey, &window, [&window](const Info &info) {
        window.row->setShortcutInfo(info); // the row's own, taken over by itself
        window.row->setShortcut(info.accels + QStringLiteral("_L"));
    });
    connect(window.row, &ShortcutItem::requestRemove, &window,
            [&window] { window.row->setShortcut(QString()); });

    clickThroughWindow(parts.key);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    QCOMPARE(capTexts(parts.key), QStringList({"Ctrl", "Alt", "T"}));

    window.row->onEditMode(true);
    QCoreApplication::sendPostedEvents();
    clickThroughWindow(parts.remove);
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    QCOMPARE(capTexts(parts.key), QStringList(QStringLiteral("None")));
}

void ShortcutRowTest::pendingTimersDieWithRow()
{
    RowWindow window;
    QVERIFY(window.showAndWait());
    window.row->setTitle(longTitle);
    window.setRowWidth(200);
    delete window.row;
    QCoreApplication::processEvents();
}

void ShortcutRowTest::mirrorsInRightToLeft()
{
    RowWindow window;
    window.setLayoutDirection(Qt::RightToLeft);
    window.row->setTitle(QStringLiteral("Title"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    const RowParts parts(*window.row);
    QVERIFY(parts.key->geometry().right() < parts.title->geometry().left());
    QVERIFY(caps(parts.key).first()->x() < caps(parts.key).last()->x());

    clickThroughWindow(caps(parts.key).first());
    QCOMPARE(parts.visible(), QStringLiteral("line"));
    QCoreApplication::sendPostedEvents();
    QVERIFY(parts.lineEdit->geometry().right() < parts.title->geometry().left());
}

// A placeholder that does not fit is elided when it is painted: a wider line edit would show more.
void ShortcutRowTest::placeholderIsReadable()
{
    for (const char *styleName : {"fusion", "windows"}) {
        for (int pixels : {12, 24, 40}) {
            RowWindow window(1200);
            const std::unique_ptr<QStyle> style(QStyleFactory::create(styleName));
            for (QWidget *widget : window.findChildren<QWidget *>())
                widget->setStyle(style.get());
            QFont font = window.font();
            font.setPixelSize(pixels);
            window.setFont(font);
            window.row->setShortcut(accels);
            QVERIFY(window.showAndWait());
            const RowParts parts(*window.row);
            clickThroughWindow(parts.key);
            QCoreApplication::sendPostedEvents();

            const auto inkWidth = [&parts] {
                const QImage image = parts.lineEdit->grab().toImage();
                const QRgb paper = image.pixel(image.width() / 2, image.height() / 4);
                const QRect inside = image.rect() - QMargins(4, 6, 4, 6);
                int left = inside.right();
                int right = inside.left();
                for (int x = inside.left(); x <= inside.right(); ++x) {
                    for (int y = inside.top(); y <= inside.bottom(); ++y) {
                        if (image.pixel(x, y) != paper) {
                            left = qMin(left, x);
                            right = qMax(right, x);
                        }
                    }
                }
                return right - left;
            };
            const int ink = inkWidth();
            QVERIFY(ink > 0);
            parts.lineEdit->setMinimumWidth(parts.lineEdit->width() + 200);
            QCoreApplication::sendPostedEvents();
            QCOMPARE(inkWidth(), ink);
        }
    }
}

void ShortcutRowTest::capsFillTheRowAfterEveryChange()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    QVERIFY(window.showAndWait());
    const ShortcutKey *key = RowParts(*window.row).key;
    const QRect inside = window.row->rect().adjusted(8, 2, -8, -2);
    for (const char *accels : {"<Control><Alt>T", "<Control><Alt>T", "<Super>F1", "", "F12"}) {
        window.row->setShortcut(QLatin1String(accels));
        QTRY_COMPARE(key->geometry().top(), inside.top());
        QTRY_COMPARE(key->geometry().bottom(), inside.bottom());
        QTRY_COMPARE(key->geometry().right(), inside.right());
        QCOMPARE(caps(key).last()->geometry().bottomRight(), key->rect().bottomRight());
    }
}

TEST_CLASS(QApplication, ShortcutRowTest)
#include "shortcutrow.moc"
