#include "networkcheck.h"

#include "tools/send/enginetarget.h"

#include <QNetworkInterface>

#include <cerrno>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

struct Source
{
    QHostAddress address;
    int error = 0;
};

// The address that datagrams to the engine leave from. Connecting a UDP socket asks for the route and sends
// nothing.
Source sourceFor(const EngineTarget &engine)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(engine.port);
    address.sin_addr.s_addr = htonl(engine.host.toIPv4Address());
    Source source;
    sockaddr_in own{};
    socklen_t size = sizeof(own);
    if (::connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0 ||
        ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&own), &size) != 0)
        source.error = errno;
    else
        source.address = QHostAddress(ntohl(own.sin_addr.s_addr));
    ::close(descriptor);
    return source;
}

QString networkMend(const EngineTarget &engine)
{
    // Another address of the same 24 bits.
    const quint32 network = engine.host.toIPv4Address() & 0xFFFFFF00U;
    const quint32 host = (engine.host.toIPv4Address() & 0xFFU) == 1 ? 2 : 1;
    return QStringLiteral(
               "give the device that leads to the engine an address in its network and bring it up, for "
               "example: ip addr add %1/24 dev eth0; ip link set eth0 up")
        .arg(QHostAddress(network | host).toString());
}

} // namespace

Finding checkRoute(const EngineTarget &engine)
{
    const Source source = sourceFor(engine);
    if (source.error != 0) {
        return faultFinding(
            routeCheck,
            QStringLiteral("no route to %1: %2").arg(engine.host.toString(), qt_error_string(source.error)),
            networkMend(engine));
    }
    return okFinding(routeCheck, QStringLiteral("datagrams to %1 leave from %2")
                                     .arg(engine.host.toString(), source.address.toString()));
}

Finding checkOwnAddress(const EngineTarget &engine)
{
    const QList<QNetworkInterface> devices = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &device : devices) {
        const QList<QNetworkAddressEntry> entries = device.addressEntries();
        for (const QNetworkAddressEntry &entry : entries) {
            if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol &&
                engine.host.isInSubnet(entry.ip(), entry.prefixLength())) {
                return okFinding(ownAddressCheck, QStringLiteral("%1/%2 on %3")
                                                      .arg(entry.ip().toString())
                                                      .arg(entry.prefixLength())
                                                      .arg(device.name()));
            }
        }
    }
    return faultFinding(
        ownAddressCheck,
        QStringLiteral("this machine has no address in the network of %1; datagrams leave from %2 "
                       "through a gateway")
            .arg(engine.host.toString(), sourceFor(engine).address.toString()),
        networkMend(engine));
}
