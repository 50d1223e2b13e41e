#pragma once

#include <QHostAddress>

namespace zelta {

/// The address of the sound engine: the target of the start-up ping and of every datagram.
struct EngineAddress
{
    QHostAddress host;
    quint16 port;
    /// True for an address from ZELTACONNECT_ENGINE. The link never binds such an address: it belongs to
    /// another process, which may not have bound it yet.
    bool fromEnvironment;
};

/// Reads ZELTACONNECT_ENGINE: ADDRESS or ADDRESS:PORT, with an IPv4 unicast address in dotted-decimal
/// notation and a port from 1 to 65535. Returns the fixed address, 172.20.21.22 port 19797, when the variable
/// is unset or empty. For a value of any other form it logs one warning and returns the fixed address.
EngineAddress engineAddress();

} // namespace zelta
