#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/gui/shownpages.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using namespace testsupport;
using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;

namespace {

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

} // namespace

/** What stands where on the pages. */
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

    void assistantPageFromTopToBottom();
    void wakeupRowHoldsTheOneShotRow();
    void secondGroupHoldsLanguageDockAndVoiceTest();

    void languagesOfSpeechToText();
    void voicesOfTextToSpeech();
    void directionsOfTranslation();
    void languageOfTheAssistantIsTheOneEntry();

    void opensInARightToLeftLanguage_data();
    void opensInARightToLeftLanguage();

private:
    PageServices m_services;
};

void PageFormTest::initTestCase()
{
    QVERIFY(m_services.start());
}

void PageFormTest::init()
{
    m_services.reset();
}

void PageFormTest::cleanup()
{
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageFormTest::everyPageStandsInAMarginOf10WithoutSpacing_data()
{
    QTest::addColumn<QString>("name");
    for (const ModulePage &page : modulePages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void PageFormTest::everyPageStandsInAMarginOf10WithoutSpacing()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> page(newPage(name));
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
    QTest::addColumn<QString>("name");
    for (const ModulePage &page : featurePages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void PageFormTest::featurePageIsHintThenGroup()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> page(newPage(name));
    QCOMPARE(describe(page->layout()), QStringLiteral("TipsLabel 10 SettingsGroup stretch"));
    QCOMPARE(groups(page.get()).size(), 1);
    SettingsGroup *group = groups(page.get()).constFirst();
    QCOMPARE(group->itemLayout()->spacing(), 10);
    QCOMPARE(group->itemLayout()->contentsMargins(), QMargins());
    QVERIFY(page->findChild<TipsLabel *>()->wordWrap());
}

void PageFormTest::featurePageGroupsRows_data()
{
    featurePageIsHintThenGroup_data();
}

void PageFormTest::featurePageGroupsRows()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> page(newPage(name));
    const ModulePage expected = modulePage(name);
    SettingsGroup *group = groups(page.get()).constFirst();
    QCOMPARE(group->itemCount(), expected.switches.size() + 1);
    for (int i = 0; i < expected.switches.size(); ++i) {
        auto *row = qobject_cast<SwitchWidget *>(group->item(i));
        QVERIFY(row);
        QCOMPARE(row->title(), expected.switches.at(i));
    }
    SettingsItem *listRow = group->item(expected.switches.size());
    QVERIFY(listRow->hasBackground());
    auto *layout = qobject_cast<QHBoxLayout *>(listRow->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    auto *label = qobject_cast<QLabel *>(layout->itemAt(0)->widget());
    QVERIFY(label);
    QCOMPARE(label->text(), expected.list);
    QVERIFY(qobject_cast<QComboBox *>(layout->itemAt(1)->widget()));
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

void PageFormTest::opensInARightToLeftLanguage_data()
{
    everyPageStandsInAMarginOf10WithoutSpacing_data();
}

void PageFormTest::opensInARightToLeftLanguage()
{
    QFETCH(QString, name);
    QApplication::setLayoutDirection(Qt::RightToLeft);
    {
        const std::unique_ptr<QWidget> page(newPage(name));
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
