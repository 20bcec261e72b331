#include "tests/gui/shownpages.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QtTest>

using namespace testsupport;

/** What each control of the feature pages sends, and what each of their slots sends and logs. */
class PageActionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void switchSendsItsStateOnClickAndSpace_data();
    void switchSendsItsStateOnClickAndSpace();
    void clickOnTheTitleFlipsTheSwitch();
    void listSendsTheChosenEntry_data();
    void listSendsTheChosenEntry();
    void listSendsWhatIsChosenFromItsPopup();
    void choosingTheSameEntryAgainSendsNothing();
    void controlsLeaveEachOtherAlone_data();
    void controlsLeaveEachOtherAlone();
    void nextPageShowsWhatThisOneWrote();
    void changesWithoutAServiceStayOnScreen();
    void slotsSendAndLog_data();
    void slotsSendAndLog();
    void slotsLogWithTheirSignature_data();
    void slotsLogWithTheirSignature();
    void aClearedListSends_data();
    void aClearedListSends();

private:
    ShownPage m_shown;
};

void PageActionsTest::initTestCase()
{
    QVERIFY(m_shown.start());
}

void PageActionsTest::init()
{
    m_shown.switchOff();
}

void PageActionsTest::cleanup()
{
    m_shown.page.reset();
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageActionsTest::switchSendsItsStateOnClickAndSpace_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("key");
    QTest::newRow("dictation") << speechToTextPage << "Speech to Text"
                               << "setIatEnable"
                               << "iat.enabled";
    QTest::newRow("reading") << textToSpeechPage << "Text to Speech"
                             << "setTTSEnable"
                             << "tts.enabled";
    QTest::newRow("speech widget") << textToSpeechPage << "Show Speech Widget"
                                   << "setEnableWindow"
                                   << "tts.window";
    QTest::newRow("translation") << translationPage << "Translation"
                                 << "setTransEnable"
                                 << "trans.enabled";
}

void PageActionsTest::switchSendsItsStateOnClickAndSpace()
{
    QFETCH(QString, page);
    QFETCH(QString, title);
    QFETCH(QString, member);
    QFETCH(QString, key);
    QVERIFY(m_shown.open(page));
    auto *row = testsupport::switchTitled(m_shown.page.get(), title);
    QVERIFY(row);
    QAbstractButton *button = testsupport::switchButton(row);

    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(row->checked());
    QCOMPARE(m_shown.onlyCall(member).arguments, QJsonArray{true});
    QCOMPARE(m_shown.assistant.value(key), QVariant(true));

    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!row->checked());
    QCOMPARE(m_shown.onlyCall(member).arguments, QJsonArray{false});
    QCOMPARE(m_shown.assistant.value(key), QVariant(false));
}

void PageActionsTest::clickOnTheTitleFlipsTheSwitch()
{
    QVERIFY(m_shown.open(translationPage));
    auto *row = testsupport::switchTitled(m_shown.page.get(), QStringLiteral("Translation"));
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(30, row->height() / 2));
    QVERIFY(row->checked());
    QCOMPARE(m_shown.onlyCall(QStringLiteral("setTransEnable")).arguments, QJsonArray{true});
}

void PageActionsTest::listSendsTheChosenEntry_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QStringList>("values"); // by index
    QTest::newRow("dictation language")
        << speechToTextPage << "setIatLanguage"
        << QStringList{QStringLiteral("zh_cn"), QStringLiteral("en_us")};
    QTest::newRow("reader") << textToSpeechPage << "setSpeaker"
                            << QStringList{QStringLiteral("x_tovali"), QStringLiteral("x_morven"),
                                           QStringLiteral("x2_pella")};
    QTest::newRow("direction") << translationPage << "setTransLanguage"
                               << QStringList{QStringLiteral("cn|en"), QStringLiteral("en|cn")};
}

void PageActionsTest::listSendsTheChosenEntry()
{
    QFETCH(QString, page);
    QFETCH(QString, member);
    QFETCH(QStringList, values);
    QVERIFY(m_shown.open(page));
    QComboBox *list = testsupport::comboBoxAt(m_shown.page.get(), 0);
    QCOMPARE(list->currentIndex(), 0);
    list->setFocus(Qt::TabFocusReason);
    for (int index = 1; index < values.size(); ++index) {
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(list->currentIndex(), index);
        QCOMPARE(m_shown.onlyCall(member).arguments, QJsonArray{values.at(index)});
    }
    for (int index = values.size() - 2; index >= 0; --index) {
        QTest::keyClick(list, Qt::Key_Up);
        QCOMPARE(m_shown.onlyCall(member).arguments, QJsonArray{values.at(index)});
    }
}

void PageActionsTest::listSendsWhatIsChosenFromItsPopup()
{
    QVERIFY(m_shown.open(textToSpeechPage));
    QComboBox *list = testsupport::comboBoxAt(m_shown.page.get(), 0);
    QTest::mouseClick(list, Qt::LeftButton);
    QTRY_VERIFY(list->view()->isVisible());
    QCOMPARE(m_shown.assistant.calls().size(), 0);
    QTest::keyClick(list->view(), Qt::Key_End);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QTRY_COMPARE(list->currentIndex(), 2);
    QCOMPARE(m_shown.onlyCall(QStringLiteral("setSpeaker")).arguments,
             QJsonArray{QStringLiteral("x2_pella")});
}

void PageActionsTest::choosingTheSameEntryAgainSendsNothing()
{
    QVERIFY(m_shown.open(translationPage));
    QComboBox *list = testsupport::comboBoxAt(m_shown.page.get(), 0);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Up);
    QTest::keyClick(list, Qt::Key_Home);
    // A call of ours behind it: everything before it has arrived by then.
    QTest::keyClick(testsupport::switchButton(testsupport::switchTitled(
                        m_shown.page.get(), QStringLiteral("Translation"))),
                    Qt::Key_Space);
    m_shown.onlyCall(QStringLiteral("setTransEnable"));
}

void PageActionsTest::controlsLeaveEachOtherAlone_data()
{
    QTest::addColumn<QString>("page");
    for (const testsupport::ModulePage &page : testsupport::featurePages())
        QTest::newRow(qPrintable(page.name)) << page.name;
}

void PageActionsTest::controlsLeaveEachOtherAlone()
{
    QFETCH(QString, page);
    QVERIFY(m_shown.open(page));
    const auto rows = m_shown.page->findChildren<zcc::widgets::SwitchWidget *>();
    QComboBox *list = testsupport::comboBoxAt(m_shown.page.get(), 0);
    for (bool on : {true, false}) {
        rows.constFirst()->setChecked(on);
        for (const auto *row : rows) {
            QVERIFY(row->isEnabled());
            QVERIFY(row->isVisible());
        }
        QVERIFY(list->isEnabled());
        QVERIFY(list->isVisible());
        QCOMPARE(list->currentIndex(), 0);
    }
    if (rows.size() > 1)
        QVERIFY(!rows.at(1)->checked());
}

void PageActionsTest::nextPageShowsWhatThisOneWrote()
{
    QVERIFY(m_shown.open(textToSpeechPage));
    for (const char *title : {"Text to Speech", "Show Speech Widget"})
        QTest::mouseClick(testsupport::switchButton(testsupport::switchTitled(
                              m_shown.page.get(), QString::fromLatin1(title))),
                          Qt::LeftButton);
    QTest::keyClick(testsupport::comboBoxAt(m_shown.page.get(), 0), Qt::Key_Down);
    QVERIFY(m_shown.assistant.waitForCalls(QStringLiteral("setSpeaker")));

    QVERIFY(m_shown.open(textToSpeechPage));
    QVERIFY(
        testsupport::switchTitled(m_shown.page.get(), QStringLiteral("Text to Speech"))->checked());
    QVERIFY(testsupport::switchTitled(m_shown.page.get(), QStringLiteral("Show Speech Widget"))
                ->checked());
    QCOMPARE(testsupport::comboBoxAt(m_shown.page.get(), 0)->currentText(), QStringLiteral("Male"));
}

void PageActionsTest::changesWithoutAServiceStayOnScreen()
{
    QVERIFY(m_shown.open(speechToTextPage));
    m_shown.assistant.leaveBus();
    auto *row = testsupport::switchTitled(m_shown.page.get(), QStringLiteral("Speech to Text"));
    QComboBox *list = testsupport::comboBoxAt(m_shown.page.get(), 0);
    const LogCapture log;
    QTest::keyClick(testsupport::switchButton(row), Qt::Key_Space);
    QTest::keyClick(list, Qt::Key_Down);
    QVERIFY(row->checked());
    QCOMPARE(list->currentIndex(), 1);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList());
    QVERIFY(m_shown.assistant.calls().isEmpty());
}

void PageActionsTest::slotsSendAndLog_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("member"); // null: nothing is sent
    QTest::addColumn<QVariant>("value"); // invalid: without an argument
    QTest::addColumn<QStringList>("lines");

    const auto add = [](const QString &page, const char *slot, const QVariant &argument,
                        const QString &member, const QVariant &value, const QStringList &lines) {
        QTest::newRow(qPrintable(
            QStringLiteral("%1, %2(%3)").arg(page, QLatin1String(slot), argument.toString())))
            << page << QByteArray(slot) << argument << member << value << lines;
    };
    const auto line = [](const char *slot, const QVariant &argument) {
        return QStringLiteral("%1 | %2").arg(QLatin1String(slot), argument.toString());
    };
    const QVariant nothing;

    for (bool on : {true, false}) {
        add(speechToTextPage, "slotVoiceSetting", on, "setIatEnable", on,
            {line("slotVoiceSetting", on), QStringLiteral("setVoiceIatState SECONDS s")});
        add(speechToTextPage, "slotPluginShowChange", on, {}, nothing, {});
        add(textToSpeechPage, "slotVoiceTTSSetting", on, "setTTSEnable", on,
            {line("slotVoiceTTSSetting", on)});
        // This one alone logs nothing.
        add(textToSpeechPage, "slotVoiceTTSWindowSetting", on, "setEnableWindow", on, {});
        add(translationPage, "slotVoiceSetting", on, "setTransEnable", on,
            {line("slotVoiceSetting", on)});
        add(translationPage, "slotPluginShowChange", on, {}, nothing, {});
    }
    for (int index : {-1, 0, 1, 2, 3}) {
        add(speechToTextPage, "slotlanguageTypeChange", index, "setIatLanguage",
            index == 0 ? "zh_cn" : "en_us", {line("slotlanguageTypeChange", index)});
        add(speechToTextPage, "slotVoiceSourceTypeChange", index, {}, nothing, {});
        // Equality with 1 here, against any other than 0 above.
        add(translationPage, "slotlanguageTypeChange", index, "setTransLanguage",
            index == 1 ? "en|cn" : "cn|en", {line("slotlanguageTypeChange", index)});
        add(translationPage, "slotVoiceSourceTypeChange", index, {}, nothing, {});
        const char *const readers[] = {"x_tovali", "x_morven", "x2_pella"};
        add(textToSpeechPage, "slotVoiceSourceTypeChange", index, "setSpeaker",
            index >= 0 && index <= 2 ? readers[index] : "x_tovali",
            {line("slotVoiceSourceTypeChange", index)});
        add(assistantPage, "slotVoiceSourceTypeChange", index, "setVOXASpeaker",
            index == 0 ? "x_tovali" : "morven", {line("slotVoiceSourceTypeChange", index)});
        add(assistantPage, "slotlanguageTypeChange", index, {}, nothing,
            {line("slotlanguageTypeChange", index)});
        // Neither the entry nor the write of this one is logged.
        add(assistantPage, "slotOneShotMode", index,
            index == 0 ? "disableOneshot" : "enableOneshot", nothing, {});
    }
}

void PageActionsTest::slotsSendAndLog()
{
    QFETCH(QString, page);
    QFETCH(QByteArray, slot);
    QFETCH(QVariant, argument);
    QFETCH(QString, member);
    QFETCH(QVariant, value);
    QFETCH(QStringList, lines);
    QVERIFY(m_shown.open(page));

    const LogCapture log;
    if (argument.type() == QVariant::Bool)
        QVERIFY(QMetaObject::invokeMethod(m_shown.page.get(), slot.constData(),
                                          Q_ARG(bool, argument.toBool())));
    else
        QVERIFY(QMetaObject::invokeMethod(m_shown.page.get(), slot.constData(),
                                          Q_ARG(int, argument.toInt())));
    QStringList logged = pageLines(log);
    // How long it took is no text to compare.
    logged.replaceInStrings(QRegularExpression(QStringLiteral("^(setVoiceIatState) [0-9.e-]+ s$")),
                            QStringLiteral("\\1 SECONDS s"));
    QCOMPARE(logged, lines);

    if (member.isEmpty()) {
        QVERIFY(m_shown.assistant.calls().isEmpty());
        return;
    }
    const ServiceCall call = m_shown.onlyCall(member);
    QCOMPARE(call.arguments,
             value.isValid() ? QJsonArray{QJsonValue::fromVariant(value)} : QJsonArray());
}

void PageActionsTest::slotsLogWithTheirSignature_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("file");
    QTest::newRow("speech to text") << speechToTextPage << QByteArray("slotlanguageTypeChange")
                                    << "void VoiceIatSettingWidget::slotlanguageTypeChange(int)"
                                    << "voiceiatsettingwidget";
    QTest::newRow("text to speech") << textToSpeechPage << QByteArray("slotVoiceSourceTypeChange")
                                    << "void VoiceTTSSettingWidget::slotVoiceSourceTypeChange(int)"
                                    << "voicettssettingwidget";
    QTest::newRow("translation") << translationPage << QByteArray("slotlanguageTypeChange")
                                 << "void TextTranslateSettingWidget::slotlanguageTypeChange(int)"
                                 << "texttranslatesettingwidget";
    QTest::newRow("assistant") << assistantPage << QByteArray("slotVoiceSourceTypeChange")
                               << "void AssistantSettingWidget::slotVoiceSourceTypeChange(int)"
                               << "assistantsettingwidget";
}

void PageActionsTest::slotsLogWithTheirSignature()
{
    QFETCH(QString, page);
    QFETCH(QByteArray, slot);
    QFETCH(QString, function);
    QFETCH(QString, file);
    QVERIFY(m_shown.open(page));
    const LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(m_shown.page.get(), slot.constData(), Q_ARG(int, 0)));
    const testsupport::LogRecord record =
        log.find(QString::fromLatin1(slot) + QStringLiteral(" | 0"));
    QCOMPARE(record.type, QtDebugMsg);
    QCOMPARE(record.category, QStringLiteral("default"));
    QCOMPARE(record.function, function);
    QCOMPARE(QFileInfo(record.file).baseName(), file);
    QVERIFY(record.line > 0);
}

void PageActionsTest::aClearedListSends_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("value");
    QTest::newRow("dictation language") << speechToTextPage << "setIatLanguage"
                                        << "en_us";
    QTest::newRow("reader") << textToSpeechPage << "setSpeaker"
                            << "x_tovali";
    QTest::newRow("direction") << translationPage << "setTransLanguage"
                               << "cn|en";
}

void PageActionsTest::aClearedListSends()
{
    QFETCH(QString, page);
    QFETCH(QString, member);
    QFETCH(QString, value);
    QVERIFY(m_shown.open(page));
    testsupport::comboBoxAt(m_shown.page.get(), 0)->setCurrentIndex(-1);
    QCOMPARE(m_shown.onlyCall(member).arguments, QJsonArray{value});
}

TEST_CLASS(QApplication, PageActionsTest)

#include "pageactions.moc"
