#include "bench/suite.h"
#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <sys/resource.h>

#include <memory>

namespace {

constexpr int visits = 1000;
constexpr int idleMs = 3000;

template <typename Page>
void visit()
{
    Page page(nullptr);
    page.ensurePolished();
}

template <typename Page>
Ratio memory(const QString &name)
{
    Comparison what;
    what.name = QStringLiteral("memory, %1").arg(name);
    what.subject = QStringLiteral("heap growth by %1 visits of the page").arg(visits);
    what.baseline = QStringLiteral("the heap that one open page holds");
    what.unit = QStringLiteral("bytes");
    what.measureSubject = [] {
        visit<Page>();
        QCoreApplication::processEvents();
        const double before = heapBytes();
        for (int i = 0; i < visits; ++i)
            visit<Page>();
        QCoreApplication::processEvents();
        return heapBytes() - before;
    };
    what.measureBaseline = [] {
        const double before = heapBytes();
        Page page(nullptr);
        page.ensurePolished();
        return heapBytes() - before;
    };
    return compare(what);
}

// How often this process began to run anew while its event loop had nothing to do, and once for the
// end.
double wakeUps()
{
    const auto count = [] {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        return double(usage.ru_nvcsw);
    };
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec(); // what was just shown settles
    const double before = count();
    QTimer::singleShot(idleMs, &loop, &QEventLoop::quit);
    loop.exec();
    return count() - before;
}

double wakeUpsWith(QWidget *widget)
{
    const std::unique_ptr<QWidget> owner(widget);
    owner->show();
    return wakeUps();
}

} // namespace

void benchMemory(const Report &report)
{
    report(memory<AssistantSettingWidget>(QStringLiteral("assistant page")));
    report(memory<VoiceIatSettingWidget>(QStringLiteral("speech to text page")));
    report(memory<VoiceTTSSettingWidget>(QStringLiteral("text to speech page")));
    report(memory<TextTranslateSettingWidget>(QStringLiteral("translation page")));
}

void benchIdle(const Report &report)
{
    Comparison what;
    what.name = QStringLiteral("idle page");
    what.subject = QStringLiteral("wake-ups in %1 s of the translation page").arg(idleMs / 1000);
    what.baseline = QStringLiteral("of an empty window");
    what.unit = QStringLiteral("wake-ups");
    what.aim = 1.0;
    what.rounds = 3;
    what.measureSubject = [] {
        return wakeUpsWith(new TextTranslateSettingWidget(nullptr));
    };
    what.measureBaseline = [] {
        return wakeUpsWith(new QWidget);
    };
    report(compare(what));

    // Its recorder looks at the devices twice a second for as long as the program runs.
    what.name = QStringLiteral("idle assistant page");
    what.subject = QStringLiteral("wake-ups in %1 s of the assistant page").arg(idleMs / 1000);
    what.aim = 0.0;
    what.measureSubject = [] {
        return wakeUpsWith(new AssistantSettingWidget(nullptr));
    };
    report(compare(what));
}
