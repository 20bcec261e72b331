#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace testsupport;
using namespace zcc::widgets;

/** The switch row: mouse, keys, states, screen readers, and its title. */
class PlatformSwitchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void switchByMouse();
    void switchByTheRowAroundIt();
    void switchIgnoresOtherButtonsAndReleasesOutside();
    void switchByKeys();
    void switchStateIsThereAtOnce();
    void disabledSwitchDoesNothing();
    void switchIsACheckBoxToAScreenReader();
    void switchShowsItsState();
    void switchShowsFocus();
    void switchMirrors();
    void titleTakesTheRowsFont();
    void titleIsPlainText();
    void longTitleWraps();

private:
    static QAbstractButton *button(const QWidget *row)
    {
        return row->findChild<QAbstractButton *>(QStringLiteral("switchButton"));
    }
    ShownRow m_shown;
};

void PlatformSwitchTest::initTestCase()
{
    ShownRow::setUpApplication();
}

void PlatformSwitchTest::cleanup()
{
    m_shown.clear();
}

void PlatformSwitchTest::switchByMouse()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    QTest::mouseClick(button(row), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.takeFirst().first().toBool(), true);
    QVERIFY(row->checked());
    QTest::mouseClick(button(row), Qt::LeftButton);
    QCOMPARE(changed.takeFirst().first().toBool(), false);
    QVERIFY(!row->checked());
}

void PlatformSwitchTest::switchByTheRowAroundIt()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    auto *title = row->findChild<QLabel *>(QStringLiteral("switchTitle"));
    QTest::mouseClick(title, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    QCOMPARE(changed.count(), 1);
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    QCOMPARE(changed.count(), 2);
    QVERIFY(!row->checked());
}

void PlatformSwitchTest::switchIgnoresOtherButtonsAndReleasesOutside()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    QTest::mouseClick(row, Qt::RightButton);
    QTest::mousePress(row, Qt::LeftButton);
    QTest::mouseRelease(row, Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
    QTest::mouseRelease(row, Qt::LeftButton); // one that was not pressed here
    QCOMPARE(changed.count(), 0);
    QVERIFY(!button(row)->isDown());
}

void PlatformSwitchTest::switchByKeys()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    row->setFocus(Qt::TabFocusReason);
    QCOMPARE(QApplication::focusWidget(), button(row));
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(QApplication::focusWidget(), key);
    QCOMPARE(changed.count(), 3);
    QVERIFY(row->checked());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_X);
    QCOMPARE(changed.count(), 3);
}

void PlatformSwitchTest::switchStateIsThereAtOnce()
{
    auto *row = new SwitchWidget;
    QVERIFY(m_shown.show(row));
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    row->setChecked(true);
    QVERIFY(row->checked());
    QCOMPARE(changed.count(), 1);
    row->setChecked(true);
    QCOMPARE(changed.count(), 1);
    // The picture does not lag behind either: nobody watches an animation here.
    const QImage at = pictures::of(row);
    QCoreApplication::processEvents();
    QCOMPARE(pictures::of(row), at);
}

void PlatformSwitchTest::disabledSwitchDoesNothing()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    const QImage enabled = pictures::of(row);
    row->setEnabled(false);
    QVERIFY(pictures::of(row) != enabled);
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    QTest::mouseClick(button(row), Qt::LeftButton);
    QTest::mouseClick(row, Qt::LeftButton);
    QTest::keyClick(button(row), Qt::Key_Space);
    QCOMPARE(changed.count(), 0);
    row->setChecked(true);
    QCOMPARE(changed.count(), 1);
}

void PlatformSwitchTest::switchIsACheckBoxToAScreenReader()
{
    auto *row = new SwitchWidget(QStringLiteral("Voice Wakeup"));
    QVERIFY(m_shown.show(row));
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(button(row));
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::CheckBox);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Voice Wakeup"));
    QVERIFY(accessible->state().checkable);
    QVERIFY(!accessible->state().checked);
    row->setChecked(true);
    QVERIFY(accessible->state().checked);
    row->setTitle(QStringLiteral("Other"));
    QCOMPARE(row->title(), QStringLiteral("Other"));
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Other"));
    QSignalSpy changed(row, &SwitchWidget::checkedChanged);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_COMPARE(changed.count(), 1);
    QVERIFY(!row->checked());
}

void PlatformSwitchTest::switchShowsItsState()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    button(row)->clearFocus();
    QCOMPARE(pictures::count(pictures::of(row), ShownRow::color(QPalette::Highlight)), 0);
    row->setChecked(true);
    QVERIFY(pictures::count(pictures::of(row), ShownRow::color(QPalette::Highlight)) > 300);
}

void PlatformSwitchTest::switchShowsFocus()
{
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    QVERIFY(m_shown.show(row));
    row->setFocus(Qt::TabFocusReason);
    const int ring = pictures::count(pictures::of(row), ShownRow::color(QPalette::Highlight));
    QVERIFY2(ring > 100, qPrintable(QString::number(ring)));
    button(row)->clearFocus();
    QCOMPARE(pictures::count(pictures::of(row), ShownRow::color(QPalette::Highlight)), 0);
    QTest::mouseClick(row, Qt::LeftButton);
    QTest::mouseClick(row, Qt::LeftButton);
    QVERIFY(button(row)->hasFocus());
    QCOMPARE(pictures::count(pictures::of(row), ShownRow::color(QPalette::Highlight)), 0);
}

void PlatformSwitchTest::switchMirrors()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    auto *row = new SwitchWidget(QStringLiteral("Title"));
    row->setChecked(true);
    QVERIFY(m_shown.show(row));
    button(row)->clearFocus();
    const QImage image = pictures::of(row);
    const QRect track =
        pictures::boundsOf(image, ShownRow::color(QPalette::Highlight), ShownRow::roundEdge);
    QCOMPARE(track.left(), rowPadding);
    QCOMPARE(track.size(), QSize(42, 24));
    // On is to the left: the knob covers the track's left half.
    const QRect left(track.left(), track.top(), track.width() / 2, track.height());
    const QRect right = left.translated(track.width() / 2, 0);
    QVERIFY(pictures::count(image, ShownRow::color(QPalette::Highlight), left) <
            pictures::count(image, ShownRow::color(QPalette::Highlight), right));
    // The title begins at the right, even one in a language that is written to the right.
    const QRect text = pictures::boundsOf(image, ShownRow::color(QPalette::WindowText), 60);
    QVERIFY2(image.width() - 1 - text.right() <= rowPadding + 2,
             qPrintable(QString::number(text.right())));
}

void PlatformSwitchTest::titleTakesTheRowsFont()
{
    SwitchWidget row(QStringLiteral("Title"));
    QFont font = row.font();
    font.setPixelSize(33);
    font.setBold(true);
    row.setFont(font);
    auto *title = row.findChild<QLabel *>(QStringLiteral("switchTitle"));
    QCOMPARE(title->font().pixelSize(), 33);
    QVERIFY(title->font().bold());
}

void PlatformSwitchTest::titleIsPlainText()
{
    SwitchWidget row(QStringLiteral("<b>not bold</b> & plain"));
    auto *title = row.findChild<QLabel *>(QStringLiteral("switchTitle"));
    QCOMPARE(title->textFormat(), Qt::PlainText);
    QCOMPARE(row.title(), QStringLiteral("<b>not bold</b> & plain"));
}

void PlatformSwitchTest::longTitleWraps()
{
    auto *row = new SwitchWidget(QStringLiteral(
        "a title that is far too long for the row, as titles in some languages are at some sizes"));
    QVERIFY(m_shown.show(row, 260));
    QVERIFY(row->height() > 48);
    auto *title = row->findChild<QLabel *>(QStringLiteral("switchTitle"));
    QVERIFY(title->height() >= title->heightForWidth(title->width()));
    QVERIFY(row->rect().contains(button(row)->geometry()));
    QVERIFY(!title->geometry().intersects(button(row)->geometry()));
}

TEST_CLASS(QApplication, PlatformSwitchTest)
#include "platformswitch.moc"
