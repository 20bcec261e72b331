#include "sandbox/controlcenter/breadcrumb.h"
#include "sandbox/controlcenter/navigationcolumn.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/searchpopup.h"
#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "tests/gui/shownwindow.h"
#include "tests/support/testprogram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QtTest>

using namespace testsupport;
using controlcenter::BackButton;
using controlcenter::Breadcrumb;
using controlcenter::ControlCenterWindow;
using controlcenter::NavigationColumn;
using controlcenter::SearchPopup;

/** The window from very small to very large: its edges, and the columns that it has room for. */
class WindowSizesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_window.start()); }
    void cleanup() { m_window.close(); }
    void titlesAndPagesHaveOneEdge_data();
    void titlesAndPagesHaveOneEdge();
    void noPageIsScrolledSideways_data();
    void noPageIsScrolledSideways();
    void aNewWindowFitsTheScreen();
    void columnsComeAndGoWithTheWidth();
    void keysGoOnAndBack_data();
    void keysGoOnAndBack();
    void clicksGoOnAndBack();
    void arrowKeysStayInTheirColumn();
    void theSearchIsThereInASmallWindow();
    void allResultsCanBeSeenInASmallWindow();

private:
    QString shown() const;
    QAbstractItemView *list() const
    {
        return m_window->moduleList()->findChild<QAbstractItemView *>();
    }
    NavigationColumn *entries() const { return m_window->findChild<NavigationColumn *>(); }
    BackButton *back() const { return m_window->findChild<BackButton *>(); }

    ShownWindow m_window;
};

/** The columns that are seen, and after a dash the one with the focus. */
QString WindowSizesTest::shown() const
{
    ShownWindow::settle();
    const QPair<QString, QWidget *> columns[] = {
        {QStringLiteral("entries"), m_window->searchField()->parentWidget()},
        {QStringLiteral("list"), m_window->moduleList()},
        {QStringLiteral("page"), m_window->currentPage()},
    };
    QStringList seen;
    QString focus;
    for (const auto &[name, column] : columns) {
        if (!column || !column->isVisible())
            continue;
        seen.append(name);
        if (column->isAncestorOf(QApplication::focusWidget()))
            focus = QStringLiteral(" - ") + name;
    }
    return seen.join(QLatin1Char(' ')) + focus;
}

void WindowSizesTest::titlesAndPagesHaveOneEdge_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QSize>("windowSize");
    for (const char *locale : {"en", "ug_CN"})
        for (const QSize &size : {usualWindow, smallWindow, largeWindow})
            QTest::addRow("%s, %d x %d", locale, size.width(), size.height())
                << QString::fromLatin1(locale) << size;
}

/** From the window's leading edge, or from that of the content beside the side bar. */
void WindowSizesTest::titlesAndPagesHaveOneEdge()
{
    constexpr int widestPage = 800; // px, without its margins
    constexpr int edge = 20;        // px
    QFETCH(QString, locale);
    QFETCH(QSize, windowSize);
    QVERIFY(m_window.useLocale(locale));
    QVERIFY(m_window.open(windowSize));
    QCOMPARE(m_window->size(), windowSize);
    const bool one = windowSize == smallWindow;

    const auto place = [this](const QWidget *widget) {
        const QRect on(widget->mapTo(m_window.get(), QPoint()), widget->size());
        return m_window->layoutDirection() == Qt::LeftToRight
                   ? on
                   : QStyle::visualRect(Qt::RightToLeft, m_window->rect(), on);
    };
    const auto cards = [](const QWidget *page) {
        QList<QWidget *> all;
        for (QWidget *card : page->findChildren<QWidget *>())
            if (card->inherits("zcc::widgets::SettingsGroup") && card->isVisible())
                all.append(card);
        return all;
    };
    const auto expect = [&](const QWidget *page, int left) {
        QTRY_VERIFY(!cards(page).isEmpty());
        for (const QWidget *card : cards(page)) {
            QCOMPARE(place(card).left(), left);
            QVERIFY2(card->width() <= widestPage, qPrintable(QString::number(card->width())));
        }
    };

    const auto *heading = m_window->findChild<Breadcrumb *>();
    m_window->openPage(assistantPageName);
    ShownWindow::settle();
    const QRect row = place(m_window->moduleList()->findChild<QAbstractItemView *>()->viewport());
    const int left = one ? edge : row.left();
    if (!one) {
        const int sideBar = m_window->searchField()->parentWidget()->width();
        QCOMPARE(left, sideBar + edge);
        QCOMPARE(place(heading->findChild<QLabel *>()).left(), left);
    }
    expect(m_window->currentPage(), one ? edge : row.right() + 1 + edge);
    m_window->openShortcuts();
    ShownWindow::settle();
    expect(m_window->shortcutsPage(), left);
    m_window->openServices();
    ShownWindow::settle();
    expect(m_window->currentContent(), left);
}

void WindowSizesTest::noPageIsScrolledSideways_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("textSize");
    QTest::addColumn<QSize>("windowSize");
    for (const char *locale : {"en", "zh_CN", "zh_HK", "zh_TW", "bo_CN", "ug_CN"})
        for (const double textSize : {usualText, hugeText})
            for (const QSize &size : {usualWindow, smallWindow, largeWindow})
                QTest::addRow("%s, %g points, %d x %d", locale, textSize, size.width(),
                              size.height())
                    << QString::fromLatin1(locale) << textSize << size;
}

void WindowSizesTest::noPageIsScrolledSideways()
{
    QFETCH(QString, locale);
    QFETCH(double, textSize);
    QFETCH(QSize, windowSize);
    QVERIFY(m_window.useLocale(locale, textSize));
    QVERIFY(m_window.open(windowSize));
    const auto sideways = [this](const QString &where) {
        ShownWindow::settle();
        QString found;
        for (const QScrollBar *bar : m_window->findChildren<QScrollBar *>())
            if (bar->orientation() == Qt::Horizontal && bar->isVisible() && bar->maximum() > 0)
                found += where + QStringLiteral(" by %1 px; ").arg(bar->maximum());
        return found;
    };
    QString found = sideways(QStringLiteral("list"));
    for (const QString &page : m_window->pageNames()) {
        m_window->openPage(page);
        found += sideways(page);
        found += m_window.layoutProblems(page);
    }
    m_window->openShortcuts();
    m_window->shortcutsPage()->editButton()->click();
    found += sideways(QStringLiteral("shortcuts"));
    m_window->openServices();
    found += m_window.layoutProblems(QStringLiteral("services"));
    found += sideways(QStringLiteral("services"));
    m_window->world()->openDrawer();
    found += m_window.layoutProblems(QStringLiteral("world"));
    found += sideways(QStringLiteral("world"));
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void WindowSizesTest::aNewWindowFitsTheScreen()
{
    for (const double textSize : {usualText, hugeText}) {
        QVERIFY(m_window.useLocale(QStringLiteral("en"), textSize));
        const ControlCenterWindow window(m_window.module());
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        QVERIFY(window.width() <= screen.width() && window.height() <= screen.height());
    }
}

void WindowSizesTest::columnsComeAndGoWithTheWidth()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(usualWindow));
    QVERIFY(shown().startsWith(QLatin1String("entries list page")));
    QVERIFY(!back()->isVisible());
    m_window->resize(750, 600);
    QVERIFY(shown().startsWith(QLatin1String("list page")));
    QVERIFY(back()->isVisible());
    m_window->resize(smallWindow);
    QVERIFY(shown().startsWith(QLatin1String("list")) && !shown().contains(QLatin1String("page")));
    m_window->resize(usualWindow);
    QVERIFY(shown().startsWith(QLatin1String("entries list page")));
    QVERIFY(!back()->isVisible());
}

void WindowSizesTest::keysGoOnAndBack_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<Qt::Key>("arrow");
    QTest::newRow("left to right") << QStringLiteral("en") << Qt::Key_Left;
    QTest::newRow("right to left") << QStringLiteral("ug_CN") << Qt::Key_Right;
}

void WindowSizesTest::keysGoOnAndBack()
{
    QFETCH(QString, locale);
    QFETCH(Qt::Key, arrow);
    QVERIFY(m_window.useLocale(locale));
    QVERIFY(m_window.open(smallWindow));
    m_window->setFocus();
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(m_window->windowHandle(), key, modifiers);
    };

    press(arrow, Qt::AltModifier);
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
    press(arrow, Qt::AltModifier); // nowhere
    press(Qt::Key_Escape);
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
    press(Qt::Key_Return);
    QTRY_COMPARE(shown(), QStringLiteral("list - list"));
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    QTRY_COMPARE(shown(), QStringLiteral("page - page"));
    QCOMPARE(m_window->currentTitle(), m_window->pageTitle(QStringLiteral("Speech to Text")));
    press(Qt::Key_Escape);
    QCOMPARE(shown(), QStringLiteral("list - list"));
    press(Qt::Key_Back);
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
    // An entry without a list leads to its page.
    press(Qt::Key_Up);
    press(Qt::Key_Enter);
    QTRY_VERIFY(m_window->shortcutsPage()->isVisible() && !entries()->isVisible());
    press(arrow, Qt::AltModifier);
    QVERIFY(entries()->hasFocus());
}

void WindowSizesTest::clicksGoOnAndBack()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(smallWindow));
    const auto click = [](QAbstractItemView *view, int row) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view->visualRect(view->model()->index(row, 0)).center());
    };
    click(list(), 0); // the page that is open already
    QTRY_VERIFY(shown().startsWith(QLatin1String("page")));
    back()->click();
    click(list(), 3);
    QTRY_VERIFY(shown().startsWith(QLatin1String("page")));
    QCOMPARE(m_window->currentTitle(), QStringLiteral("Translation"));
    back()->setFocus(); // which stays there beside the list
    QTest::keyClick(back(), Qt::Key_Space);
    QCOMPARE(shown(), QStringLiteral("list - list"));
    back()->click();
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
    QTest::mouseClick(entries()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      entries()->viewport()->rect().bottomLeft()); // below the last entry
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
    click(entries(), 1);
    QTRY_VERIFY(shown().startsWith(QLatin1String("list")));
}

void WindowSizesTest::arrowKeysStayInTheirColumn()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(smallWindow));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    QTRY_COMPARE(m_window->currentTitle(), QStringLiteral("Speech to Text"));
    QCOMPARE(shown(), QStringLiteral("list - list"));
    back()->click();
    QTest::keyClick(entries(), Qt::Key_Up);
    QCOMPARE(m_window->currentTitle(), QStringLiteral("Shortcuts"));
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
}

void WindowSizesTest::theSearchIsThereInASmallWindow()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(smallWindow));
    m_window->openPage(QStringLiteral("Translation"));
    QVERIFY(shown().startsWith(QLatin1String("page")));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(shown(), QStringLiteral("entries - entries"));
    QTest::keyClicks(m_window->searchField(), QStringLiteral("gender"));
    QTest::keyClick(m_window->searchField(), Qt::Key_Return);
    QTRY_COMPARE(shown(), QStringLiteral("page - page"));
    QCOMPARE(m_window->currentTitle(), QStringLiteral("Text to Speech"));
}

void WindowSizesTest::allResultsCanBeSeenInASmallWindow()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(smallWindow));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
    m_window->searchField()->setText(QStringLiteral("e"));
    const auto *results = m_window->findChild<SearchPopup *>();
    QVERIFY(m_window->rect().contains(results->geometry()));
    const auto *rows = results->findChild<QAbstractItemView *>();
    QVERIFY(rows->model()->rowCount() > 6); // more than there is room for
    for (int i = 0; i < rows->model()->rowCount(); ++i) {
        QVERIFY(rows->viewport()->rect().contains(rows->visualRect(rows->currentIndex())));
        QTest::keyClick(m_window->searchField(), Qt::Key_Down);
    }
}

TEST_CLASS(QApplication, WindowSizesTest)
#include "windowsizes.moc"
