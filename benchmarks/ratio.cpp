#include "benchmarks/ratio.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <ctime>

namespace benchmark {

namespace {

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

} // namespace

qint64 threadCpuNs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

qint64 threadCpuNs(int threadId)
{
    // The first number of schedstat is the time on a processor in nanoseconds.
    QFile file(QStringLiteral("/proc/self/task/%1/schedstat").arg(threadId));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().split(' ').first().toLongLong();
}

std::vector<int> threadIds()
{
    std::vector<int> ids;
    const QStringList entries =
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &entry : entries)
        ids.push_back(entry.toInt());
    return ids;
}

void printHeading(const QString &title)
{
    out() << title << '\n'
          << QStringLiteral("%1 %2 %3 %4 %5\n")
                 .arg(QStringLiteral("measure"), -44)
                 .arg(QStringLiteral("product"), 14)
                 .arg(QStringLiteral("baseline"), 14)
                 .arg(QStringLiteral("ratio"), 7)
                 .arg(QStringLiteral("goal"), 9);
    out().flush();
}

namespace {

bool printRow(const Goal &goal, const QString &unit, double product, double baseline, const QString &compared,
              double value)
{
    const bool met = goal.atMost ? value <= goal.limit : value >= goal.limit;
    out() << QStringLiteral("%1 %2 %3 %4 %5 %6\n")
                 .arg(goal.name, -44)
                 .arg(QStringLiteral("%1 %2").arg(product, 0, 'f', 2).arg(unit), 14)
                 .arg(QStringLiteral("%1 %2").arg(baseline, 0, 'f', 2).arg(unit), 14)
                 .arg(compared, 7)
                 .arg(QStringLiteral("%1 %2")
                          .arg(goal.atMost ? QStringLiteral("<=") : QStringLiteral(">="))
                          .arg(goal.limit),
                      9)
                 .arg(met ? QStringLiteral("met") : QStringLiteral("MISSED"));
    out().flush();
    return met;
}

} // namespace

bool judge(const Goal &goal, int rounds, const QString &unit, const std::function<double()> &product,
           const std::function<double()> &baseline)
{
    std::vector<double> products;
    std::vector<double> baselines;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        products.push_back(product());
        baselines.push_back(baseline());
        ratios.push_back(products.back() / baselines.back());
    }
    const double ratio = median(ratios);
    return printRow(goal, unit, median(products), median(baselines), QString::number(ratio, 'f', 3), ratio);
}

bool judgeDifference(const Goal &goal, const QString &unit, double product, double baseline)
{
    const double difference = product - baseline;
    return printRow(goal, unit, product, baseline, QString::number(difference, 'f', 0), difference);
}

} // namespace benchmark
