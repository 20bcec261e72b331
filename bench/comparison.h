#pragma once

#include <QString>
#include <QVector>

#include <functional>

/** What a comparison found: a ratio, and where both of its sides stood. */
struct Ratio
{
    QString name;
    QString subject;  ///< What was measured...
    QString baseline; ///< ...against what.
    double median = 0.0;
    double lowest = 0.0;
    double highest = 0.0;
    QString note; ///< Absolute figures of this run, for orientation only.
};

/** Milliseconds that @p work takes, by the monotonic clock. */
double timedMs(const std::function<void()> &work);

/** Processor time of this process so far, in milliseconds, user and system together. */
double processorMs();

/** Memory that the heap has handed out and not got back, in bytes. */
double heapBytes();

/** Makes all comparisons take @p rounds rounds, whatever they ask for. */
void setRounds(int rounds);

/**
 * Measures both sides in turn, @p rounds times after one unmeasured round, so that whatever else
 * the machine does meets both. Each side returns what it measured; the ratio of a round is subject
 * by baseline.
 */
Ratio compare(const QString &name, const QString &subject, const QString &baseline, int rounds,
              const QString &unit, const std::function<double()> &measureSubject,
              const std::function<double()> &measureBaseline);
