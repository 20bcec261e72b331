#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/themechoice.h"
#include "tests/e2e/walkworld.h"
#include "tests/support/processusage.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "tests/support/timertracker.h"
#include "tests/support/turnwatch.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zapplicationsetup.h>
#include <ztk/zcommandlinkbutton.h>

#include <QAbstractButton>
#include <QApplication>
#include <QAudioDeviceInfo>
#include <QCheckBox>
#include <QComboBox>
#include <QPixmapCache>
#include <QRandomGenerator>
#include <QtTest>

#include <malloc.h>

#include <algorithm>
#include <memory>
#include <vector>

// Somebody who does anything at any moment, also while a page waits, in a world where services and
// the sound server stand still, die and come back. The steps follow from a number, which is printed
// first:
//
//   RANDOM_WALK_SEED     that number; else another one each time
//   RANDOM_WALK_SECONDS  how long; else 60
//   RANDOM_WALK_TRACE    print each step

using controlcenter::ControlCenterWindow;

namespace {

constexpr int usualSeconds = 60;
constexpr int partSeconds = 20; // then all gets well again, and is counted
constexpr int stepMs = 8;
constexpr int deepest = 4;       // steps within the wait of a step within...
constexpr int freezeMs = 5000;   // much less than what the bus waits for an answer
constexpr int recoverMs = 20000; // until all is well again
// What stays, see docs/performance.md, and what may come on top in a part.
constexpr int visitBytes = 1500;
constexpr int sessionBytes = 6000;
constexpr int testBytes = 200;
constexpr int leakBytes = 64 * 1024;
constexpr int largeBlock = 128 * 1024;

int optionOf(const char *name, int usual)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : usual;
}

QtMessageHandler testHandler = nullptr;

/** The module and the window say too much for a log: only what is said here. */
void logOwnLines(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.file, __FILE__) == 0)
        testHandler(type, context, text);
}

/** What a process has, by name. Objects by their class. */
using Inventory = QMap<QByteArray, qint64>;

/** The heap, but for what pages leave by design. */
qint64 heapBesideDesign(const Inventory &all)
{
    return all["heap"] - all["objects AqcWrapper"] * visitBytes -
           all["objects SignalRelay"] * sessionBytes - all["voice tests"] * testBytes;
}

/** How many programs record; the room's own recorder is no client. */
int recordingPrograms()
{
    QProcess pactl;
    pactl.start(QStringLiteral("pactl"), {"list", "short", "source-outputs"});
    pactl.waitForFinished();
    int programs = pactl.exitCode() == 0 ? 0 : -1;
    const QList<QByteArray> lines = pactl.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines)
        programs += line.contains('\t') && line.split('\t').value(2) != "-" ? 1 : 0;
    return programs;
}

} // namespace

class RandomWalkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingFallsAndNothingGrows();

private:
    void addStep(const char *name, int weight, const std::function<void()> &step);
    void addSteps();
    void takeStep();
    void openWindow();
    void useAll();
    void walk(qint64 ms);
    bool recover();
    Inventory inventory();
    Inventory grownSince(const Inventory &before);

    int bounded(int limit) { return int(m_draw % quint32(limit)); }
    template <typename Widget>
    Widget *anyOnPage();

    struct NamedStep
    {
        const char *name;
        std::function<void()> take;
    };
    testsupport::TimerTracker m_tracker;
    std::vector<NamedStep> m_steps; // as often as they are likely
    std::vector<std::function<void()>> m_eachStep;
    QRandomGenerator m_random;
    quint32 m_draw = 0; // of the step
    bool m_trace = qEnvironmentVariableIsSet("RANDOM_WALK_TRACE");
    int m_depth = 0;
    int m_taken = 0;
    int m_deepTaken = 0;
    int m_tests = 0;
    bool m_walking = false;
    WalkWorld m_world;
    zccV20::ModuleInterface *m_module = nullptr;
    std::unique_ptr<ControlCenterWindow> m_window;
};

void RandomWalkTest::initTestCase()
{
    const int seed =
        optionOf("RANDOM_WALK_SEED", int(QRandomGenerator::system()->bounded(1000000)));
    qInfo("RANDOM_WALK_SEED=%d", seed);
    m_random.seed(quint32(seed));
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    QVERIFY(m_world.start());
    Ztk::Widget::ZApplicationSetup::install();
    const controlcenter::LoadedModule loaded =
        controlcenter::loadModule(QStringLiteral(MODULE_FILE));
    QVERIFY2(loaded.module, qPrintable(loaded.error));
    m_module = loaded.module;
    addSteps();
}

void RandomWalkTest::addStep(const char *name, int weight, const std::function<void()> &step)
{
    m_eachStep.push_back(step);
    m_steps.insert(m_steps.end(), std::size_t(weight), {name, step});
}

void RandomWalkTest::addSteps()
{
    addStep("place", 16, [this] {
        const QStringList places = m_window->places();
        m_window->openPlace(places.at(bounded(places.size())));
    });
    addStep("search", 3, [this] {
        static const char *const texts[] = {"Voice", "Language", "Translation", "Speech", "zzz"};
        m_window->searchField()->setText(QLatin1String(texts[bounded(5)]));
        QTest::keyClick(m_window->searchField(), Qt::Key_Return);
    });
    addStep("theme", 2,
            [this] { m_window->theme()->use(controlcenter::ThemeChoice::Choice(bounded(3))); });
    addStep("window", 1, [this] {
        if (m_depth == 1) // a control center does not close a window in which it is at work
            openWindow();
    });
    addStep("switch", 12, [this] {
        if (auto *row = anyOnPage<zcc::widgets::SwitchWidget>())
            testsupport::switchButton(row)->click();
    });
    addStep("box", 3, [this] {
        if (auto *box = anyOnPage<QCheckBox>())
            box->click();
    });
    addStep("list", 6, [this] {
        if (auto *list = anyOnPage<QComboBox>())
            list->setCurrentIndex(bounded(qMax(1, list->count())));
    });
    addStep("voice test", 10, [this] {
        if (auto *link = anyOnPage<Ztk::Widget::ZCommandLinkButton>()) {
            ++m_tests;
            link->click();
        }
    });
    addStep("cancel", 4, [this] {
        for (QWidget *child : m_window->findChildren<QWidget *>())
            if (child->inherits("VoiceAnimationWidget") && child->isVisible())
                return QTest::mouseClick(child, Qt::LeftButton);
    });
    addStep("verdict", 4, [this] { m_world.judge(); });
    addStep("another microphone", 1, [this] { m_world.changeMicrophone(); });
    addStep("service dies", 2, [this] { m_world.serviceDies(m_draw); });
    addStep("service comes", 4, [this] { m_world.serviceComes(m_draw); });
    addStep("service stands still", 3, [this] { m_world.serviceStandsStill(m_draw); });
    addStep("service answers badly", 2, [this] { m_world.serviceAnswersBadly(m_draw); });
    addStep("service answers well", 4, [this] { m_world.serviceAnswersWell(m_draw); });
    addStep("sound server dies", 1, [this] {
        if (bounded(4) == 0) // it takes long to come back
            m_world.soundServerDies();
    });
    addStep("sound server comes", 1, [this] { m_world.soundServerComes(); });
    addStep("sound server stands still", 2, [this] { m_world.soundServerStandsStill(m_draw); });
    addStep("nothing", 4, [] {});
}

void RandomWalkTest::openWindow()
{
    m_window = std::make_unique<ControlCenterWindow>(m_module);
    m_window->show();
    m_window->openModule();
}

template <typename Widget>
Widget *RandomWalkTest::anyOnPage()
{
    QWidget *page = m_window->currentPage();
    QList<Widget *> all = page ? page->findChildren<Widget *>() : QList<Widget *>();
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](Widget *one) { return !one->isVisible() || !one->isEnabled(); }),
              all.end());
    return all.isEmpty() ? nullptr : all.at(bounded(all.size()));
}

void RandomWalkTest::takeStep()
{
    if (!m_walking)
        return;
    QTimer::singleShot(stepMs, this, &RandomWalkTest::takeStep); // also while this one waits
    // Two numbers for each step, whatever comes of it: the steps that follow are the same.
    const NamedStep &step = m_steps.at(m_random.bounded(quint32(m_steps.size())));
    m_draw = m_random.generate();
    ++m_taken;
    if (m_trace)
        qInfo("step %d, depth %d: %s %u", m_taken, m_depth, step.name, m_draw);
    if (m_depth == deepest)
        return;
    m_deepTaken += m_depth > 0 ? 1 : 0;
    ++m_depth;
    step.take();
    --m_depth;
}

// Every step at every place: what is made once is made now.
void RandomWalkTest::useAll()
{
    const quint32 places = quint32(m_window->places().size());
    for (m_draw = 0; m_draw < places; ++m_draw)
        for (const std::function<void()> &step : m_eachStep) {
            ++m_depth;
            step();
            --m_depth;
            QCoreApplication::processEvents();
        }
}

void RandomWalkTest::walk(qint64 ms)
{
    QEventLoop loop;
    QTimer::singleShot(int(ms), &loop, &QEventLoop::quit);
    m_walking = true;
    takeStep();
    loop.exec();
    m_walking = false;
}

// All is there and answers, and the window shows one page of the module, as at the beginning.
bool RandomWalkTest::recover()
{
    if (!QTest::qWaitFor([this] { return m_depth == 0; }, recoverMs) || !m_world.recover())
        return false;
    m_window->theme()->use(controlcenter::ThemeChoice::Light);
    openWindow(); // what it has seen it keeps
    m_window->openPlace(QStringLiteral("Translation"));
    testsupport::flushDeferredDeletes();
    return QTest::qWaitFor(
        [this] {
            testsupport::flushDeferredDeletes();
            return m_window->isComplete() && recordingPrograms() == 0 &&
                   !QAudioDeviceInfo::availableDevices(QAudio::AudioInput).isEmpty();
        },
        recoverMs);
}

Inventory RandomWalkTest::inventory()
{
    QPixmapCache::clear(); // it may grow to ten megabytes
    Inventory all;
    const QHash<QByteArray, int> classes = m_tracker.classes();
    for (auto entry = classes.begin(); entry != classes.end(); ++entry)
        all["objects " + entry.key()] = entry.value();
    all["descriptors"] = testsupport::processEntries("fd");
    all["threads"] = testsupport::processEntries("task");
    all["match rules"] = testsupport::matchRules();
    all["recordings"] = recordingPrograms();
    all["voice tests"] = m_tests;
    all["heap"] = qint64(mallinfo2().uordblks); // without large blocks: pictures come and go
    return all;
}

// What there is more of than in @p before, but for what a page leaves to the end of the program:
// its voice test, and that its last session.
Inventory RandomWalkTest::grownSince(const Inventory &before)
{
    Inventory grown;
    const Inventory after = inventory();
    for (auto entry = after.begin(); entry != after.end(); ++entry)
        grown.insert(entry.key(), entry.value() - before.value(entry.key()));
    const qint64 visits = grown.take("objects AqcWrapper");
    const qint64 sessions = grown.take("objects ComCorvaneAiserviceAqcInterface");
    for (const char *of : {"objects IatWapper", "objects QTimer"})
        grown[of] -= visits;
    for (const char *of : {"objects SignalRelay", "match rules"})
        grown[of] -= sessions;
    grown["objects QDBusServiceWatcher"] -= 2 * sessions; // the relay's and the proxy's own
    grown.remove("voice tests");
    grown.remove("heap");
    for (auto entry = grown.begin(); entry != grown.end();)
        entry = entry.value() > 0 ? entry + 1 : grown.erase(entry);
    return grown;
}

void RandomWalkTest::nothingFallsAndNothingGrows()
{
    const int seconds = optionOf("RANDOM_WALK_SECONDS", usualSeconds);
    const int parts = qMax(4, seconds / partSeconds);
    testHandler = qInstallMessageHandler(logOwnLines);
    openWindow();
    QVERIFY(recover());
    useAll();
    testsupport::TurnWatch turns;
    Inventory before;
    qint64 heapBefore = 0;
    QVector<qint64> growths; // of the heap, by part
    for (int part = 0; part < parts; ++part) {
        walk(seconds * 1000 / parts);
        QVERIFY2(recover(), qPrintable(QString::number(part)));
        const Inventory now = inventory();
        if (part == 0)
            before = now; // all was used
        else
            growths.append(heapBesideDesign(now) - heapBefore);
        heapBefore = heapBesideDesign(now);
    }
    const testsupport::Standstill standstill = turns.longest();

    Inventory grown;
    const bool flat = QTest::qWaitFor(
        [&] {
            grown = grownSince(before);
            return grown.isEmpty();
        },
        recoverMs);
    const Inventory after = inventory();
    const auto since = [&](const char *what) {
        return after[what] - before[what];
    };
    qInfo() << m_taken << "steps," << m_deepTaken << "of them within a wait; longest standstill"
            << standstill.ms << "ms," << standstill.ownMs << "by itself";
    qInfo() << "then" << since("objects AqcWrapper") << "visits of the assistant's page,"
            << since("voice tests") << "voice tests," << since("objects SignalRelay")
            << "sessions left; heap grew by" << since("heap") << "bytes, beside that by part"
            << growths;
    for (auto entry = grown.begin(); entry != grown.end(); ++entry)
        qWarning("grown: %s by %lld", entry.key().constData(), entry.value());
    QVERIFY(flat);
    // Caches grow in one part or another, what leaks in all.
    std::sort(growths.begin(), growths.end());
    const qint64 usualGrowth = growths.at((growths.size() - 1) / 2);
    QVERIFY2(usualGrowth < leakBytes, qPrintable(QString::number(usualGrowth)));
    QVERIFY2(standstill.ownMs < freezeMs, qPrintable(QString::number(standstill.ownMs)));
}

ISOLATED_TEST_CLASS(QApplication, RandomWalkTest, qputenv("QTEST_FUNCTION_TIMEOUT", "86400000"))
#include "randomwalk.moc"
