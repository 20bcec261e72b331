// The assistant page with a microphone and an AI service that follow a script: what the page makes
// of one signal after many voice tests.

#include "pages/assistantsettingwidget.h"
#include "tests/bus/voiceservice.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <ztk/zcommandlinkbutton.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>

#include <dlfcn.h>

#include <memory>

using testsupport::LogCapture;
using testsupport::ScriptedAudio;
using testsupport::ServiceProcess;
using testsupport::VoiceService;
using Ztk::Widget::ZCommandLinkButton;

namespace {

const QString shownWords = QStringLiteral("明天早上");

int textsSet = 0;  // how often the words were set on a label
int textsRead = 0; // how often a label with the words was read out to assistive technologies

} // namespace

// The two functions below stand in for Qt's in this program. They count what they are called with
// and pass it on. A member function's "this" is the first argument in the platform's calling
// convention.

#define SET_TEXT "_ZN6QLabel7setTextERK7QString"
#define UPDATE_ACCESSIBILITY "_ZN11QAccessible19updateAccessibilityEP16QAccessibleEvent"

void countedSetText(QLabel *self, const QString &text) __asm__(SET_TEXT);
void countedUpdateAccessibility(QAccessibleEvent *event) __asm__(UPDATE_ACCESSIBILITY);

void countedSetText(QLabel *self, const QString &text)
{
    if (text == shownWords)
        ++textsSet;
    const auto real = reinterpret_cast<decltype(&countedSetText)>(dlsym(RTLD_NEXT, SET_TEXT));
    real(self, text);
}

void countedUpdateAccessibility(QAccessibleEvent *event)
{
    const auto *label = qobject_cast<QLabel *>(event->object());
    if (label && label->text() == shownWords && event->type() == QAccessible::Alert)
        ++textsRead;
    const auto real = reinterpret_cast<decltype(&countedUpdateAccessibility)>(
        dlsym(RTLD_NEXT, UPDATE_ACCESSIBILITY));
    real(event);
}

class VoiceTestPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void afterThreeRunsAResultSetsTheSameTextThreeTimes();
    void afterThreeRunsAVerdictCountsOnce();

private:
    /** Three runs, of which the third goes on. */
    void startThreeRuns();

    ServiceProcess m_network{QStringLiteral("networkmanager")};
    VoiceService m_service;
    std::unique_ptr<AssistantSettingWidget> m_page;
};

void VoiceTestPageTest::init()
{
    QVERIFY(m_network.start());
    m_network.setValue(QStringLiteral("state"), 70u);
    QVERIFY(m_service.start());
    m_page = std::make_unique<AssistantSettingWidget>();
    m_page->show();
}

void VoiceTestPageTest::cleanup()
{
    m_page.reset();
}

void VoiceTestPageTest::startThreeRuns()
{
    for (int run = 1; run <= 3; ++run) {
        if (run > 1)
            m_page->slotAqcResult(QStringLiteral("1000"));
        testsupport::flushDeferredDeletes();
        auto *link = m_page->findChild<ZCommandLinkButton *>();
        QVERIFY(link);
        link->click();
        QCOMPARE(m_service.calls(QStringLiteral("startIat")).size(), run);
    }
}

// Every run adds a connection and none takes it away: the text only replaces itself.
void VoiceTestPageTest::afterThreeRunsAResultSetsTheSameTextThreeTimes()
{
    startThreeRuns();
    m_service.recognise(QStringLiteral("/session/iat/3"), shownWords);
    QTRY_VERIFY(testsupport::labelWithText(m_page.get(), shownWords));
    QCOMPARE(textsSet, 3);
    QCOMPARE(textsRead, 1);
}

void VoiceTestPageTest::afterThreeRunsAVerdictCountsOnce()
{
    startThreeRuns();
    const LogCapture log;
    m_service.notify(QStringLiteral("/session/aqc/3"), QStringLiteral("1008"));
    QTRY_VERIFY(testsupport::labelWithText(m_page.get(), QStringLiteral("Too many noises")));
    QCOMPARE(log.count(QtDebugMsg, QStringLiteral("slotAqcResult result: \"1008\"")), 1);
}

ISOLATED_TEST_CLASS(QApplication, VoiceTestPageTest, ScriptedAudio::install())
#include "voicetestpage.moc"
