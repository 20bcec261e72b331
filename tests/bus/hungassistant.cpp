#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/support/median.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QtTest>

#include <memory>

// With the services stopped (SIGSTOP), a control whose change nobody waits for returns at
// once, and nothing that the user did is lost.

using testsupport::median;
using testsupport::ServiceCall;
using testsupport::ServiceProcess;

namespace {

constexpr qint64 limitNs = 5 * 1000 * 1000;

std::unique_ptr<QWidget> makePage(const QString &name)
{
    if (name == QLatin1String("iat"))
        return std::make_unique<VoiceIatSettingWidget>();
    if (name == QLatin1String("tts"))
        return std::make_unique<VoiceTTSSettingWidget>();
    return std::make_unique<TextTranslateSettingWidget>();
}

} // namespace

class HungAssistantTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void switchesReturnAtOnce_data();
    void switchesReturnAtOnce();
    void listsReturnAtOnce_data();
    void listsReturnAtOnce();
    void oneShotReturnsAtOnce();
    void dockSwitchReturnsAtOnce();

private:
    /**
     * Presses Space on @p control nine times while @p service is stopped: each press acts on screen
     * and returns at once. Afterwards the service gets nine writes, whose values are in @p values.
     */
    void pressWhileStopped(ServiceProcess &service, QWidget *control, const QString &member,
                           QVector<bool> *values);

    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
};

void HungAssistantTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding})
        QVERIFY(service->start());
}

void HungAssistantTest::init()
{
    m_assistant.reset();
    m_dock.reset();
}

void HungAssistantTest::cleanup()
{
    m_assistant.resume();
    m_dock.resume();
}

void HungAssistantTest::pressWhileStopped(ServiceProcess &service, QWidget *control,
                                          const QString &member, QVector<bool> *values)
{
    constexpr int presses = 9;
    service.reset();
    service.suspend();
    QVector<qint64> times;
    for (int press = 0; press < presses; ++press) {
        auto *button = qobject_cast<QAbstractButton *>(control);
        QVERIFY(button);
        const bool before = button->isChecked();
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(control, Qt::Key_Space);
        times.append(timer.nsecsElapsed());
        QCOMPARE(button->isChecked(), !before);
        values->append(button->isChecked());
    }
    service.resume();
    QVERIFY2(median(times) < limitNs, qPrintable(QString::number(median(times))));
    if (!member.isEmpty())
        QVERIFY(service.waitForCalls(member, presses));
}

void HungAssistantTest::switchesReturnAtOnce_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("member");
    QTest::newRow("dictation") << "iat"
                               << "Speech to Text"
                               << "setIatEnable";
    QTest::newRow("reading") << "tts"
                             << "Text to Speech"
                             << "setTTSEnable";
    QTest::newRow("speech widget") << "tts"
                                   << "Show Speech Widget"
                                   << "setEnableWindow";
    QTest::newRow("translation") << "trans"
                                 << "Translation"
                                 << "setTransEnable";
}

void HungAssistantTest::switchesReturnAtOnce()
{
    QFETCH(QString, page);
    QFETCH(QString, title);
    QFETCH(QString, member);
    const std::unique_ptr<QWidget> widget = makePage(page);

    auto *row = testsupport::switchTitled(widget.get(), title);
    QVERIFY(row);
    QVector<bool> values;
    pressWhileStopped(m_assistant, testsupport::switchButton(row), member, &values);
    const QList<ServiceCall> calls = m_assistant.calls(member);
    QCOMPARE(calls.size(), values.size());
    for (int i = 0; i < values.size(); ++i) {
        QCOMPARE(calls.at(i).arguments, QJsonArray{values.at(i)});
        QVERIFY(!calls.at(i).replyExpected);
    }
}

void HungAssistantTest::listsReturnAtOnce_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("member");
    QTest::newRow("dictation language") << "iat"
                                        << "setIatLanguage";
    QTest::newRow("reader") << "tts"
                            << "setSpeaker";
    QTest::newRow("direction") << "trans"
                               << "setTransLanguage";
}

void HungAssistantTest::listsReturnAtOnce()
{
    QFETCH(QString, page);
    QFETCH(QString, member);
    const std::unique_ptr<QWidget> widget = makePage(page);
    auto *list = widget->findChild<QComboBox *>();
    QVERIFY(list);
    list->setCurrentIndex(0);
    QVERIFY(m_assistant.calls(member).size() <= 1);
    m_assistant.reset();

    m_assistant.suspend();
    QVector<qint64> times;
    for (int press = 0; press < 9; ++press) {
        const int before = list->currentIndex();
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(list, before == 0 ? Qt::Key_Down : Qt::Key_Up);
        times.append(timer.nsecsElapsed());
        QVERIFY(list->currentIndex() != before);
    }
    m_assistant.resume();
    QVERIFY2(median(times) < limitNs, qPrintable(QString::number(median(times))));
    QVERIFY(m_assistant.waitForCalls(member, 9));
}

void HungAssistantTest::oneShotReturnsAtOnce()
{
    m_assistant.setValue(QStringLiteral("wakeup.enabled"), true);
    AssistantSettingWidget page(nullptr);
    QCheckBox *box = testsupport::checkBoxTitled(&page, QStringLiteral("OneShot"));
    QVERIFY(box);
    QVERIFY(box->isEnabled());
    QVector<bool> values;
    pressWhileStopped(m_assistant, box, QString(), &values);
    const int on = values.count(true);
    QVERIFY(m_assistant.waitForCalls(QStringLiteral("enableOneshot"), on));
    QVERIFY(m_assistant.waitForCalls(QStringLiteral("disableOneshot"), values.size() - on));
    QTRY_COMPARE(m_assistant.value(QStringLiteral("wakeup.oneshot")), QVariant(values.last()));
}

void HungAssistantTest::dockSwitchReturnsAtOnce()
{
    AssistantSettingWidget page(nullptr);
    auto *row = testsupport::switchTitled(&page, QStringLiteral("Show in the Dock"));
    QVERIFY(row);
    QVector<bool> values;
    pressWhileStopped(m_dock, testsupport::switchButton(row), QStringLiteral("setDockHideStatus"),
                      &values);
    const QList<ServiceCall> calls = m_dock.calls(QStringLiteral("setDockHideStatus"));
    QCOMPARE(calls.size(), values.size());
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(calls.at(i).arguments, QJsonArray{!values.at(i)});
}

TEST_CLASS(QApplication, HungAssistantTest)
#include "hungassistant.moc"
