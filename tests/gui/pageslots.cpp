#include "tests/gui/shownpages.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <QComboBox>
#include <QtTest>

using namespace testsupport;

/** What each slot of the pages sends and logs. */
class PageSlotsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void slotsSendAndLog_data();
    void slotsSendAndLog();
    void slotsLogWithTheirSignature_data();
    void slotsLogWithTheirSignature();
    void aClearedListSends_data();
    void aClearedListSends();

private:
    ShownPage m_shown;
};

void PageSlotsTest::initTestCase()
{
    QVERIFY(m_shown.start());
}

void PageSlotsTest::init()
{
    m_shown.switchOff();
}

void PageSlotsTest::cleanup()
{
    m_shown.page.reset();
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PageSlotsTest::slotsSendAndLog_data()
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

void PageSlotsTest::slotsSendAndLog()
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

void PageSlotsTest::slotsLogWithTheirSignature_data()
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

void PageSlotsTest::slotsLogWithTheirSignature()
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

void PageSlotsTest::aClearedListSends_data()
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

void PageSlotsTest::aClearedListSends()
{
    QFETCH(QString, page);
    QFETCH(QString, member);
    QFETCH(QString, value);
    QVERIFY(m_shown.open(page));
    testsupport::comboBoxAt(m_shown.page.get(), 0)->setCurrentIndex(-1);
    QCOMPARE(m_shown.onlyCall(member).arguments, QJsonArray{value});
}

TEST_CLASS(QApplication, PageSlotsTest)
#include "pageslots.moc"
