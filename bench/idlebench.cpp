#include "bench/suite.h"
#include "bench/testedpage.h"
#include "pages/texttranslatesettingwidget.h"
#include "voice/processwide.h"

#include <QTimer>

#include <sys/resource.h>

namespace {

constexpr int settleMs = 300;
constexpr int idleMs = 1500;

// How often this process began to run anew while its event loop had nothing to do, and once for the
// end.
double wakeUps()
{
    const auto count = [] {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        return double(usage.ru_nvcsw);
    };
    runEvents(settleMs);
    const double before = count();
    runEvents(idleMs);
    return count() - before;
}

double wakeUpsWith(QWidget &&widget, bool shown = true)
{
    widget.show();
    runEvents(settleMs);
    widget.setVisible(shown);
    return wakeUps();
}

double wakeUpsOfTimer()
{
    QTimer timer;
    timer.start(500);
    return wakeUpsWith(QWidget());
}

} // namespace

void benchIdle(const Report &report)
{
    const auto assistantPage = [](bool shown) {
        return [shown] {
            return wakeUpsWith(AssistantSettingWidget(nullptr), shown);
        };
    };
    const QString window = QStringLiteral("an empty window");
    const QString checked = QStringLiteral("an empty window, and a timer twice a second");

    Comparison what;
    what.unit = QStringLiteral("wake-ups");
    what.aim = 1.0;
    struct Case
    {
        QString name;
        QString baseline;
        std::function<double()> measure;
    };
    // Once there is a recorder, it looks at the devices twice a second.
    const QVector<Case> cases = {
        {QStringLiteral("idle page"), window,
         [] {
             return wakeUpsWith(TextTranslateSettingWidget(nullptr));
         }},
        {QStringLiteral("hidden page"), window,
         [] {
             return wakeUpsWith(TextTranslateSettingWidget(nullptr), false);
         }},
        {QStringLiteral("idle assistant page"), checked, assistantPage(true)},
        {QStringLiteral("hidden assistant page"), checked, assistantPage(false)},
        {QStringLiteral("after a voice test"), checked, nullptr},
    };
    QMap<QString, QVector<double>> baselines;
    QMap<QString, QVector<double>> subjects;
    for (int round = 0; round < roundsOf(what); ++round) {
        ProcessWide<AudioRecorder>::dispose(); // left by others
        baselines[window] << wakeUpsWith(QWidget());
        baselines[checked] << wakeUpsOfTimer();
        for (const Case &one : cases)
            if (one.measure)
                subjects[one.name] << one.measure();
    }
    // On one page: a cancelled test's ten seconds go on, and the next one there begins them anew.
    TestedPage page;
    for (int round = 0; round < roundsOf(what); ++round) {
        page.runTest();
        subjects[cases.last().name] << wakeUps();
    }
    for (const Case &one : cases) {
        what.name = one.name;
        what.subject = QStringLiteral("wake-ups in %1 s").arg(idleMs / 1000.0);
        what.baseline = one.baseline;
        report(ratioOf(what, subjects[one.name], baselines[one.baseline]));
    }
}
