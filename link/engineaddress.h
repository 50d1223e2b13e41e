#pragma once

#include <QHostAddress>
#include <QString>

namespace zelta {

/// Where the sound engine listens: the target of the start-up ping, of the bind and of every datagram.
struct EngineAddress
{
    QHostAddress host;
    quint16 port;
};

/// The address on the module's internal network, 172.20.21.22 port 19797, unless the environment variable
/// ZELTACONNECT_ENGINE names another one as ADDRESS or ADDRESS:PORT (IPv4, port 1 to 65535).
/// A value that cannot be read costs one warning in the log and leaves the fixed address in force.
EngineAddress engineAddress();

} // namespace zelta
