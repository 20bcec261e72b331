#include "pages/assistantsettingwidget.h"
#include "sandbox/services/aiservice/wavfile.h"
#include "tests/support/busrecorder.h"
#include "tests/support/median.h"
#include "tests/support/processusage.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualmicrophone.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"
#include "voice/voiceanimationwidget.h"

#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QAudioInput>
#include <QDir>
#include <QtTest>

using testsupport::BusRecorder;
using testsupport::heapBytes;
using testsupport::median;
using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;
using Ztk::Widget::ZCommandLinkButton;

namespace {

constexpr int runs = 100;
constexpr int warmUp = 20;     // runs in which caches fill: backend, bus, styles
constexpr int runBytes = 3200; // 0.1 s of audio

/** What the sessions of one ability heard, in the order in which they were opened. */
QVector<QByteArray> heardBy(const QString &ability, const QString &folder)
{
    QMap<int, QByteArray> sessions;
    const QDir directory(folder);
    for (const QString &name : directory.entryList({ability + QStringLiteral("-*.wav")})) {
        const int number =
            name.section(QLatin1Char('-'), 1).section(QLatin1Char('.'), 0, 0).toInt();
        sessions.insert(number, sandbox::wavfile::audio(directory.filePath(name)));
    }
    return sessions.values().toVector();
}

} // namespace

/** What must not grow, get lost or get slower when somebody tests the microphone again and again.
 */
class HundredRunsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hundredRunsInARow();

private:
    VirtualMicrophone m_microphone;
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    ServiceProcess m_aiService{QStringLiteral("aiservice")};
    ServiceProcess m_audioDaemon{QStringLiteral("audio")};
};

void HundredRunsTest::hundredRunsInARow()
{
    QVERIFY(m_microphone.start(QStringLiteral("speech")));
    QVERIFY(m_network.start());
    QVERIFY(m_audioDaemon.start());
    QVERIFY(m_aiService.start());
    const QTemporaryDir recordings;
    m_aiService.setValue(QStringLiteral("recordDirectory"), recordings.path());

    AssistantSettingWidget page;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    BusRecorder bus;
    QVERIFY(bus.start());

    AudioRecorder *const recorder = AudioRecorder::getInstance();
    QVector<QByteArray> captured;
    connect(recorder, &AudioRecorder::audioRecorded, this,
            [&captured](const QByteArray &block) { captured.last() += block; });

    QVector<qint64> startMs;
    QVector<int> addMatches;
    QVector<int> rules;
    double heapAfterWarmUp = 0.0;
    for (int run = 0; run < runs + 1; ++run) {
        captured.append(QByteArray());
        auto *link = page.findChild<ZCommandLinkButton *>();
        QTRY_VERIFY(link->isVisible());
        QElapsedTimer clock;
        clock.start();
        QTest::mouseClick(link, Qt::LeftButton);
        startMs.append(clock.elapsed());
        QTRY_VERIFY2(captured.last().size() >= runBytes, qPrintable(QString::number(run)));

        auto *wave = page.findChild<VoiceAnimationWidget *>();
        QVERIFY(wave && wave->isVisible());
        QTest::mouseClick(wave, Qt::LeftButton);
        QVERIFY(!recorder->isRecording());
        testsupport::flushDeferredDeletes();
        QCOMPARE(AudioRecorder::getInstance(), recorder);
        QCOMPARE(recorder->findChildren<QAudioInput *>().size(), 0);

        QVERIFY(bus.sync());
        int added = 0;
        for (const auto &message : bus.messages())
            added += message.member == QLatin1String("AddMatch") ? 1 : 0;
        addMatches.append(added);
        QVERIFY(bus.clear());
        rules.append(testsupport::matchRules());
        if (run == warmUp)
            heapAfterWarmUp = heapBytes();
    }
    double kept = 0.0; // by this test itself
    for (int run = warmUp + 1; run <= runs; ++run)
        kept += captured.at(run).capacity();
    const double perRun = (heapBytes() - heapAfterWarmUp - kept) / (runs - warmUp);
    const auto afterWarmUp = [](const auto &values) {
        return values.mid(warmUp);
    };
    qInfo() << "AddMatch per run" << addMatches.last() << "match rules" << rules.last()
            << "heap growth per run" << perRun << "start" << startMs.first() << "then"
            << median(afterWarmUp(startMs)) << "ms";

    // Nothing grows. Each run keeps one connection of the recognised words, by design.
    QVERIFY(rules.last() > 0);
    QCOMPARE(afterWarmUp(rules), QVector<int>(runs + 1 - warmUp, rules.at(warmUp)));
    QCOMPARE(afterWarmUp(addMatches), QVector<int>(runs + 1 - warmUp, addMatches.at(warmUp)));
    QVERIFY2(perRun < 4096, qPrintable(QString::number(perRun)));
    QVERIFY(median(afterWarmUp(startMs)) <= startMs.first());

    // Every block reached both sessions, once. The last run closed the session before it.
    for (const char *ability : {"aqc", "iat"}) {
        const QVector<QByteArray> heard = heardBy(QLatin1String(ability), recordings.path());
        QVERIFY(heard.size() >= runs);
        for (int run = 0; run < runs; ++run) {
            QVERIFY2(heard.at(run) == captured.at(run),
                     qPrintable(QStringLiteral("%1, run %2: %3 of %4 bytes")
                                    .arg(QLatin1String(ability))
                                    .arg(run)
                                    .arg(heard.at(run).size())
                                    .arg(captured.at(run).size())));
        }
    }
}

TEST_CLASS(QApplication, HundredRunsTest)
#include "hundredruns.moc"
