// Peak memory of the process with a transfer of 256 MiB and with one of 1 MiB. Bluetooth files have the
// shortest pauses; a large one takes a minute. Each size is measured five times.

#include "benchmarks/ratio.h"
#include "benchmarks/streamwatch.h"
#include "control/qconnectqmlplugin.h"

#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryFile>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr qint64 mebibyte = 1024 * 1024;
constexpr qint64 smallFile = mebibyte;
constexpr qint64 largeFile = 256 * mebibyte;
constexpr double largestGrowthKiB = 1024;
constexpr std::size_t rounds = 5;

qint64 peakKiB()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toLongLong();
    }
    return -1;
}

// Runs in a process of its own. Sends a file of that size and prints the peak.
int sendFile(qint64 size)
{
    StreamWatch engine("127.20.26.7");
    QConnectQmlPlugin module;
    QTemporaryFile file;
    if (!file.open() || !file.resize(size))
        qFatal("cannot make a file of %lld bytes", size);
    QEventLoop loop;
    bool sent = false;
    QObject::connect(&module, &QConnectQmlPlugin::bluetoothTransferComplete, &loop, [&](quint16 status) {
        sent = status == 0;
        loop.quit();
    });
    module.sendBtFw(file.fileName());
    loop.exec();
    std::printf("%lld\n", peakKiB());
    return sent ? 0 : 1;
}

double peakOfTransfer(qint64 size)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {QString::number(size)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("the transfer of %lld bytes failed", size);
    return process.readAllStandardOutput().trimmed().toDouble();
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    if (argc > 1)
        return sendFile(QByteArray(argv[1]).toLongLong());

    benchmark::printHeading(QStringLiteral("Memory of a transfer"));
    std::array<double, rounds> small{};
    std::array<double, rounds> large{};
    for (std::size_t round = 0; round < rounds; ++round) {
        small[round] = peakOfTransfer(smallFile);
        large[round] = peakOfTransfer(largeFile);
    }
    std::sort(small.begin(), small.end());
    std::sort(large.begin(), large.end());
    const bool met =
        benchmark::judgeDifference({QStringLiteral("256 MiB file - 1 MiB file"), largestGrowthKiB, true},
                                   QStringLiteral("KiB"), large[rounds / 2], small[rounds / 2]);
    return met ? 0 : 1;
}
