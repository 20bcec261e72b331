#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/searchpopup.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/ziconbutton.h>
#include <ztk/zpainting.h>

#include <QListView>
#include <QtTest>

#include <memory>

using namespace controlcenter;
using testsupport::ShownRow;
using Ztk::Widget::ZIconButton;
using Ztk::Widget::ZPainting;
namespace pictures = testsupport::pictures;

/** The window's search: what it finds beside the module's, and what can be seen and operated. */
class WindowSearchFieldTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ShownRow::setUpApplication(); }
    void init();
    void cleanup();
    void theWindowsOwnEntriesAreFoundAndOpened_data();
    void theWindowsOwnEntriesAreFoundAndOpened();
    void theThemeIsFound();
    void aPageAndItsSettingOfTheSameNameLookDifferent();
    void whatMatchesIsMarked_data();
    void whatMatchesIsMarked();
    void theTextIsClearedWithAButton();
    void theButtonIsReachedByTab();
    void theButtonStandsWhereTheTextEnds();
    void nothingIsSaidAboutResultsThatAreGone();

private:
    SearchField *field() const { return m_window->searchField(); }
    ZIconButton *clearButton() const { return field()->findChild<ZIconButton *>(); }
    SearchPopup *popup() const { return m_window->findChild<SearchPopup *>(); }
    QListView *results() const { return popup()->findChild<QListView *>(); }
    QImage pictureOf(int row) const;

    testsupport::ScriptedModule m_module;
    std::unique_ptr<ControlCenterWindow> m_window;
};

void WindowSearchFieldTest::init()
{
    m_window = std::make_unique<ControlCenterWindow>(&m_module);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    field()->setFocus();
}

void WindowSearchFieldTest::cleanup()
{
    m_window.reset();
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

QImage WindowSearchFieldTest::pictureOf(int row) const
{
    const QRect place = results()->visualRect(results()->model()->index(row, 0));
    return pictures::of(results()->viewport()).copy(place);
}

void WindowSearchFieldTest::theWindowsOwnEntriesAreFoundAndOpened_data()
{
    QTest::addColumn<QString>("title");

    QTest::newRow("shortcuts") << QStringLiteral("Shortcuts");
    QTest::newRow("services") << QStringLiteral("Services");
}

void WindowSearchFieldTest::theWindowsOwnEntriesAreFoundAndOpened()
{
    QFETCH(QString, title);
    QTest::keyClicks(field(), title.left(5).toLower());
    QCOMPARE(field()->accessibleDescription(), title + QStringLiteral(", Control Center"));
    QTest::keyClick(field(), Qt::Key_Return);
    QCOMPARE(m_window->currentTitle(), title);
    QVERIFY(!field()->hasFocus());
}

void WindowSearchFieldTest::theThemeIsFound()
{
    QTest::keyClicks(field(), QStringLiteral("dark"));
    QTest::keyClick(field(), Qt::Key_Return);
    QVERIFY(QApplication::focusWidget()->inherits("controlcenter::ThemeButton"));
    bool opened = false;
    QTimer::singleShot(0, this, [&opened] {
        if (QWidget *list = QApplication::activePopupWidget())
            opened = list->close();
    });
    QTRY_VERIFY(opened);
}

void WindowSearchFieldTest::aPageAndItsSettingOfTheSameNameLookDifferent()
{
    const QVector<SearchEntry> found = m_window->searchEntries();
    QCOMPARE(found.at(0).item, QString());
    QVERIFY(!found.at(1).item.isEmpty());
    QVERIFY(found.at(0).icon.cacheKey() != found.at(1).icon.cacheKey());

    const QString name = QStringLiteral("Translation");
    popup()->showResults({{name, name, QString()},
                          {name, name, QString(), QString(), found.at(0).icon},
                          {name, name, name, QString(), found.at(1).icon}},
                         QStringLiteral("none of it"));
    const QRect beforeTheText(0, 0, 40, results()->sizeHintForRow(0));
    QVERIFY(pictureOf(1).copy(beforeTheText) != pictureOf(2).copy(beforeTheText));
    QVERIFY(pictureOf(1).copy(beforeTheText) != pictureOf(0).copy(beforeTheText));
}

void WindowSearchFieldTest::whatMatchesIsMarked_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("mirrored");
    QTest::addColumn<bool>("selected");

    const QString uyghur = QStringLiteral("تەرجىمە");
    for (const bool selected : {false, true}) {
        const char *state = selected ? "highlighted" : "usual";
        QTest::addRow("%s row", state)
            << QStringLiteral("Translation") << QStringLiteral("trans") << false << selected;
        QTest::addRow("%s row, right to left", state)
            << uyghur << uyghur.left(3) << true << selected;
    }
}

/** On the side where the text begins, as wide as the letters, and without changing these. */
void WindowSearchFieldTest::whatMatchesIsMarked()
{
    QFETCH(QString, name);
    QFETCH(QString, query);
    QFETCH(bool, mirrored);
    QFETCH(bool, selected);
    QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    const SearchEntry entry = {QStringLiteral("-"), name, QString()};
    const int row = selected ? 0 : 1;

    const QPalette palette = QApplication::palette();
    const QColor back = palette.color(selected ? QPalette::Highlight : QPalette::Base);
    const QColor letters = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor match = palette.color(selected ? QPalette::HighlightedText : QPalette::Link);
    popup()->showResults({entry, entry}, QStringLiteral("none of it"));
    const QImage without = pictureOf(row);
    popup()->showResults({entry, entry}, query);
    const QImage with = pictureOf(row);
    QVERIFY(without != with);
    const QRect text = pictures::boundsOf(without, letters);
    const QRect marked = pictures::boundsOf(with, letters) | pictures::boundsOf(with, match);
    QVERIFY(qAbs(marked.left() - text.left()) <= 1 && qAbs(marked.right() - text.right()) <= 1);

    QRect mark;
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            if (with.pixelColor(x, y) != without.pixelColor(x, y))
                mark |= QRect(x, y, 1, 1);
    QVERIFY(mark.width() > text.width() / 4 && mark.width() < text.width() * 3 / 4);
    constexpr int bearing = 5; // px, between a letter's ink and its edge
    QVERIFY(qAbs(mirrored ? mark.right() - text.right() : mark.left() - text.left()) <= bearing);
    const QColor behind = with.pixelColor(mark.center().x(), mark.top() + 1);
    QVERIFY(behind != back);
    QVERIFY(ZPainting::contrast(behind, match) >= 4.5);
}

void WindowSearchFieldTest::theTextIsClearedWithAButton()
{
    QVERIFY(!clearButton()->isVisible());
    QTest::keyClicks(field(), QStringLiteral("serv"));
    QVERIFY(clearButton()->isVisible());
    QCOMPARE(clearButton()->accessibleName(), QStringLiteral("Clear search"));
    QTest::mouseClick(clearButton(), Qt::LeftButton);
    QVERIFY(field()->text().isEmpty());
    QVERIFY(field()->hasFocus());
    QVERIFY(!clearButton()->isVisible());
    QVERIFY(!popup()->isVisible());
}

void WindowSearchFieldTest::theButtonIsReachedByTab()
{
    QTest::keyClicks(field(), QStringLiteral("serv"));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
    QVERIFY(clearButton()->hasFocus());
    QTest::keyClick(clearButton(), Qt::Key_Space);
    QVERIFY(field()->text().isEmpty());
    QVERIFY(field()->hasFocus());
}

void WindowSearchFieldTest::theButtonStandsWhereTheTextEnds()
{
    QTest::keyClicks(field(), QStringLiteral("serv"));
    QVERIFY(clearButton()->geometry().left() > field()->width() / 2);
    QVERIFY(field()->rect().contains(clearButton()->geometry()));
    const int room = field()->width() - clearButton()->geometry().left();
    QVERIFY(field()->textMargins().right() >= room - 2);
    m_window->setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(clearButton()->geometry().right(), room - 1);
    QVERIFY(field()->textMargins().left() >= room - 2);
}

void WindowSearchFieldTest::nothingIsSaidAboutResultsThatAreGone()
{
    QTest::keyClicks(field(), QStringLiteral("serv"));
    QCOMPARE(field()->accessibleDescription(), QStringLiteral("Services, Control Center"));
    QTest::keyClick(field(), Qt::Key_Escape);
    QCOMPARE(field()->accessibleDescription(), SearchField::hint());

    QTest::keyClicks(field(), QStringLiteral("serv"));
    m_window->setFocus();
    QCOMPARE(field()->accessibleDescription(), SearchField::hint());
}

TEST_CLASS(QApplication, WindowSearchFieldTest)
#include "windowsearchfield.moc"
