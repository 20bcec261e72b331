#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/zlistview.h>
#include <ztk/zstandarditem.h>

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QMargins>
#include <QScopedPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

using namespace testsupport;
using namespace Ztk::Widget;
using Ztk::Gui::ZGuiApplicationHelper;

Q_DECLARE_METATYPE(QMargins)

/** The list: item margins, selection, hover, focus, mirrored layouts, and the item class. */
class PlatformListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void marginsOfAnItemMakeItsHeight_data();
    void marginsOfAnItemMakeItsHeight();
    void marginsMoveTheIcon();
    void marginsChangeSidesInMirroredLayouts();
    void rowsFillTheWidth();
    void longTextWrapsAndTheRowGrows();
    void currentRowIsHighlighted();
    void rowUnderTheMouseIsMarked();
    void focusIsVisible();
    void focusFromTheMouseIsQuiet();
    void focusFromTheProgramIsPutDownToWhatWasUsedLast();
    void firstKeyShowsTheFocusOnAnyViewport();
    void clickAndKeysWork();
    void oneRowAtMostIsReportedAsFocused();
    void assistiveTechnologiesSeeTheRows();
    void disabledRowIsPale();
    void themeSwitchReachesTheIcons();
    void rowsGrowWithTheFont();
    void cloneCopiesDataAndFlags();
    void prototypeMakesItemsOfItsClass();

private:
    QImage picture() const { return pictures::of(m_view.data()); }
    QColor color(QPalette::ColorRole role) const { return m_view->palette().color(role); }
    void setMargins(int row, const QMargins &margins)
    {
        m_model->item(row)->setData(QVariant::fromValue(margins), ZListView::MarginsRole);
        m_view->doItemsLayout();
    }

    QScopedPointer<ZListView> m_view;
    bool hasRing(int row) const;
    QStandardItemModel *m_model = nullptr;
};

void PlatformListTest::initTestCase()
{
    QCOMPARE(int(ZListView::MarginsRole), 257);
    QFont font = QApplication::font();
    font.setPixelSize(14);
    QApplication::setFont(font);
    ZApplicationSetup::install();
}

void PlatformListTest::init()
{
    m_view.reset(new ZListView);
    m_model = new QStandardItemModel(m_view.data());
    for (const char *text : {"First", "Second", "Third", "Fourth"})
        m_model->appendRow(new ZStandardItem(QIcon::fromTheme(QStringLiteral("ztk_remove")),
                                             QString::fromLatin1(text)));
    m_view->setModel(m_model);
    m_view->setIconSize(QSize(32, 32));
    m_view->resize(220, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.data()));
}

void PlatformListTest::cleanup()
{
    m_view.reset();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void PlatformListTest::marginsOfAnItemMakeItsHeight_data()
{
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<int>("height");
    QTest::newRow("8 above, 8 below the icon") << QMargins(10, 8, 10, 8) << 48;
    QTest::newRow("uneven") << QMargins(0, 20, 0, 1) << 53;
    QTest::newRow("none, but still to be hit") << QMargins() << 36;
}

void PlatformListTest::marginsOfAnItemMakeItsHeight()
{
    QFETCH(QMargins, margins);
    QFETCH(int, height);
    setMargins(1, margins);
    QCOMPARE(m_view->visualRect(m_model->index(1, 0)).height(), height);
}

void PlatformListTest::marginsMoveTheIcon()
{
    // The symbol is drawn on a grid of 16 and leaves about one of it free on each side.
    setMargins(1, QMargins(10, 8, 10, 8));
    const QRect row = m_view->visualRect(m_model->index(1, 0));
    const QRect iconPlace(row.left() + 10, row.top() + 8, 32, 32);
    const int there = pictures::count(picture(), color(QPalette::WindowText), iconPlace);
    QVERIFY(there > 50);
    const QRect before(row.left(), row.top(), 10, row.height());
    QCOMPARE(pictures::count(picture(), color(QPalette::WindowText), before), 0);

    setMargins(1, QMargins(60, 8, 10, 8));
    QCOMPARE(pictures::count(picture(), color(QPalette::WindowText),
                             QRect(row.left(), row.top(), 60, row.height())),
             0);
}

void PlatformListTest::marginsChangeSidesInMirroredLayouts()
{
    m_view->setLayoutDirection(Qt::RightToLeft);
    setMargins(1, QMargins(30, 8, 0, 8));
    const QRect row = m_view->visualRect(m_model->index(1, 0));
    const QImage image = picture();
    const QColor text = color(QPalette::WindowText);
    const QRect iconPlace(row.right() - 30 - 31, row.top() + 8, 32, 32);
    QVERIFY(pictures::count(image, text, iconPlace) > 50);
    QCOMPARE(pictures::count(image, text, QRect(row.right() - 29, row.top(), 30, row.height())), 0);
    // The text stands beside the icon, not at the far side.
    QVERIFY(pictures::count(image, text,
                            QRect(row.center().x(), row.top(), iconPlace.left() - row.center().x(),
                                  row.height())) > 0);
    QCOMPARE(pictures::count(image, text, QRect(row.left(), row.top(), 30, row.height())), 0);
}

void PlatformListTest::rowsFillTheWidth()
{
    QCOMPARE(m_view->visualRect(m_model->index(0, 0)).width(), m_view->viewport()->width());
    m_view->resize(300, 400);
    QTRY_COMPARE(m_view->visualRect(m_model->index(0, 0)).width(), 300);
}

void PlatformListTest::longTextWrapsAndTheRowGrows()
{
    setMargins(2, QMargins(10, 8, 10, 8));
    m_model->item(2)->setText(
        QStringLiteral("a rather long name of a page that cannot stand on one "
                       "line of a list as narrow as this one"));
    QTRY_VERIFY(m_view->visualRect(m_model->index(2, 0)).height() > 48);
    QCOMPARE(m_view->horizontalScrollBar()->maximum(), 0);
    const int narrow = m_view->visualRect(m_model->index(2, 0)).height();
    m_view->resize(900, 400);
    QTRY_VERIFY(m_view->visualRect(m_model->index(2, 0)).height() < narrow);
    // The row below moves up along with it.
    QTRY_COMPARE(m_view->visualRect(m_model->index(3, 0)).top(),
                 m_view->visualRect(m_model->index(2, 0)).bottom() + 1);
}

void PlatformListTest::currentRowIsHighlighted()
{
    m_view->setCurrentIndex(m_model->index(2, 0));
    const QImage image = picture();
    const QRect row = m_view->visualRect(m_model->index(2, 0));
    const QColor highlight = color(QPalette::Highlight);
    QVERIFY(pictures::count(image, highlight, row) > row.width() * row.height() / 2);
    QCOMPARE(pictures::count(image, highlight, m_view->visualRect(m_model->index(1, 0))), 0);
    // Icon and text on it are drawn in the selection's text colour; its corners are round.
    QVERIFY(pictures::count(image, color(QPalette::HighlightedText), row) > 80);
    QCOMPARE(pictures::count(image, color(QPalette::WindowText), row), 0);
    QCOMPARE(pictures::count(image, highlight, QRect(row.topLeft(), QSize(2, 3))), 0);
}

void PlatformListTest::rowUnderTheMouseIsMarked()
{
    const QRect row = m_view->visualRect(m_model->index(1, 0));
    const QImage before = picture();
    QTest::mouseMove(m_view->viewport(), m_view->visualRect(m_model->index(0, 0)).center());
    QTest::mouseMove(m_view->viewport(), row.center());
    const QPoint empty(row.right() - 20, row.center().y());
    QTRY_VERIFY(picture().pixelColor(empty) != before.pixelColor(empty));
}

/** In the colour of all rings, whatever the list's own, and apart from the ground of the row. */
bool PlatformListTest::hasRing(int row) const
{
    const QRect place = m_view->visualRect(m_model->index(row, 0));
    const QImage shown = picture();
    const QColor ring = QApplication::palette().color(QPalette::Highlight);
    const QPoint edge(place.left(), place.center().y());
    return shown.pixelColor(edge) == ring && shown.pixelColor(edge + QPoint(2, 0)) != ring;
}

void PlatformListTest::focusIsVisible()
{
    m_view->setCurrentIndex(m_model->index(1, 0));
    m_view->clearFocus();
    QVERIFY(!hasRing(1));
    m_view->setFocus(Qt::TabFocusReason);
    QVERIFY(m_view->hasFocus());
    QVERIFY(hasRing(1));
    QPalette own = m_view->palette();
    own.setColor(QPalette::Highlight, Qt::lightGray);
    m_view->setPalette(own);
    QVERIFY(hasRing(1));
}

void PlatformListTest::focusFromTheMouseIsQuiet()
{
    m_view->clearFocus();
    m_view->setCurrentIndex(m_model->index(1, 0));
    const QRect row = m_view->visualRect(m_model->index(1, 0));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    QVERIFY(m_view->hasFocus());
    QVERIFY(!hasRing(1));
    // The first key shows where it is.
    QTest::keyClick(m_view.data(), Qt::Key_Shift);
    QVERIFY(hasRing(1));
}

/** As when a page that the mouse has asked for gives the focus to its first control. */
void PlatformListTest::focusFromTheProgramIsPutDownToWhatWasUsedLast()
{
    m_view->setCurrentIndex(m_model->index(1, 0));
    const QRect row = m_view->visualRect(m_model->index(1, 0));
    QTest::keyClick(m_view.data(), Qt::Key_Shift);
    m_view->clearFocus();
    m_view->setFocus();
    QVERIFY(hasRing(1));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    m_view->clearFocus();
    m_view->setFocus();
    QVERIFY(!hasRing(1));
}

void PlatformListTest::firstKeyShowsTheFocusOnAnyViewport()
{
    class PaintCounter : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int count = 0;
    } paints;
    m_view->setViewport(new QWidget);
    m_view->clearFocus();
    m_view->setFocus(Qt::MouseFocusReason);
    QTRY_VERIFY(!m_view->viewport()->visibleRegion().isEmpty());
    QCoreApplication::processEvents();
    m_view->viewport()->installEventFilter(&paints);
    QTest::keyClick(m_view.data(), Qt::Key_Shift);
    QTRY_VERIFY(paints.count > 0);
}

/** Of two lists in one window, both with a current row. */
void PlatformListTest::oneRowAtMostIsReportedAsFocused()
{
    QWidget window;
    QHBoxLayout layout(&window);
    ZListView first;
    ZListView second;
    for (ZListView *list : {&first, &second}) {
        layout.addWidget(list);
        list->setModel(m_model);
        list->setCurrentIndex(m_model->index(1, 0));
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto isFocused = [](QWidget *list) {
        return bool(QAccessible::queryAccessibleInterface(list)->child(1)->state().focused);
    };
    first.setFocus();
    QVERIFY(isFocused(&first));
    QVERIFY(!isFocused(&second));
    second.setFocus();
    QVERIFY(!isFocused(&first));
    QVERIFY(isFocused(&second));
    QCOMPARE(QAccessible::queryAccessibleInterface(&second)->focusChild(),
             QAccessible::queryAccessibleInterface(&second)->child(1));
}

void PlatformListTest::assistiveTechnologiesSeeTheRows()
{
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(m_view.data());
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->childCount(), 4);
    QCOMPARE(list->child(4), nullptr);
    QAccessibleInterface *row = list->child(2);
    QCOMPARE(row->role(), QAccessible::ListItem);
    QCOMPARE(row->text(QAccessible::Name), QStringLiteral("Third"));
    m_model->item(2)->setData(QStringLiteral("The third"), Qt::AccessibleTextRole);
    QCOMPARE(row->text(QAccessible::Name), QStringLiteral("The third"));
    QCOMPARE(row->parent(), list);
    QCOMPARE(list->indexOfChild(row), 2);
    const QRect place = m_view->visualRect(m_model->index(2, 0));
    const QPoint middle = m_view->viewport()->mapToGlobal(place.center());
    QVERIFY(row->rect().contains(middle));
    QCOMPARE(list->childAt(middle.x(), middle.y()), row);
    QVERIFY(!row->state().selected);
    QSignalSpy clicked(m_view.data(), &QListView::clicked);
    row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_COMPARE(clicked.count(), 1);
    QCOMPARE(m_view->currentIndex(), m_model->index(2, 0));
    QVERIFY(row->state().selected);
    m_model->removeRows(2, 2);
    QCOMPARE(list->childCount(), 2);
    QVERIFY(!row->isValid());
}

void PlatformListTest::clickAndKeysWork()
{
    QSignalSpy clicked(m_view.data(), &QListView::clicked);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      m_view->visualRect(m_model->index(2, 0)).center());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(m_view->currentIndex().row(), 2);
    QTest::keyClick(m_view.data(), Qt::Key_Up);
    QCOMPARE(m_view->currentIndex().row(), 1);
    QSignalSpy activated(m_view.data(), &QListView::activated);
    QTest::keyClick(m_view.data(), Qt::Key_Return);
    QCOMPARE(activated.count(), 1);
}

void PlatformListTest::disabledRowIsPale()
{
    m_model->item(1)->setEnabled(false);
    const QRect row = m_view->visualRect(m_model->index(1, 0));
    const QImage image = picture();
    QCOMPARE(pictures::count(image, color(QPalette::WindowText), row), 0);
    QVERIFY(pictures::count(image,
                            m_view->palette().color(QPalette::Disabled, QPalette::WindowText),
                            row) > 50);
}

void PlatformListTest::themeSwitchReachesTheIcons()
{
    const QRect row = m_view->visualRect(m_model->index(3, 0));
    const QRect icon(row.left(), row.top(), 42, row.height());
    QVERIFY(pictures::count(picture(), color(QPalette::WindowText), icon) > 50);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    QVERIFY(color(QPalette::WindowText).lightness() > 200);
    QVERIFY(pictures::count(picture(), color(QPalette::WindowText), icon) > 50);
}

void PlatformListTest::rowsGrowWithTheFont()
{
    m_view->setIconSize(QSize(8, 8));
    QFont font = m_view->font();
    font.setPixelSize(60);
    m_view->setFont(font);
    QTRY_VERIFY(m_view->visualRect(m_model->index(0, 0)).height() > 60);
}

void PlatformListTest::cloneCopiesDataAndFlags()
{
    ZStandardItem item(QIcon::fromTheme(QStringLiteral("zcc_edit")), QStringLiteral("Text"));
    item.setData(QVariant::fromValue(QMargins(1, 2, 3, 4)), ZListView::MarginsRole);
    item.setEnabled(false);
    const QScopedPointer<QStandardItem> copy(item.clone());
    QVERIFY(dynamic_cast<ZStandardItem *>(copy.data()));
    QCOMPARE(copy->text(), QStringLiteral("Text"));
    QCOMPARE(copy->icon().name(), QStringLiteral("zcc_edit"));
    QCOMPARE(copy->data(ZListView::MarginsRole).value<QMargins>(), QMargins(1, 2, 3, 4));
    QVERIFY(!copy->isEnabled());
    QVERIFY(!copy->model());
}

void PlatformListTest::prototypeMakesItemsOfItsClass()
{
    QStandardItemModel model;
    model.setItemPrototype(new ZStandardItem);
    model.setRowCount(1);
    model.setColumnCount(1);
    QVERIFY(model.setData(model.index(0, 0), QStringLiteral("set")));
    QVERIFY(dynamic_cast<ZStandardItem *>(model.item(0)));
}

TEST_CLASS(QApplication, PlatformListTest)

#include "platformlist.moc"
