#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScopedPointer>
#include <QTest>
#include <QVBoxLayout>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <utility>

using Ztk::Widget::ZApplicationSetup;

/** What the toolkit has screen readers say, which pay no heed to most of Qt's events. */
class PlatformAnnouncementsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void alertsAreSaid();
    void theSameAlertIsSaidAgain();
    void whatIsSaidWithTheFocusIsNotRepeated();
    void newDescriptionsOfTheFocusAreSaid();
    void valuesOfComboBoxesAreSaid();
    void nothingOfItIsSeenOrClicked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QStringList said();
    void alert(const QString &text);

    QScopedPointer<QWidget> m_window;
    QLineEdit *m_line = nullptr; // has the focus first
    QComboBox *m_box = nullptr;
    QLabel *m_label = nullptr;
    QStringList m_said;
};

void PlatformAnnouncementsTest::initTestCase()
{
    ZApplicationSetup::install();
    // As if somebody listened, which no offscreen program has.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QVERIFY(QAccessible::isActive());
    qApp->installEventFilter(this);
}

void PlatformAnnouncementsTest::cleanupTestCase()
{
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
}

void PlatformAnnouncementsTest::init()
{
    m_window.reset(new QWidget);
    auto *layout = new QVBoxLayout(m_window.data());
    m_line = new QLineEdit;
    m_box = new QComboBox;
    m_box->addItems({QStringLiteral("one"), QStringLiteral("two")});
    m_label = new QLabel;
    layout->addWidget(m_line);
    layout->addWidget(m_box);
    layout->addWidget(m_label);
    m_line->setFocus();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    m_said.clear();
}

// A notification that appears is said.
bool PlatformAnnouncementsTest::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        const QAccessibleInterface *shown = QAccessible::queryAccessibleInterface(watched);
        if (shown && shown->role() == QAccessible::Notification)
            m_said.append(shown->text(QAccessible::Name));
    }
    return QObject::eventFilter(watched, event);
}

QStringList PlatformAnnouncementsTest::said()
{
    return std::exchange(m_said, QStringList());
}

void PlatformAnnouncementsTest::alert(const QString &text)
{
    m_label->setText(text);
    QAccessibleEvent event(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void PlatformAnnouncementsTest::alertsAreSaid()
{
    alert(QStringLiteral("first"));
    alert(QString());
    alert(QStringLiteral("second"));
    QCOMPARE(said(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void PlatformAnnouncementsTest::theSameAlertIsSaidAgain()
{
    alert(QStringLiteral("again"));
    alert(QStringLiteral("again"));
    QCOMPARE(said(), QStringList({QStringLiteral("again"), QStringLiteral("again")}));
}

void PlatformAnnouncementsTest::whatIsSaidWithTheFocusIsNotRepeated()
{
    m_line->setAccessibleDescription(QStringLiteral("verdict"));
    said();
    alert(QStringLiteral("verdict"));
    QCOMPARE(said(), QStringList());
    m_box->setFocus();
    said();
    alert(QStringLiteral("verdict"));
    QCOMPARE(said(), QStringList(QStringLiteral("verdict")));
}

void PlatformAnnouncementsTest::newDescriptionsOfTheFocusAreSaid()
{
    m_line->setAccessibleDescription(QStringLiteral("Nothing found"));
    QCOMPARE(said(), QStringList(QStringLiteral("Nothing found")));
    m_box->setAccessibleDescription(QStringLiteral("elsewhere"));
    m_line->setAccessibleDescription(QString());
    QCOMPARE(said(), QStringList());
}

void PlatformAnnouncementsTest::valuesOfComboBoxesAreSaid()
{
    m_box->setCurrentIndex(1); // without the focus it concerns nobody
    QCOMPARE(said(), QStringList());
    m_box->setFocus();
    QCOMPARE(said(), QStringList(QStringLiteral("two")));
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(said(), QStringList(QStringLiteral("one")));

    // An open list says its entries itself.
    m_box->showPopup();
    QTest::keyClick(m_box->view(), Qt::Key_Down);
    QCOMPARE(said(), QStringList());
    QTest::keyClick(m_box->view(), Qt::Key_Return);
    QVERIFY(said().contains(QStringLiteral("two")));
}

void PlatformAnnouncementsTest::nothingOfItIsSeenOrClicked()
{
    m_label->setText(QStringLiteral("text"));
    m_window->resize(300, 300); // with room for the text
    const QImage before = m_window->grab().toImage();
    alert(QStringLiteral("text"));
    QCOMPARE(said().size(), 1);
    QCOMPARE(m_window->grab().toImage(), before);
    QVERIFY(m_window->childAt(0, 0) == nullptr);
}

TEST_CLASS(QApplication, PlatformAnnouncementsTest)
#include "platformannouncements.moc"
