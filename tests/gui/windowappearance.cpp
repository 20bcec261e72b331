#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/breadcrumb.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/layoutcheck.h"
#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowkeeper.h"
#include "sandbox/controlcenter/worlddrawer/choicerow.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

#include <memory>

using namespace controlcenter;
using testsupport::ShownRow;
namespace pictures = testsupport::pictures;

/** What the drawer changes of the window while it runs, and what is built only when it is used. */
class WindowAppearanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void servicesAndDrawerAreBuiltWhenTheyAreOpened();
    void thereIsRoomForAllThatTheDrawerSaysFromTheStart();
    void whatAChoiceLeadsToComesIntoSight();
    void theRowAndTheButtonShowOneTheme();
    void anotherTextSizeTakesANewWindow();
    void anotherDirectionTakesANewWindow();
    void anotherLanguageTakesAnotherProcess();
    void keysOpenTheListsThatTakeANewWindow();
    void noOtherWindowComesForWhatIsInForce();
    void argumentsSayWhatTheOptionsDo();

private:
    static QComboBox *box(ControlCenterWindow *window, const char *row);
    static void choose(ControlCenterWindow *window, const char *row, const QString &text);
    /** Opens the services and the drawer, and does this there. */
    void inDrawer(const std::function<void(ControlCenterWindow *)> &work);

    testsupport::ScriptedModule m_module;
    std::unique_ptr<WindowKeeper> m_keeper;
    QPointer<ControlCenterWindow> m_first;
};

void WindowAppearanceTest::initTestCase()
{
    ShownRow::setUpApplication();
    QFont font = QApplication::font();
    font.setPointSizeF(10);
    QApplication::setFont(font);
}

void WindowAppearanceTest::cleanup()
{
    m_keeper.reset();
    setTextPercent(100);
    setDirection(Direction::OfLanguage);
}

QComboBox *WindowAppearanceTest::box(ControlCenterWindow *window, const char *row)
{
    auto *found = window->world()->drawer()->findChild<ChoiceRow *>(QString::fromLatin1(row));
    return found ? found->findChild<QComboBox *>() : nullptr;
}

// As a click in the open list does.
void WindowAppearanceTest::choose(ControlCenterWindow *window, const char *row, const QString &text)
{
    QComboBox *list = box(window, row);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QVERIFY(list->view()->isVisible());
    const int wanted = list->findText(text);
    QVERIFY(wanted >= 0);
    list->view()->setCurrentIndex(list->model()->index(wanted, 0));
    QTest::keyClick(list->view(), Qt::Key_Return);
}

void WindowAppearanceTest::inDrawer(const std::function<void(ControlCenterWindow *)> &work)
{
    Options options;
    options.theme = QStringLiteral("light");
    m_keeper = std::make_unique<WindowKeeper>(&m_module, options);
    m_first = m_keeper->window();
    m_keeper->show();
    QVERIFY(QTest::qWaitForWindowActive(m_first));
    QTimer::singleShot(0, m_first, [this, work] {
        m_first->openServices();
        m_first->world()->openDrawer();
        work(m_first);
    });
}

void WindowAppearanceTest::servicesAndDrawerAreBuiltWhenTheyAreOpened()
{
    ControlCenterWindow window(&m_module);
    window.show();
    window.openModule();
    const auto built = [&] {
        return QStringList{window.findChild<ServiceWatch *>() ? QStringLiteral("watches")
                                                              : QString(),
                           window.findChild<ServicesPage *>() ? QStringLiteral("page") : QString(),
                           window.findChild<WorldDrawer *>() ? QStringLiteral("drawer") : QString()}
            .join(QLatin1Char(' '))
            .trimmed();
    };
    QCOMPARE(built(), QString());
    QVERIFY(!window.world()->drawer());
    window.openServices();
    QCOMPARE(built(), QStringLiteral("watches page"));
    window.world()->openDrawer();
    QCOMPARE(built(), QStringLiteral("watches page drawer"));
    QCOMPARE(window.findChildren<ServiceWatch *>().size(), sandbox::serviceList().size());
}

/** No service runs here, so that each row says what that leads to. */
void WindowAppearanceTest::thereIsRoomForAllThatTheDrawerSaysFromTheStart()
{
    ControlCenterWindow window(&m_module);
    window.show();
    window.openServices();
    QTRY_VERIFY(window.isComplete());
    for (int opened = 0; opened < 2; ++opened) {
        window.world()->openDrawer();
        QStringList problems;
        const bool well = QTest::qWaitFor([&] {
            problems = textsOf(layoutProblems(&window));
            return problems.isEmpty();
        });
        QVERIFY2(well, qPrintable(problems.join('\n')));
        // Rows and calls are scrolled apart, not both together.
        const auto *both = window.world()->drawer()->findChild<QScrollArea *>(
            QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(both->verticalScrollBar()->maximum(), 0);
        window.world()->closeDrawer();
    }
}

void WindowAppearanceTest::whatAChoiceLeadsToComesIntoSight()
{
    ControlCenterWindow window(&m_module);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.world()->openDrawer();
    auto *row = window.world()->drawer()->findChild<ChoiceRow *>(QStringLiteral("theme"));
    const auto isWhole = [row] {
        return row->visibleRegion().boundingRect() == row->rect();
    };
    QVERIFY(!isWhole());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab); // from outside of what is scrolled
    QCOMPARE(window.world()->drawer()->focusedRow(), QStringLiteral("theme"));
    QTRY_VERIFY(isWhole());
    const int height = row->height();
    row->setSentences(QVector<QString>(5, QStringLiteral("A line that tells more.")).toList());
    QTRY_VERIFY(row->height() > 2 * height);
    QTRY_VERIFY(isWhole());
}

void WindowAppearanceTest::theRowAndTheButtonShowOneTheme()
{
    ControlCenterWindow window(&m_module);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.world()->openDrawer();
    QComboBox *theme = box(&window, "theme");
    QCOMPARE(theme->currentText(), QStringLiteral("Light"));
    theme->setFocus();
    QTest::keyClick(theme, Qt::Key_Down);
    QCOMPARE(window.theme()->choice(), ThemeChoice::Dark);
    window.theme()->choose(ThemeChoice::System);
    QCOMPARE(theme->currentText(), QStringLiteral("Follow the system"));
    window.theme()->choose(ThemeChoice::Light);
    QCOMPARE(theme->currentText(), QStringLiteral("Light"));
}

void WindowAppearanceTest::anotherTextSizeTakesANewWindow()
{
    const double usual = QApplication::font().pointSizeF();
    inDrawer([&](ControlCenterWindow *window) {
        window->theme()->use(ThemeChoice::System);
        window->setGeometry(40, 30, 1000, 700);
        choose(window, "text-size", QStringLiteral("150%"));
        QTimer::singleShot(0, this, [this] { // in the event loop of the new window
            QTRY_VERIFY(m_keeper->window() != m_first && m_keeper->window()->world()->isOpen());
            QCoreApplication::exit(7);
        });
    });
    QCOMPARE(m_keeper->exec(), 7);
    QVERIFY(!m_first);
    ControlCenterWindow *window = m_keeper->window();
    QCOMPARE(window->font().pointSizeF(), 1.5 * usual);
    QCOMPARE(window->currentPlace(), QStringLiteral("Services"));
    QCOMPARE(window->geometry(), QRect(40, 30, 1000, 700));
    QCOMPARE(window->theme()->choice(), ThemeChoice::System);
    QCOMPARE(box(window, "text-size")->currentText(), QStringLiteral("150%"));
    QCOMPARE(window->focusWidget(), box(window, "text-size"));
}

void WindowAppearanceTest::anotherDirectionTakesANewWindow()
{
    inDrawer([&](ControlCenterWindow *window) {
        choose(window, "direction", QStringLiteral("Right to left"));
        QTimer::singleShot(0, this, [this] {
            QTRY_VERIFY(m_keeper->window() != m_first && m_keeper->window()->world()->isOpen());
            QCoreApplication::exit(0);
        });
    });
    QCOMPARE(m_keeper->exec(), 0);
    QCOMPARE(m_keeper->window()->layoutDirection(), Qt::RightToLeft);
    const QPair<QWidget *, QString> headings[] = {
        {m_keeper->window()->findChild<Breadcrumb *>(), QStringLiteral("Services")},
        {m_keeper->window()->world()->drawer(), QStringLiteral("World")}};
    for (const auto &[where, heading] : headings) {
        QLabel *label = testsupport::labelWithText(where, heading);
        const QRect ink =
            pictures::boundsOf(pictures::of(label), ShownRow::color(QPalette::WindowText), 90);
        QVERIFY2(ink.right() >= label->width() - 4, qPrintable(heading));
    }
    QCOMPARE(box(m_keeper->window(), "direction")->currentText(), QStringLiteral("Right to left"));
    QVERIFY(m_keeper->argumentsOfSuccessor().isEmpty());
}

void WindowAppearanceTest::anotherLanguageTakesAnotherProcess()
{
    inDrawer([&](ControlCenterWindow *window) {
        choose(window, "language", QStringLiteral("English (UK)"));
    });
    m_keeper->exec();
    const Options wanted = parseOptions(QStringList(QStringLiteral("control-center")) +
                                        m_keeper->argumentsOfSuccessor() +
                                        QStringList(QStringLiteral("--plugin=module.so")));
    QCOMPARE(wanted.error, QString());
    QCOMPARE(wanted.locale, QStringLiteral("en_GB"));
    QCOMPARE(wanted.theme, QStringLiteral("light"));
    QCOMPARE(wanted.places, QStringList(QStringLiteral("Services")));
    QCOMPARE(wanted.world, QStringLiteral("language"));
    QCOMPARE(wanted.geometry, m_first->geometry());
}

void WindowAppearanceTest::keysOpenTheListsThatTakeANewWindow()
{
    ControlCenterWindow window(&m_module);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.world()->openDrawer();
    int wanted = 0;
    connect(&window, &ControlCenterWindow::appearanceWanted, this, [&wanted] { ++wanted; });
    for (const char *row : {"language", "text-size", "direction"}) {
        QComboBox *list = box(&window, row);
        list->setFocus();
        for (const int key : {Qt::Key_End, Qt::Key_PageDown, Qt::Key_R, Qt::Key_2})
            QTest::keyClick(list, Qt::Key(key));
        QVERIFY(!list->view()->isVisible());
        for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Space}) {
            QTest::keyClick(list, Qt::Key(key));
            QVERIFY(list->view()->isVisible());
            list->hidePopup();
        }
    }
    QCOMPARE(wanted, 0);
}

void WindowAppearanceTest::noOtherWindowComesForWhatIsInForce()
{
    ControlCenterWindow window(&m_module);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.world()->openDrawer();
    int wanted = 0;
    connect(&window, &ControlCenterWindow::appearanceWanted, this, [&wanted] { ++wanted; });
    choose(&window, "text-size", QStringLiteral("100%"));
    QCOMPARE(wanted, 0);
    choose(&window, "text-size", QStringLiteral("125%"));
    QCOMPARE(wanted, 1);
    QCOMPARE(box(&window, "text-size")->currentText(), QStringLiteral("100%")); // as it is
}

void WindowAppearanceTest::argumentsSayWhatTheOptionsDo()
{
    const QStringList given{
        QStringLiteral("--plugin=a b.so"),    QStringLiteral("--page=Speech to Text"),
        QStringLiteral("--locale=ug_CN"),     QStringLiteral("--theme=system"),
        QStringLiteral("--log=-x.log"),       QStringLiteral("--scale=2"),
        QStringLiteral("--font-size=12.5"),   QStringLiteral("--place=Services"),
        QStringLiteral("--text-percent=125"), QStringLiteral("--direction=2"),
        QStringLiteral("--world=language"),   QStringLiteral("--geometry=-5,6,700,500")};
    const Options options = parseOptions(QStringList(QStringLiteral("program")) + given);
    QCOMPARE(options.error, QString());
    QCOMPARE(argumentsFor(options), given);
}

TEST_CLASS(QApplication, WindowAppearanceTest)
#include "windowappearance.moc"
