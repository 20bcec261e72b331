#pragma once

#include <QString>
#include <QVector>

#include <functional>

/** Two ways of doing the same, and how the first may compare with the second. */
struct Comparison
{
    QString name;
    QString subject;  ///< What is measured...
    QString baseline; ///< ...against what: code that does only what must be done.
    QString unit;
    double aim = 0.0; ///< The largest ratio that is good enough; 0 when there is none.
    int rounds = 5;
    /** Each side returns what it measured. */
    std::function<double()> measureSubject;
    std::function<double()> measureBaseline;
};

/** What a comparison found. */
struct Ratio
{
    Comparison what;
    double median = 0.0; ///< Of the ratios of all rounds, subject by baseline.
    double lowest = 0.0;
    double highest = 0.0;
    double subject = 0.0; ///< Medians, for orientation only: they belong to this machine.
    double baseline = 0.0;

    bool missed() const { return what.aim > 0.0 && median > what.aim; }
};

/** Milliseconds that @p work takes, by the monotonic clock. */
double timedMs(const std::function<void()> &work);

/** Milliseconds that the processor spends on @p work in this thread, however much else there is to
 * do. */
double workMs(const std::function<void()> &work);

/** Runs the event loop for a while. */
void runEvents(int ms);

/** Processor time of a process and all its threads so far, in milliseconds, user and system
 * together. What a thread took that has ended is not in it. */
double processorMs(qint64 process);

/** Makes all comparisons take @p rounds rounds, whatever they ask for. */
void setRounds(int rounds);

/** How many rounds a comparison takes. */
int roundsOf(const Comparison &what);

/**
 * What was measured in turn outside of compare(), both sides once in each round. Two zeros are the
 * same.
 */
Ratio ratioOf(const Comparison &what, const QVector<double> &subjects,
              const QVector<double> &baselines);

/**
 * Measures both sides in turn after one unmeasured round, so that whatever else the machine does
 * meets both.
 */
Ratio compare(const Comparison &what);
