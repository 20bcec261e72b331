#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/gui/pagelog.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QtTest>

#include <functional>
#include <memory>

// What each control and each slot of the feature pages sends and logs.

using testsupport::LogCapture;
using testsupport::ServiceCall;
using testsupport::ServiceProcess;

using PageMaker = std::function<QWidget *()>;
Q_DECLARE_METATYPE(PageMaker)

namespace {

const PageMaker speechToText = [] {
    return new VoiceIatSettingWidget;
};
const PageMaker textToSpeech = [] {
    return new VoiceTTSSettingWidget;
};
const PageMaker translation = [] {
    return new TextTranslateSettingWidget;
};
const PageMaker assistant = [] {
    return new AssistantSettingWidget;
};

} // namespace

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

    void slotsSendAndLog_data();
    void slotsSendAndLog();
    void slotsLogWithTheirSignature_data();
    void slotsLogWithTheirSignature();
    void aClearedListSends_data();
    void aClearedListSends();
    void changesWithoutAServiceStayOnScreen();

private:
    /** Shows a page ready for keys; the log of calls starts empty. */
    void open(const PageMaker &make);
    /** The one call that the assistant received; fails the test when there is another number. */
    ServiceCall onlyCall(const QString &member);

    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    std::unique_ptr<QWidget> m_page;
};

void PageActionsTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding})
        QVERIFY(service->start());
}

void PageActionsTest::init()
{
    m_assistant.reset();
    m_assistant.joinBus();
    m_assistant.setValue(QStringLiteral("iat.enabled"), false);
    m_assistant.setValue(QStringLiteral("iat.language"), QStringLiteral("zh_cn"));
    m_assistant.setValue(QStringLiteral("tts.enabled"), false);
    m_assistant.setValue(QStringLiteral("tts.window"), false);
    m_assistant.setValue(QStringLiteral("tts.speaker"), QStringLiteral("x_tovali"));
    m_assistant.setValue(QStringLiteral("trans.enabled"), false);
    m_assistant.setValue(QStringLiteral("trans.language"), QStringLiteral("cn|en"));
}

void PageActionsTest::cleanup()
{
    m_page.reset();
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageActionsTest::open(const PageMaker &make)
{
    m_page.reset(make());
    m_page->resize(640, 480);
    m_page->show();
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_assistant.reset();
    m_dock.reset();
}

ServiceCall PageActionsTest::onlyCall(const QString &member)
{
    ServiceCall call;
    [&] {
        QVERIFY(m_assistant.waitForCalls(member));
        QCOMPARE(m_assistant.calls().size(), 1);
        call = m_assistant.calls().constFirst();
        QVERIFY(!call.replyExpected);
    }();
    m_assistant.reset();
    return call;
}

void PageActionsTest::switchSendsItsStateOnClickAndSpace_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("key");
    QTest::newRow("dictation") << speechToText << "Speech to Text"
                               << "setIatEnable"
                               << "iat.enabled";
    QTest::newRow("reading") << textToSpeech << "Text to Speech"
                             << "setTTSEnable"
                             << "tts.enabled";
    QTest::newRow("speech widget") << textToSpeech << "Show Speech Widget"
                                   << "setEnableWindow"
                                   << "tts.window";
    QTest::newRow("translation") << translation << "Translation"
                                 << "setTransEnable"
                                 << "trans.enabled";
}

void PageActionsTest::switchSendsItsStateOnClickAndSpace()
{
    QFETCH(PageMaker, make);
    QFETCH(QString, title);
    QFETCH(QString, member);
    QFETCH(QString, key);
    open(make);
    auto *row = testsupport::switchTitled(m_page.get(), title);
    QVERIFY(row);
    QAbstractButton *button = testsupport::switchButton(row);

    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(row->checked());
    QCOMPARE(onlyCall(member).arguments, QJsonArray{true});
    QCOMPARE(m_assistant.value(key), QVariant(true));

    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!row->checked());
    QCOMPARE(onlyCall(member).arguments, QJsonArray{false});
    QCOMPARE(m_assistant.value(key), QVariant(false));
}

void PageActionsTest::clickOnTheTitleFlipsTheSwitch()
{
    open(translation);
    auto *row = testsupport::switchTitled(m_page.get(), QStringLiteral("Translation"));
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(30, row->height() / 2));
    QVERIFY(row->checked());
    QCOMPARE(onlyCall(QStringLiteral("setTransEnable")).arguments, QJsonArray{true});
}

void PageActionsTest::listSendsTheChosenEntry_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QStringList>("values"); // by index
    QTest::newRow("dictation language")
        << speechToText << "setIatLanguage"
        << QStringList{QStringLiteral("zh_cn"), QStringLiteral("en_us")};
    QTest::newRow("reader") << textToSpeech << "setSpeaker"
                            << QStringList{QStringLiteral("x_tovali"), QStringLiteral("x_morven"),
                                           QStringLiteral("x2_pella")};
    QTest::newRow("direction") << translation << "setTransLanguage"
                               << QStringList{QStringLiteral("cn|en"), QStringLiteral("en|cn")};
}

void PageActionsTest::listSendsTheChosenEntry()
{
    QFETCH(PageMaker, make);
    QFETCH(QString, member);
    QFETCH(QStringList, values);
    open(make);
    QComboBox *list = testsupport::comboBoxAt(m_page.get(), 0);
    QCOMPARE(list->currentIndex(), 0);
    list->setFocus(Qt::TabFocusReason);
    for (int index = 1; index < values.size(); ++index) {
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(list->currentIndex(), index);
        QCOMPARE(onlyCall(member).arguments, QJsonArray{values.at(index)});
    }
    for (int index = values.size() - 2; index >= 0; --index) {
        QTest::keyClick(list, Qt::Key_Up);
        QCOMPARE(onlyCall(member).arguments, QJsonArray{values.at(index)});
    }
}

void PageActionsTest::listSendsWhatIsChosenFromItsPopup()
{
    open(textToSpeech);
    QComboBox *list = testsupport::comboBoxAt(m_page.get(), 0);
    QTest::mouseClick(list, Qt::LeftButton);
    QTRY_VERIFY(list->view()->isVisible());
    QCOMPARE(m_assistant.calls().size(), 0);
    QTest::keyClick(list->view(), Qt::Key_End);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QTRY_COMPARE(list->currentIndex(), 2);
    QCOMPARE(onlyCall(QStringLiteral("setSpeaker")).arguments,
             QJsonArray{QStringLiteral("x2_pella")});
}

void PageActionsTest::choosingTheSameEntryAgainSendsNothing()
{
    open(translation);
    QComboBox *list = testsupport::comboBoxAt(m_page.get(), 0);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Up);
    QTest::keyClick(list, Qt::Key_Home);
    // A call of ours behind it: everything before it has arrived by then.
    QTest::keyClick(testsupport::switchButton(
                        testsupport::switchTitled(m_page.get(), QStringLiteral("Translation"))),
                    Qt::Key_Space);
    onlyCall(QStringLiteral("setTransEnable"));
}

void PageActionsTest::controlsLeaveEachOtherAlone_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::newRow("speech to text") << speechToText;
    QTest::newRow("text to speech") << textToSpeech;
    QTest::newRow("translation") << translation;
}

void PageActionsTest::controlsLeaveEachOtherAlone()
{
    QFETCH(PageMaker, make);
    open(make);
    const auto rows = m_page->findChildren<zcc::widgets::SwitchWidget *>();
    QComboBox *list = testsupport::comboBoxAt(m_page.get(), 0);
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
    open(textToSpeech);
    for (const char *title : {"Text to Speech", "Show Speech Widget"})
        QTest::mouseClick(testsupport::switchButton(
                              testsupport::switchTitled(m_page.get(), QString::fromLatin1(title))),
                          Qt::LeftButton);
    QTest::keyClick(testsupport::comboBoxAt(m_page.get(), 0), Qt::Key_Down);
    QVERIFY(m_assistant.waitForCalls(QStringLiteral("setSpeaker")));

    open(textToSpeech);
    QVERIFY(testsupport::switchTitled(m_page.get(), QStringLiteral("Text to Speech"))->checked());
    QVERIFY(
        testsupport::switchTitled(m_page.get(), QStringLiteral("Show Speech Widget"))->checked());
    QCOMPARE(testsupport::comboBoxAt(m_page.get(), 0)->currentText(), QStringLiteral("Male"));
}

void PageActionsTest::slotsSendAndLog_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("member"); // null: nothing is sent
    QTest::addColumn<QVariant>("value"); // invalid: without an argument
    QTest::addColumn<QStringList>("lines");

    const auto add = [](const char *page, const PageMaker &make, const char *slot,
                        const QVariant &argument, const QString &member, const QVariant &value,
                        const QStringList &lines) {
        QTest::newRow(
            qPrintable(QStringLiteral("%1, %2(%3)")
                           .arg(QLatin1String(page), QLatin1String(slot), argument.toString())))
            << make << QByteArray(slot) << argument << member << value << lines;
    };
    const auto line = [](const char *slot, const QVariant &argument) {
        return QStringLiteral("%1 | %2").arg(QLatin1String(slot), argument.toString());
    };
    const QVariant nothing;

    for (bool on : {true, false}) {
        add("speech to text", speechToText, "slotVoiceSetting", on, "setIatEnable", on,
            {line("slotVoiceSetting", on), QStringLiteral("setVoiceIatState SECONDS s")});
        add("speech to text", speechToText, "slotPluginShowChange", on, {}, nothing, {});
        add("text to speech", textToSpeech, "slotVoiceTTSSetting", on, "setTTSEnable", on,
            {line("slotVoiceTTSSetting", on)});
        // This one alone logs nothing.
        add("text to speech", textToSpeech, "slotVoiceTTSWindowSetting", on, "setEnableWindow", on,
            {});
        add("translation", translation, "slotVoiceSetting", on, "setTransEnable", on,
            {line("slotVoiceSetting", on)});
        add("translation", translation, "slotPluginShowChange", on, {}, nothing, {});
    }
    for (int index : {-1, 0, 1, 2, 3}) {
        add("speech to text", speechToText, "slotlanguageTypeChange", index, "setIatLanguage",
            index == 0 ? "zh_cn" : "en_us", {line("slotlanguageTypeChange", index)});
        add("speech to text", speechToText, "slotVoiceSourceTypeChange", index, {}, nothing, {});
        // Equality with 1 here, against any other than 0 above.
        add("translation", translation, "slotlanguageTypeChange", index, "setTransLanguage",
            index == 1 ? "en|cn" : "cn|en", {line("slotlanguageTypeChange", index)});
        add("translation", translation, "slotVoiceSourceTypeChange", index, {}, nothing, {});
        const char *const readers[] = {"x_tovali", "x_morven", "x2_pella"};
        add("text to speech", textToSpeech, "slotVoiceSourceTypeChange", index, "setSpeaker",
            index >= 0 && index <= 2 ? readers[index] : "x_tovali",
            {line("slotVoiceSourceTypeChange", index)});
        add("assistant", assistant, "slotVoiceSourceTypeChange", index, "setVOXASpeaker",
            index == 0 ? "x_tovali" : "morven", {line("slotVoiceSourceTypeChange", index)});
        add("assistant", assistant, "slotlanguageTypeChange", index, {}, nothing,
            {line("slotlanguageTypeChange", index)});
        // Neither the entry nor the write of this one is logged.
        add("assistant", assistant, "slotOneShotMode", index,
            index == 0 ? "disableOneshot" : "enableOneshot", nothing, {});
    }
}

void PageActionsTest::slotsSendAndLog()
{
    QFETCH(PageMaker, make);
    QFETCH(QByteArray, slot);
    QFETCH(QVariant, argument);
    QFETCH(QString, member);
    QFETCH(QVariant, value);
    QFETCH(QStringList, lines);
    open(make);

    const LogCapture log;
    if (argument.type() == QVariant::Bool)
        QVERIFY(QMetaObject::invokeMethod(m_page.get(), slot.constData(),
                                          Q_ARG(bool, argument.toBool())));
    else
        QVERIFY(QMetaObject::invokeMethod(m_page.get(), slot.constData(),
                                          Q_ARG(int, argument.toInt())));
    QStringList logged = pageLines(log);
    // How long it took is no text to compare.
    logged.replaceInStrings(QRegularExpression(QStringLiteral("^(setVoiceIatState) [0-9.e-]+ s$")),
                            QStringLiteral("\\1 SECONDS s"));
    QCOMPARE(logged, lines);

    if (member.isEmpty()) {
        QVERIFY(m_assistant.calls().isEmpty());
        return;
    }
    const ServiceCall call = onlyCall(member);
    QCOMPARE(call.arguments,
             value.isValid() ? QJsonArray{QJsonValue::fromVariant(value)} : QJsonArray());
}

void PageActionsTest::slotsLogWithTheirSignature_data()
{
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("file");
    QTest::newRow("speech to text") << speechToText << QByteArray("slotlanguageTypeChange")
                                    << "void VoiceIatSettingWidget::slotlanguageTypeChange(int)"
                                    << "voiceiatsettingwidget";
    QTest::newRow("text to speech") << textToSpeech << QByteArray("slotVoiceSourceTypeChange")
                                    << "void VoiceTTSSettingWidget::slotVoiceSourceTypeChange(int)"
                                    << "voicettssettingwidget";
    QTest::newRow("translation") << translation << QByteArray("slotlanguageTypeChange")
                                 << "void TextTranslateSettingWidget::slotlanguageTypeChange(int)"
                                 << "texttranslatesettingwidget";
    QTest::newRow("assistant") << assistant << QByteArray("slotVoiceSourceTypeChange")
                               << "void AssistantSettingWidget::slotVoiceSourceTypeChange(int)"
                               << "assistantsettingwidget";
}

void PageActionsTest::slotsLogWithTheirSignature()
{
    QFETCH(PageMaker, make);
    QFETCH(QByteArray, slot);
    QFETCH(QString, function);
    QFETCH(QString, file);
    open(make);
    const LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), slot.constData(), Q_ARG(int, 0)));
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
    QTest::addColumn<PageMaker>("make");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("value");
    QTest::newRow("dictation language") << speechToText << "setIatLanguage"
                                        << "en_us";
    QTest::newRow("reader") << textToSpeech << "setSpeaker"
                            << "x_tovali";
    QTest::newRow("direction") << translation << "setTransLanguage"
                               << "cn|en";
}

void PageActionsTest::aClearedListSends()
{
    QFETCH(PageMaker, make);
    QFETCH(QString, member);
    QFETCH(QString, value);
    open(make);
    testsupport::comboBoxAt(m_page.get(), 0)->setCurrentIndex(-1);
    QCOMPARE(onlyCall(member).arguments, QJsonArray{value});
}

void PageActionsTest::changesWithoutAServiceStayOnScreen()
{
    open(speechToText);
    m_assistant.leaveBus();
    auto *row = testsupport::switchTitled(m_page.get(), QStringLiteral("Speech to Text"));
    QComboBox *list = testsupport::comboBoxAt(m_page.get(), 0);
    const LogCapture log;
    QTest::keyClick(testsupport::switchButton(row), Qt::Key_Space);
    QTest::keyClick(list, Qt::Key_Down);
    QVERIFY(row->checked());
    QCOMPARE(list->currentIndex(), 1);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList());
    QVERIFY(m_assistant.calls().isEmpty());
}

TEST_CLASS(QApplication, PageActionsTest)
#include "pageactions.moc"
