#include "pingcheck.h"

#include "tools/send/enginetarget.h"
#include "tools/send/interruption.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

namespace {

// The module waits this long for the end of ping.
constexpr int moduleWaitMs = 1000;
// Longer, to see whether ping is slow or hangs.
constexpr int patienceMs = 4000;
// A signal does not end the wait for a process.
constexpr int interruptionMs = 50;

struct PingRun
{
    bool hasEnded = false;
    int ms = 0;
    QString output;
};

PingRun ping(const QString &host)
{
    PingRun run;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QElapsedTimer since;
    since.start();
    process.start(QStringLiteral("ping"), {QStringLiteral("-c"), QStringLiteral("1"), host});
    while (!run.hasEnded && process.state() != QProcess::NotRunning && since.elapsed() < patienceMs &&
           !Interruption::isRequested()) {
        run.hasEnded = process.waitForFinished(interruptionMs);
    }
    run.ms = int(since.elapsed());
    run.output = QString::fromLocal8Bit(process.readAll()).trimmed();
    if (!run.hasEnded) {
        process.kill();
        process.waitForFinished();
    }
    return run;
}

// Replies in the summary that the module understands; -1: there is no such summary.
int repliesIn(const QString &output)
{
    static const QRegularExpression summary(QStringLiteral("transmitted,\\s*(\\d+)\\s*packets received"));
    const QRegularExpressionMatch match = summary.match(output);
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

QString lastLine(const QString &output)
{
    static const QRegularExpression summary(QStringLiteral("^.*transmitted.*$"),
                                            QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = summary.match(output);
    return match.hasMatch() ? match.captured() : output.section(QLatin1Char('\n'), -1);
}

QString useBusyBox()
{
    return QStringLiteral("install busybox and put its ping first in PATH: "
                          "ln -s /bin/busybox /usr/local/bin/ping");
}

} // namespace

Finding checkPing()
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("ping"));
    if (program.isEmpty())
        return faultFinding(
            pingCheck, QStringLiteral("there is no ping in PATH; each start takes 5 s longer"), useBusyBox());
    const PingRun run = ping(QStringLiteral("127.0.0.1"));
    if (!run.hasEnded || run.ms >= moduleWaitMs) {
        const QString time = run.hasEnded ? QStringLiteral("takes %1 ms").arg(run.ms)
                                          : QStringLiteral("does not end within %1 ms").arg(patienceMs);
        return faultFinding(
            pingCheck,
            QStringLiteral("%1 %2; the module waits %3 ms, and each start takes up to 10 s longer")
                .arg(program, time)
                .arg(moduleWaitMs),
            useBusyBox());
    }
    const int replies = repliesIn(run.output);
    if (replies > 0)
        return okFinding(pingCheck, QStringLiteral("%1, %2 ms").arg(program).arg(run.ms));
    if (replies == 0)
        return faultFinding(pingCheck, QStringLiteral("%1 gets no reply from this machine").arg(program),
                            QStringLiteral("bring the loopback device up: ip link set lo up"));
    if (run.output.contains(QLatin1String("transmitted"))) {
        return faultFinding(
            pingCheck,
            QStringLiteral(
                "the module does not understand the summary of %1, \"%2\"; each start takes 5 s longer")
                .arg(program, lastLine(run.output)),
            useBusyBox());
    }
    return faultFinding(pingCheck,
                        QStringLiteral("%1 prints no summary, but \"%2\"").arg(program, lastLine(run.output)),
                        QStringLiteral("give the interface the right to use ping: a group in "
                                       "net.ipv4.ping_group_range, a file capability, or root"));
}

Finding checkEnginePing(const EngineTarget &engine)
{
    const QString host = engine.host.toString();
    const PingRun run = ping(host);
    if (run.hasEnded && run.ms < moduleWaitMs && repliesIn(run.output) > 0)
        return okFinding(enginePingCheck, QStringLiteral("%1 replies within %2 ms").arg(host).arg(run.ms));
    return faultFinding(
        enginePingCheck,
        QStringLiteral("%1 answers queries, but no ping within %2 ms; each start takes up to 10 s longer")
            .arg(host)
            .arg(moduleWaitMs),
        QStringLiteral("let ICMP echo requests and replies pass between this machine and the engine"));
}
