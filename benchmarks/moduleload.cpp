// The cost of the module at the start of a screen: the time from the import to the created object, and the
// memory of the object. Each measurement runs in a new process, because a library is loaded only once.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr int rounds = 15;
constexpr double mostTimes = 8;
constexpr double mostMs = 60;
constexpr double mostKiB = 3 * 1024;
const char engineAddress[] = "127.20.26.8";

// Memory that is not shared with other processes.
qint64 privateKiB()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("this kernel does not report private memory");
    qint64 sum = 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Private_"))
            sum += line.simplified().split(' ').at(1).toLongLong();
    }
    return sum;
}

std::unique_ptr<QObject> create(QQmlEngine &engine, const QByteArray &document)
{
    QQmlComponent component(&engine);
    component.setData(document, QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object)
        qFatal("%s", qPrintable(component.errorString()));
    return object;
}

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

// The module runs ping once. That time is not counted.
double pingMs()
{
    QElapsedTimer timer;
    timer.start();
    QProcess ping;
    ping.start(QStringLiteral("ping"),
               {QStringLiteral("-c"), QStringLiteral("1"), QLatin1String(engineAddress)});
    ping.waitForFinished();
    return milliseconds(timer);
}

// Runs in a new process: prints the time to load and create, the time of a ping, and the memory before and
// after.
int loadModule(const QByteArray &module)
{
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(ZELTACONNECT_QML_DIR));
    engine.addImportPath(QStringLiteral(TRIVIAL_QML_DIR));
    const auto empty = create(engine, "import QtQuick 2.12\nItem {}");

    const qint64 before = privateKiB();
    QElapsedTimer timer;
    timer.start();
    const auto object = create(engine, module);
    const double spent = milliseconds(timer);
    const qint64 after = privateKiB();
    std::printf("%f %f %lld %lld\n", spent, pingMs(), before, after);
    return 0;
}

struct Cost
{
    double ms;
    double pingMs;
    double beforeKiB;
    double afterKiB;
};

Cost costOf(const char *document)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(document)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("cannot load: %s\n%s", document, process.readAllStandardError().constData());
    const QList<QByteArray> values = process.readAllStandardOutput().simplified().split(' ');
    return {values.at(0).toDouble(), values.at(1).toDouble(), values.at(2).toDouble(),
            values.at(3).toDouble()};
}

double median(const std::vector<Cost> &costs, double Cost::*member)
{
    std::vector<double> values;
    values.reserve(costs.size());
    for (const Cost &cost : costs)
        values.push_back(cost.*member);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    if (argc > 1) {
        qputenv("ZELTACONNECT_ENGINE", engineAddress);
        return loadModule(argv[1]);
    }
    const EngineSocket engine(engineAddress);

    std::vector<Cost> costs;
    benchmark::printHeading(QStringLiteral("Loading the module and creating its object"));
    bool met = benchmark::judge(
        {QStringLiteral("without the ping / a trivial module"), mostTimes, true}, rounds,
        QStringLiteral("ms"),
        [&] {
            costs.push_back(costOf("import ZeltaConnect 1.0\nZeltaConnect {}"));
            return costs.back().ms - costs.back().pingMs;
        },
        [] { return costOf("import Trivial 1.0\nTrivial {}").ms; });
    met &= benchmark::judgeDifference({QStringLiteral("load and create - the ping"), mostMs, true},
                                      QStringLiteral("ms"), median(costs, &Cost::ms),
                                      median(costs, &Cost::pingMs));
    met &= benchmark::judgeDifference(
        {QStringLiteral("private memory: with it - an empty item"), mostKiB, true}, QStringLiteral("KiB"),
        median(costs, &Cost::afterKiB), median(costs, &Cost::beforeKiB));
    return met ? 0 : 1;
}
