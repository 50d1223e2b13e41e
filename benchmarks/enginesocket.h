#pragma once

#include <QByteArray>

#include <netinet/in.h>

/// The engine's end of the wire, as plain as it gets: one blocking socket on a loopback address.
class EngineSocket
{
public:
    /// Binds the address, port 19797, and makes it the engine of every control object created from now on.
    explicit EngineSocket(const char *address);
    ~EngineSocket();
    EngineSocket(const EngineSocket &) = delete;
    EngineSocket &operator=(const EngineSocket &) = delete;

    const sockaddr_in &address() const { return m_address; }
    /// Throws away what has arrived, remembering who sent it.
    void drain();
    /// Sends to whoever was heard last.
    void send(const QByteArray &datagram) const;

private:
    int m_descriptor = -1;
    sockaddr_in m_address{};
    sockaddr_in m_module{};
};
