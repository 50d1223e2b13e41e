#include "link/ping.h"

#include <QProcess>
#include <QStringList>
#include <QThread>

namespace zelta {

namespace {

constexpr int attempts = 5;
constexpr int answerWaitMs = 1000;
constexpr unsigned long retryPauseMs = 1000;

bool answersPing(const QString &host)
{
    QProcess ping;
    ping.start(QStringLiteral("ping"), {QStringLiteral("-c"), QStringLiteral("1"), host},
               QIODevice::ReadWrite);
    ping.waitForFinished(answerWaitMs);
    const QString output = QString::fromLocal8Bit(ping.readAll());
    ping.close();
    return pingRepliesReceived(output) > 0;
}

} // namespace

void waitForPingReply(const QString &host)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (answersPing(host))
            return;
        QThread::msleep(retryPauseMs);
    }
}

int pingRepliesReceived(const QString &output)
{
    const QLatin1String sentLabel("transmitted,");
    const QLatin1String receivedLabel("packets received");
    const int sent = output.indexOf(sentLabel);
    if (sent < 0)
        return 0;
    const int received = output.indexOf(receivedLabel, sent);
    if (received < 0)
        return 0;
    const int numberStart = sent + sentLabel.size();
    return output.midRef(numberStart, received - numberStart).trimmed().toInt();
}

} // namespace zelta
