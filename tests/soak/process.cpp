#include "process.h"

#include <QFile>
#include <QList>

namespace soak {

qint64 residentKiB()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return -1;
}

quint64 droppedDatagrams(quint16 port)
{
    QFile file(QStringLiteral("/proc/self/net/udp"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // 127.20.30.1 and 0.0.0.0 in the form of the kernel.
    const QByteArray suffix = ':' + QByteArray::number(port, 16).rightJustified(4, '0').toUpper();
    const QList<QByteArray> sockets{"011E147F" + suffix, "00000000" + suffix};
    quint64 dropped = 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        // sl, local address, ..., drops
        if (columns.size() > 12 && sockets.contains(columns.at(1)))
            dropped += columns.constLast().toULongLong();
    }
    return dropped;
}

} // namespace soak
