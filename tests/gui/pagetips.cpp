#include "pages/texttranslatesettingwidget.h"
#include "tests/gui/shownpages.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QtTest>

#include <memory>

using namespace testsupport;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;
using Ztk::Gui::ZGuiApplicationHelper;
using Ztk::Widget::ZFontSizeManager;

namespace {

/**
 * While it lives, every tip has these contents margins of its own from the moment it is given its
 * font, as under a desktop whose tips keep a distance.
 */
class TipsKeepDistance : public QObject
{
public:
    explicit TipsKeepDistance(const QMargins &margins)
        : m_margins(margins)
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *tip = qobject_cast<TipsLabel *>(watched);
        if (tip && event->type() == QEvent::FontChange)
            tip->setContentsMargins(m_margins);
        return QObject::eventFilter(watched, event);
    }

private:
    const QMargins m_margins;
};

void usePalette(const QColor &brightText)
{
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::BrightText, brightText);
    QApplication::setPalette(palette);
}

} // namespace

/** The hint on each page and the other tips: what they say, in which size and colour. */
class PageTipsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void hintNamesTheShortcut_data();
    void hintNamesTheShortcut();
    void hintKeepsWhatLooksLikeMarkup();
    void hintShowsTheBeginningOfALongShortcut();
    void hintWithoutAShortcutHasEmptyParentheses_data();
    void hintWithoutAShortcutHasEmptyParentheses();

    void tipsAreSmallAndTitlesAreNormal_data();
    void tipsAreSmallAndTitlesAreNormal();
    void tipsTakeTheirColourFromTheBrightText_data();
    void tipsTakeTheirColourFromTheBrightText();
    void tipsBeginAtAMarginOf7();
    void tipsWithMarginsOfTheirOwn_data();
    void tipsWithMarginsOfTheirOwn();
    void tipsTakeTheNewThemesColour_data();
    void tipsTakeTheNewThemesColour();
    void aHintTakesTheThemeOfTheMomentItIsMade_data();
    void aHintTakesTheThemeOfTheMomentItIsMade();

private:
    PageServices m_services;
    QPalette m_palette;
    QFont m_font;
};

void PageTipsTest::initTestCase()
{
    QVERIFY(m_services.start());
    m_palette = QApplication::palette();
    m_font = QApplication::font();
}

void PageTipsTest::init()
{
    m_services.reset();
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void PageTipsTest::cleanup()
{
    QApplication::setPalette(m_palette);
    QApplication::setFont(m_font);
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageTipsTest::hintNamesTheShortcut_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("purpose");
    QTest::newRow("speech to text") << speechToTextPage << "convert your speech to text";
    QTest::newRow("text to speech") << textToSpeechPage << "read the selected text out";
    QTest::newRow("translation") << translationPage << "translate the selected text";
}

void PageTipsTest::hintNamesTheShortcut()
{
    QFETCH(QString, name);
    QFETCH(QString, purpose);
    m_services.keybinding.setValue(
        modulePage(name).shortcut,
        QStringList{QStringLiteral("<Control><Shift>F9"), QStringLiteral("<Super>F9")});
    const std::unique_ptr<QWidget> page(newPage(name));
    QCOMPARE(page->findChild<TipsLabel *>()->text(),
             QStringLiteral(
                 "Press the shortcuts (Ctrl+Shift+F9) or click \"%1\" in the context menu to %2.")
                 .arg(name, purpose));
}

void PageTipsTest::hintKeepsWhatLooksLikeMarkup()
{
    // As plain text an entity stays as it was sent, and a placeholder is not filled again.
    m_services.keybinding.setValue(QStringLiteral("translation"),
                                   QStringList{QStringLiteral("&lt;b&gt;%1&amp;")});
    const TextTranslateSettingWidget page(nullptr);
    auto *hint = page.findChild<TipsLabel *>();
    QCOMPARE(hint->textFormat(), Qt::PlainText);
    QVERIFY2(hint->text().contains(QStringLiteral("(&lt;b&gt;%1&amp;)")), qPrintable(hint->text()));
}

// The keybinding daemon may answer with any text.
void PageTipsTest::hintShowsTheBeginningOfALongShortcut()
{
    const QString shortcut(1 << 20, QLatin1Char('x'));
    m_services.keybinding.setValue(QStringLiteral("translation"), QStringList{shortcut});
    std::unique_ptr<TextTranslateSettingWidget> page;
    const auto open = [&page] {
        page = std::make_unique<TextTranslateSettingWidget>(nullptr);
    };
    const double cost = leastCostMs(open, [&page] {
        page->show();
        page->grab();
    });
    QCOMPARE(page->findChild<TipsLabel *>()->text(),
             QStringLiteral("Press the shortcuts (%1) or click \"Translation\" in the context "
                            "menu to translate the selected text.")
                 .arg(shortcut.left(255) + QChar(0x2026)));
    QVERIFY2(cost < megabyteLimitMs, qPrintable(QString::number(cost)));
}

void PageTipsTest::hintWithoutAShortcutHasEmptyParentheses_data()
{
    QTest::addColumn<QString>("name");
    for (const ModulePage &page : featurePages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void PageTipsTest::hintWithoutAShortcutHasEmptyParentheses()
{
    QFETCH(QString, name);
    for (const ModulePage &feature : featurePages())
        m_services.keybinding.setValue(feature.shortcut, QStringList());
    const std::unique_ptr<QWidget> page(newPage(name));
    const QString hint = page->findChild<TipsLabel *>()->text();
    QVERIFY2(hint.startsWith(QStringLiteral("Press the shortcuts () or click")), qPrintable(hint));
}

void PageTipsTest::tipsAreSmallAndTitlesAreNormal_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qreal>("scale");
    for (const ModulePage &page : modulePages()) {
        QTest::addRow("%s, normal", qPrintable(page.name)) << page.name << 1.0;
        QTest::addRow("%s, half as large again", qPrintable(page.name)) << page.name << 1.5;
    }
}

void PageTipsTest::tipsAreSmallAndTitlesAreNormal()
{
    QFETCH(QString, name);
    QFETCH(qreal, scale);
    // In points, so that a size in pixels is a size step and not what a row has inherited.
    QFont font = QApplication::font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale);
    QApplication::setFont(font);

    const std::unique_ptr<QWidget> page(newPage(name));
    const ZFontSizeManager *sizes = ZFontSizeManager::instance();
    const int small = sizes->fontPixelSize(ZFontSizeManager::T8);
    const int normal = sizes->fontPixelSize(ZFontSizeManager::T6);
    QVERIFY(small < normal);
    const auto tips = page->findChildren<TipsLabel *>();
    QVERIFY(!tips.isEmpty());
    for (const TipsLabel *tip : tips)
        QCOMPARE(tip->font().pixelSize(), small);
    for (const auto *row : page->findChildren<SwitchWidget *>())
        QCOMPARE(row->font().pixelSize(), normal);
    for (const auto *box : page->findChildren<QCheckBox *>())
        QCOMPARE(box->font().pixelSize(), normal);
    for (const char *text : {"Language", "Voice Gender"})
        if (const QLabel *label = testsupport::labelWithText(page.get(), QLatin1String(text)))
            QCOMPARE(label->font().pixelSize(), normal);
}

void PageTipsTest::tipsTakeTheirColourFromTheBrightText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QColor>("brightText");
    QTest::addColumn<QColor>("tip");
    for (const ModulePage &page : modulePages()) {
        QTest::addRow("%s, black", qPrintable(page.name))
            << page.name << QColor(Qt::black) << QColor(0x8A, 0xA1, 0xB4);
        QTest::addRow("%s, white", qPrintable(page.name))
            << page.name << QColor(Qt::white) << QColor(0xC0, 0xC6, 0xD4);
        QTest::addRow("%s, almost black", qPrintable(page.name))
            << page.name << QColor(0, 0, 1) << QColor(0xC0, 0xC6, 0xD4);
    }
}

void PageTipsTest::tipsTakeTheirColourFromTheBrightText()
{
    QFETCH(QString, name);
    QFETCH(QColor, brightText);
    QFETCH(QColor, tip);
    usePalette(brightText);
    const std::unique_ptr<QWidget> page(newPage(name));
    for (const auto *label : page->findChildren<TipsLabel *>()) {
        for (QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QBrush brush = label->palette().brush(group, QPalette::Text);
            QCOMPARE(brush.color(), tip);
            QCOMPARE(brush.style(), Qt::SolidPattern);
        }
    }
}

void PageTipsTest::tipsBeginAtAMarginOf7()
{
    for (const ModulePage &entry : modulePages()) {
        const std::unique_ptr<QWidget> page(newPage(entry.name));
        for (const auto *tip : page->findChildren<TipsLabel *>())
            QCOMPARE(tip->contentsMargins(), QMargins(7, 0, 0, 0));
    }
}

void PageTipsTest::tipsWithMarginsOfTheirOwn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exchanged"); // the right one for the top one and the other way round
    QTest::newRow("assistant") << "Desktop AI Assistant" << true;
    for (const ModulePage &page : featurePages())
        QTest::newRow(qPrintable(page.name)) << page.name << false;
}

void PageTipsTest::tipsWithMarginsOfTheirOwn()
{
    QFETCH(QString, name);
    QFETCH(bool, exchanged);
    const TipsKeepDistance distance(QMargins(1, 2, 3, 4));
    const std::unique_ptr<QWidget> page(newPage(name));
    const auto tips = page->findChildren<TipsLabel *>();
    QVERIFY(!tips.isEmpty());
    for (const TipsLabel *tip : tips)
        QCOMPARE(tip->contentsMargins(), exchanged ? QMargins(7, 3, 2, 4) : QMargins(7, 2, 3, 4));
}

void PageTipsTest::tipsTakeTheNewThemesColour_data()
{
    QTest::addColumn<QString>("name");
    for (const ModulePage &page : modulePages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void PageTipsTest::tipsTakeTheNewThemesColour()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> page(newPage(name));
    page->show();
    const auto tips = page->findChildren<TipsLabel *>();
    QVERIFY(!tips.isEmpty());

    const auto haveColour = [&tips](const char *colour) {
        return std::all_of(tips.cbegin(), tips.cend(), [colour](const TipsLabel *tip) {
            return tip->palette().color(QPalette::Text).name() == QLatin1String(colour) &&
                   tip->palette().color(QPalette::Disabled, QPalette::Text).name() ==
                       QLatin1String(colour);
        });
    };
    QVERIFY(haveColour("#8aa1b4"));
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    QTRY_VERIFY(haveColour("#c0c6d4"));
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
    QTRY_VERIFY(haveColour("#8aa1b4"));
}

void PageTipsTest::aHintTakesTheThemeOfTheMomentItIsMade_data()
{
    QTest::addColumn<QString>("name");
    for (const ModulePage &page : featurePages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

// The hint is made when its shortcut is known. Until then the page waits, and the theme may change.
void PageTipsTest::aHintTakesTheThemeOfTheMomentItIsMade()
{
    QFETCH(QString, name);
    const QString lookup = QStringLiteral("GetShortcut");
    ServiceProcess &keybinding = m_services.keybinding;
    keybinding.script(lookup, QStringLiteral("hold"));
    int released = 0;
    QTimer::singleShot(0, &keybinding, [&] {
        QVERIFY(keybinding.waitForCalls(lookup));
        ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
        released = keybinding.release(lookup);
    });
    const std::unique_ptr<QWidget> page(newPage(name));
    QCOMPARE(released, 1);
    QCOMPARE(page->findChild<TipsLabel *>()->palette().color(QPalette::Text).name(),
             QStringLiteral("#c0c6d4"));
}

TEST_CLASS(QApplication, PageTipsTest)
#include "pagetips.moc"
