#include "receivebuffercheck.h"

#include "systempath.h"

#include <QFile>

#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int wantedBytes = 1024 * 1024;

// A network namespace may have no file with the limit. The kernel reports twice the size that it grants.
int grantedBytes()
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    int bytes = wantedBytes;
    socklen_t size = sizeof(bytes);
    if (::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &bytes, size) != 0 ||
        ::getsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &bytes, &size) != 0)
        bytes = 0;
    ::close(descriptor);
    return bytes / 2;
}

int limit()
{
    QFile file(systemPath(QStringLiteral("/proc/sys/net/core/rmem_max")));
    return file.open(QIODevice::ReadOnly) ? file.read(16).trimmed().toInt() : grantedBytes();
}

} // namespace

Finding checkReceiveBuffer()
{
    const int bytes = limit();
    if (bytes >= wantedBytes)
        return okFinding(receiveBufferCheck, QStringLiteral("the limit is %1 bytes").arg(bytes));
    return faultFinding(
        receiveBufferCheck,
        QStringLiteral(
            "the limit is %1 bytes, the module asks for %2; bursts may be lost, unless the interface has "
            "CAP_NET_ADMIN")
            .arg(bytes)
            .arg(wantedBytes),
        QStringLiteral("put \"net.core.rmem_max = %1\" into a file in /etc/sysctl.d and run sysctl --system")
            .arg(wantedBytes));
}
