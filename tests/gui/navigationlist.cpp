#include "plugin/assistzlistview.h"
#include "plugin/thirdlistwidget.h"
#include "tests/support/logcapture.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"

#include <ztk/zstandarditem.h>

#include <QProxyStyle>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(QMargins)

// The list beside the pages, used as a person uses it: mouse, arrow keys, Enter.

namespace {

/** The short names of the pages that the list's signals ask for, in order. */
class Requests : public QObject
{
    Q_OBJECT

public:
    explicit Requests(ThirdListWidget *list)
    {
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("add()"));
        for (const testsupport::ModulePage &page : testsupport::modulePages()) {
            const int index = list->metaObject()->indexOfSignal(page.requestSignal.toLatin1());
            QVERIFY2(index >= 0, qPrintable(page.requestSignal));
            connect(list, list->metaObject()->method(index), this, slot);
        }
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(m_requests);
        return taken;
    }

private Q_SLOTS:
    void add()
    {
        const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
        for (const testsupport::ModulePage &page : testsupport::modulePages())
            if (page.requestSignal == QLatin1String(signal.methodSignature()))
                m_requests.append(page.shortName);
    }

private:
    QStringList m_requests;
};

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

class NavigationListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isAWidgetNamedVoiceWithOneListView();
    void hasARowPerPageWithTextAndMargins();
    void cannotBeEditedAndShowsNoHorizontalScrollBar();
    void firstRowIsCurrentFromTheStart();
    void sayingNothingWhileItIsBuilt();

    void clickOnARowAsksForItsPageOnce_data();
    void clickOnARowAsksForItsPageOnce();
    void clickOnTheCurrentRowAsksAgain();
    void clickThatActivatesAsksOnce();
    void doubleClickAsksTwice();
    void emittedClickAsksAtOnce();
    void clickBelowTheRowsAsksForNothing();
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

    void updateListViewIndexChoosesAndAsks_data();
    void updateListViewIndexChoosesAndAsks();
    void updateListViewIndexOutOfRangeClearsTheRow_data();
    void updateListViewIndexOutOfRangeClearsTheRow();
    void updateListViewIndexOfTheCurrentRowAsksAgain();
    void onItemClieckWithAnInvalidIndexAsksForTheAssistant();

    void refusedMovesReturnTheCurrentIndex_data();
    void refusedMovesReturnTheCurrentIndex();
    void movesReturnTheNewIndex();
    void aViewWithoutAModelMovesNowhere();
    void aViewWithAnEmptyModelMovesNowhere();

    void logsItsEnd();

private:
    static int lastRow() { return testsupport::modulePages().size() - 1; }
    int currentRow() const { return m_view->currentIndex().row(); }
    void setCurrentRow(int row) { m_view->setCurrentIndex(m_view->model()->index(row, 0)); }

    std::unique_ptr<ThirdListWidget> m_list;
    std::unique_ptr<Requests> m_requests;
    AssistZListView *m_view = nullptr;
};

void NavigationListTest::init()
{
    m_list = std::make_unique<ThirdListWidget>(nullptr);
    m_requests = std::make_unique<Requests>(m_list.get());
    m_view = m_list->findChild<AssistZListView *>();
    QVERIFY(m_view);
    m_list->resize(240, 400);
    m_list->show();
    m_list->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_list.get()));
    m_view->setFocus();
    QVERIFY(m_view->hasFocus());
    QCOMPARE(m_requests->take(), QStringList());
}

void NavigationListTest::cleanup()
{
    m_requests.reset();
    m_list.reset();
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
}

void NavigationListTest::isAWidgetNamedVoiceWithOneListView()
{
    QCOMPARE(m_list->objectName(), QStringLiteral("voice"));
    QCOMPARE(m_list->findChildren<QAbstractItemView *>().size(), 1);
    QCOMPARE(m_view->parentWidget(), m_list.get());
    QCOMPARE(m_view->model()->QObject::parent(), m_view);
    auto *layout = qobject_cast<QVBoxLayout *>(m_list->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(10, 10, 10, 10));
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), m_view);
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
}

void NavigationListTest::hasARowPerPageWithTextAndMargins()
{
    const QVector<testsupport::ModulePage> pages = testsupport::modulePages();
    auto *model = qobject_cast<QStandardItemModel *>(m_view->model());
    QVERIFY(model);
    QCOMPARE(model->rowCount(), pages.size());
    QCOMPARE(model->columnCount(), 1);
    for (int row = 0; row < pages.size(); ++row) {
        QStandardItem *item = model->item(row);
        QVERIFY(dynamic_cast<Ztk::Widget::ZStandardItem *>(item));
        QCOMPARE(item->text(), pages.at(row).name);
        const QVariant margins = item->data(Qt::UserRole + 1);
        QCOMPARE(margins.typeName(), "QMargins");
        QCOMPARE(margins.value<QMargins>(), QMargins(10, 8, 10, 8));
    }
    QCOMPARE(int(Ztk::Widget::ZListView::MarginsRole), 257);
    QVERIFY(QMetaType::type("QMargins") != QMetaType::UnknownType);
}

void NavigationListTest::cannotBeEditedAndShowsNoHorizontalScrollBar()
{
    QCOMPARE(m_view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(m_view->frameShape(), QFrame::NoFrame);
    QCOMPARE(m_view->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(m_view->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(m_view->iconSize(), QSize(32, 32));
    QCOMPARE(m_view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void NavigationListTest::firstRowIsCurrentFromTheStart()
{
    const ThirdListWidget fresh(nullptr);
    QCOMPARE(fresh.findChild<QListView *>()->currentIndex().row(), 0);
}

void NavigationListTest::sayingNothingWhileItIsBuilt()
{
    const testsupport::LogCapture log;
    const ThirdListWidget fresh(nullptr);
    QCOMPARE(log.texts(), QStringList());
}

void NavigationListTest::clickOnARowAsksForItsPageOnce_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("page");
    const QVector<testsupport::ModulePage> pages = testsupport::modulePages();
    for (int row = 0; row < pages.size(); ++row)
        QTest::newRow(qPrintable(pages.at(row).name)) << row << pages.at(row).shortName;
}

void NavigationListTest::clickOnARowAsksForItsPageOnce()
{
    QFETCH(int, row);
    QFETCH(QString, page);
    const QRect place = m_view->visualRect(m_view->model()->index(row, 0));
    QVERIFY(place.isValid());
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(m_requests->take(), QStringList{page});
    QCOMPARE(currentRow(), row);
}

void NavigationListTest::clickOnTheCurrentRowAsksAgain()
{
    const QPoint place = m_view->visualRect(m_view->model()->index(2, 0)).center();
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QCOMPARE(m_requests->take(), QStringList{QStringLiteral("tts")});
    }
}

void NavigationListTest::clickThatActivatesAsksOnce()
{
    class SingleClickStyle : public QProxyStyle
    {
    public:
        int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                      QStyleHintReturn *data) const override
        {
            if (hint == SH_ItemView_ActivateItemOnSingleClick)
                return 1;
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    } style;
    m_view->setStyle(&style);
    QSignalSpy activated(m_view, &QListView::activated);
    const QPoint place = m_view->visualRect(m_view->model()->index(2, 0)).center();
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("tts")});
    m_list.reset(); // before its style
}

void NavigationListTest::doubleClickAsksTwice()
{
    const QPoint place = m_view->visualRect(m_view->model()->index(2, 0)).center();
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(m_requests->take(), (QStringList{QStringLiteral("tts"), QStringLiteral("tts")}));
}

void NavigationListTest::emittedClickAsksAtOnce()
{
    Q_EMIT m_view->clicked(m_view->model()->index(3, 0));
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("translation")});
}

void NavigationListTest::clickBelowTheRowsAsksForNothing()
{
    const QRect last = m_view->visualRect(m_view->model()->index(lastRow(), 0));
    const QPoint below(last.center().x(), m_view->viewport()->height() - 2);
    QVERIFY(!m_view->indexAt(below).isValid());
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    QCOMPARE(m_requests->take(), QStringList());
    QCOMPARE(currentRow(), 0);
}

void NavigationListTest::enterAsksForTheCurrentRowsPage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("page");
    const QVector<testsupport::ModulePage> pages = testsupport::modulePages();
    for (int row = 0; row < pages.size(); ++row) {
        const QString &page = pages.at(row).shortName;
        QTest::addRow("Return on row %d", row) << row << int(Qt::Key_Return) << page;
        QTest::addRow("Enter on row %d", row) << row << int(Qt::Key_Enter) << page;
    }
}

void NavigationListTest::enterAsksForTheCurrentRowsPage()
{
    QFETCH(int, row);
    QFETCH(int, key);
    QFETCH(QString, page);
    setCurrentRow(row);
    QCOMPARE(m_requests->take(), QStringList());
    QTest::keyClick(m_view, Qt::Key(key));
    QCOMPARE(m_requests->take(), QStringList{page});
    QCOMPARE(currentRow(), row);
}

void NavigationListTest::upOnTheFirstRowChangesNothing()
{
    QTest::keyClick(m_view, Qt::Key_Up);
    QCOMPARE(currentRow(), 0);
    QCOMPARE(m_requests->take(), QStringList());
}

void NavigationListTest::downOnTheLastRowChangesNothing()
{
    setCurrentRow(lastRow());
    QTest::keyClick(m_view, Qt::Key_Down);
    QCOMPARE(currentRow(), lastRow());
    QCOMPARE(m_requests->take(), QStringList());
}

void NavigationListTest::upOnTheThirdRowAsksForSpeechToTextOnce()
{
    setCurrentRow(2);
    QTest::keyClick(m_view, Qt::Key_Up);
    QCOMPARE(currentRow(), 1);
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("iat")});
}

void NavigationListTest::eachArrowPressAsksForOnePage()
{
    QStringList down;
    QStringList up;
    for (const testsupport::ModulePage &page : testsupport::modulePages()) {
        down.append(page.shortName);
        up.prepend(page.shortName);
    }
    down.removeFirst(); // the row from which the walk begins
    up.removeFirst();
    for (int press = 0; press < lastRow() + 2; ++press)
        QTest::keyClick(m_view, Qt::Key_Down);
    QCOMPARE(m_requests->take(), down);
    for (int press = 0; press < lastRow() + 2; ++press)
        QTest::keyClick(m_view, Qt::Key_Up);
    QCOMPARE(m_requests->take(), up);
    QCOMPARE(m_view->selectionModel()->selectedIndexes(),
             QModelIndexList{m_view->model()->index(0, 0)});
}

void NavigationListTest::arrowsWithModifiersMoveToo()
{
    QTest::keyClick(m_view, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(currentRow(), 1);
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("iat")});
}

void NavigationListTest::otherCursorKeysLeaveTheRow_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Home") << int(Qt::Key_Home);
    QTest::newRow("End") << int(Qt::Key_End);
    QTest::newRow("Page Up") << int(Qt::Key_PageUp);
    QTest::newRow("Page Down") << int(Qt::Key_PageDown);
    QTest::newRow("Left") << int(Qt::Key_Left);
    QTest::newRow("Right") << int(Qt::Key_Right);
}

void NavigationListTest::otherCursorKeysLeaveTheRow()
{
    QFETCH(int, key);
    setCurrentRow(2);
    QTest::keyClick(m_view, Qt::Key(key));
    QCOMPARE(currentRow(), 2);
    QCOMPARE(m_requests->take(), QStringList());
}

void NavigationListTest::downWithoutACurrentRowChoosesTheFirst()
{
    m_list->updateListViewIndex(-1);
    m_requests->take();
    QTest::keyClick(m_view, Qt::Key_Down);
    QCOMPARE(currentRow(), 0);
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("assistant")});
}

void NavigationListTest::upWithoutACurrentRowChangesNothing()
{
    m_list->updateListViewIndex(-1);
    m_requests->take();
    QTest::keyClick(m_view, Qt::Key_Up);
    QCOMPARE(currentRow(), -1);
    QCOMPARE(m_requests->take(), QStringList());
}

void NavigationListTest::focusAloneAsksForNothing()
{
    m_view->clearFocus();
    m_list->updateListViewIndex(-1);
    m_requests->take();
    m_view->setFocus(Qt::TabFocusReason);
    QVERIFY(m_view->hasFocus());
    QCOMPARE(currentRow(), -1);
    QCOMPARE(m_requests->take(), QStringList());
}

void NavigationListTest::updateListViewIndexChoosesAndAsks_data()
{
    clickOnARowAsksForItsPageOnce_data();
}

void NavigationListTest::updateListViewIndexChoosesAndAsks()
{
    QFETCH(int, row);
    QFETCH(QString, page);
    m_list->updateListViewIndex(row);
    QCOMPARE(currentRow(), row);
    QCOMPARE(m_requests->take(), QStringList{page});
}

void NavigationListTest::updateListViewIndexOutOfRangeClearsTheRow_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("far too far") << 2 * lastRow() + 1;
    QTest::newRow("one too far") << lastRow() + 1;
    QTest::newRow("-1") << -1;
    QTest::newRow("largest number") << std::numeric_limits<int>::max();
    QTest::newRow("smallest number") << std::numeric_limits<int>::min();
}

void NavigationListTest::updateListViewIndexOutOfRangeClearsTheRow()
{
    QFETCH(int, row);
    m_list->updateListViewIndex(2);
    m_requests->take();
    m_list->updateListViewIndex(row);
    QVERIFY(!m_view->currentIndex().isValid());
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("assistant")});
}

void NavigationListTest::updateListViewIndexOfTheCurrentRowAsksAgain()
{
    m_list->updateListViewIndex(0);
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("assistant")});
}

void NavigationListTest::onItemClieckWithAnInvalidIndexAsksForTheAssistant()
{
    m_list->onItemClieck(QModelIndex());
    QCOMPARE(m_requests->take(), QStringList{QStringLiteral("assistant")});
    QCOMPARE(currentRow(), 0);
}

void NavigationListTest::refusedMovesReturnTheCurrentIndex_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("row");
    QTest::newRow("up from the first") << int(OpenListView::MoveUp) << 0;
    QTest::newRow("down from the last") << int(OpenListView::MoveDown) << lastRow();
    QTest::newRow("left") << int(OpenListView::MoveLeft) << 1;
    QTest::newRow("right") << int(OpenListView::MoveRight) << 1;
    QTest::newRow("home") << int(OpenListView::MoveHome) << 1;
    QTest::newRow("end") << int(OpenListView::MoveEnd) << 1;
    QTest::newRow("page up") << int(OpenListView::MovePageUp) << 1;
    QTest::newRow("page down") << int(OpenListView::MovePageDown) << 1;
    QTest::newRow("next") << int(OpenListView::MoveNext) << 1;
    QTest::newRow("previous") << int(OpenListView::MovePrevious) << 1;
}

void NavigationListTest::refusedMovesReturnTheCurrentIndex()
{
    QFETCH(int, action);
    QFETCH(int, row);
    OpenListView view;
    view.setModel(m_view->model());
    view.setCurrentIndex(view.model()->index(row, 0));
    QSignalSpy clicks(&view, &QListView::clicked);
    QCOMPARE(view.moveCursor(OpenListView::CursorAction(action), Qt::NoModifier),
             view.model()->index(row, 0));
    QCOMPARE(view.currentIndex().row(), row);
    QCOMPARE(clicks.count(), 0);
}

void NavigationListTest::movesReturnTheNewIndex()
{
    OpenListView view;
    view.setModel(m_view->model());
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

void NavigationListTest::aViewWithoutAModelMovesNowhere()
{
    OpenListView view;
    QVERIFY(!view.moveCursor(OpenListView::MoveUp, Qt::NoModifier).isValid());
    QVERIFY(!view.moveCursor(OpenListView::MoveDown, Qt::NoModifier).isValid());
    QVERIFY(!view.moveCursor(OpenListView::MoveNext, Qt::NoModifier).isValid());
}

void NavigationListTest::aViewWithAnEmptyModelMovesNowhere()
{
    QStandardItemModel model;
    OpenListView view;
    view.setModel(&model);
    QSignalSpy clicks(&view, &QListView::clicked);
    QVERIFY(!view.moveCursor(OpenListView::MoveUp, Qt::NoModifier).isValid());
    QVERIFY(!view.moveCursor(OpenListView::MoveDown, Qt::NoModifier).isValid());
    QCOMPARE(clicks.count(), 0);
}

void NavigationListTest::logsItsEnd()
{
    const testsupport::LogCapture log;
    {
        const ThirdListWidget fresh(nullptr);
    }
    QCOMPARE(log.texts(), QStringList{QStringLiteral("~ThirdListWidget")});
    const testsupport::LogRecord record = log.records().constFirst();
    QCOMPARE(record.type, QtDebugMsg);
    QCOMPARE(record.category, QStringLiteral("default"));
    QCOMPARE(QFileInfo(record.file).baseName(), QStringLiteral("thirdlistwidget"));
    QVERIFY(record.line > 0);
    QCOMPARE(record.function, QStringLiteral("virtual ThirdListWidget::~ThirdListWidget()"));
}

TEST_CLASS(QApplication, NavigationListTest)
#include "navigationlist.moc"
