#include "engineprocesscheck.h"

#include "tools/send/enginetarget.h"
#include "udpsockets.h"

#include <QNetworkInterface>
#include <QStringList>

Finding checkEngineProcess(const EngineTarget &engine)
{
    bool isReadable = false;
    const QVector<UdpSocket> sockets = udpSockets(&isReadable);
    if (!isReadable)
        return skippedFinding(engineProcessCheck, QStringLiteral("/proc/net/udp cannot be read"));
    const bool isOwn = engine.host.isLoopback() || QNetworkInterface::allAddresses().contains(engine.host);
    QStringList owners;
    for (const UdpSocket &socket : sockets) {
        // A socket of all addresses receives the engine's datagrams only if its address is here.
        const bool isThere =
            socket.address == engine.host || (isOwn && socket.address == QHostAddress(QHostAddress::AnyIPv4));
        if (isThere && socket.port == engine.port)
            owners.append(ownerOf(socket).text());
    }
    const QString text = owners.join(QStringLiteral(", "));
    if (engine.host.isLoopback()) {
        if (owners.size() <= 1) {
            return okFinding(engineProcessCheck, owners.isEmpty()
                                                     ? QStringLiteral("no process has %1").arg(engine.text())
                                                     : QStringLiteral("only %1").arg(text));
        }
        return faultFinding(engineProcessCheck,
                            QStringLiteral("several processes have %1: %2").arg(engine.text(), text),
                            QStringLiteral("end all but one of them"));
    }
    if (!owners.isEmpty()) {
        return faultFinding(
            engineProcessCheck,
            QStringLiteral("a process of this machine has the engine's address %1: %2")
                .arg(engine.text(), text),
            QStringLiteral(
                "end that process, and remove the address from this machine: ip addr del %1 dev DEVICE")
                .arg(engine.host.toString()));
    }
    if (isOwn) {
        return faultFinding(
            engineProcessCheck,
            QStringLiteral("%1 is an address of this machine, so nothing reaches the engine")
                .arg(engine.host.toString()),
            QStringLiteral("remove it: ip addr del %1 dev DEVICE").arg(engine.host.toString()));
    }
    return okFinding(engineProcessCheck,
                     QStringLiteral("no process of this machine has %1").arg(engine.text()));
}
