#include "pages/assistantsettingwidget.h"
#include "plugin/tavrenaiassitantcontrolplugin.h"
#include "proxy/assistantstateproxy.h"
#include "tests/bus/badworldrows.h"
#include "tests/support/fakeframe.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDBusConnection>
#include <QtTest>

// A session without any bus: the addresses that this test is started with lead nowhere. It is the
// one case in which a write that nobody waits for fails at once.

using testsupport::LogCapture;

class WithoutBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void failedWritesLogTheBusErrorAndReturnZero_data();
    void failedWritesLogTheBusErrorAndReturnZero();
    void readsFallBack();
    void theNetworkCountsAsOffline();
    void everyPageOpensAndItsControlsWork();
};

using Write = qint32 (*)();
Q_DECLARE_METATYPE(Write)
Q_DECLARE_METATYPE(Contract::Method)

void WithoutBusTest::initTestCase()
{
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
    QVERIFY(!QDBusConnection::systemBus().isConnected());
}

void WithoutBusTest::failedWritesLogTheBusErrorAndReturnZero_data()
{
    using namespace Contract;
    using Proxy = AssistantStateProxy;
    QTest::addColumn<Method>("method");
    QTest::addColumn<Write>("write");
    const auto row = [](const Method &method, Write write) {
        QTest::newRow(qPrintable(method.name)) << method << write;
    };
    row(SpeechToText::setIatEnable(), [] { return Proxy::setVoiceIatState(true); });
    row(SpeechToText::setIatLanguage(),
        [] { return Proxy::setVoiceIatLanguage(QStringLiteral("en_us")); });
    row(TextToSpeech::setTTSEnable(), [] { return Proxy::setVoiceTTSState(true); });
    row(TextToSpeech::setEnableWindow(), [] { return Proxy::setVoiceTTSWindowState(true); });
    row(TextToSpeech::setSpeaker(), [] { return Proxy::setVoiceTTSSpeaker(1); });
    row(Translation::setTransEnable(), [] { return Proxy::setAssistantTransState(true); });
    row(Translation::setTransLanguage(),
        [] { return Proxy::setAssistantTransLang(QStringLiteral("cn|en")); });
    row(MainWindow::setVOXASpeaker(), [] { return Proxy::setAssistantSpeaker(1); });
    row(VoiceWakeuper::enableOneshot(), [] { return Proxy::setOneShotMode(1); });
}

void WithoutBusTest::failedWritesLogTheBusErrorAndReturnZero()
{
    QFETCH(Contract::Method, method);
    QFETCH(Write, write);
    const LogCapture log;
    QCOMPARE(write(), 0);
    QStringList errors;
    for (const testsupport::LogRecord &record : log.records(QtCriticalMsg))
        errors.append(QStringLiteral("critical|") + record.text);
    const QString expected =
        doctor::failureOf(badworlds::subjectOf(method).use, doctor::World::BusEnds).log;
    QCOMPARE(errors.size(), expected.isEmpty() ? 0 : 1);
    if (!expected.isEmpty()) {
        const QRegularExpression form(
            QStringLiteral("^%1 \"[^\"]+\" \n$").arg(QRegularExpression::escape(expected)));
        QVERIFY2(form.match(errors.constFirst()).hasMatch(), qPrintable(errors.constFirst()));
        QCOMPARE(log.records(QtCriticalMsg).constFirst().category, QStringLiteral("default"));
    }
}

void WithoutBusTest::readsFallBack()
{
    QVERIFY(!AssistantStateProxy::queryVoiceIatState());
    QVERIFY(!AssistantStateProxy::queryVoiceTTSState());
    QVERIFY(!AssistantStateProxy::queryVoiceTTSWindowState());
    QVERIFY(!AssistantStateProxy::queryAssistantTransState());
    QCOMPARE(AssistantStateProxy::getVoiceIatLanguage(), QStringLiteral("zh_cn"));
    QCOMPARE(AssistantStateProxy::getAssistantTransLang(), QStringLiteral("en|cn"));
    QCOMPARE(AssistantStateProxy::getVoiceTTSSpeaker(), 2);
    QVERIFY(AssistantStateProxy::getShortCut(QStringLiteral("translation"), 0).isEmpty());
}

void WithoutBusTest::theNetworkCountsAsOffline()
{
    const LogCapture log;
    QVERIFY(!AssistantStateProxy::checkNetworkState());
    QCOMPARE(log.count(QtCriticalMsg, QStringLiteral("dbus call network manager state failed")), 1);
}

void WithoutBusTest::everyPageOpensAndItsControlsWork()
{
    testsupport::FakeFrame frame(testsupport::FakeFrame::OnDemand);
    TavrenAIAssitantControlPlugin module;
    module.setFrameProxy(&frame);
    module.active();
    for (const char *page : {"Speech to Text", "Text to Speech", "Translation"})
        module.load(QLatin1String(page));
    QCOMPARE(frame.pushes().size(), 5);
    for (int i = 1; i < frame.pushes().size(); ++i) {
        QWidget *page = frame.pushes().at(i).widget;
        for (auto *row : page->findChildren<zcc::widgets::SwitchWidget *>()) {
            const bool before = row->checked();
            QTest::keyClick(testsupport::switchButton(row), Qt::Key_Space);
            QCOMPARE(row->checked(), !before);
        }
        for (auto *list : page->findChildren<QComboBox *>())
            list->setCurrentIndex(-1);
    }
    QVERIFY(testsupport::checkBoxTitled(frame.pushes().at(1).widget, QStringLiteral("OneShot"))
                ->isEnabled());
}

TEST_CLASS(QApplication, WithoutBusTest)
#include "withoutbus.moc"
