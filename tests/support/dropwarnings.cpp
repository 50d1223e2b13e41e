#include "support/dropwarnings.h"

#include <QFile>
#include <QRegularExpression>

#include <linux/sock_diag.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace testsupport {

namespace {

QRegularExpressionMatch match(const QString &warning)
{
    static const QRegularExpression form(QStringLiteral("^datagrams dropped by the kernel: (\\d+)$"));
    return form.match(warning);
}

} // namespace

QList<qint64> dropsIn(const QStringList &warnings)
{
    QList<qint64> numbers;
    for (const QString &warning : warnings) {
        if (match(warning).hasMatch())
            numbers.append(match(warning).captured(1).toLongLong());
    }
    return numbers;
}

QStringList withoutDrops(const QStringList &warnings)
{
    QStringList others;
    for (const QString &warning : warnings) {
        if (!match(warning).hasMatch())
            others.append(warning);
    }
    return others;
}

qint64 droppedDatagrams(quint16 port)
{
    QFile file(QStringLiteral("/proc/self/net/udp"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray address = "00000000:" + QByteArray::number(port, 16).rightJustified(4, '0').toUpper();
    qint64 dropped = 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        // sl, local address, ..., drops
        if (columns.size() > 12 && columns.at(1) == address)
            dropped += columns.constLast().toLongLong();
    }
    return dropped;
}

bool canReportDrops()
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    std::array<quint32, SK_MEMINFO_VARS> figures{};
    socklen_t size = sizeof(figures);
    const bool can = ::setsockopt(descriptor, SOL_SOCKET, SO_RXQ_OVFL, &on, sizeof(on)) == 0 &&
                     ::getsockopt(descriptor, SOL_SOCKET, SO_MEMINFO, figures.data(), &size) == 0;
    ::close(descriptor);
    return can;
}

} // namespace testsupport
