// UDP datagrams in the packets of a network capture.
#pragma once

#include <QByteArray>
#include <QString>

namespace simulated {

/// An IPv4 address and a UDP port.
struct Endpoint
{
    quint32 address = 0;
    quint16 port = 0;
};

/// "127.20.21.22:19797"
QString endpointText(const Endpoint &endpoint);

/// An IPv4 packet with a UDP datagram of at most 65507 bytes. Both checksums are correct.
QByteArray udpPacket(const Endpoint &from, const Endpoint &to, const QByteArray &datagram, quint16 id);

/// The content of a captured packet.
struct CapturedPacket
{
    enum class Kind {
        Datagram,   ///< a whole UDP datagram over IPv4
        Fragment,   ///< the first fragment of a UDP datagram
        LaterPart,  ///< a further fragment; its ports are unknown
        Cut,        ///< a UDP datagram of which the capture holds only the beginning
        Damaged,    ///< a UDP datagram whose lengths contradict each other
        Unreadable, ///< the capture holds too little of the packet to see what it is
        Other       ///< not UDP over IPv4
    };

    Kind kind = Kind::Other;
    Endpoint from; ///< of Datagram, Fragment, Cut and Damaged, like to
    Endpoint to;
    QByteArray datagram; ///< of Datagram
};

/// False for a link type (a DLT_ value of libpcap) that readPacket() does not know.
bool isKnownLinkType(int linkType);

/// Reads any bytes: an Ethernet frame with or without VLAN tags, a packet of Linux "cooked" captures (both
/// versions), of a loopback device, or a raw IP packet. `length` is the length of the packet on the network;
/// `captured` is the number of bytes that the capture holds of it.
CapturedPacket readPacket(int linkType, const uchar *bytes, quint32 captured, quint32 length);

} // namespace simulated
