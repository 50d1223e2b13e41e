#include "udppacket.h"

#include <QHostAddress>
#include <QtEndian>

#include <pcap/pcap.h>

#include <algorithm>

namespace simulated {

namespace {

constexpr int ipHeaderSize = 20;
constexpr int udpHeaderSize = 8;
constexpr quint8 udpProtocol = 17;
constexpr quint16 dontFragment = 0x4000;
constexpr quint16 moreFragments = 0x2000;
constexpr quint16 fragmentOffset = 0x1FFF;

constexpr quint16 typeIpv4 = 0x0800;
// 802.1Q, 802.1ad, and the number that was used for tags in tags before 802.1ad.
constexpr quint16 vlanTypes[] = {0x8100, 0x88A8, 0x9100};
constexpr quint32 vlanTagSize = 4;

// The family of IPv4 in the header of loopback captures, the same on every system.
constexpr quint32 familyIpv4 = 2;

template<typename Number>
void append(QByteArray *bytes, Number number)
{
    char big[sizeof(Number)];
    qToBigEndian(number, big);
    bytes->append(big, int(sizeof(Number)));
}

// The sum of RFC 1071 over 16-bit words; an odd last byte counts as the upper half of a word.
quint32 wordSum(const QByteArray &bytes)
{
    quint32 sum = 0;
    for (int i = 0; i < bytes.size(); ++i)
        sum += quint32(uchar(bytes.at(i))) << (i % 2 == 0 ? 8 : 0);
    return sum;
}

quint16 checksum(quint32 sum)
{
    while (sum > 0xFFFF)
        sum = (sum & 0xFFFF) + (sum >> 16);
    return quint16(~sum);
}

void setWord(QByteArray *bytes, int offset, quint16 word)
{
    qToBigEndian(word, bytes->data() + offset);
}

// The bytes of a packet from a header on. `left` is what the packet has from there, `held` what the capture
// has.
struct View
{
    const uchar *bytes;
    quint32 held;
    quint32 left;

    quint16 word(quint32 offset) const { return qFromBigEndian<quint16>(bytes + offset); }
    quint32 longWord(quint32 offset) const { return qFromBigEndian<quint32>(bytes + offset); }
    bool isCut() const { return held < left; }
    View from(quint32 offset) const { return {bytes + offset, held - offset, left - offset}; }
};

CapturedPacket packetOf(CapturedPacket::Kind kind)
{
    CapturedPacket packet;
    packet.kind = kind;
    return packet;
}

CapturedPacket tooShort(const View &view)
{
    return packetOf(view.isCut() ? CapturedPacket::Kind::Unreadable : CapturedPacket::Kind::Other);
}

CapturedPacket readIpv4(const View &view)
{
    using Kind = CapturedPacket::Kind;
    if (view.held < ipHeaderSize)
        return tooShort(view);
    const quint32 headerSize = 4U * (view.bytes[0] & 0x0F);
    if (view.bytes[0] >> 4 != 4 || headerSize < ipHeaderSize || view.bytes[9] != udpProtocol)
        return packetOf(Kind::Other);
    const quint16 fragment = view.word(6);
    if ((fragment & fragmentOffset) != 0)
        return packetOf(Kind::LaterPart);
    if (view.held < headerSize + udpHeaderSize)
        return tooShort(view);

    CapturedPacket packet;
    const View udp = view.from(headerSize);
    packet.from = {view.longWord(12), udp.word(0)};
    packet.to = {view.longWord(16), udp.word(2)};
    const quint32 packetSize = view.word(2);
    const quint32 udpSize = udp.word(4);
    // Bytes after the packet fill the shortest frame of Ethernet.
    if ((fragment & moreFragments) != 0)
        packet.kind = Kind::Fragment;
    else if (packetSize > view.left || udpSize < udpHeaderSize || headerSize + udpSize > packetSize)
        packet.kind = Kind::Damaged;
    else if (headerSize + udpSize > view.held)
        packet.kind = Kind::Cut;
    else
        packet.kind = Kind::Datagram;
    if (packet.kind == Kind::Datagram) {
        packet.datagram = QByteArray(reinterpret_cast<const char *>(udp.bytes) + udpHeaderSize,
                                     int(udpSize - udpHeaderSize));
    }
    return packet;
}

// typeOffset: offset of the type of the content, which begins after headerSize bytes.
CapturedPacket readTyped(const View &view, quint32 typeOffset, quint32 headerSize)
{
    if (view.held < headerSize)
        return tooShort(view);
    quint16 type = view.word(typeOffset);
    View content = view.from(headerSize);
    while (std::find(std::begin(vlanTypes), std::end(vlanTypes), type) != std::end(vlanTypes)) {
        if (content.held < vlanTagSize)
            return tooShort(content);
        type = content.word(2);
        content = content.from(vlanTagSize);
    }
    return type == typeIpv4 ? readIpv4(content) : packetOf(CapturedPacket::Kind::Other);
}

CapturedPacket readLoopback(const View &view)
{
    constexpr quint32 headerSize = 4;
    if (view.held < headerSize)
        return tooShort(view);
    // One of the two link types has the byte order of the machine that captured.
    const quint32 family = view.longWord(0);
    return family == familyIpv4 || family == qbswap(familyIpv4) ? readIpv4(view.from(headerSize))
                                                                : packetOf(CapturedPacket::Kind::Other);
}

} // namespace

QString endpointText(const Endpoint &endpoint)
{
    return QStringLiteral("%1:%2").arg(QHostAddress(endpoint.address).toString()).arg(endpoint.port);
}

QByteArray udpPacket(const Endpoint &from, const Endpoint &to, const QByteArray &datagram, quint16 id)
{
    const auto udpSize = quint16(udpHeaderSize + datagram.size());
    QByteArray packet;
    packet.reserve(ipHeaderSize + udpSize);
    append(&packet, quint16(0x4500));
    append(&packet, quint16(ipHeaderSize + udpSize));
    append(&packet, id);
    append(&packet, dontFragment);
    append(&packet, quint8(64));
    append(&packet, udpProtocol);
    append(&packet, quint16(0));
    append(&packet, from.address);
    append(&packet, to.address);
    setWord(&packet, 10, checksum(wordSum(packet)));

    append(&packet, from.port);
    append(&packet, to.port);
    append(&packet, udpSize);
    append(&packet, quint16(0));
    packet += datagram;
    // Covers the addresses, the protocol and the size, too.
    const quint16 sum = checksum(wordSum(packet.mid(12)) + udpProtocol + udpSize);
    // 0 stands for a datagram without a checksum.
    setWord(&packet, ipHeaderSize + 6, sum != 0 ? sum : quint16(0xFFFF));
    return packet;
}

bool isKnownLinkType(int linkType)
{
    switch (linkType) {
    case DLT_EN10MB:
    case DLT_LINUX_SLL:
    case DLT_LINUX_SLL2:
    case DLT_RAW:
    case DLT_IPV4:
    case DLT_NULL:
    case DLT_LOOP: return true;
    default: return false;
    }
}

CapturedPacket readPacket(int linkType, const uchar *bytes, quint32 captured, quint32 length)
{
    const View view{bytes, std::min(captured, length), length};
    switch (linkType) {
    case DLT_EN10MB: return readTyped(view, 12, 14);
    case DLT_LINUX_SLL: return readTyped(view, 14, 16);
    case DLT_LINUX_SLL2: return readTyped(view, 0, 20);
    case DLT_NULL:
    case DLT_LOOP: return readLoopback(view);
    case DLT_RAW:
    case DLT_IPV4: return readIpv4(view);
    default: return {};
    }
}

} // namespace simulated
