#include "dropscheck.h"

#include "tools/send/enginetarget.h"
#include "udpsockets.h"

#include <QStringList>

Finding checkDrops(const EngineTarget &engine)
{
    bool isReadable = false;
    const QVector<UdpSocket> sockets = udpSockets(&isReadable);
    if (!isReadable)
        return skippedFinding(dropsCheck, QStringLiteral("/proc/net/udp cannot be read"));
    QStringList losers;
    int unknown = 0;
    for (const UdpSocket &socket : sockets) {
        if (socket.drops == 0)
            continue;
        const SocketOwner owner = ownerOf(socket);
        const bool isEngine = socket.address == engine.host && socket.port == engine.port;
        if (owner.hasModule || isEngine)
            losers.append(QStringLiteral("%1: %2 datagrams").arg(owner.text()).arg(socket.drops));
        else if (owner.pid == 0)
            ++unknown;
    }
    if (!losers.isEmpty()) {
        return faultFinding(
            dropsCheck,
            QStringLiteral("datagrams that did not fit into the receive buffer are lost, ") +
                losers.join(QStringLiteral(", ")),
            QStringLiteral("enlarge the receive buffer (net.core.rmem_max), keep the GUI thread and the "
                           "processor free, and start the program again, which resets the counter"));
    }
    // Their programs are not known, so they may have nothing to do with the module.
    if (unknown > 0) {
        return skippedFinding(
            dropsCheck,
            QStringLiteral("%1 sockets of other users have lost datagrams; run as root to see whose")
                .arg(unknown));
    }
    return okFinding(dropsCheck, QStringLiteral("no program with the module has lost a datagram"));
}
