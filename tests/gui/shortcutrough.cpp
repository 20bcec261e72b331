#include "pages/showntext.h"
#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <QElapsedTimer>
#include <QVBoxLayout>

using namespace testsupport;

namespace {
constexpr int limitMs = 20000; // far more than any of this takes; a hang takes for ever
constexpr int megabyte = 1024 * 1024;
constexpr int widestRow = 8000; // pixels: more cannot be shown, and must not be asked of a window

/** Lets the window take its size and draws it, at two sizes. */
void showTwice(QWidget *window)
{
    for (int width : {500, 700}) {
        window->resize(width, 80);
        QCoreApplication::processEvents();
        window->grab();
    }
}
} // namespace

/** Accelerators as damaged or hostile settings give them: nothing crashes, and the row stays
 * usable. */
class ShortcutRoughTest : public QObject
{
    Q_OBJECT

private slots:
    void accelerator_data();
    void accelerator();
    void title_data();
    void title();
    void manyChanges();
    void manyKeysAreCut();
};

void ShortcutRoughTest::accelerator_data()
{
    QTest::addColumn<QString>("given");

    QString controls;
    for (int c = 0; c < 0x20; ++c)
        controls.append(QChar(c));

    QTest::newRow("opened only") << QString(500, QLatin1Char('<'));
    QTest::newRow("closed only") << QString(500, QLatin1Char('>'));
    QTest::newRow("crossed") << QStringLiteral(">Control<>Alt<T<<>>");
    QTest::newRow("as much as is shown") << QString(showntext::longestShortcut, QLatin1Char('W'));
    QTest::newRow("one more") << QString(showntext::longestShortcut + 1, QLatin1Char('W'));
    QTest::newRow("never closed") << QStringLiteral("<Control<Alt<T");
    QTest::newRow("hundreds of keys") << QStringLiteral("<Control>").repeated(400) + 'T';
    QTest::newRow("control characters") << QStringLiteral("<Control>") + controls;
    QTest::newRow("control characters alone") << controls;
    QTest::newRow("lines") << QStringLiteral("<Alt>one\ntwo\r\nthree\u2028four");
    QTest::newRow("direction marks") << QStringLiteral("<Alt>\u202eT\u2066\u200f\ufeff");
    QTest::newRow("half a character") << QStringLiteral("<Alt>") + QChar(0xd800);
    QTest::newRow("rich text") << QStringLiteral("<img src='/dev/zero'><b>T");
    QTest::newRow("1 MB, one name") << QString(megabyte, QLatin1Char('W'));
    QTest::newRow("1 MB, one name without blanks to break at")
        << QStringLiteral("\u0f40\u0f71").repeated(megabyte / 2);
    QTest::newRow("1 MB of modifiers") << QStringLiteral("<Control>").repeated(megabyte / 9);
    QTest::newRow("1 MB of separators") << QString(megabyte, QLatin1Char('-'));
    QTest::newRow("1 MB of opening brackets") << QString(megabyte, QLatin1Char('<'));
    QTest::newRow("1 MB of closing brackets") << QString(megabyte, QLatin1Char('>'));
    QTest::newRow("1 MB of null characters") << QString(megabyte, QChar(0));
    QTest::newRow("1 MB of side marks") << QStringLiteral("_L_R").repeated(megabyte / 4);
}

void ShortcutRoughTest::accelerator()
{
    QFETCH(QString, given);
    QElapsedTimer clock;
    clock.start();

    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *row = new ShortcutItem;
    layout->addWidget(row);
    row->setTitle(QStringLiteral("Title"));
    row->setShortcut(QStringLiteral("F1"));
    window.resize(500, 80);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const auto show = [&](const QString &shortcut) {
        row->setShortcut(shortcut);
        QCoreApplication::processEvents();
        window.grab();
    };
    show(given.left(200)); // Qt looks for fonts once
    const double cost = leastCostMs([&] { show(QStringLiteral("F1")); }, [&] { show(given); });
    QVERIFY2(cost < megabyteLimitMs, qPrintable(QString::number(cost)));
    QVERIFY2(window.minimumWidth() < widestRow, qPrintable(QString::number(window.width())));

    // It still does what a row does.
    const RowParts parts(*row);
    QString shown = capTexts(parts.key).join(QString());
    shown.remove(QStringLiteral("None")); // stands for no character
    QVERIFY(shown.size() <= showntext::longestShortcut);
    QCOMPARE(shown.endsWith(ellipsis), given.size() > showntext::longestShortcut);
    row->onEditMode(true);
    QCOMPARE(parts.visible(), QStringLiteral("edit remove"));
    row->onEditMode(false);
    QString asked;
    connect(row, &ShortcutItem::requestUpdateKey, row,
            [&asked](const ShortcutItem::ShortcutInfo &info) { asked = info.accels; });
    clickThroughWindow(caps(parts.key).first(), QPoint(2, 2));
    QCOMPARE(parts.visible(), QStringLiteral("line"));
    QVERIFY(asked == given);

    row->setShortcut(QStringLiteral("<Control><Alt>T"));
    QCoreApplication::processEvents();
    QCOMPARE(capTexts(parts.key), QStringList({"Ctrl", "Alt", "T"}));
    QCOMPARE(parts.visible(), QStringLiteral("caps"));
    QVERIFY(parts.key->width() < 300);
    QVERIFY2(clock.elapsed() < limitMs, qPrintable(QString::number(clock.elapsed())));
}

void ShortcutRoughTest::title_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("as much as is shown") << QString(showntext::longestTitle, QLatin1Char('W'));
    QTest::newRow("one more") << QString(showntext::longestTitle + 1, QLatin1Char('W'));
    QTest::newRow("1 MB, one word") << QString(megabyte, QLatin1Char('W'));
    QTest::newRow("1 MB of words") << QStringLiteral("word ").repeated(megabyte / 5);
    QTest::newRow("1 MB of marks") << QString(megabyte, QChar(0x0301));
    QTest::newRow("1 MB of syllables") << QStringLiteral("\u0f40\u0f71").repeated(megabyte / 2);
}

void ShortcutRoughTest::title()
{
    QFETCH(QString, title);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *row = new ShortcutItem;
    layout->addWidget(row);
    row->setTitle(QStringLiteral("Title"));
    row->setShortcut(QStringLiteral("F1"));
    showTwice(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const auto show = [&](const QString &shownTitle) {
        row->setTitle(shownTitle);
        showTwice(&window);
        row->setShortcut(QStringLiteral("<Control>F1"));
        showTwice(&window);
    };
    show(title.left(200)); // Qt looks for fonts once
    const double cost = leastCostMs([&] { show(QStringLiteral("Title")); }, [&] { show(title); });
    QVERIFY2(cost < megabyteLimitMs, qPrintable(QString::number(cost)));

    // The row is too narrow for most; a wide one shows all that is ever shown.
    window.setMinimumWidth(20000);
    showTwice(&window);
    const QString shown = showntext::cut(title, showntext::longestTitle);
    QVERIFY(shown.size() <= showntext::longestTitle);
    QTRY_COMPARE(RowParts(*row).title->text(), shown);
    QCOMPARE(row->accessibleName(), shown);

    QString told;
    connect(row, &ShortcutItem::requestRemove, row,
            [&told](const ShortcutItem::ShortcutInfo &info) { told = info.name; });
    row->onRemoveClick();
    QVERIFY(told == title);
}

void ShortcutRoughTest::manyChanges()
{
    QWidget window;
    auto *row = new ShortcutItem;
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(row);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (int i = 0; i < 300; ++i)
        row->setShortcut(QStringLiteral("<Control>F%1").arg(i));
    const ShortcutKey *key = RowParts(*row).key;
    QCOMPARE(capTexts(key), QStringList({"Ctrl", "F299"}));
    QTRY_COMPARE(key->findChildren<KeyLabel *>().size(), 2);
}

void ShortcutRoughTest::manyKeysAreCut()
{
    ShortcutKey key(nullptr);
    QStringList names;
    for (int i = 0; i < 64; ++i)
        names.append(QStringLiteral("F%1").arg(i));
    key.setTextList(names);
    QCOMPARE(capTexts(&key), names);
    key.setTextList(names + names);
    QCOMPARE(capTexts(&key), names + QStringList(QString(ellipsis)));
}

TEST_CLASS(QApplication, ShortcutRoughTest)
#include "shortcutrough.moc"
