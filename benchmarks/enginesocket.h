#pragma once

#include <QByteArray>

#include <netinet/in.h>

/// The engine of a benchmark: one blocking socket on a loopback address.
class EngineSocket
{
public:
    /// Binds the address, port 19797, and makes it the engine of every control object that is constructed
    /// later.
    explicit EngineSocket(const char *address);
    ~EngineSocket();
    EngineSocket(const EngineSocket &) = delete;
    EngineSocket &operator=(const EngineSocket &) = delete;

    const sockaddr_in &address() const { return m_address; }
    /// The sender of the last datagram that drain() discarded.
    const sockaddr_in &module() const { return m_module; }
    /// Discards all datagrams that have arrived, and stores the sender of the last one.
    void drain();
    /// Sends to the sender of the last datagram.
    void send(const QByteArray &datagram) const;
    void sendTo(const QByteArray &datagram, const sockaddr_in &target) const;

private:
    int m_descriptor = -1;
    sockaddr_in m_address{};
    sockaddr_in m_module{};
};
