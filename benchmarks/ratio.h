#pragma once

#include <QString>

#include <functional>
#include <vector>

/// All benchmarks measure the product and a baseline alternately in one run, and compare the median of the
/// ratios with a goal. A busy or slow machine therefore reduces the precision, but does not change the
/// result.
namespace benchmark {

/// CPU time of the calling thread, in nanoseconds.
qint64 threadCpuNs();

/// CPU time of another thread of this process by its kernel id, in nanoseconds; -1 if it has ended.
qint64 threadCpuNs(int threadId);

/// Kernel ids of all threads of this process.
std::vector<int> threadIds();

struct Goal
{
    QString name;
    double limit;
    bool atMost; ///< true: the limit is a maximum; false: a minimum
};

/// Measures both sides alternately, once per round, prints one table row and returns whether the median of
/// product / baseline meets the goal. Both functions return the same unit.
bool judge(const Goal &goal, int rounds, const QString &unit, const std::function<double()> &product,
           const std::function<double()> &baseline);

/// The same for the difference of one measurement of each side. Prints the difference instead of a ratio.
bool judgeDifference(const Goal &goal, const QString &unit, double product, double baseline);

/// The heading of the rows that judge() prints.
void printHeading(const QString &title);

} // namespace benchmark
