#include "networkcheck.h"

#include "tools/send/enginetarget.h"

#include <QNetworkInterface>

#include <cerrno>

#include <arpa/inet.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
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

// QNetworkInterface takes a device without a carrier for down. Its address is in use all the same.
bool isUp(const QNetworkInterface &device)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    qstrncpy(request.ifr_name, device.name().toLocal8Bit().constData(), sizeof(request.ifr_name));
    const bool isKnown = ::ioctl(descriptor, SIOCGIFFLAGS, &request) == 0;
    ::close(descriptor);
    return isKnown && (request.ifr_flags & IFF_UP) != 0;
}

QString elsewhere(const EngineTarget &engine, const QHostAddress &source)
{
    return QStringLiteral("datagrams to %1 leave from %2 through a gateway")
        .arg(engine.host.toString(), source.toString());
}

// An address in the network of the engine that datagrams to it do not leave from.
Finding unusedAddress(const EngineTarget &engine, const QHostAddress &source, const QString &address,
                      const QNetworkInterface &device)
{
    if (!isUp(device)) {
        return faultFinding(
            ownAddressCheck,
            QStringLiteral("the device of %1 is down; %2").arg(address, elsewhere(engine, source)),
            QStringLiteral("bring the device up: ip link set %1 up").arg(device.name()));
    }
    return faultFinding(
        ownAddressCheck, QStringLiteral("%1 is not used; %2").arg(address, elsewhere(engine, source)),
        QStringLiteral("remove the route that leads elsewhere; see: ip route get %1, ip route show dev %2")
            .arg(engine.host.toString(), device.name()));
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
    const QHostAddress source = sourceFor(engine).address;
    Finding fault =
        faultFinding(ownAddressCheck,
                     QStringLiteral("this machine has no address in the network of the engine; ") +
                         elsewhere(engine, source),
                     networkMend(engine));
    const QList<QNetworkInterface> devices = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &device : devices) {
        const QList<QNetworkAddressEntry> entries = device.addressEntries();
        for (const QNetworkAddressEntry &entry : entries) {
            if (entry.ip().protocol() != QAbstractSocket::IPv4Protocol ||
                !engine.host.isInSubnet(entry.ip(), entry.prefixLength())) {
                continue;
            }
            const QString address = QStringLiteral("%1/%2 on %3")
                                        .arg(entry.ip().toString())
                                        .arg(entry.prefixLength())
                                        .arg(device.name());
            if (entry.ip() == source && isUp(device))
                return okFinding(ownAddressCheck, address);
            fault = unusedAddress(engine, source, address, device);
        }
    }
    return fault;
}
