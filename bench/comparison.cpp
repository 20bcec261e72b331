#include "bench/comparison.h"

#include "tests/support/median.h"

#include <QElapsedTimer>

#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <ctime>

using testsupport::median;

namespace {

int roundsOfAll = 0; // 0: each comparison has its own number

double milliseconds(const timeval &time)
{
    return time.tv_sec * 1000.0 + time.tv_usec / 1000.0;
}

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

double processorMs()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

void setRounds(int rounds)
{
    roundsOfAll = rounds;
}

Ratio compare(const Comparison &what)
{
    const int rounds = roundsOfAll > 0 ? roundsOfAll : what.rounds;
    if (rounds > 1) {
        what.measureSubject();
        what.measureBaseline();
    }

    QVector<double> subjects;
    QVector<double> baselines;
    QVector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        subjects.append(what.measureSubject());
        baselines.append(what.measureBaseline());
        ratios.append(subjects.last() / baselines.last());
    }

    Ratio result;
    result.what = what;
    result.median = median(ratios);
    result.lowest = *std::min_element(ratios.cbegin(), ratios.cend());
    result.highest = *std::max_element(ratios.cbegin(), ratios.cend());
    result.subject = median(subjects);
    result.baseline = median(baselines);
    return result;
}
