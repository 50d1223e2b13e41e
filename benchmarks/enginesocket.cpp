#include "benchmarks/enginesocket.h"

#include <QtGlobal>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace {

constexpr quint16 enginePort = 19797;

} // namespace

EngineSocket::EngineSocket(const char *address)
    : m_descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    m_address.sin_family = AF_INET;
    m_address.sin_port = htons(enginePort);
    inet_pton(AF_INET, address, &m_address.sin_addr);
    if (::bind(m_descriptor, reinterpret_cast<const sockaddr *>(&m_address), sizeof(m_address)) != 0)
        qFatal("cannot bind %s:%d", address, int(enginePort));
    qputenv("ZELTACONNECT_ENGINE", address);
}

EngineSocket::~EngineSocket()
{
    ::close(m_descriptor);
}

void EngineSocket::drain()
{
    std::array<char, 2048> buffer{};
    sockaddr_in sender{};
    socklen_t length = sizeof(sender);
    while (::recvfrom(m_descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT,
                      reinterpret_cast<sockaddr *>(&sender), &length) >= 0) {
        m_module = sender;
        length = sizeof(sender);
    }
}

void EngineSocket::send(const QByteArray &datagram) const
{
    sendTo(datagram, m_module);
}

void EngineSocket::sendTo(const QByteArray &datagram, const sockaddr_in &target) const
{
    ::sendto(m_descriptor, datagram.constData(), size_t(datagram.size()), 0,
             reinterpret_cast<const sockaddr *>(&target), sizeof(target));
}
