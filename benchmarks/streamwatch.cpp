#include "benchmarks/streamwatch.h"

#include <array>
#include <cstring>
#include <ctime>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr quint16 enginePort = 19797;
constexpr int receiveBufferBytes = 4 * 1024 * 1024;
constexpr long pollIntervalNs = 3000000;

// Tags DE and AC, no error.
constexpr unsigned char endAcknowledgement[] = {0x44, 0x45, 0x41, 0x43, 0, 0, 0, 0};

// When the kernel received the datagram.
qint64 arrivalNs(msghdr &message)
{
    for (cmsghdr *part = CMSG_FIRSTHDR(&message); part; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_TIMESTAMPNS)
            continue;
        timespec time{};
        std::memcpy(&time, CMSG_DATA(part), sizeof(time));
        return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
    }
    qFatal("the kernel records no receive times");
}

} // namespace

StreamWatch::StreamWatch(const char *address)
    : m_descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    m_address.sin_family = AF_INET;
    m_address.sin_port = htons(enginePort);
    ::inet_pton(AF_INET, address, &m_address.sin_addr);
    if (::bind(m_descriptor, reinterpret_cast<sockaddr *>(&m_address), sizeof(m_address)) != 0)
        qFatal("cannot bind %s", address);
    const int on = 1;
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_TIMESTAMPNS, &on, sizeof(on));
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_RCVBUF, &receiveBufferBytes, sizeof(receiveBufferBytes));
    qputenv("ZELTACONNECT_ENGINE", QByteArray(address));
    m_thread = std::thread(&StreamWatch::watch, this);
}

StreamWatch::~StreamWatch()
{
    m_stop = true;
    m_thread.join();
    ::close(m_descriptor);
}

void StreamWatch::watch()
{
    const timespec pause{0, pollIntervalNs};
    while (!m_stop) {
        while (receive()) {
        }
        nanosleep(&pause, nullptr);
    }
}

bool StreamWatch::receive()
{
    std::array<char, 2048> buffer{};
    std::array<char, 128> control{};
    sockaddr_in sender{};
    iovec part{buffer.data(), buffer.size()};
    msghdr message{};
    message.msg_name = &sender;
    message.msg_namelen = sizeof(sender);
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    if (::recvmsg(m_descriptor, &message, MSG_DONTWAIT) < 2)
        return false;
    if (std::memcmp(buffer.data(), "DC", 2) == 0) {
        ++m_count;
    } else if (std::memcmp(buffer.data(), "DS", 2) == 0) {
        m_start = arrivalNs(message);
        m_count = 0;
    } else if (std::memcmp(buffer.data(), "DE", 2) == 0) {
        m_nanoseconds = arrivalNs(message) - m_start;
        m_packets = m_count;
        ++m_ends;
        ::sendto(m_descriptor, endAcknowledgement, sizeof(endAcknowledgement), 0,
                 reinterpret_cast<sockaddr *>(&sender), sizeof(sender));
    }
    return true;
}
