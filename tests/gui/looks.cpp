#include "sandbox/controlcenter/breadcrumb.h"
#include "sandbox/controlcenter/contrastcheck.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "tests/gui/shownwindow.h"
#include "tests/support/modulepages.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <ztk/zguiapplicationhelper.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace testsupport;
using controlcenter::Breadcrumb;
using controlcenter::contrastProblems;
using controlcenter::textsOf;
using Ztk::Gui::ZGuiApplicationHelper;

/** Every page in every language, with usual and with large texts, seen through a ruler. */
class LooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_window.start()); }
    void cleanup();
    void nothingIsCutOffOrLiesOverAnother_data();
    void nothingIsCutOffOrLiesOverAnother();
    void everythingStandsOut_data();
    void everythingStandsOut();
    void listsOpenWithAllOfTheirEntries();
    void theVoiceTestKeepsItsHeight();
    void theHeadingIsNeverSmallerThanTheTexts();
    void keysAndValuesOfServicesStandOnOneLine();

private:
    QString paleness(const QString &where) const;
    QAbstractButton *link() const;
    void startVoiceTest();
    void endVoiceTest(const char *code);

    ShownWindow m_window;
};

void LooksTest::cleanup()
{
    m_window.close();
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

QString LooksTest::paleness(const QString &where) const
{
    QStringList found;
    const bool well = QTest::qWaitFor([&] {
        ShownWindow::settle();
        found = textsOf(contrastProblems(m_window.get(), m_window->grab().toImage()));
        return m_window->isComplete() && found.isEmpty();
    });
    return well ? QString()
                : where + QStringLiteral(":\n  ") + found.join(QStringLiteral("\n  ")) + '\n';
}

QAbstractButton *LooksTest::link() const
{
    for (QAbstractButton *button : m_window->currentPage()->findChildren<QAbstractButton *>())
        if (button->inherits("Ztk::Widget::ZCommandLinkButton"))
            return button;
    return nullptr;
}

void LooksTest::startVoiceTest()
{
    m_window->openPage(assistantPageName);
    flushDeferredDeletes();
    QVERIFY(link());
    link()->click();
    flushDeferredDeletes();
    QVERIFY(!link());
    QVERIFY(QMetaObject::invokeMethod(
        m_window->currentPage(), "slotIatResult",
        Q_ARG(QString, QStringLiteral("阿岚帮我预约明天早上10点的视频会议")), Q_ARG(int, 1),
        Q_ARG(bool, false)));
}

void LooksTest::endVoiceTest(const char *code)
{
    QVERIFY(QMetaObject::invokeMethod(m_window->currentPage(), "slotAqcResult",
                                      Q_ARG(QString, QString::fromLatin1(code))));
    flushDeferredDeletes();
    QVERIFY(link());
}

void LooksTest::nothingIsCutOffOrLiesOverAnother_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("textSize");
    QTest::addColumn<QSize>("windowSize");

    for (const char *locale :
         {"en", "en_US", "zh_CN", "zh_HK", "zh_TW", "bo_CN", "ug_CN", "long"}) {
        for (const double textSize : {usualText, largeText}) {
            for (const QSize &size : {usualWindow, smallWindow, largeWindow}) {
                QTest::addRow("%s, %s texts, window of %d x %d", locale,
                              textSize > usualText ? "large" : "usual", size.width(), size.height())
                    << QString::fromLatin1(locale) << textSize << size;
            }
        }
    }
}

void LooksTest::nothingIsCutOffOrLiesOverAnother()
{
    QFETCH(QString, locale);
    QFETCH(double, textSize);
    QFETCH(QSize, windowSize);
    QVERIFY(m_window.useLocale(locale, textSize));
    QVERIFY(m_window.open(windowSize));

    QString all = m_window.layoutProblems(QStringLiteral("list"));
    const QStringList pages = m_window->pageNames();
    QCOMPARE(pages.size(), modulePages().size());
    for (const QString &page : pages) {
        m_window->openPage(page);
        all += m_window.layoutProblems(page);
    }
    startVoiceTest();
    all += m_window.layoutProblems(QStringLiteral("running voice test"));
    for (const char *code : {"1000", "1003", "1004", "1005", "1008"}) {
        endVoiceTest(code);
        all += m_window.layoutProblems(
            QStringLiteral("voice test with code %1").arg(QLatin1String(code)));
    }
    m_window->openShortcuts();
    all += m_window.layoutProblems(QStringLiteral("shortcuts"));
    m_window->openServices();
    all += m_window.layoutProblems(QStringLiteral("services"));
    m_window->world()->openDrawer();
    all += m_window.layoutProblems(QStringLiteral("world"));
    m_window->world()->closeDrawer();
    QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier); // to the entries
    QVERIFY(m_window->searchField()->isVisible());
    all += m_window.layoutProblems(QStringLiteral("entries"));
    m_window->searchField()->setText(m_window->pageTitle(assistantPageName));
    // Results that are longer than a small window is wide are shortened there.
    if (locale != QLatin1String("long") || windowSize != smallWindow)
        all += m_window.layoutProblems(QStringLiteral("search"));
    QVERIFY2(all.isEmpty(), qPrintable(all));
}

void LooksTest::everythingStandsOut_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    for (const char *locale : {"en", "zh_CN", "bo_CN", "ug_CN"}) {
        QTest::addRow("%s, light", locale)
            << QString::fromLatin1(locale) << ZGuiApplicationHelper::LightType;
        QTest::addRow("%s, dark", locale)
            << QString::fromLatin1(locale) << ZGuiApplicationHelper::DarkType;
        QTest::addRow("%s, high contrast", locale)
            << QString::fromLatin1(locale) << ZGuiApplicationHelper::ContrastType;
    }
}

void LooksTest::everythingStandsOut()
{
    QFETCH(QString, locale);
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    QVERIFY(m_window.useLocale(locale));
    ZGuiApplicationHelper::instance()->setThemeType(theme);
    QVERIFY(m_window.open(usualWindow));

    QString all;
    for (const QString &page : m_window->pageNames()) {
        m_window->openPage(page);
        all += paleness(page);
    }
    startVoiceTest();
    all += paleness(QStringLiteral("running voice test"));
    endVoiceTest("1000");
    all += paleness(QStringLiteral("finished voice test"));
    m_window->openShortcuts();
    m_window->shortcutsPage()->editButton()->click();
    all += paleness(QStringLiteral("shortcuts"));
    m_window->openServices();
    m_window->world()->openDrawer();
    all += paleness(QStringLiteral("services and world"));
    m_window->world()->closeDrawer();
    m_window->searchField()->setFocus();
    m_window->searchField()->setText(m_window->pageTitle(assistantPageName));
    all += paleness(QStringLiteral("search"));
    QVERIFY2(all.isEmpty(), qPrintable(all));
}

/** Whichever is chosen: nothing is scrolled away. */
void LooksTest::listsOpenWithAllOfTheirEntries()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(usualWindow));
    int lists = 0;
    for (const QString &page : m_window->pageNames()) {
        m_window->openPage(page);
        ShownWindow::settle();
        for (QComboBox *box : m_window->currentPage()->findChildren<QComboBox *>()) {
            ++lists;
            for (int chosen = 0; chosen < box->count(); ++chosen) {
                box->setCurrentIndex(chosen);
                box->showPopup();
                ShownWindow::settle();
                const QAbstractItemView *view = box->view();
                for (int row = 0; row < box->count(); ++row)
                    QVERIFY2(view->viewport()->rect().contains(
                                 view->visualRect(box->model()->index(row, 0))),
                             qPrintable(page + ' ' + box->itemText(row)));
                box->hidePopup();
            }
        }
    }
    QCOMPARE(lists, modulePages().size()); // each has one
}

/** Or what is below it would jump. */
void LooksTest::theVoiceTestKeepsItsHeight()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(usualWindow));
    m_window->openPage(assistantPageName);
    ShownWindow::settle();
    const auto height = [this] {
        ShownWindow::settle();
        const QLabel *title = labelWithText(m_window->currentPage(), QStringLiteral("Voice Test"));
        return title ? title->parentWidget()->height() : 0;
    };
    QCOMPARE(height(), 120);
    startVoiceTest();
    QCOMPARE(height(), 120);
    endVoiceTest("1000");
    QCOMPARE(height(), 120);
}

/** Also in a font that reserves far more room below its letters than above. */
void LooksTest::keysAndValuesOfServicesStandOnOneLine()
{
    QVERIFY(m_window.useLocale(QStringLiteral("bo_CN")));
    QVERIFY(m_window.open(usualWindow));
    m_window->openServices();
    QTRY_VERIFY(labelWithText(m_window->currentContent(), QStringLiteral("hidden")));
    ShownWindow::settle();
    const auto bottom = [this](const char *text) {
        QLabel *label = labelWithText(m_window->currentContent(), QString::fromLatin1(text));
        const QColor color = label->palette().color(QPalette::WindowText);
        return label->y() + pictures::boundsOf(pictures::of(label), color, 90).bottom();
    };
    QCOMPARE(bottom("false"), bottom("hidden"));
}

/** Not even where a font comes when the window is there already, as themes for Qt set theirs. */
void LooksTest::theHeadingIsNeverSmallerThanTheTexts()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    QVERIFY(m_window.open(usualWindow));
    QFont font = QApplication::font();
    font.setPointSizeF(hugeText);
    QApplication::setFont(font);
    ShownWindow::settle();
    const int texts = QFontInfo(QApplication::font()).pixelSize();
    const auto parts = m_window->findChild<Breadcrumb *>()->findChildren<QLabel *>();
    QCOMPARE(parts.size(), 3);
    for (const QLabel *part : parts)
        QVERIFY2(QFontInfo(part->font()).pixelSize() > texts, qPrintable(part->text()));
}

TEST_CLASS(QApplication, LooksTest)
#include "looks.moc"
