#include "bench/comparison.h"

#include "tests/support/median.h"

#include <QElapsedTimer>

#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>

using testsupport::median;

namespace {

int roundsOfAll = 0; // 0: each comparison has its own number

double milliseconds(const timeval &time)
{
    return time.tv_sec * 1000.0 + time.tv_usec / 1000.0;
}

} // namespace

double timedMs(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() / 1e6;
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

Ratio compare(const QString &name, const QString &subject, const QString &baseline, int rounds,
              const QString &unit, const std::function<double()> &measureSubject,
              const std::function<double()> &measureBaseline)
{
    if (roundsOfAll > 0)
        rounds = roundsOfAll;
    measureSubject();
    measureBaseline();

    QVector<double> subjects;
    QVector<double> baselines;
    QVector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        subjects.append(measureSubject());
        baselines.append(measureBaseline());
        ratios.append(subjects.last() / baselines.last());
    }

    Ratio result;
    result.name = name;
    result.subject = subject;
    result.baseline = baseline;
    result.median = median(ratios);
    result.lowest = *std::min_element(ratios.cbegin(), ratios.cend());
    result.highest = *std::max_element(ratios.cbegin(), ratios.cend());
    result.note = QStringLiteral("%1 against %2 %3")
                      .arg(median(subjects), 0, 'g', 3)
                      .arg(median(baselines), 0, 'g', 3)
                      .arg(unit);
    return result;
}
