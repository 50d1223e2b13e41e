#include "modulesockets.h"

#include <QDir>
#include <QStringList>

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace {

bool isModuleSocket(int descriptor)
{
    int type = 0;
    socklen_t typeSize = sizeof(type);
    sockaddr_in local{};
    socklen_t localSize = sizeof(local);
    return ::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &typeSize) == 0 && type == SOCK_DGRAM &&
           ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&local), &localSize) == 0 &&
           local.sin_family == AF_INET && local.sin_addr.s_addr == INADDR_ANY && local.sin_port != 0;
}

} // namespace

QList<ModuleSocket> moduleSockets()
{
    QList<ModuleSocket> sockets;
    const QStringList entries = QDir(QStringLiteral("/proc/self/fd"))
                                    .entryList(QDir::System | QDir::Files | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : entries) {
        const int descriptor = entry.toInt();
        struct stat status
        {};
        if (isModuleSocket(descriptor) && ::fstat(descriptor, &status) == 0)
            sockets.append({descriptor, status.st_ino});
    }
    return sockets;
}

int sendBuffer(const ModuleSocket &socket)
{
    int bytes = 0;
    socklen_t size = sizeof(bytes);
    if (::getsockopt(socket.descriptor, SOL_SOCKET, SO_SNDBUF, &bytes, &size) != 0)
        return -1;
    // The system doubles the given size for its own use, and reports the doubled size.
    return bytes / 2;
}

bool setSendBuffer(const ModuleSocket &socket, int bytes)
{
    return ::setsockopt(socket.descriptor, SOL_SOCKET, SO_SNDBUF, &bytes, sizeof(bytes)) == 0;
}
