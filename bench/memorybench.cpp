#include "bench/suite.h"
#include "bench/testedpage.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/support/median.h"
#include "tests/support/processusage.h"
#include "tests/support/sessionbus.h"
#include "voice/aqcwrapper.h"
#include "voice/voicetestregistry.h"

#include <cmath>

namespace {

constexpr int warmUp = 10; // in which caches fill

/** What somebody has done again and again leaves each time. */
struct Left
{
    double bytes;
    double handles; // file descriptors, threads, match rules at the bus
};

Left leftBy(int times, const std::function<void()> &once)
{
    const auto handles = [] {
        return testsupport::processEntries("fd") + testsupport::processEntries("task") +
               testsupport::matchRules();
    };
    const auto run = [&once] {
        once();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    for (int i = 0; i < warmUp; ++i)
        run();

    const int handlesBefore = handles();
    QVector<double> heap;
    for (int i = 0; i < times; ++i) {
        run();
        heap << testsupport::heapBytes();
    }
    // Between the middles of the first and the last fifth: caches come and go in between.
    const int fifth = times / 5;
    const double growth =
        testsupport::median(heap.mid(times - fifth)) - testsupport::median(heap.mid(0, fifth));
    const double bytes = growth / (times - fifth);
    constexpr double smallestBlock = 32; // what is less is no block of each
    return {std::abs(bytes) < smallestBlock ? 0.0 : std::round(bytes),
            std::floor(double(handles() - handlesBefore) / times)};
}

/** @p design leaves what has to stay. */
void leaving(const Report &report, const QString &name, int times,
             const std::function<void()> &once, const QString &designText,
             const std::function<void()> &design)
{
    Comparison what;
    QVector<double> bytes;
    QVector<double> bytesByDesign;
    QVector<double> handles;
    QVector<double> handlesByDesign;
    for (int round = 0; round < roundsOf(what); ++round) {
        const Left left = leftBy(times, once);
        const Left byDesign = leftBy(times, design);
        bytes << left.bytes;
        bytesByDesign << byDesign.bytes;
        handles << left.handles;
        handlesByDesign << byDesign.handles;
    }

    what.baseline = designText;
    what.aim = 1.1;
    what.name = QStringLiteral("heap, %1").arg(name);
    what.subject =
        QStringLiteral("what each of %1 leaves after the first %2").arg(times).arg(warmUp);
    what.unit = QStringLiteral("bytes");
    report(ratioOf(what, bytes, bytesByDesign));

    what.name = QStringLiteral("handles, %1").arg(name);
    what.subject = QStringLiteral("descriptors, threads and match rules left likewise");
    what.unit = QStringLiteral("handles");
    report(ratioOf(what, handles, handlesByDesign));
}

template <typename Page>
void visit()
{
    Page page(nullptr);
    page.ensurePolished();
}

} // namespace

void benchMemory(const Report &report)
{
    constexpr int visits = 1000;
    const QString nothing = QStringLiteral("nothing");
    const auto doNothing = [] {
    };
    leaving(report, QStringLiteral("assistant page"), visits, visit<AssistantSettingWidget>,
            QStringLiteral("its voice test, which nobody owns"),
            [] { VoiceTestRegistry::createVoiceTest(); });
    leaving(report, QStringLiteral("speech to text page"), visits, visit<VoiceIatSettingWidget>,
            nothing, doNothing);
    leaving(report, QStringLiteral("text to speech page"), visits, visit<VoiceTTSSettingWidget>,
            nothing, doNothing);
    leaving(report, QStringLiteral("translation page"), visits, visit<TextTranslateSettingWidget>,
            nothing, doNothing);

    const int tests = roundsOf({}) > 1 ? 100 : 20;
    TestedPage page;
    AqcWrapper *const wrapper = VoiceTestRegistry::createVoiceTest();
    QObject receiver;
    leaving(
        report, QStringLiteral("voice test"), tests, [&page] { page.runTest(); },
        QStringLiteral("a connection for the recognised words"),
        [&] {
            QObject::connect(wrapper, &AqcWrapper::signaleIatResult, &receiver,
                             [](const QString &, int, bool) {});
        });
    leaving(
        report, QStringLiteral("page with a voice test"), 20, [] { TestedPage().runTest(); },
        QStringLiteral("a voice test that was run, which nobody owns"),
        [] {
            AqcWrapper *const test = VoiceTestRegistry::createVoiceTest();
            test->start();
            test->stop();
        });
}
