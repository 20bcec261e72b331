#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QScrollArea>
#include <QStyleFactory>
#include <QVBoxLayout>

#include <memory>

using namespace testsupport;

/** ShortcutItem's look: room for its title, its caps and the placeholder. */
class ShortcutRowLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void titleStaysPlain();
    void titleThatFitsIsWhole();
    void longTitleIsElidedToHalf();
    void elisionFollowsWidth();
    void elidedTitleIsRestoredOnceItFits();
    void titleTimerShowsRow();
    void settlesInScrollArea();
    void pendingTimersDieWithRow();
    void mirrorsInRightToLeft();
    void placeholderIsReadable();
    void capsFillTheRowAfterEveryChange();
};

void ShortcutRowLookTest::cleanup()
{
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void ShortcutRowLookTest::titleStaysPlain()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("<b>R&D</b>"));
    const QLabel *title = RowParts(*window.row).title;
    QCOMPARE(title->textFormat(), Qt::PlainText);
    QCOMPARE(title->text(), QStringLiteral("<b>R&D</b>"));
}

void ShortcutRowLookTest::titleThatFitsIsWhole()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Speech to Text"));
    window.row->setShortcut(accels);
    QVERIFY(window.showAndWait());
    QCoreApplication::processEvents();
    QCOMPARE(RowParts(*window.row).title->text(), QStringLiteral("Speech to Text"));
}

void ShortcutRowLookTest::longTitleIsElidedToHalf()
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

void ShortcutRowLookTest::elisionFollowsWidth()
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
void ShortcutRowLookTest::elidedTitleIsRestoredOnceItFits()
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

void ShortcutRowLookTest::titleTimerShowsRow()
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
void ShortcutRowLookTest::settlesInScrollArea()
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

void ShortcutRowLookTest::pendingTimersDieWithRow()
{
    RowWindow window;
    QVERIFY(window.showAndWait());
    window.row->setTitle(longTitle);
    window.setRowWidth(200);
    delete window.row;
    QCoreApplication::processEvents();
}

void ShortcutRowLookTest::mirrorsInRightToLeft()
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
void ShortcutRowLookTest::placeholderIsReadable()
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

void ShortcutRowLookTest::capsFillTheRowAfterEveryChange()
{
    RowWindow window;
    window.row->setTitle(QStringLiteral("Title"));
    QVERIFY(window.showAndWait());
    const ShortcutKey *key = RowParts(*window.row).key;
    const QRect inside = window.row->rect().adjusted(8, 2, -8, -2);
    for (const char *given : {"<Control><Alt>T", "<Control><Alt>T", "<Super>F1", "", "F12"}) {
        window.row->setShortcut(QLatin1String(given));
        QTRY_COMPARE(key->geometry().top(), inside.top());
        QTRY_COMPARE(key->geometry().bottom(), inside.bottom());
        QTRY_COMPARE(key->geometry().right(), inside.right());
        QCOMPARE(caps(key).last()->geometry().bottomRight(), key->rect().bottomRight());
    }
}

TEST_CLASS(QApplication, ShortcutRowLookTest)
#include "shortcutrowlook.moc"
