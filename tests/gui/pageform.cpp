#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/gui/pagelog.h"
#include "tests/support/isolatedhome.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>
#include <ztk/zfontsizemanager.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

#include <ctime>
#include <functional>
#include <memory>

// How the pages look when they open: what stands where, in which size and colour, and which state
// it shows.

using testsupport::IsolatedHome;
using testsupport::LogCapture;
using testsupport::ServiceProcess;
using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;
using Ztk::Widget::ZFontSizeManager;

using PageMaker = std::function<QWidget *()>;
Q_DECLARE_METATYPE(PageMaker)

namespace {

QWidget *makeAssistant()
{
    return new AssistantSettingWidget;
}
QWidget *makeSpeechToText()
{
    return new VoiceIatSettingWidget;
}
QWidget *makeTextToSpeech()
{
    return new VoiceTTSSettingWidget;
}
QWidget *makeTranslation()
{
    return new TextTranslateSettingWidget;
}

struct NamedPage
{
    const char *name;
    PageMaker make;
};

const NamedPage featurePages[] = {
    {"speech to text", makeSpeechToText},
    {"text to speech", makeTextToSpeech},
    {"translation", makeTranslation},
};

const NamedPage allPages[] = {
    {"assistant", makeAssistant},
    {"speech to text", makeSpeechToText},
    {"text to speech", makeTextToSpeech},
    {"translation", makeTranslation},
};

template <typename Layout>
QString describe(Layout *layout)
{
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QWidget *widget = item->widget()) {
            QString name = QString::fromLatin1(widget->metaObject()->className());
            parts.append(name.mid(name.lastIndexOf(QLatin1Char(':')) + 1));
        } else if (item->spacerItem()) {
            parts.append(item->expandingDirections() & Qt::Vertical
                             ? QStringLiteral("stretch")
                             : QString::number(item->sizeHint().height()));
        }
    }
    return parts.join(QLatin1Char(' '));
}

QList<SettingsGroup *> groups(const QWidget *page)
{
    return page->findChildren<SettingsGroup *>(QString(), Qt::FindDirectChildrenOnly);
}

/** The entries of a list; none of them may carry data. */
QStringList entries(const QComboBox *list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->itemText(i) +
                     (list->itemData(i).isValid() ? QStringLiteral(" (data)") : QString()));
    return texts;
}

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

class PageFormTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everyPageStandsInAMarginOf10WithoutSpacing_data();
    void everyPageStandsInAMarginOf10WithoutSpacing();
    void featurePageIsHintThenGroup_data();
    void featurePageIsHintThenGroup();
    void featurePageGroupsRows_data();
    void featurePageGroupsRows();
    void hintNamesTheShortcut_data();
    void hintNamesTheShortcut();
    void hintKeepsWhatLooksLikeMarkup();
    void hintShowsTheBeginningOfALongShortcut();
    void hintWithoutAShortcutHasEmptyParentheses_data();
    void hintWithoutAShortcutHasEmptyParentheses();

    void assistantPageFromTopToBottom();
    void wakeupRowHoldsTheOneShotRow();
    void secondGroupHoldsLanguageDockAndVoiceTest();

    void tipsAreSmallAndTitlesAreNormal_data();
    void tipsAreSmallAndTitlesAreNormal();
    void tipsTakeTheirColourFromTheBrightText_data();
    void tipsTakeTheirColourFromTheBrightText();
    void tipsBeginAtAMarginOf7();
    void tipsWithMarginsOfTheirOwn_data();
    void tipsWithMarginsOfTheirOwn();

    void languagesOfSpeechToText();
    void voicesOfTextToSpeech();
    void directionsOfTranslation();
    void languageOfTheAssistantIsTheOneEntry();

    void speechToTextShowsTheServicesState_data();
    void speechToTextShowsTheServicesState();
    void textToSpeechShowsTheServicesState_data();
    void textToSpeechShowsTheServicesState();
    void translationShowsTheServicesState_data();
    void translationShowsTheServicesState();
    void assistantShowsTheStoresState_data();
    void assistantShowsTheStoresState();
    void aStoreThatIsAFolderReadsAsOff();
    void theStoreIsNotWritten();

    void opensWithItsLogLinesAndNoOthers_data();
    void opensWithItsLogLinesAndNoOthers();
    void initDoesNothing();

    void everyControlHasANameAndTakesTheTabKey_data();
    void everyControlHasANameAndTakesTheTabKey();
    void opensInARightToLeftLanguage_data();
    void opensInARightToLeftLanguage();

private:
    std::unique_ptr<IsolatedHome> m_home;
    std::unique_ptr<ServiceProcess> m_assistant;
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    QPalette m_palette;
    QFont m_font;
};

void PageFormTest::initTestCase()
{
    m_home = std::make_unique<IsolatedHome>();
    m_assistant = std::make_unique<ServiceProcess>(QStringLiteral("assistant"));
    for (ServiceProcess *service : {m_assistant.get(), &m_dock, &m_keybinding})
        QVERIFY(service->start());
    m_palette = QApplication::palette();
    m_font = QApplication::font();
}

void PageFormTest::init()
{
    for (ServiceProcess *service : {m_assistant.get(), &m_dock, &m_keybinding})
        service->reset();
    QFile::remove(m_home->wakeupSettingsFile());
}

void PageFormTest::cleanup()
{
    QApplication::setPalette(m_palette);
    QApplication::setFont(m_font);
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageFormTest::everyPageStandsInAMarginOf10WithoutSpacing_data()
{
    QTest::addColumn<PageMaker>("make");
    for (const NamedPage &page : allPages)
        QTest::newRow(page.name) << page.make;
}

void PageFormTest::everyPageStandsInAMarginOf10WithoutSpacing()
{
    QFETCH(PageMaker, make);
    const std::unique_ptr<QWidget> page(make());
    QVERIFY(!page->isVisible());
    QVERIFY(!page->parentWidget());
    auto *layout = qobject_cast<QVBoxLayout *>(page->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(10, 10, 10, 10));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->alignment(), Qt::Alignment(Qt::AlignTop));
}

void PageFormTest::featurePageIsHintThenGroup_data()
{
    QTest::addColumn<PageMaker>("make");
    for (const NamedPage &page : featurePages)
        QTest::newRow(page.name) << page.make;
}

void PageFormTest::featurePageIsHintThenGroup()
{
    QFETCH(PageMaker, make);
    const std::unique_ptr<QWidget> page(make());
    QCOMPARE(describe(page->layout()), QStringLiteral("TipsLabel 10 SettingsGroup stretch"));
    QCOMPARE(groups(page.get()).size(), 1);
    SettingsGroup *group = groups(page.get()).constFirst();
    QCOMPARE(group->itemLayout()->spacing(), 10);
    QCOMPARE(group->itemLayout()->contentsMargins(), QMargins());
    QVERIFY(page->findChild<TipsLabel *>()->wordWrap());
}

void PageFormTest::featurePageGroupsRows_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QStringList>("switches");
    QTest::addColumn<QString>("listLabel");
    QTest::newRow("speech to text") << PageMaker(makeSpeechToText)
                                    << QStringList{QStringLiteral("Speech to Text")} << "Language";
    QTest::newRow("text to speech")
        << PageMaker(makeTextToSpeech)
        << QStringList{QStringLiteral("Text to Speech"), QStringLiteral("Show Speech Widget")}
        << "Voice Gender";
    QTest::newRow("translation") << PageMaker(makeTranslation)
                                 << QStringList{QStringLiteral("Translation")} << "Language";
}

void PageFormTest::featurePageGroupsRows()
{
    QFETCH(PageMaker, make);
    QFETCH(QStringList, switches);
    QFETCH(QString, listLabel);
    const std::unique_ptr<QWidget> page(make());
    SettingsGroup *group = groups(page.get()).constFirst();
    QCOMPARE(group->itemCount(), switches.size() + 1);
    for (int i = 0; i < switches.size(); ++i) {
        auto *row = qobject_cast<SwitchWidget *>(group->item(i));
        QVERIFY(row);
        QCOMPARE(row->title(), switches.at(i));
    }
    SettingsItem *listRow = group->item(switches.size());
    QVERIFY(listRow->hasBackground());
    auto *layout = qobject_cast<QHBoxLayout *>(listRow->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    auto *label = qobject_cast<QLabel *>(layout->itemAt(0)->widget());
    QVERIFY(label);
    QCOMPARE(label->text(), listLabel);
    QVERIFY(qobject_cast<QComboBox *>(layout->itemAt(1)->widget()));
}

void PageFormTest::hintNamesTheShortcut_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("speech to text")
        << PageMaker(makeSpeechToText) << "speech-to-text"
        << "Press the shortcuts (%1) or click \"Speech to Text\" in the context menu to convert "
           "your speech to text.";
    QTest::newRow("text to speech")
        << PageMaker(makeTextToSpeech) << "text-to-speech"
        << "Press the shortcuts (%1) or click \"Text to Speech\" in the context menu to read the "
           "selected text out.";
    QTest::newRow("translation")
        << PageMaker(makeTranslation) << "translation"
        << "Press the shortcuts (%1) or click \"Translation\" in the context menu to translate the "
           "selected text.";
}

void PageFormTest::hintNamesTheShortcut()
{
    QFETCH(PageMaker, make);
    QFETCH(QString, id);
    QFETCH(QString, text);
    m_keybinding.setValue(
        id, QStringList{QStringLiteral("<Control><Shift>F9"), QStringLiteral("<Super>F9")});
    const std::unique_ptr<QWidget> page(make());
    QCOMPARE(page->findChild<TipsLabel *>()->text(), text.arg(QStringLiteral("Ctrl+Shift+F9")));
}

void PageFormTest::hintKeepsWhatLooksLikeMarkup()
{
    // As plain text an entity stays as it was sent, and a placeholder is not filled again.
    m_keybinding.setValue(QStringLiteral("translation"),
                          QStringList{QStringLiteral("&lt;b&gt;%1&amp;")});
    const TextTranslateSettingWidget page(nullptr);
    auto *hint = page.findChild<TipsLabel *>();
    QCOMPARE(hint->textFormat(), Qt::PlainText);
    QVERIFY2(hint->text().contains(QStringLiteral("(&lt;b&gt;%1&amp;)")), qPrintable(hint->text()));
}

// The keybinding daemon may answer with any text.
void PageFormTest::hintShowsTheBeginningOfALongShortcut()
{
    const QString shortcut(1 << 20, QLatin1Char('x'));
    double cost = 1000; // ms of this program's time for showing the page: the best of three
    for (int i = 0; i < 3; ++i) {
        m_keybinding.setValue(QStringLiteral("translation"), QStringList{shortcut});
        TextTranslateSettingWidget page(nullptr);
        const std::clock_t start = std::clock();
        page.show();
        page.grab();
        cost = qMin(cost, 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC);
        QCOMPARE(page.findChild<TipsLabel *>()->text(),
                 QStringLiteral("Press the shortcuts (%1) or click \"Translation\" in the context "
                                "menu to translate the selected text.")
                     .arg(shortcut.left(255) + QChar(0x2026)));
    }
    QVERIFY2(cost < testsupport::megabyteLimitMs, qPrintable(QString::number(cost)));
}

void PageFormTest::hintWithoutAShortcutHasEmptyParentheses_data()
{
    featurePageIsHintThenGroup_data();
}

void PageFormTest::hintWithoutAShortcutHasEmptyParentheses()
{
    QFETCH(PageMaker, make);
    for (const char *id : {"speech-to-text", "text-to-speech", "translation"})
        m_keybinding.setValue(QLatin1String(id), QStringList());
    const std::unique_ptr<QWidget> page(make());
    const QString hint = page->findChild<TipsLabel *>()->text();
    QVERIFY2(hint.startsWith(QStringLiteral("Press the shortcuts () or click")), qPrintable(hint));
}

void PageFormTest::assistantPageFromTopToBottom()
{
    const AssistantSettingWidget page(nullptr);
    QCOMPARE(describe(page.layout()),
             QStringLiteral("TipsLabel 10 SettingsGroup TipsLabel 10 SettingsGroup stretch"));
    const auto tips = page.findChildren<TipsLabel *>();
    QCOMPARE(tips.size(), 2);
    QCOMPARE(page.layout()->itemAt(0)->widget(), tips.at(0));
    QCOMPARE(page.layout()->itemAt(3)->widget(), tips.at(1));
    QCOMPARE(tips.at(0)->text(),
             QStringLiteral("AI Assistant boosts your productivity by executing voice commands, "
                            "such as checking the weather, creating events, etc."));
    for (const TipsLabel *tip : tips) {
        QVERIFY(tip->wordWrap());
        QCOMPARE(tip->textFormat(), Qt::PlainText);
    }
    QCOMPARE(groups(&page).size(), 2);
    QCOMPARE(groups(&page).at(0)->itemLayout()->spacing(), 1);
    QCOMPARE(groups(&page).at(0)->itemLayout()->contentsMargins(), QMargins());
    QCOMPARE(groups(&page).at(1)->itemLayout()->spacing(), 10);
    QCOMPARE(groups(&page).at(1)->itemLayout()->contentsMargins(), QMargins());
}

void PageFormTest::wakeupRowHoldsTheOneShotRow()
{
    const AssistantSettingWidget page(nullptr);
    SettingsGroup *group = groups(&page).at(0);
    QCOMPARE(group->itemCount(), 1);
    QVERIFY(group->item(0)->hasBackground());
    auto *layout = qobject_cast<QVBoxLayout *>(group->item(0)->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(describe(layout), QStringLiteral("SwitchWidget 0 SettingsItem"));
    QCOMPARE(qobject_cast<SwitchWidget *>(layout->itemAt(0)->widget())->title(),
             QStringLiteral("Voice Wakeup"));

    auto *oneShot = qobject_cast<SettingsItem *>(layout->itemAt(2)->widget());
    QVERIFY(oneShot);
    QVERIFY(!oneShot->hasBackground());
    auto *oneShotLayout = qobject_cast<QVBoxLayout *>(oneShot->layout());
    QVERIFY(oneShotLayout);
    QCOMPARE(oneShotLayout->contentsMargins(), QMargins(5, 5, 5, 5));
    QCOMPARE(oneShotLayout->count(), 1);
    auto *box = qobject_cast<QCheckBox *>(oneShotLayout->itemAt(0)->widget());
    QVERIFY(box);
    QCOMPARE(box->text(), QStringLiteral("OneShot"));
    QVERIFY(!box->isTristate());
}

void PageFormTest::secondGroupHoldsLanguageDockAndVoiceTest()
{
    const AssistantSettingWidget page(nullptr);
    SettingsGroup *group = groups(&page).at(1);
    QCOMPARE(group->itemCount(), 3);

    QVERIFY(group->item(0)->hasBackground());
    auto *layout = qobject_cast<QHBoxLayout *>(group->item(0)->layout());
    QVERIFY(layout);
    QCOMPARE(describe(layout), QStringLiteral("QLabel QComboBox"));
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(0)->widget())->text(),
             QStringLiteral("Language"));

    auto *dock = qobject_cast<SwitchWidget *>(group->item(1));
    QVERIFY(dock);
    QCOMPARE(dock->title(), QStringLiteral("Show in the Dock"));
    QVERIFY(testsupport::labelWithText(group->item(2), QStringLiteral("Voice Test")));
}

void PageFormTest::tipsAreSmallAndTitlesAreNormal_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<qreal>("scale");
    for (const NamedPage &page : allPages) {
        QTest::addRow("%s, normal", page.name) << page.make << 1.0;
        QTest::addRow("%s, half as large again", page.name) << page.make << 1.5;
    }
}

void PageFormTest::tipsAreSmallAndTitlesAreNormal()
{
    QFETCH(PageMaker, make);
    QFETCH(qreal, scale);
    // In points, so that a size in pixels is a size step and not what a row has inherited.
    QFont font = QApplication::font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale);
    QApplication::setFont(font);

    const std::unique_ptr<QWidget> page(make());
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

void PageFormTest::tipsTakeTheirColourFromTheBrightText_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QColor>("brightText");
    QTest::addColumn<QColor>("tip");
    for (const NamedPage &page : allPages) {
        QTest::addRow("%s, black", page.name)
            << page.make << QColor(Qt::black) << QColor(0x8A, 0xA1, 0xB4);
        QTest::addRow("%s, white", page.name)
            << page.make << QColor(Qt::white) << QColor(0xC0, 0xC6, 0xD4);
        QTest::addRow("%s, almost black", page.name)
            << page.make << QColor(0, 0, 1) << QColor(0xC0, 0xC6, 0xD4);
    }
}

void PageFormTest::tipsTakeTheirColourFromTheBrightText()
{
    QFETCH(PageMaker, make);
    QFETCH(QColor, brightText);
    QFETCH(QColor, tip);
    usePalette(brightText);
    const std::unique_ptr<QWidget> page(make());
    for (const auto *label : page->findChildren<TipsLabel *>()) {
        for (QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QBrush brush = label->palette().brush(group, QPalette::Text);
            QCOMPARE(brush.color(), tip);
            QCOMPARE(brush.style(), Qt::SolidPattern);
        }
    }
}

void PageFormTest::tipsBeginAtAMarginOf7()
{
    for (const NamedPage &entry : allPages) {
        const std::unique_ptr<QWidget> page(entry.make());
        for (const auto *tip : page->findChildren<TipsLabel *>())
            QCOMPARE(tip->contentsMargins(), QMargins(7, 0, 0, 0));
    }
}

void PageFormTest::tipsWithMarginsOfTheirOwn_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<bool>("exchanged"); // the right one for the top one and the other way round
    QTest::newRow("assistant") << PageMaker(makeAssistant) << true;
    for (const NamedPage &page : featurePages)
        QTest::newRow(page.name) << page.make << false;
}

void PageFormTest::tipsWithMarginsOfTheirOwn()
{
    QFETCH(PageMaker, make);
    QFETCH(bool, exchanged);
    const TipsKeepDistance distance(QMargins(1, 2, 3, 4));
    const std::unique_ptr<QWidget> page(make());
    const auto tips = page->findChildren<TipsLabel *>();
    QVERIFY(!tips.isEmpty());
    for (const TipsLabel *tip : tips)
        QCOMPARE(tip->contentsMargins(), exchanged ? QMargins(7, 3, 2, 4) : QMargins(7, 2, 3, 4));
}

void PageFormTest::languagesOfSpeechToText()
{
    const VoiceIatSettingWidget page(nullptr);
    QCOMPARE(entries(testsupport::comboBoxAt(&page, 0)),
             (QStringList{QStringLiteral("中文-普通话"), QStringLiteral("English")}));
}

void PageFormTest::voicesOfTextToSpeech()
{
    const VoiceTTSSettingWidget page(nullptr);
    QCOMPARE(entries(testsupport::comboBoxAt(&page, 0)),
             (QStringList{QStringLiteral("Female"), QStringLiteral("Male"),
                          QStringLiteral("Children")}));
}

void PageFormTest::directionsOfTranslation()
{
    const TextTranslateSettingWidget page(nullptr);
    QCOMPARE(entries(testsupport::comboBoxAt(&page, 0)),
             (QStringList{QStringLiteral("CN-EN"), QStringLiteral("EN-CN")}));
}

void PageFormTest::languageOfTheAssistantIsTheOneEntry()
{
    const AssistantSettingWidget page(nullptr);
    QCOMPARE(entries(testsupport::comboBoxAt(&page, 0)),
             QStringList{QStringLiteral("中文-普通话")});
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), 0);
}

void PageFormTest::speechToTextShowsTheServicesState_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("index");
    QTest::newRow("on, Chinese") << true << "zh_cn" << 0;
    QTest::newRow("off, English") << false << "en_us" << 1;
    QTest::newRow("unknown language is English") << true << "fr_fr" << 1;
    QTest::newRow("empty language is English") << true << "" << 1;
    QTest::newRow("other letter case is English") << true << "zh_CN" << 1;
}

void PageFormTest::speechToTextShowsTheServicesState()
{
    QFETCH(bool, on);
    QFETCH(QString, language);
    QFETCH(int, index);
    m_assistant->script(QStringLiteral("getIatEnable"), QStringLiteral("reply"), on);
    m_assistant->script(QStringLiteral("getIatLanguage"), QStringLiteral("reply"), language);
    const VoiceIatSettingWidget page(nullptr);
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Speech to Text"))->checked(), on);
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), index);
    QVERIFY(testsupport::comboBoxAt(&page, 0)->isEnabled());
}

void PageFormTest::textToSpeechShowsTheServicesState_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("window");
    QTest::addColumn<QString>("speaker");
    QTest::addColumn<int>("index");
    QTest::newRow("on, widget off, female") << true << false << "x_tovali" << 0;
    QTest::newRow("off, widget on, male") << false << true << "x_morven" << 1;
    QTest::newRow("both on, child") << true << true << "x2_pella" << 2;
    QTest::newRow("both off, female without prefix") << false << false << "tovali" << 0;
    QTest::newRow("male without prefix is the child") << true << true << "morven" << 2;
    QTest::newRow("unknown speaker is the child") << true << true << "nobody" << 2;
    QTest::newRow("empty speaker is the child") << true << true << "" << 2;
}

void PageFormTest::textToSpeechShowsTheServicesState()
{
    QFETCH(bool, on);
    QFETCH(bool, window);
    QFETCH(QString, speaker);
    QFETCH(int, index);
    m_assistant->script(QStringLiteral("getTTSEnable"), QStringLiteral("reply"), on);
    m_assistant->script(QStringLiteral("getEnableWindow"), QStringLiteral("reply"), window);
    m_assistant->script(QStringLiteral("getSpeaker"), QStringLiteral("reply"), speaker);
    const VoiceTTSSettingWidget page(nullptr);
    auto *windowSwitch = testsupport::switchTitled(&page, QStringLiteral("Show Speech Widget"));
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Text to Speech"))->checked(), on);
    QCOMPARE(windowSwitch->checked(), window);
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), index);
    // Reading aloud rules over neither of the others.
    QVERIFY(windowSwitch->isEnabled());
    QVERIFY(testsupport::comboBoxAt(&page, 0)->isEnabled());
}

void PageFormTest::translationShowsTheServicesState_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<int>("index");
    QTest::newRow("on, to English") << true << "cn|en" << 0;
    QTest::newRow("off, to Chinese") << false << "en|cn" << 1;
    QTest::newRow("other letter case is to Chinese") << true << "CN|EN" << 1;
    QTest::newRow("unknown direction is to Chinese") << true << "cn|fr" << 1;
    QTest::newRow("empty direction is to Chinese") << true << "" << 1;
}

void PageFormTest::translationShowsTheServicesState()
{
    QFETCH(bool, on);
    QFETCH(QString, direction);
    QFETCH(int, index);
    m_assistant->script(QStringLiteral("getTransEnable"), QStringLiteral("reply"), on);
    m_assistant->script(QStringLiteral("getTransLanguage"), QStringLiteral("reply"), direction);
    const TextTranslateSettingWidget page(nullptr);
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Translation"))->checked(), on);
    QCOMPARE(testsupport::comboBoxAt(&page, 0)->currentIndex(), index);
    QVERIFY(testsupport::comboBoxAt(&page, 0)->isEnabled());
}

void PageFormTest::assistantShowsTheStoresState_data()
{
    QTest::addColumn<QByteArray>("store"); // null: there is none
    QTest::addColumn<bool>("wakeup");
    QTest::addColumn<bool>("oneShot");
    const auto add = [](const char *name, const QByteArray &store, bool wakeup, bool oneShot) {
        QTest::newRow(name) << store << wakeup << oneShot;
    };
    add("no store", QByteArray(), false, false);
    add("empty store", "", false, false);
    add("both off", "[base]\nenable=false\nenableOneshot=false\n", false, false);
    add("wake-up on", "[base]\nenable=true\nenableOneshot=false\n", true, false);
    add("both on", "[base]\nenable=true\nenableOneshot=true\n", true, true);
    add("one-shot without wake-up", "[base]\nenable=false\nenableOneshot=true\n", false, false);
    add("one-shot alone in the store", "[base]\nenableOneshot=true\n", false, false);
    add("wake-up alone in the store", "[base]\nenable=true\n", true, false);
    add("numbers", "[base]\nenable=1\nenableOneshot=0\n", true, false);
    add("empty values", "[base]\nenable=\nenableOneshot=\n", false, false);
    add("a list for a value", "[base]\nenable=true, true\n", false, false);
    add("keys in another group", "[General]\nenable=true\n[other]\nenableOneshot=true\n", false,
        false);
    add("keys in another letter case", "[base]\nEnable=true\n", false, false);
    add("not a store", "\x7f\x45LF\x00\xff\xfe]][=;%\n\n\n=\\x", false, false);
    add("a store behind rubbish", "\xff\xfe===\n[base]\nenable=true\n", true, false);
    add("a damaged variant", "[base]\nenable=@Variant(\\0\\0\\0\\xff)\n", false, false);
}

void PageFormTest::assistantShowsTheStoresState()
{
    QFETCH(QByteArray, store);
    QFETCH(bool, wakeup);
    QFETCH(bool, oneShot);
    if (!store.isNull())
        QVERIFY(m_home->writeWakeupSettings(store));
    if (store.contains("@Variant"))
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("invalid type")));

    const AssistantSettingWidget page(nullptr);
    QCOMPARE(testsupport::switchTitled(&page, QStringLiteral("Voice Wakeup"))->checked(), wakeup);
    const QCheckBox *box = testsupport::checkBoxTitled(&page, QStringLiteral("OneShot"));
    QCOMPARE(box->isEnabled(), wakeup);
    QCOMPARE(box->isChecked(), oneShot);
    const auto *tip = page.findChildren<TipsLabel *>().at(1);
    QCOMPARE(tip->isVisibleTo(&page), wakeup);
    QCOMPARE(tip->text(), oneShot
                              ? QStringLiteral("Hello, Alani. What's the weather like in Beijing?")
                              : QStringLiteral("Say \"Hello, Alani\" to wake up AI Assistant"));
}

void PageFormTest::aStoreThatIsAFolderReadsAsOff()
{
    QVERIFY(QDir().mkpath(m_home->wakeupSettingsFile()));
    {
        const AssistantSettingWidget page(nullptr);
        QVERIFY(!testsupport::switchTitled(&page, QStringLiteral("Voice Wakeup"))->checked());
    }
    QVERIFY(QDir().rmdir(m_home->wakeupSettingsFile()));
}

void PageFormTest::theStoreIsNotWritten()
{
    const QByteArray store = "; written by hand\n[base]\nenable = true\nother=1\n";
    QVERIFY(m_home->writeWakeupSettings(store));
    {
        const AssistantSettingWidget page(nullptr);
        QVERIFY(testsupport::switchTitled(&page, QStringLiteral("Voice Wakeup"))->checked());
    }
    QFile file(m_home->wakeupSettingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), store);
}

void PageFormTest::opensWithItsLogLinesAndNoOthers_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("constructor");
    QTest::newRow("assistant") << PageMaker(makeAssistant)
                               << QStringList{QStringLiteral("AssistantSettingWidget")}
                               << "AssistantSettingWidget::AssistantSettingWidget(QWidget*)";
    QTest::newRow("speech to text")
        << PageMaker(makeSpeechToText)
        << QStringList{QStringLiteral("VoiceIatSettingWidget"),
                       QStringLiteral("AssistantStateProxy::queryVoiceIatState() true")}
        << "VoiceIatSettingWidget::VoiceIatSettingWidget(QWidget*)";
    QTest::newRow("text to speech")
        << PageMaker(makeTextToSpeech)
        << QStringList{QStringLiteral("VoiceTTSSettingWidget"),
                       QStringLiteral("getVoiceTTSSpeaker \"x_morven\"")}
        << "VoiceTTSSettingWidget::VoiceTTSSettingWidget(QWidget*)";
    QTest::newRow("translation") << PageMaker(makeTranslation)
                                 << QStringList{QStringLiteral("TextTranslateSettingWidget")}
                                 << "TextTranslateSettingWidget::TextTranslateSettingWidget("
                                    "QWidget*)";
}

void PageFormTest::opensWithItsLogLinesAndNoOthers()
{
    QFETCH(PageMaker, make);
    QFETCH(QStringList, lines);
    QFETCH(QString, constructor);
    m_assistant->setValue(QStringLiteral("iat.enabled"), true);
    m_assistant->setValue(QStringLiteral("tts.speaker"), QStringLiteral("x_morven"));
    const LogCapture log;
    const std::unique_ptr<QWidget> page(make());
    QCOMPARE(pageLines(log), lines);
    const testsupport::LogRecord first = log.find(lines.constFirst());
    QCOMPARE(first.type, QtDebugMsg);
    QCOMPARE(first.category, QStringLiteral("default"));
    QCOMPARE(first.function, constructor);
}

void PageFormTest::initDoesNothing()
{
    AssistantSettingWidget assistant(nullptr);
    VoiceIatSettingWidget speechToText(nullptr);
    VoiceTTSSettingWidget textToSpeech(nullptr);
    TextTranslateSettingWidget translation(nullptr);
    m_assistant->reset();
    m_dock.reset();
    const LogCapture log;
    assistant.init();
    speechToText.init();
    textToSpeech.init();
    translation.init();
    QCOMPARE(pageLines(log), QStringList());
    QVERIFY(m_assistant->calls().isEmpty());
    QVERIFY(m_dock.calls().isEmpty());
}

void PageFormTest::everyControlHasANameAndTakesTheTabKey_data()
{
    everyPageStandsInAMarginOf10WithoutSpacing_data();
}

void PageFormTest::everyControlHasANameAndTakesTheTabKey()
{
    QFETCH(PageMaker, make);
    QVERIFY(m_home->writeWakeupSettings("[base]\nenable=true\n"));
    const std::unique_ptr<QWidget> page(make());
    page->show();
    page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));

    QList<QWidget *> controls;
    for (QWidget *widget : page->findChildren<QWidget *>())
        if (qobject_cast<QComboBox *>(widget) ||
            (qobject_cast<QAbstractButton *>(widget) && !widget->isHidden()))
            controls.append(widget);
    QVERIFY(controls.size() >= 2);
    for (QWidget *control : qAsConst(controls)) {
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
        QVERIFY(accessible);
        QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(),
                 control->metaObject()->className());
    }

    // Once round with the Tab key, in the order in which the rows stand.
    controls.constFirst()->setFocus();
    QList<QWidget *> visited{page->focusWidget()};
    for (int press = 1; press < controls.size(); ++press) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        visited.append(page->focusWidget());
    }
    for (QWidget *control : qAsConst(controls))
        QVERIFY2(visited.contains(control), control->metaObject()->className());
    int above = -1;
    const int first = visited.indexOf(controls.constFirst());
    for (int i = first; i < visited.size(); ++i) {
        const int top = visited.at(i)->mapTo(page.get(), QPoint()).y();
        QVERIFY(top > above);
        above = top;
    }
}

void PageFormTest::opensInARightToLeftLanguage_data()
{
    everyPageStandsInAMarginOf10WithoutSpacing_data();
}

void PageFormTest::opensInARightToLeftLanguage()
{
    QFETCH(PageMaker, make);
    QApplication::setLayoutDirection(Qt::RightToLeft);
    {
        const std::unique_ptr<QWidget> page(make());
        page->resize(600, 600);
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
        for (const auto *list : page->findChildren<QComboBox *>()) {
            const QWidget *row = list->parentWidget();
            QVERIFY(list->geometry().center().x() < row->width() / 2);
        }
        for (const auto *row : page->findChildren<SwitchWidget *>())
            QVERIFY(testsupport::switchButton(row)->geometry().center().x() < row->width() / 2);
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_CLASS(QApplication, PageFormTest)
#include "pageform.moc"
