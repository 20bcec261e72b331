#include "plugin/thirdlistwidget.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zlistview.h>

#include <QAccessible>
#include <QComboBox>
#include <QStandardItemModel>
#include <QtTest>

using Ztk::Widget::ZListView;

/** Assistive technologies choose in lists, by the one thing that they can do to a row. */
class AccessibilityChoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void rowOfAListIsChosen();
    void clicksAndKeysChooseOnce();
    void severalRowsAreLeftToTheUser();
    void entryOfAComboBoxIsChosen();
    void rowOfTheModulesListOpensItsPage();
};

namespace {

/** What an assistive technology does to make @p row of @p list the chosen one. */
void toggle(QAbstractItemView *list, int row)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(list)->child(row);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

void fill(QStandardItemModel *model)
{
    for (const char *text : {"first", "second", "third"})
        model->appendRow(new QStandardItem(QString::fromLatin1(text)));
}

/** Takes a turn through the event loop, where a choice is made. */
void settle()
{
    QCoreApplication::processEvents();
}

} // namespace

void AccessibilityChoiceTest::initTestCase()
{
    Ztk::Widget::ZApplicationSetup::install();
}

void AccessibilityChoiceTest::rowOfAListIsChosen()
{
    QStandardItemModel model;
    fill(&model);
    ZListView list;
    list.setModel(&model);
    list.setCurrentIndex(model.index(0, 0));
    list.show();
    QSignalSpy clicks(&list, &QListView::clicked);

    for (int row : {2, 1}) {
        toggle(&list, row);
        QTRY_COMPARE(clicks.count(), 1);
        QCOMPARE(clicks.takeFirst().constFirst().toModelIndex().row(), row);
        QCOMPARE(list.currentIndex().row(), row);
    }
    // What is chosen already stays so.
    toggle(&list, 1);
    settle();
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(list.selectionModel()->selectedIndexes(), {model.index(1, 0)});
}

void AccessibilityChoiceTest::clicksAndKeysChooseOnce()
{
    QStandardItemModel model;
    fill(&model);
    ZListView list;
    list.setModel(&model);
    list.setCurrentIndex(model.index(0, 0));
    list.show();
    list.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    QSignalSpy clicks(&list, &QListView::clicked);

    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualRect(model.index(1, 0)).center());
    settle();
    QCOMPARE(clicks.count(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    settle();
    QCOMPARE(list.currentIndex().row(), 2);
    QCOMPARE(clicks.count(), 1);
}

void AccessibilityChoiceTest::severalRowsAreLeftToTheUser()
{
    QStandardItemModel model;
    fill(&model);
    ZListView list;
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    list.setModel(&model);
    list.show();
    QSignalSpy clicks(&list, &QListView::clicked);
    toggle(&list, 1);
    toggle(&list, 2);
    settle();
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(list.selectionModel()->selectedIndexes().size(), 2);
}

void AccessibilityChoiceTest::entryOfAComboBoxIsChosen()
{
    QComboBox box;
    box.addItems({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    box.show();
    QSignalSpy changes(&box, qOverload<int>(&QComboBox::currentIndexChanged));
    QSignalSpy choices(&box, qOverload<int>(&QComboBox::activated));

    for (int row : {2, 0, 1}) {
        box.showPopup();
        toggle(box.view(), row);
        QTRY_VERIFY(!box.view()->isVisible());
        QCOMPARE(box.currentIndex(), row);
    }
    QCOMPARE(changes.count(), 3);
    QCOMPARE(choices.count(), 3);
}

void AccessibilityChoiceTest::rowOfTheModulesListOpensItsPage()
{
    ThirdListWidget list;
    list.show();
    auto *view = list.findChild<ZListView *>();
    QSignalSpy speechToText(&list, &ThirdListWidget::signalShowVoiceIat);
    QSignalSpy translation(&list, &ThirdListWidget::signalShowTranslate);
    QSignalSpy assistant(&list, &ThirdListWidget::signalShowAIAssistant);

    toggle(view, 3);
    QTRY_COMPARE(translation.count(), 1);
    toggle(view, 1);
    QTRY_COMPARE(speechToText.count(), 1);
    settle();
    QCOMPARE(translation.count(), 1);
    QCOMPARE(assistant.count(), 0);

    // The host's own way chooses once, too.
    list.updateListViewIndex(0);
    settle();
    QCOMPARE(assistant.count(), 1);
    QCOMPARE(speechToText.count(), 1);
}

TEST_CLASS(QApplication, AccessibilityChoiceTest)
#include "accessibilitychoice.moc"
