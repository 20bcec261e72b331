#include "tests/gui/shownpages.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"

#include <ztk/zstandarditem.h>

#include <QApplication>
#include <QFileInfo>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <QtTest>

#include <limits>
#include <memory>

Q_DECLARE_METATYPE(QMargins)

using namespace testsupport;

/** The list beside the pages: what is in it, the mouse, and what hosts ask of it. */
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
    void updateListViewIndexChoosesAndAsks_data();
    void updateListViewIndexChoosesAndAsks();
    void updateListViewIndexOutOfRangeClearsTheRow_data();
    void updateListViewIndexOutOfRangeClearsTheRow();
    void updateListViewIndexOfTheCurrentRowAsksAgain();
    void onItemClieckWithAnInvalidIndexAsksForTheAssistant();
    void logsItsEnd();

private:
    std::unique_ptr<ShownList> m_shown;
};

void NavigationListTest::init()
{
    m_shown = std::make_unique<ShownList>();
    QVERIFY(m_shown->show());
    QCOMPARE(m_shown->requests->take(), QStringList());
}

void NavigationListTest::cleanup()
{
    m_shown.reset();
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
}

void NavigationListTest::isAWidgetNamedVoiceWithOneListView()
{
    QCOMPARE(m_shown->list->objectName(), QStringLiteral("voice"));
    QCOMPARE(m_shown->list->findChildren<QAbstractItemView *>().size(), 1);
    QCOMPARE(m_shown->view->parentWidget(), m_shown->list.get());
    QCOMPARE(m_shown->view->model()->QObject::parent(), m_shown->view);
    auto *layout = qobject_cast<QVBoxLayout *>(m_shown->list->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(10, 10, 10, 10));
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), m_shown->view);
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
}

void NavigationListTest::hasARowPerPageWithTextAndMargins()
{
    const QVector<ModulePage> pages = modulePages();
    auto *model = qobject_cast<QStandardItemModel *>(m_shown->view->model());
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
    QCOMPARE(m_shown->view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(m_shown->view->frameShape(), QFrame::NoFrame);
    QCOMPARE(m_shown->view->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(m_shown->view->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(m_shown->view->iconSize(), QSize(32, 32));
    QCOMPARE(m_shown->view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void NavigationListTest::firstRowIsCurrentFromTheStart()
{
    const ThirdListWidget fresh(nullptr);
    QCOMPARE(fresh.findChild<QListView *>()->currentIndex().row(), 0);
}

void NavigationListTest::sayingNothingWhileItIsBuilt()
{
    const LogCapture log;
    const ThirdListWidget fresh(nullptr);
    QCOMPARE(log.texts(), QStringList());
}

void NavigationListTest::clickOnARowAsksForItsPageOnce_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("page");
    const QVector<ModulePage> pages = modulePages();
    for (int row = 0; row < pages.size(); ++row)
        QTest::newRow(qPrintable(pages.at(row).name)) << row << pages.at(row).shortName;
}

void NavigationListTest::clickOnARowAsksForItsPageOnce()
{
    QFETCH(int, row);
    QFETCH(QString, page);
    const QRect place = m_shown->view->visualRect(m_shown->view->model()->index(row, 0));
    QVERIFY(place.isValid());
    QTest::mouseClick(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(m_shown->requests->take(), QStringList{page});
    QCOMPARE(m_shown->currentRow(), row);
}

void NavigationListTest::clickOnTheCurrentRowAsksAgain()
{
    const QPoint place = m_shown->view->visualRect(m_shown->view->model()->index(2, 0)).center();
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("tts")});
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
    m_shown->view->setStyle(&style);
    QSignalSpy activated(m_shown->view, &QListView::activated);
    const QPoint place = m_shown->view->visualRect(m_shown->view->model()->index(2, 0)).center();
    QTest::mouseClick(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("tts")});
    m_shown.reset(); // before its style
}

void NavigationListTest::doubleClickAsksTwice()
{
    const QPoint place = m_shown->view->visualRect(m_shown->view->model()->index(2, 0)).center();
    QTest::mouseClick(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(m_shown->requests->take(),
             (QStringList{QStringLiteral("tts"), QStringLiteral("tts")}));
}

void NavigationListTest::emittedClickAsksAtOnce()
{
    Q_EMIT m_shown->view->clicked(m_shown->view->model()->index(3, 0));
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("translation")});
}

void NavigationListTest::clickBelowTheRowsAsksForNothing()
{
    const QRect last =
        m_shown->view->visualRect(m_shown->view->model()->index(ShownList::lastRow(), 0));
    const QPoint below(last.center().x(), m_shown->view->viewport()->height() - 2);
    QVERIFY(!m_shown->view->indexAt(below).isValid());
    QTest::mouseClick(m_shown->view->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    QCOMPARE(m_shown->requests->take(), QStringList());
    QCOMPARE(m_shown->currentRow(), 0);
}

void NavigationListTest::updateListViewIndexChoosesAndAsks_data()
{
    clickOnARowAsksForItsPageOnce_data();
}

void NavigationListTest::updateListViewIndexChoosesAndAsks()
{
    QFETCH(int, row);
    QFETCH(QString, page);
    m_shown->list->updateListViewIndex(row);
    QCOMPARE(m_shown->currentRow(), row);
    QCOMPARE(m_shown->requests->take(), QStringList{page});
}

void NavigationListTest::updateListViewIndexOutOfRangeClearsTheRow_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("far too far") << 2 * ShownList::lastRow() + 1;
    QTest::newRow("one too far") << ShownList::lastRow() + 1;
    QTest::newRow("-1") << -1;
    QTest::newRow("largest number") << std::numeric_limits<int>::max();
    QTest::newRow("smallest number") << std::numeric_limits<int>::min();
}

void NavigationListTest::updateListViewIndexOutOfRangeClearsTheRow()
{
    QFETCH(int, row);
    m_shown->list->updateListViewIndex(2);
    m_shown->requests->take();
    m_shown->list->updateListViewIndex(row);
    QVERIFY(!m_shown->view->currentIndex().isValid());
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("assistant")});
}

void NavigationListTest::updateListViewIndexOfTheCurrentRowAsksAgain()
{
    m_shown->list->updateListViewIndex(0);
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("assistant")});
}

void NavigationListTest::onItemClieckWithAnInvalidIndexAsksForTheAssistant()
{
    m_shown->list->onItemClieck(QModelIndex());
    QCOMPARE(m_shown->requests->take(), QStringList{QStringLiteral("assistant")});
    QCOMPARE(m_shown->currentRow(), 0);
}

void NavigationListTest::logsItsEnd()
{
    const LogCapture log;
    {
        const ThirdListWidget fresh(nullptr);
    }
    QCOMPARE(log.texts(), QStringList{QStringLiteral("~ThirdListWidget")});
    const LogRecord record = log.records().constFirst();
    QCOMPARE(record.type, QtDebugMsg);
    QCOMPARE(record.category, QStringLiteral("default"));
    QCOMPARE(QFileInfo(record.file).baseName(), QStringLiteral("thirdlistwidget"));
    QVERIFY(record.line > 0);
    QCOMPARE(record.function, QStringLiteral("virtual ThirdListWidget::~ThirdListWidget()"));
}

TEST_CLASS(QApplication, NavigationListTest)
#include "navigationlist.moc"
