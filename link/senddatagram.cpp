#include "link/senddatagram.h"

#include <QHostAddress>
#include <QtEndian>

#include <netinet/in.h>
#include <sys/socket.h>

namespace zelta {

qint64 sendDatagram(int descriptor, const char *data, qint64 size, const QHostAddress &address, quint16 port)
{
    bool isIPv4 = false;
    const quint32 host = address.toIPv4Address(&isIPv4);
    if (!isIPv4)
        return -1;
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = qToBigEndian(port);
    target.sin_addr.s_addr = qToBigEndian(host);
    return ::sendto(descriptor, data, size_t(size), MSG_NOSIGNAL, reinterpret_cast<const sockaddr *>(&target),
                    sizeof(target));
}

} // namespace zelta
