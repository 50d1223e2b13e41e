#include "udpsockets.h"

#include "systempath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <unistd.h>

namespace {

constexpr int addressField = 1;
constexpr int inodeField = 9;
constexpr int dropsField = 12;
constexpr int leastFields = 13;
constexpr qint64 largestFile = 4 * 1024 * 1024;

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(largestFile) : QByteArray();
}

// "0100007F:4D55": the address in the byte order of the machine, and the port.
void readAddress(const QByteArray &text, UdpSocket *socket)
{
    const int colon = text.indexOf(':');
    const quint32 inNetworkOrder = text.left(colon).toUInt(nullptr, 16);
    socket->address = QHostAddress(qFromBigEndian(inNetworkOrder));
    socket->port = text.mid(colon + 1).toUShort(nullptr, 16);
}

bool holds(const QDir &descriptors, const QByteArray &link)
{
    const QStringList names = descriptors.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        char target[64];
        const QByteArray path = QFile::encodeName(descriptors.filePath(name));
        const ssize_t length = ::readlink(path.constData(), target, sizeof(target));
        if (length == link.size() && link == QByteArray::fromRawData(target, int(length)))
            return true;
    }
    return false;
}

} // namespace

QString SocketOwner::text() const
{
    return pid == 0 ? QStringLiteral("a process that this user may not see")
                    : QStringLiteral("%1 (process %2)").arg(program).arg(pid);
}

QVector<UdpSocket> udpSockets(bool *isReadable)
{
    const QByteArray table = contentsOf(systemPath(QStringLiteral("/proc/net/udp")));
    *isReadable = table.contains("local_address");
    QVector<UdpSocket> sockets;
    const QList<QByteArray> lines = table.split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() < leastFields || !fields.at(addressField).contains(':'))
            continue;
        UdpSocket socket{};
        readAddress(fields.at(addressField), &socket);
        socket.inode = fields.at(inodeField).toULongLong();
        socket.drops = fields.at(dropsField).toULongLong();
        sockets.append(socket);
    }
    return sockets;
}

SocketOwner ownerOf(const UdpSocket &socket)
{
    const QByteArray link = "socket:[" + QByteArray::number(socket.inode) + ']';
    const QDir proc(systemPath(QStringLiteral("/proc")));
    const QStringList names = proc.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const int pid = name.toInt();
        if (pid <= 0 || !holds(QDir(proc.filePath(name + QStringLiteral("/fd"))), link))
            continue;
        const QString folder = proc.filePath(name);
        SocketOwner owner;
        owner.pid = pid;
        owner.program = QString::fromLocal8Bit(contentsOf(folder + QStringLiteral("/comm")).trimmed());
        owner.hasModule = contentsOf(folder + QStringLiteral("/maps")).contains("libzeltaconnectplugin.so");
        return owner;
    }
    return {};
}
