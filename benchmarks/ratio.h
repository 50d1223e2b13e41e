#pragma once

#include <QString>

#include <functional>
#include <vector>

/// What every benchmark here does: it measures the product and a plain partner in turns within one run, and
/// judges the median of the ratios, so that a busy or slow machine costs precision and not the verdict.
namespace benchmark {

/// CPU time of the calling thread, in nanoseconds.
qint64 threadCpuNs();

/// CPU time of another thread of this process by its kernel id, in nanoseconds; -1 when it has ended.
qint64 threadCpuNs(int threadId);

/// Kernel ids of all threads of this process.
std::vector<int> threadIds();

struct Goal
{
    QString name;
    double limit;
    bool atMost; ///< whether the ratio has to stay at or below the limit, or at or above it
};

/// Measures both sides once per round, in turns, prints one table row and returns whether the median of
/// product / partner meets the goal. Both functions return the same unit.
bool judge(const Goal &goal, int rounds, const QString &unit, const std::function<double()> &product,
           const std::function<double()> &partner);

/// The same for one measurement of each side whose difference counts; prints the difference for a ratio.
bool judgeDifference(const Goal &goal, const QString &unit, double product, double partner);

/// Heading of the rows that judge() prints.
void printHeading(const QString &title);

} // namespace benchmark
