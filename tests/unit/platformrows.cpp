#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>

using namespace testsupport;
using namespace zcc::widgets;

/** Settings rows: groups, their items, and the tip. */
class PlatformRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void groupHoldsItsItemsInOrder();
    void groupMovesAnItemItHolds();
    void groupIgnoresWhatItDoesNotHold();
    void groupSurvivesADestroyedItem();
    void appendedItemShowsAndBelongsToTheGroup();
    void removedItemIsHiddenAndNotDeleted();
    void rowsKeepTheirHeightInATallPage();
    void closeRowsAreOneBlock();
    void rowsApartAreCards();
    void itemWithoutBackgroundIsTransparent();
    void rowAndControlsLineUp();
    void tipIsPlainTextInTheTextRole();
    void tipLinesUpWithRows_data();
    void tipLinesUpWithRows();

private:
    ShownRow m_shown;
};

void PlatformRowsTest::initTestCase()
{
    ShownRow::setUpApplication();
}

void PlatformRowsTest::cleanup()
{
    m_shown.clear();
}

void PlatformRowsTest::groupHoldsItsItemsInOrder()
{
    SettingsGroup group;
    QCOMPARE(group.itemCount(), 0);
    QVERIFY(!group.item(0));
    auto *first = new SettingsItem;
    auto *second = new SwitchWidget(QStringLiteral("Second"));
    group.appendItem(first);
    group.appendItem(second);
    QCOMPARE(group.itemCount(), 2);
    QCOMPARE(group.item(0), first);
    QCOMPARE(group.item(1), second);
    QVERIFY(!group.item(2));
    QVERIFY(!group.item(-1));
    group.setSpacing(3);
    QCOMPARE(group.itemLayout()->spacing(), 3);
    QCOMPARE(group.layout(), group.itemLayout());
}

void PlatformRowsTest::groupMovesAnItemItHolds()
{
    SettingsGroup group;
    auto *first = new SettingsItem;
    auto *second = new SettingsItem;
    group.appendItem(first);
    group.appendItem(second);
    group.appendItem(first);
    QCOMPARE(group.itemCount(), 2);
    QCOMPARE(group.item(0), second);
    QCOMPARE(group.item(1), first);
}

void PlatformRowsTest::groupIgnoresWhatItDoesNotHold()
{
    SettingsGroup group;
    auto *held = new SettingsItem;
    group.appendItem(held);
    SettingsItem stranger;
    stranger.show();
    group.removeItem(&stranger);
    QVERIFY(stranger.isVisible());
    QVERIFY(!stranger.parent());
    group.removeItem(nullptr);
    group.appendItem(nullptr);
    QCOMPARE(group.itemCount(), 1);
    QCOMPARE(group.item(0), held);
}

void PlatformRowsTest::groupSurvivesADestroyedItem()
{
    SettingsGroup group;
    auto *doomed = new SettingsItem;
    auto *other = new SettingsItem;
    group.appendItem(doomed);
    group.appendItem(other);
    delete doomed;
    QCOMPARE(group.itemCount(), 1);
    QCOMPARE(group.item(0), other);
    group.grab();
}

void PlatformRowsTest::appendedItemShowsAndBelongsToTheGroup()
{
    auto *group = new SettingsGroup;
    QVERIFY(m_shown.show(group));
    auto *item = new SettingsItem;
    QVERIFY(!item->hasBackground());
    group->appendItem(item);
    QCOMPARE(item->parentWidget(), group);
    QVERIFY(item->isVisible());
    QVERIFY(item->hasBackground());
}

void PlatformRowsTest::removedItemIsHiddenAndNotDeleted()
{
    auto *group = new SettingsGroup;
    QVERIFY(m_shown.show(group));
    QPointer<SettingsItem> item = new SettingsItem;
    group->appendItem(item);
    group->removeItem(item);
    QVERIFY(item);
    QVERIFY(!item->isVisible());
    QCOMPARE(group->itemCount(), 0);
    group->appendItem(item);
    QVERIFY(item->isVisible());
    QCOMPARE(group->itemCount(), 1);
}

void PlatformRowsTest::rowsKeepTheirHeightInATallPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *group = new SettingsGroup;
    layout->addWidget(group);
    auto *row = new SwitchWidget(QStringLiteral("Row"));
    group->appendItem(row);
    page->resize(400, 900);
    QVERIFY(m_shown.showWindow(page));
    QCOMPARE(row->height(), 48);
}

void PlatformRowsTest::closeRowsAreOneBlock()
{
    auto *group = new SettingsGroup;
    group->setSpacing(1);
    QList<SettingsItem *> rows;
    for (int i = 0; i < 3; ++i) {
        rows << new SwitchWidget(QString::number(i));
        group->appendItem(rows.last());
    }
    QVERIFY(m_shown.show(group));
    const QColor card = ShownRow::color(QPalette::Base);
    const auto corners = [card](QWidget *row) {
        const QImage image = pictures::of(row);
        const QPoint last(image.width() - 1, image.height() - 1);
        return QString(image.pixelColor(0, 0) == card ? "1" : "0") +
               (image.pixelColor(last) == card ? "1" : "0");
    };
    QCOMPARE(corners(rows[0]), QStringLiteral("01"));
    QCOMPARE(corners(rows[1]), QStringLiteral("11"));
    QCOMPARE(corners(rows[2]), QStringLiteral("10"));
    // A row that is hidden takes its corners along.
    rows[2]->hide();
    QCOMPARE(corners(rows[1]), QStringLiteral("10"));
    group->removeItem(rows[0]);
    QCOMPARE(corners(rows[1]), QStringLiteral("00"));
}

void PlatformRowsTest::rowsApartAreCards()
{
    auto *group = new SettingsGroup;
    group->setSpacing(10);
    auto *first = new SwitchWidget(QStringLiteral("First"));
    auto *second = new SwitchWidget(QStringLiteral("Second"));
    group->appendItem(first);
    group->appendItem(second);
    QVERIFY(m_shown.show(group));
    const QColor card = ShownRow::color(QPalette::Base);
    for (QWidget *row : {first, second}) {
        const QImage image = pictures::of(row);
        QVERIFY(image.pixelColor(0, 0) != card);
        QVERIFY(image.pixelColor(image.width() - 1, image.height() - 1) != card);
        QCOMPARE(image.pixelColor(image.width() / 2, 0), card);
    }
}

void PlatformRowsTest::itemWithoutBackgroundIsTransparent()
{
    auto *outer = new SettingsItem;
    outer->addBackground();
    auto *layout = new QVBoxLayout(outer);
    auto *inner = new SettingsItem;
    inner->setMinimumHeight(50);
    layout->addWidget(inner);
    QVERIFY(m_shown.show(outer));
    const QImage image = pictures::of(outer);
    QCOMPARE(image.pixelColor(inner->geometry().center()), ShownRow::color(QPalette::Base));
    QVERIFY(!inner->hasBackground());
}

void PlatformRowsTest::rowAndControlsLineUp()
{
    // A switch row, a row that a page lays out itself with the style's margins, and a check box in
    // a nested row of margin 5: text and controls stand under one another.
    auto *group = new SettingsGroup;
    auto *switchRow = new SwitchWidget(QStringLiteral("Show"));
    switchRow->setChecked(true);
    group->appendItem(switchRow);
    auto *ownRow = new SettingsItem;
    auto *ownLayout = new QHBoxLayout(ownRow);
    auto *label = new QLabel(QStringLiteral("Language"));
    auto *box = new QComboBox;
    ownLayout->addWidget(label);
    ownLayout->addWidget(box);
    group->appendItem(ownRow);
    auto *nested = new SettingsItem;
    auto *nestedLayout = new QVBoxLayout(nested);
    nestedLayout->setMargin(5);
    auto *check = new QCheckBox(QStringLiteral("Check"));
    check->setChecked(true);
    nestedLayout->addWidget(check);
    group->appendItem(nested);
    QVERIFY(m_shown.show(group));
    QApplication::focusWidget()->clearFocus();

    const QImage image = pictures::of(group);
    const auto rowImage = [&image](QWidget *row) {
        return image.copy(row->geometry());
    };
    const QRect track = pictures::boundsOf(
        rowImage(switchRow), ShownRow::color(QPalette::Highlight), ShownRow::roundEdge);
    QCOMPARE(track.right(), group->width() - 1 - rowPadding);
    QCOMPARE(box->geometry().right(), group->width() - 1 - rowPadding);
    auto *title = switchRow->findChild<QLabel *>(QStringLiteral("switchTitle"));
    QCOMPARE(title->x(), rowPadding);
    QCOMPARE(label->x(), rowPadding);
    const QRect indicator =
        pictures::boundsOf(rowImage(nested), ShownRow::color(QPalette::Highlight));
    QCOMPARE(indicator.left(), rowPadding);
    QCOMPARE(ownRow->height(), switchRow->height());
}

void PlatformRowsTest::tipIsPlainTextInTheTextRole()
{
    auto *tip = new TipsLabel(QStringLiteral("<i>tip</i>"));
    QCOMPARE(tip->textFormat(), Qt::PlainText);
    QPalette palette = tip->palette();
    palette.setBrush(QPalette::Text, QBrush(QColor("#ff00ff")));
    tip->setPalette(palette);
    QVERIFY(m_shown.show(tip));
    QVERIFY(pictures::count(pictures::of(tip), QColor("#ff00ff"), QRect(), 60) > 5);
    QCOMPARE(tip->contentsMargins(), QMargins(0, 0, 0, 0));
}

void PlatformRowsTest::tipLinesUpWithRows_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void PlatformRowsTest::tipLinesUpWithRows()
{
    QFETCH(Qt::LayoutDirection, direction);
    auto *tip = new TipsLabel(QStringLiteral("HHH"));
    tip->setWordWrap(true);
    tip->setContentsMargins(7, 0, 0, 0); // as pages do, in either direction
    QVERIFY(m_shown.show(tip));
    QApplication::setLayoutDirection(direction);
    const QRect text = pictures::boundsOf(pictures::of(tip), ShownRow::color(QPalette::Text), 60);
    QVERIFY(!text.isNull());
    const int leading =
        direction == Qt::LeftToRight ? text.left() : tip->width() - 1 - text.right();
    QVERIFY2(qAbs(leading - rowPadding) <= 2, qPrintable(QString::number(leading)));
}

TEST_CLASS(QApplication, PlatformRowsTest)
#include "platformrows.moc"
