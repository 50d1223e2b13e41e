#include "fuzz/support/wire.h"

#include "fuzz/support/datagramform.h"
#include "fuzz/support/patience.h"
#include "fuzz/support/producttime.h"
#include "fuzz/support/replace.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <map>
#include <mutex>
#include <thread>

#include <netinet/in.h>
#include <poll.h>
#include <sanitizer/asan_interface.h>
#include <semaphore.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

// The start-up time of this program does not matter. clazy:excludeall=non-pod-global-static

namespace fuzz {

namespace {

std::atomic<bool> takenOver{false};
// The socket of the module, known from its first receive call.
std::atomic<int> moduleDescriptor{-1};

// Sent datagrams, from two threads.
std::mutex sentMutex;
std::map<quint16, int> sentKinds;
bool keeping = false;
std::thread::id keeper;
QList<QByteArray> kept;
quint16 modulePort = 0;

// Datagrams to receive. The receive thread owns the list between delivered and drained.
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
    // The module's port is known when the module has sent. A real datagram starts the receive thread.
    QMetaObject::invokeMethod(module, "requestOutsUpdate");
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(modulePort);
    target.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    // Bypasses the replacement of sendto().
    ::syscall(SYS_sendto, descriptor, nullptr, 0, 0, &target, sizeof(target));
    ::close(descriptor);
    while (::sem_trywait(&drained) != 0)
        QCoreApplication::processEvents();
}

void deliver(const QList<QByteArray> &datagrams)
{
    incoming = datagrams;
    ::sem_post(&delivered);
    waitFor(&drained, "the receive loop reads again");
}

} // namespace fuzz

using namespace fuzz;

ZELTA_REPLACEMENT ssize_t sendto(int descriptor, const void *data, std::size_t size, int flags,
                                 const sockaddr *address, socklen_t addressSize)
{
    if (!takenOver || !address || address->sa_family != AF_INET)
        return ssize_t(::syscall(SYS_sendto, descriptor, data, size, flags, address, addressSize));
    record(descriptor, QByteArray(static_cast<const char *>(data), int(size)));
    return ssize_t(size);
}

ZELTA_REPLACEMENT ssize_t recvmsg(int descriptor, msghdr *message, int flags)
{
    if (!takenOver || (flags & MSG_DONTWAIT) == 0)
        return ssize_t(::syscall(SYS_recvmsg, descriptor, message, flags));
    moduleDescriptor = descriptor;
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
    const std::size_t size = message->msg_iov->iov_len;
    const std::size_t length = std::min(size, std::size_t(datagram.size()));
    auto *bytes = static_cast<char *>(message->msg_iov->iov_base);
    message->msg_controllen = 0;
    ASAN_UNPOISON_MEMORY_REGION(bytes, size);
    std::memcpy(bytes, datagram.constData(), length);
    // The buffer has space for the largest datagram, so a read past the end of this one would not be
    // detected. The next byte is the terminator of a byte array.
    if (length + 1 < size)
        ASAN_POISON_MEMORY_REGION(bytes + length + 1, size - length - 1);
    return ssize_t(length);
}

// The receive loop waits in recvmsg() until the harness delivers datagrams.
ZELTA_REPLACEMENT int poll(pollfd *descriptors, nfds_t count, int timeoutMs)
{
    static const auto original = ZELTA_REPLACED(poll);
    if (!takenOver || count != 1 || descriptors->fd != moduleDescriptor)
        return original(descriptors, count, timeoutMs);
    passTime(std::chrono::milliseconds(timeoutMs));
    descriptors->revents = 0;
    return 0;
}
