#pragma once

#include <QHostAddress>
#include <QString>
#include <QVector>

/// A UDP socket of this machine.
struct UdpSocket
{
    QHostAddress address;
    quint16 port;
    quint64 inode;
    quint64 drops; ///< datagrams that did not fit into the receive buffer
};

/// The program that has a socket open.
struct SocketOwner
{
    int pid = 0; ///< 0: not known, usually because this user may not read it
    QString program;
    bool hasModule = false; ///< it has loaded the library of the ZeltaConnect module

    /// "interface (process 123)"
    QString text() const;
};

/// The IPv4 sockets in /proc/net/udp. *isReadable becomes false if that cannot be read.
QVector<UdpSocket> udpSockets(bool *isReadable);
SocketOwner ownerOf(const UdpSocket &socket);
