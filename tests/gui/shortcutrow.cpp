#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QHBoxLayout>

using namespace testsupport;
using Ztk::Widget::ZIconButton;
using Info = ShortcutItem::ShortcutInfo;

/** ShortcutItem: its parts, its three states, the mouse, and its signals. */
class ShortcutRowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
    void acceptsReleaseItself();
    void receiverDeletesRow_data();
    void receiverDeletesRow();
    void receiverSetsShortcut();
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
    QTest::addColumn<QString>("given");
    QTest::addColumn<QStringList>("texts");

    const auto row = [](const char *given, const QStringList &texts) {
        QTest::newRow(*given ? given : "(empty)") << QString::fromLatin1(given) << texts;
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
    QFETCH(QString, given);
    QFETCH(QStringList, texts);
    RowWindow window;
    window.row->setShortcut(given);
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
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    window.row->onEditMode(true);
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
    window.row->onEditMode(true);
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
    window.row->onEditMode(false);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowTest::shortcutLeavesEveryState()
{
    FilledRowWindow window;
    QVERIFY(window.showAndWait());

    window.row->onEditMode(true);
    window.row->setShortcut(QStringLiteral("F1"));
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));

    clickThroughWindow(window.parts.key);
    QCOMPARE(window.parts.visible(), QStringLiteral("line"));
    window.row->setShortcut(QStringLiteral("F2"));
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));

    clickThroughWindow(window.parts.key);
    window.row->onEditMode(true);
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
    window.row->onEditMode(false);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
}

void ShortcutRowTest::clicksInFirstState()
{
    FilledRowWindow window;
    QVERIFY(window.showAndWait());

    clickThroughWindow(window.parts.title);
    clickThroughWindow(window.row);
    clickThroughWindow(window.row, QPoint(1, 1));
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    QCOMPARE(window.log.lines, QStringList());

    clickThroughWindow(caps(window.parts.key).at(1));
    QCOMPARE(window.parts.visible(), QStringLiteral("line"));
    QCOMPARE(window.log.lines, QStringList(QStringLiteral("update: Title, ") + accels));
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
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    clickThroughWindow(window.parts.key);
    QCOMPARE(window.parts.visible(), QStringLiteral("line"));

    QCoreApplication::sendPostedEvents(); // the line edit takes its place
    const auto *target = part.isEmpty() ? static_cast<QWidget *>(window.row)
                                        : window.row->findChild<QWidget *>(part);
    clickThroughWindow(target);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    QCOMPARE(window.log.lines.size(), 1);
}

void ShortcutRowTest::clicksInEditMode()
{
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    window.row->onEditMode(true);

    clickThroughWindow(window.parts.title);
    clickThroughWindow(window.row, window.parts.key->geometry().center());
    clickThroughWindow(window.row, QPoint(1, 1));
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
    QCOMPARE(window.log.lines, QStringList());
}

void ShortcutRowTest::buttonsSignal()
{
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    window.row->onEditMode(true);
    QCoreApplication::sendPostedEvents(); // the buttons take their places

    clickThroughWindow(window.parts.edit);
    clickThroughWindow(window.parts.remove);
    QCOMPARE(window.log.lines, QStringList({QStringLiteral("edit: Title, ") + accels,
                                            QStringLiteral("remove: Title, ") + accels}));
    QCOMPARE(window.parts.visible(), QStringLiteral("edit remove"));
}

// The row takes the release; what stands behind it must not see it.
void ShortcutRowTest::acceptsReleaseItself()
{
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    const QPointF middle = window.row->rect().center();
    QMouseEvent release(QEvent::MouseButtonRelease, middle, Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(window.row, &release);
    QVERIFY(release.isAccepted());

    // Half a pixel outside the caps is rounded to the caps' first pixel.
    const QPointF corner = window.parts.key->geometry().topLeft();
    QMouseEvent outside(QEvent::MouseButtonRelease, corner - QPointF(0.6, 0), Qt::LeftButton,
                        Qt::NoButton, {});
    QCoreApplication::sendEvent(window.row, &outside);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    QMouseEvent inside(QEvent::MouseButtonRelease, corner - QPointF(0.4, 0), Qt::LeftButton,
                       Qt::NoButton, {});
    QCoreApplication::sendEvent(window.row, &inside);
    QCOMPARE(window.parts.visible(), QStringLiteral("line"));
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
    FilledRowWindow window;
    QVERIFY(window.showAndWait());
    connect(window.row, &ShortcutItem::requestUpdateKey, &window, [&window](const Info &info) {
        window.row->setShortcutInfo(info); // the row's own, taken over by itself
        window.row->setShortcut(info.accels + QStringLiteral("_L"));
    });
    connect(window.row, &ShortcutItem::requestRemove, &window,
            [&window] { window.row->setShortcut(QString()); });

    clickThroughWindow(window.parts.key);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    QCOMPARE(capTexts(window.parts.key), QStringList({"Ctrl", "Alt", "T"}));

    window.row->onEditMode(true);
    QCoreApplication::sendPostedEvents();
    clickThroughWindow(window.parts.remove);
    QCOMPARE(window.parts.visible(), QStringLiteral("caps"));
    QCOMPARE(capTexts(window.parts.key), QStringList(QStringLiteral("None")));
}

TEST_CLASS(QApplication, ShortcutRowTest)
#include "shortcutrow.moc"
