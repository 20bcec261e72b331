#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/zstyle.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QVBoxLayout>

using namespace testsupport;
using namespace Ztk::Widget;
using Ztk::Gui::ZGuiApplicationHelper;

/** The widget style, by real controls: sizes, states, focus, mirrored layouts, menus. */
class PlatformStyleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void controlsCanBeHit_data();
    void controlsCanBeHit();
    void controlsGrowWithTheFont();
    void focusIsVisible_data() { controls(); }
    void focusIsVisible();
    void disabledLooksDifferent_data() { controls(); }
    void disabledLooksDifferent();
    void themesDiffer_data() { controls(); }
    void themesDiffer();
    void checkBoxShowsItsThreeStates();
    void checkBoxIsHitOnItsWholeWidth();
    void checkBoxMirrors();
    void comboBoxOpensAListAndTakesAChoice();
    void comboBoxIgnoresTheWheel();
    void comboBoxElidesWhatDoesNotFit();
    void comboBoxMirrors();
    void entriesStandBelowTheTextOfTheBox_data();
    void entriesStandBelowTheTextOfTheBox();
    void listEntriesCanBeHit();

private:
    static void controls();
    static QColor color(QPalette::ColorRole role) { return QApplication::palette().color(role); }
    QWidget *make(const QString &kind);

    QScopedPointer<QWidget> m_window;
};

void PlatformStyleTest::initTestCase()
{
    QFont font = QApplication::font();
    font.setPixelSize(14);
    QApplication::setFont(font);
    ZApplicationSetup::install();
    QCOMPARE(QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration), 0);
}

void PlatformStyleTest::cleanup()
{
    m_window.reset();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void PlatformStyleTest::controls()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"push button", "check box", "combo box", "line edit"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

/** A control of this kind in a window in which another widget has the focus. */
QWidget *PlatformStyleTest::make(const QString &kind)
{
    m_window.reset(new QWidget);
    auto *layout = new QVBoxLayout(m_window.data());
    QWidget *control = nullptr;
    if (kind == QLatin1String("push button")) {
        control = new QPushButton(QStringLiteral("Push"));
    } else if (kind == QLatin1String("check box")) {
        control = new QCheckBox(QStringLiteral("Check"));
    } else if (kind == QLatin1String("line edit")) {
        control = new QLineEdit(QStringLiteral("Text"));
    } else {
        auto *box = new QComboBox;
        box->addItems({QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")});
        control = box;
    }
    auto *other = new QWidget;
    other->setFocusPolicy(Qt::StrongFocus);
    layout->addWidget(other, 1);
    layout->addWidget(control);
    m_window->resize(300, 200);
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.data()))
        return nullptr;
    other->setFocus();
    return control;
}

void PlatformStyleTest::controlsCanBeHit_data()
{
    controls();
}

void PlatformStyleTest::controlsCanBeHit()
{
    QFETCH(QString, kind);
    QWidget *control = make(kind);
    QVERIFY(control);
    QVERIFY(control->sizeHint().height() >= ZStyle::minimumHitHeight);
    QVERIFY(control->height() >= ZStyle::minimumHitHeight);
}

void PlatformStyleTest::controlsGrowWithTheFont()
{
    for (const char *kind : {"push button", "check box", "combo box", "line edit"}) {
        QWidget *control = make(QString::fromLatin1(kind));
        QFont font = control->font();
        font.setPixelSize(48);
        control->setFont(font);
        QVERIFY2(control->sizeHint().height() >= control->fontMetrics().height(), kind);
        QVERIFY2(control->sizeHint().height() > ZStyle::minimumHitHeight, kind);
    }
}

void PlatformStyleTest::focusIsVisible()
{
    QFETCH(QString, kind);
    QWidget *control = make(kind);
    QVERIFY(control);
    QCOMPARE(pictures::count(pictures::of(control), color(QPalette::Highlight)), 0);
    control->setFocus(Qt::TabFocusReason);
    QVERIFY(pictures::count(pictures::of(control), color(QPalette::Highlight)) > 60);
}

void PlatformStyleTest::disabledLooksDifferent()
{
    QFETCH(QString, kind);
    QWidget *control = make(kind);
    QVERIFY(control);
    const QImage enabled = pictures::of(control);
    control->setEnabled(false);
    const QImage disabled = pictures::of(control);
    QVERIFY(disabled != enabled);
    QVERIFY(pictures::count(disabled, color(QPalette::WindowText)) <
            pictures::count(enabled, color(QPalette::WindowText)) / 2);
}

void PlatformStyleTest::themesDiffer()
{
    QFETCH(QString, kind);
    QWidget *control = make(kind);
    QVERIFY(control);
    const QImage light = pictures::of(control);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    const QImage dark = pictures::of(control);
    const QPoint ground(control->width() - 12, 8);
    QVERIFY(ZPainting::contrast(light.pixelColor(ground), dark.pixelColor(ground)) > 5);
}

void PlatformStyleTest::checkBoxShowsItsThreeStates()
{
    auto *box = qobject_cast<QCheckBox *>(make(QStringLiteral("check box")));
    QVERIFY(box);
    box->setTristate(true);
    QList<QImage> seen;
    for (const Qt::CheckState state : {Qt::Unchecked, Qt::PartiallyChecked, Qt::Checked}) {
        box->setCheckState(state);
        const QImage image = pictures::of(box);
        QVERIFY(!seen.contains(image));
        seen << image;
        const int filled = pictures::count(image, color(QPalette::Highlight));
        QVERIFY(state == Qt::Unchecked ? filled == 0 : filled > 150);
    }
}

void PlatformStyleTest::checkBoxIsHitOnItsWholeWidth()
{
    auto *box = qobject_cast<QCheckBox *>(make(QStringLiteral("check box")));
    QVERIFY(box);
    QVERIFY(box->width() > 2 * box->sizeHint().width());
    QSignalSpy toggled(box, &QCheckBox::toggled);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(box->width() - 4, 4));
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(toggled.count(), 3);
}

void PlatformStyleTest::checkBoxMirrors()
{
    auto *box = qobject_cast<QCheckBox *>(make(QStringLiteral("check box")));
    QVERIFY(box);
    box->setChecked(true);
    const QRect left = pictures::boundsOf(pictures::of(box), color(QPalette::Highlight));
    QVERIFY(left.right() < box->width() / 4);
    box->setLayoutDirection(Qt::RightToLeft);
    const QRect right = pictures::boundsOf(pictures::of(box), color(QPalette::Highlight));
    QCOMPARE(right.left(), box->width() - 1 - left.right());
}

void PlatformStyleTest::comboBoxOpensAListAndTakesAChoice()
{
    auto *box = qobject_cast<QComboBox *>(make(QStringLiteral("combo box")));
    QVERIFY(box);
    QTest::mouseClick(box, Qt::LeftButton);
    QAbstractItemView *list = box->view();
    QTRY_VERIFY(list->isVisible());
    const QModelIndex third = box->model()->index(2, 0);
    QSignalSpy changed(box, QOverload<int>::of(&QComboBox::currentIndexChanged));
    QTest::mouseMove(list->viewport(), list->visualRect(third).center());
    QVERIFY(pictures::count(pictures::of(list), color(QPalette::Highlight)) > 1000);
    // Its corners are round, also without a compositing manager.
    const QRegion shape = list->window()->mask();
    QVERIFY(!shape.contains(QPoint(1, 1)));
    QVERIFY(shape.contains(QPoint(1, 20)));
    QVERIFY(shape.contains(QPoint(20, 1)));
    // The panel's frame is seen on all four sides, and the entries lie on one surface with it.
    const QImage panel = pictures::of(list->window());
    const int middle = panel.height() / 2;
    const QColor frame = panel.pixelColor(0, middle);
    QCOMPARE(panel.pixelColor(panel.width() - 1, middle), frame);
    QCOMPARE(panel.pixelColor(panel.width() / 2, 0), frame);
    QCOMPARE(panel.pixelColor(panel.width() / 2, panel.height() - 1), frame);
    QVERIFY(panel.pixelColor(1, middle) != frame);
    QCOMPARE(panel.pixelColor(panel.width() / 2, 1), panel.pixelColor(1, middle));
    // A release right after the press that opened the list is taken for the end of that press.
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_End);
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(box->currentText(), QStringLiteral("Three"));
    QTRY_VERIFY(!list->isVisible());
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(box->currentText(), QStringLiteral("Two"));
}

void PlatformStyleTest::comboBoxIgnoresTheWheel()
{
    auto *box = qobject_cast<QComboBox *>(make(QStringLiteral("combo box")));
    QVERIFY(box);
    QWheelEvent down(box->rect().center(), box->mapToGlobal(box->rect().center()), QPoint(),
                     QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(box, &down);
    QCOMPARE(box->currentIndex(), 0);
    QVERIFY(!down.isAccepted());
}

void PlatformStyleTest::comboBoxElidesWhatDoesNotFit()
{
    auto *box = qobject_cast<QComboBox *>(make(QStringLiteral("combo box")));
    QVERIFY(box);
    const QString text(200, QLatin1Char('W'));
    box->setItemText(0, text);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    box->setFixedWidth(120);
    const QImage image = pictures::of(box);
    // Nothing of the text comes under the arrow.
    const QRect beforeArrow(120 - 34, 4, 8, image.height() - 8);
    QCOMPARE(pictures::count(image, color(QPalette::ButtonText), beforeArrow, 60), 0);
    // It ends in an ellipsis, like a text that was shortened by hand.
    QStyleOptionComboBox option;
    option.initFrom(box);
    const int field =
        QApplication::style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box)
            .width();
    box->setItemText(0, box->fontMetrics().elidedText(text, Qt::ElideRight, field));
    QVERIFY(box->currentText().size() < 20);
    QCOMPARE(pictures::of(box), image);
}

void PlatformStyleTest::comboBoxMirrors()
{
    auto *box = qobject_cast<QComboBox *>(make(QStringLiteral("combo box")));
    QVERIFY(box);
    box->setItemText(0, QStringLiteral("."));
    const QRect rightHalf(box->width() - 40, 0, 40, box->height());
    const int arrow =
        pictures::count(pictures::of(box), color(QPalette::ButtonText), rightHalf, 60);
    QVERIFY(arrow > 10);
    box->setLayoutDirection(Qt::RightToLeft);
    const QRect leftHalf(0, 0, 40, box->height());
    QVERIFY(pictures::count(pictures::of(box), color(QPalette::ButtonText), leftHalf, 60) > 10);
    QVERIFY(pictures::count(pictures::of(box), color(QPalette::ButtonText), rightHalf, 60) < arrow);
}

void PlatformStyleTest::entriesStandBelowTheTextOfTheBox_data()
{
    QTest::addColumn<bool>("mirrored");
    QTest::newRow("left to right") << false;
    QTest::newRow("right to left") << true;
}

/** One letter, once in the box and once in its list. */
void PlatformStyleTest::entriesStandBelowTheTextOfTheBox()
{
    QFETCH(bool, mirrored);
    QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    auto *box = qobject_cast<QComboBox *>(make(QStringLiteral("combo box")));
    QVERIFY(box);
    for (int row = 0; row < box->count(); ++row)
        box->setItemText(row, QStringLiteral("H"));
    const auto letter = [](QWidget *widget, const QRect &area) {
        const QRect ink =
            pictures::boundsOf(pictures::of(widget).copy(area), color(QPalette::ButtonText), 40);
        return widget->mapToGlobal(area.topLeft() + ink.topLeft()).x();
    };
    const int room = 30; // px, at the leading edge; the arrow and the mark are at the other
    const QRect half(mirrored ? box->width() - room : 4, 6, room - 4, box->height() - 12);
    const int inBox = letter(box, half);
    box->showPopup();
    QAbstractItemView *list = box->view();
    QTRY_VERIFY(list->isVisible());
    const QRect entry = list->visualRect(box->model()->index(2, 0)); // not chosen
    QWidget *viewport = list->viewport();
    const int inList = letter(viewport, QRect(mirrored ? viewport->width() - room : 4,
                                              entry.top() + 4, room - 4, entry.height() - 8));
    box->hidePopup();
    QCOMPARE(inList, inBox);
}

void PlatformStyleTest::listEntriesCanBeHit()
{
    auto *box = qobject_cast<QComboBox *>(make(QStringLiteral("combo box")));
    QVERIFY(box);
    box->showPopup();
    QAbstractItemView *list = box->view();
    QTRY_VERIFY(list->isVisible());
    for (int row = 0; row < box->count(); ++row)
        QVERIFY(list->visualRect(box->model()->index(row, 0)).height() >= ZStyle::minimumHitHeight);
    box->hidePopup();

    QMenu menu;
    QAction *entry = menu.addAction(QStringLiteral("Entry"));
    menu.addSeparator();
    QVERIFY(menu.sizeHint().height() >= ZStyle::minimumHitHeight);
    QVERIFY(menu.actionGeometry(entry).height() >= ZStyle::minimumHitHeight);
}

TEST_CLASS(QApplication, PlatformStyleTest)

#include "platformstyle.moc"
