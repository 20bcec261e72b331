#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zcommandlinkbutton.h>
#include <ztk/ziconbutton.h>

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QTest>

using namespace testsupport;
using namespace Ztk::Widget;

/** The toolkit's own two buttons, each with mouse, keys, focus, and what a screen reader is told.
 */
class PlatformButtonsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void mouseClicks_data() { both(); }
    void mouseClicks();
    void keysClick_data();
    void keysClick();
    void heldEnterClicksOnce_data() { both(); }
    void heldEnterClicksOnce();
    void disabledDoesNothing_data() { both(); }
    void disabledDoesNothing();
    void focusIsVisible_data() { both(); }
    void focusIsVisible();
    void answersTheMouse_data() { both(); }
    void answersTheMouse();
    void isAButtonToAScreenReader_data() { both(); }
    void isAButtonToAScreenReader();
    void iconKeepsItsPlaceInASmallButton();
    void removeIconIsDrawnWithoutTheStyle();
    void linkIsHighEnoughToHit();
    void linkGrowsWithItsTextAndFont();
    void linkIsDrawnInTheLinkColour();

private:
    static void both();
    QAbstractButton *button(const QString &kind) const
    {
        return kind == QLatin1String("icon") ? static_cast<QAbstractButton *>(m_icon) : m_link;
    }

    QScopedPointer<QWidget> m_window;
    QLineEdit *m_other = nullptr; ///< Has the focus first.
    ZIconButton *m_icon = nullptr;
    ZCommandLinkButton *m_link = nullptr;
};

void PlatformButtonsTest::initTestCase()
{
    ZApplicationSetup::install();
}

void PlatformButtonsTest::init()
{
    m_window.reset(new QWidget);
    auto *layout = new QHBoxLayout(m_window.data());
    m_other = new QLineEdit;
    m_icon = new ZIconButton;
    m_icon->setIcon(QIcon::fromTheme(QStringLiteral("zcc_edit")));
    m_icon->setAccessibleName(QStringLiteral("Edit"));
    m_link = new ZCommandLinkButton(QStringLiteral("Click here to test"));
    layout->addWidget(m_other);
    layout->addWidget(m_icon);
    layout->addWidget(m_link);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    m_other->setFocus();
}

void PlatformButtonsTest::cleanup()
{
    m_window.reset();
}

void PlatformButtonsTest::both()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("icon") << QStringLiteral("icon");
    QTest::newRow("link") << QStringLiteral("link");
}

void PlatformButtonsTest::mouseClicks()
{
    QFETCH(QString, kind);
    QSignalSpy clicked(button(kind), &QAbstractButton::clicked);
    QTest::mouseClick(button(kind), Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QTest::mouseClick(button(kind), Qt::RightButton);
    QCOMPARE(clicked.count(), 1);
    // Released beside the button: changed one's mind.
    QTest::mousePress(button(kind), Qt::LeftButton);
    QTest::mouseMove(button(kind), QPoint(-20, -20));
    QTest::mouseRelease(button(kind), Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    QCOMPARE(clicked.count(), 1);
}

void PlatformButtonsTest::keysClick_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("key");
    for (const char *kind : {"icon", "link"}) {
        QTest::newRow(QByteArray(kind) + ", Space")
            << QString::fromLatin1(kind) << int(Qt::Key_Space);
        QTest::newRow(QByteArray(kind) + ", Return")
            << QString::fromLatin1(kind) << int(Qt::Key_Return);
        QTest::newRow(QByteArray(kind) + ", Enter")
            << QString::fromLatin1(kind) << int(Qt::Key_Enter);
    }
}

void PlatformButtonsTest::keysClick()
{
    QFETCH(QString, kind);
    QFETCH(int, key);
    QSignalSpy clicked(button(kind), &QAbstractButton::clicked);
    for (int tabs = 0; tabs < 3 && QApplication::focusWidget() != button(kind); ++tabs)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(button(kind)->hasFocus());
    QTest::keyClick(button(kind), Qt::Key(key));
    QCOMPARE(clicked.count(), 1);
    QTest::keyClick(button(kind), Qt::Key_A);
    QCOMPARE(clicked.count(), 1);
}

void PlatformButtonsTest::heldEnterClicksOnce()
{
    QFETCH(QString, kind);
    QSignalSpy clicked(button(kind), &QAbstractButton::clicked);
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(button(kind), &first);
    QCoreApplication::sendEvent(button(kind), &repeated);
    QCoreApplication::sendEvent(button(kind), &repeated);
    QCOMPARE(clicked.count(), 1);
}

void PlatformButtonsTest::disabledDoesNothing()
{
    QFETCH(QString, kind);
    const QImage enabled = pictures::of(button(kind));
    button(kind)->setEnabled(false);
    QVERIFY(pictures::of(button(kind)) != enabled);
    QSignalSpy clicked(button(kind), &QAbstractButton::clicked);
    QTest::mouseClick(button(kind), Qt::LeftButton);
    QTest::keyClick(button(kind), Qt::Key_Space);
    QTest::keyClick(button(kind), Qt::Key_Return);
    QCOMPARE(clicked.count(), 0);
}

void PlatformButtonsTest::focusIsVisible()
{
    QFETCH(QString, kind);
    const QColor highlight = m_window->palette().color(QPalette::Highlight);
    QCOMPARE(pictures::count(pictures::of(button(kind)), highlight), 0);
    button(kind)->setFocus(Qt::TabFocusReason);
    QVERIFY(pictures::count(pictures::of(button(kind)), highlight) > 2 * button(kind)->width());
    // A click gives the focus without a ring around what was just touched.
    m_other->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(button(kind), Qt::LeftButton);
    QVERIFY(button(kind)->hasFocus());
    QCOMPARE(pictures::count(pictures::of(button(kind)), highlight), 0);
}

void PlatformButtonsTest::answersTheMouse()
{
    QFETCH(QString, kind);
    const QImage calm = pictures::of(button(kind));
    QTest::mouseMove(button(kind));
    QTRY_VERIFY(button(kind)->underMouse());
    const QImage under = pictures::of(button(kind));
    QVERIFY(under != calm);
    button(kind)->setDown(true);
    QVERIFY(pictures::of(button(kind)) != under);
}

void PlatformButtonsTest::isAButtonToAScreenReader()
{
    QFETCH(QString, kind);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(button(kind));
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::Button);
    QCOMPARE(accessible->text(QAccessible::Name), kind == QLatin1String("icon")
                                                      ? QStringLiteral("Edit")
                                                      : QStringLiteral("Click here to test"));
    QVERIFY(accessible->state().focusable);
    QAccessibleActionInterface *actions = accessible->actionInterface();
    QVERIFY(actions);
    QSignalSpy clicked(button(kind), &QAbstractButton::clicked);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(clicked.count(), 1);
}

void PlatformButtonsTest::iconKeepsItsPlaceInASmallButton()
{
    m_icon->setFixedSize(16, 16);
    const QColor text = m_window->palette().color(QPalette::WindowText);
    const QRect small = pictures::boundsOf(pictures::of(m_icon), text, 40);
    QVERIFY(small.width() >= 9 && small.height() >= 9);
    m_icon->setFixedSize(40, 40);
    const QRect large = pictures::boundsOf(pictures::of(m_icon), text, 40);
    QCOMPARE(large.size(), small.size());
    QVERIFY(qAbs(large.center().x() - 20) <= 2);
}

void PlatformButtonsTest::removeIconIsDrawnWithoutTheStyle()
{
    ZIconButton remove(QStyle::StandardPixmap(0xF000001B));
    remove.resize(16, 16);
    const QColor text = m_window->palette().color(QPalette::WindowText);
    QVERIFY(pictures::count(pictures::of(&remove), text, QRect(), 40) > 10);
    QCOMPARE(remove.icon().name(), QStringLiteral("ztk_remove"));
}

void PlatformButtonsTest::linkIsHighEnoughToHit()
{
    QVERIFY(m_link->sizeHint().height() >= 36);
    QVERIFY(m_icon->sizeHint().height() >= 36);
}

void PlatformButtonsTest::linkGrowsWithItsTextAndFont()
{
    const QSize before = m_link->sizeHint();
    QFont font = m_link->font();
    font.setPixelSize(40);
    m_link->setFont(font);
    QVERIFY(m_link->sizeHint().width() > before.width());
    QVERIFY(m_link->sizeHint().height() > before.height());
    const int width = m_link->sizeHint().width();
    m_link->setText(m_link->text() + QStringLiteral(" again"));
    QVERIFY(m_link->sizeHint().width() > width);
    QCOMPARE(m_link->minimumSizeHint(), m_link->sizeHint());
}

void PlatformButtonsTest::linkIsDrawnInTheLinkColour()
{
    const QColor link = m_window->palette().color(QPalette::Link);
    QVERIFY(pictures::count(pictures::of(m_link), link, QRect(), 30) > 30);
}

TEST_CLASS(QApplication, PlatformButtonsTest)

#include "platformbuttons.moc"
