#include "tests/gui/shownpages.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

using namespace testsupport;

namespace {

/** A view whose cursor a test can move without keys. */
class OpenListView : public AssistZListView
{
public:
    using AssistZListView::moveCursor;
    using QAbstractItemView::CursorAction;
    using QAbstractItemView::MoveDown;
    using QAbstractItemView::MoveEnd;
    using QAbstractItemView::MoveHome;
    using QAbstractItemView::MoveLeft;
    using QAbstractItemView::MoveNext;
    using QAbstractItemView::MovePageDown;
    using QAbstractItemView::MovePageUp;
    using QAbstractItemView::MovePrevious;
    using QAbstractItemView::MoveRight;
    using QAbstractItemView::MoveUp;
};

} // namespace

/** The list beside the pages by keys: arrows, Enter, and what they do not do. */
class NavigationKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void enterAsksForTheCurrentRowsPage_data();
    void enterAsksForTheCurrentRowsPage();
    void upOnTheFirstRowChangesNothing();
    void downOnTheLastRowChangesNothing();
    void upOnTheThirdRowAsksForSpeechToTextOnce();
    void eachArrowPressAsksForOnePage();
    void arrowsWithModifiersMoveToo();
    void otherCursorKeysLeaveTheRow_data();
    void otherCursorKeysLeaveTheRow();
    void downWithoutACurrentRowChoosesTheFirst();
    void upWithoutACurrentRowChangesNothing();
    void focusAloneAsksForNothing();
    void refusedMovesReturnTheCurrentIndex_data();
    void refusedMovesReturnTheCurrentIndex();
    void movesReturnTheNewIndex();
    void aViewWithoutAModelMovesNowhere();
    void aViewWithAnEmptyModelMovesNowhere();

private:
    std::unique_ptr<ShownList> m_shown;
};

void NavigationKeysTest::init()
{
    m_shown = std::make_unique<ShownList>();
    QVERIFY(m_shown->show());
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationKeysTest::cleanup()
{
    m_shown.reset();
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
}

void NavigationKeysTest::enterAsksForTheCurrentRowsPage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("page");
    const QVector<ModulePage> pages = modulePages();
    for (int row = 0; row < pages.size(); ++row) {
        const QString &page = pages.at(row).shortName;
        QTest::addRow("Return on row %d", row) << row << int(Qt::Key_Return) << page;
        QTest::addRow("Enter on row %d", row) << row << int(Qt::Key_Enter) << page;
    }
}

void NavigationKeysTest::enterAsksForTheCurrentRowsPage()
{
    QFETCH(int, row);
    QFETCH(int, key);
    QFETCH(QString, page);
    m_shown->setCurrentRow(row);
    QCOMPARE(m_shown->requests->take(), QStringList());
    QTest::keyClick(m_shown->view, Qt::Key(key));
    QCOMPARE(m_shown->requests->take(), QStringList{page});
    QCOMPARE(m_shown->currentRow(), row);
}

void NavigationKeysTest::upOnTheFirstRowChangesNothing()
{
    QTest::keyClick(m_shown->view, Qt::Key_Up);
    QCOMPARE(m_shown->currentRow(), 0);
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationKeysTest::downOnTheLastRowChangesNothing()
{
    m_shown->setCurrentRow(ShownList::lastRow());
    QTest::keyClick(m_shown->view, Qt::Key_Down);
    QCOMPARE(m_shown->currentRow(), ShownList::lastRow());
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationKeysTest::upOnTheThirdRowAsksForSpeechToTextOnce()
{
    m_shown->setCurrentRow(2);
    QTest::keyClick(m_shown->view, Qt::Key_Up);
    QCOMPARE(m_shown->currentRow(), 1);
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("iat")});
}

void NavigationKeysTest::eachArrowPressAsksForOnePage()
{
    QStringList down;
    QStringList up;
    for (const ModulePage &page : modulePages()) {
        down.append(page.shortName);
        up.prepend(page.shortName);
    }
    down.removeFirst(); // the row from which the walk begins
    up.removeFirst();
    for (int press = 0; press < ShownList::lastRow() + 2; ++press)
        QTest::keyClick(m_shown->view, Qt::Key_Down);
    QCOMPARE(m_shown->requests->take(), down);
    for (int press = 0; press < ShownList::lastRow() + 2; ++press)
        QTest::keyClick(m_shown->view, Qt::Key_Up);
    QCOMPARE(m_shown->requests->take(), up);
    QCOMPARE(m_shown->view->selectionModel()->selectedIndexes(),
             QModelIndexList{m_shown->view->model()->index(0, 0)});
}

void NavigationKeysTest::arrowsWithModifiersMoveToo()
{
    QTest::keyClick(m_shown->view, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(m_shown->currentRow(), 1);
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("iat")});
}

void NavigationKeysTest::otherCursorKeysLeaveTheRow_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Home") << int(Qt::Key_Home);
    QTest::newRow("End") << int(Qt::Key_End);
    QTest::newRow("Page Up") << int(Qt::Key_PageUp);
    QTest::newRow("Page Down") << int(Qt::Key_PageDown);
    QTest::newRow("Left") << int(Qt::Key_Left);
    QTest::newRow("Right") << int(Qt::Key_Right);
}

void NavigationKeysTest::otherCursorKeysLeaveTheRow()
{
    QFETCH(int, key);
    m_shown->setCurrentRow(2);
    QTest::keyClick(m_shown->view, Qt::Key(key));
    QCOMPARE(m_shown->currentRow(), 2);
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationKeysTest::downWithoutACurrentRowChoosesTheFirst()
{
    m_shown->list->updateListViewIndex(-1);
    m_shown->requests->take();
    QTest::keyClick(m_shown->view, Qt::Key_Down);
    QCOMPARE(m_shown->currentRow(), 0);
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("assistant")});
}

void NavigationKeysTest::upWithoutACurrentRowChangesNothing()
{
    m_shown->list->updateListViewIndex(-1);
    m_shown->requests->take();
    QTest::keyClick(m_shown->view, Qt::Key_Up);
    QCOMPARE(m_shown->currentRow(), -1);
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationKeysTest::focusAloneAsksForNothing()
{
    m_shown->view->clearFocus();
    m_shown->list->updateListViewIndex(-1);
    m_shown->requests->take();
    m_shown->view->setFocus(Qt::TabFocusReason);
    QVERIFY(m_shown->view->hasFocus());
    QCOMPARE(m_shown->currentRow(), -1);
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationKeysTest::refusedMovesReturnTheCurrentIndex_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("row");
    QTest::newRow("up from the first") << int(OpenListView::MoveUp) << 0;
    QTest::newRow("down from the last") << int(OpenListView::MoveDown) << ShownList::lastRow();
    QTest::newRow("left") << int(OpenListView::MoveLeft) << 1;
    QTest::newRow("right") << int(OpenListView::MoveRight) << 1;
    QTest::newRow("home") << int(OpenListView::MoveHome) << 1;
    QTest::newRow("end") << int(OpenListView::MoveEnd) << 1;
    QTest::newRow("page up") << int(OpenListView::MovePageUp) << 1;
    QTest::newRow("page down") << int(OpenListView::MovePageDown) << 1;
    QTest::newRow("next") << int(OpenListView::MoveNext) << 1;
    QTest::newRow("previous") << int(OpenListView::MovePrevious) << 1;
}

void NavigationKeysTest::refusedMovesReturnTheCurrentIndex()
{
    QFETCH(int, action);
    QFETCH(int, row);
    OpenListView view;
    view.setModel(m_shown->view->model());
    view.setCurrentIndex(view.model()->index(row, 0));
    QSignalSpy clicks(&view, &QListView::clicked);
    QCOMPARE(view.moveCursor(OpenListView::CursorAction(action), Qt::NoModifier),
             view.model()->index(row, 0));
    QCOMPARE(view.currentIndex().row(), row);
    QCOMPARE(clicks.count(), 0);
}

void NavigationKeysTest::movesReturnTheNewIndex()
{
    OpenListView view;
    view.setModel(m_shown->view->model());
    view.setCurrentIndex(view.model()->index(1, 0));
    QSignalSpy clicks(&view, &QListView::clicked);
    QCOMPARE(view.moveCursor(OpenListView::MoveDown, Qt::NoModifier).row(), 2);
    QCOMPARE(view.currentIndex().row(), 2);
    QCOMPARE(view.moveCursor(OpenListView::MoveUp, Qt::NoModifier).row(), 1);
    QCOMPARE(view.currentIndex().row(), 1);
    QCOMPARE(clicks.count(), 2);
    QCOMPARE(clicks.at(0).at(0).toModelIndex().row(), 2);
    QCOMPARE(clicks.at(1).at(0).toModelIndex().row(), 1);
}

void NavigationKeysTest::aViewWithoutAModelMovesNowhere()
{
    OpenListView view;
    QVERIFY(!view.moveCursor(OpenListView::MoveUp, Qt::NoModifier).isValid());
    QVERIFY(!view.moveCursor(OpenListView::MoveDown, Qt::NoModifier).isValid());
    QVERIFY(!view.moveCursor(OpenListView::MoveNext, Qt::NoModifier).isValid());
}

void NavigationKeysTest::aViewWithAnEmptyModelMovesNowhere()
{
    QStandardItemModel model;
    OpenListView view;
    view.setModel(&model);
    QSignalSpy clicks(&view, &QListView::clicked);
    QVERIFY(!view.moveCursor(OpenListView::MoveUp, Qt::NoModifier).isValid());
    QVERIFY(!view.moveCursor(OpenListView::MoveDown, Qt::NoModifier).isValid());
    QCOMPARE(clicks.count(), 0);
}

TEST_CLASS(QApplication, NavigationKeysTest)
#include "navigationkeys.moc"
