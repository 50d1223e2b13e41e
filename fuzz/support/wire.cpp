#include "fuzz/support/wire.h"

#include "fuzz/support/datagramform.h"
#include "fuzz/support/patience.h"
#include "fuzz/support/replace.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <map>
#include <mutex>
#include <thread>

#include <netinet/in.h>
#include <sanitizer/asan_interface.h>
#include <semaphore.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

// Made once in a program that has no start-up to save. clazy:excludeall=non-pod-global-static

namespace fuzz {

namespace {

constexpr quint16 enginePort = 19797;

std::atomic<bool> takenOver{false};

// What goes out, from two threads.
std::mutex sentMutex;
std::map<quint16, int> sentKinds;
bool keeping = false;
std::thread::id keeper;
QList<QByteArray> kept;
quint16 modulePort = 0;

// What comes in. The receive thread owns the list between delivered and drained.
QList<QByteArray> incoming;
sem_t delivered;
sem_t drained;

void record(int descriptor, const QByteArray &datagram)
{
    requireKnownForm(datagram);
    const std::lock_guard<std::mutex> lock(sentMutex);
    ++sentKinds[kindOf(datagram)];
    if (keeping && std::this_thread::get_id() == keeper)
        kept.append(datagram);
    if (modulePort == 0) {
        sockaddr_in local{};
        socklen_t size = sizeof(local);
        ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&local), &size);
        modulePort = ntohs(local.sin_port);
    }
}

} // namespace

void takeOverWire()
{
    ::sem_init(&delivered, 0, 0);
    ::sem_init(&drained, 0, 0);
    takenOver = true;
}

int sentCount(quint16 kind)
{
    const std::lock_guard<std::mutex> lock(sentMutex);
    const auto found = sentKinds.find(kind);
    return found == sentKinds.end() ? 0 : found->second;
}

void keepSent(bool keep)
{
    const std::lock_guard<std::mutex> lock(sentMutex);
    keeping = keep;
    keeper = std::this_thread::get_id();
    kept.clear();
}

QList<QByteArray> takeSent()
{
    const std::lock_guard<std::mutex> lock(sentMutex);
    QList<QByteArray> result;
    result.swap(kept);
    return result;
}

void startReceiving(QObject *module)
{
    // The port to send to is seen when the module speaks. The thread starts with a datagram of the network.
    QMetaObject::invokeMethod(module, "requestOutsUpdate");
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(modulePort);
    target.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ::sendto(descriptor, nullptr, 0, 0, reinterpret_cast<const sockaddr *>(&target), sizeof(target));
    ::close(descriptor);
    while (::sem_trywait(&drained) != 0)
        QCoreApplication::processEvents();
}

void deliver(const QList<QByteArray> &datagrams)
{
    incoming = datagrams;
    ::sem_post(&delivered);
    waitFor(&drained, "the receive loop comes back for more datagrams");
}

} // namespace fuzz

using namespace fuzz;

ZELTA_REPLACEMENT int bind(int descriptor, const sockaddr *address, socklen_t size) noexcept
{
    static const auto original = ZELTA_REPLACED(bind);
    if (takenOver && address->sa_family == AF_INET &&
        reinterpret_cast<const sockaddr_in *>(address)->sin_port == htons(enginePort)) {
        errno = EADDRNOTAVAIL;
        return -1;
    }
    return original(descriptor, address, size);
}

ZELTA_REPLACEMENT ssize_t sendmsg(int descriptor, const msghdr *message, int flags)
{
    static const auto original = ZELTA_REPLACED(sendmsg);
    const auto *address = static_cast<const sockaddr *>(message->msg_name);
    if (!takenOver || !address || address->sa_family == AF_UNIX)
        return original(descriptor, message, flags);
    QByteArray datagram;
    for (std::size_t i = 0; i < message->msg_iovlen; ++i)
        datagram.append(static_cast<const char *>(message->msg_iov[i].iov_base),
                        int(message->msg_iov[i].iov_len));
    record(descriptor, datagram);
    return datagram.size();
}

ZELTA_REPLACEMENT ssize_t recv(int descriptor, void *buffer, std::size_t size, int flags)
{
    if (!takenOver || (flags & MSG_DONTWAIT) == 0)
        return ssize_t(::syscall(SYS_recvfrom, descriptor, buffer, size, flags, nullptr, nullptr));
    if (incoming.isEmpty()) {
        ::sem_post(&drained);
        while (::sem_wait(&delivered) != 0) {
        }
        if (incoming.isEmpty()) {
            errno = EAGAIN;
            return -1;
        }
    }
    const QByteArray datagram = incoming.takeFirst();
    const std::size_t length = std::min(size, std::size_t(datagram.size()));
    auto *bytes = static_cast<char *>(buffer);
    ASAN_UNPOISON_MEMORY_REGION(bytes, size);
    std::memcpy(bytes, datagram.constData(), length);
    // The buffer has room for the largest datagram, so a read past the end of this one would go unseen. The
    // byte after it is the terminator that a byte array puts there.
    if (length + 1 < size)
        ASAN_POISON_MEMORY_REGION(bytes + length + 1, size - length - 1);
    return ssize_t(length);
}
