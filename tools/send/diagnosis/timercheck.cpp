#include "timercheck.h"

#include "systempath.h"

#include <QFile>
#include <QRegularExpression>

#include <ctime>

namespace {

// With high-resolution timers it is 1 ns, otherwise a whole tick.
constexpr qint64 wantedNs = 1;

// The list of timers is readable for root only; the clock reports the same resolution to everyone.
qint64 resolutionNs()
{
    static const QRegularExpression line(QStringLiteral("\\.resolution:\\s*(\\d+) nsecs"));
    QFile file(systemPath(QStringLiteral("/proc/timer_list")));
    if (file.open(QIODevice::ReadOnly)) {
        constexpr qint64 start = 4096;
        const QRegularExpressionMatch match = line.match(QString::fromLatin1(file.read(start)));
        if (match.hasMatch())
            return match.captured(1).toLongLong();
    }
    timespec resolution{};
    ::clock_getres(CLOCK_MONOTONIC, &resolution);
    return qint64(resolution.tv_sec) * 1000000000 + resolution.tv_nsec;
}

} // namespace

Finding checkTimers()
{
    const qint64 resolution = resolutionNs();
    if (resolution <= wantedNs)
        return okFinding(timersCheck, QStringLiteral("the kernel has high-resolution timers"));
    return faultFinding(
        timersCheck,
        QStringLiteral("timers have a resolution of %1 us; each pause of the receive thread takes as "
                       "long, and bursts are lost")
            .arg(resolution / 1000),
        QStringLiteral("use a kernel with CONFIG_HIGH_RES_TIMERS=y, started without highres=off"));
}
