#include "bench/comparison.h"

#include "tests/support/median.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <algorithm>
#include <ctime>

using testsupport::median;

namespace {

int roundsOfAll = 0; // 0: each comparison has its own number

double threadMs()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * 1000.0 + time.tv_nsec / 1e6;
}

} // namespace

double timedMs(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() / 1e6;
}

double workMs(const std::function<void()> &work)
{
    const double before = threadMs();
    work();
    return threadMs() - before;
}

void runEvents(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

double processorMs(qint64 process)
{
    double ns = 0.0;
    QDirIterator threads(QStringLiteral("/proc/%1/task").arg(process),
                         QDir::Dirs | QDir::NoDotAndDotDot);
    while (threads.hasNext()) {
        QFile file(QDir(threads.next()).filePath(QStringLiteral("schedstat")));
        if (file.open(QIODevice::ReadOnly))
            ns += file.readAll().split(' ').first().toDouble();
    }
    return ns / 1e6;
}

void setRounds(int rounds)
{
    roundsOfAll = rounds;
}

int roundsOf(const Comparison &what)
{
    return roundsOfAll > 0 ? roundsOfAll : what.rounds;
}

Ratio ratioOf(const Comparison &what, const QVector<double> &subjects,
              const QVector<double> &baselines)
{
    QVector<double> ratios;
    for (int i = 0; i < subjects.size(); ++i)
        ratios.append(subjects[i] == baselines[i] ? 1.0 : subjects[i] / baselines[i]);

    Ratio result;
    result.what = what;
    result.median = median(ratios);
    result.lowest = *std::min_element(ratios.cbegin(), ratios.cend());
    result.highest = *std::max_element(ratios.cbegin(), ratios.cend());
    result.subject = median(subjects);
    result.baseline = median(baselines);
    return result;
}

Ratio compare(const Comparison &what)
{
    const int rounds = roundsOf(what);
    if (rounds > 1) {
        what.measureSubject();
        what.measureBaseline();
    }

    QVector<double> subjects;
    QVector<double> baselines;
    for (int round = 0; round < rounds; ++round) {
        subjects.append(what.measureSubject());
        baselines.append(what.measureBaseline());
    }
    return ratioOf(what, subjects, baselines);
}
