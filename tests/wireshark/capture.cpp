#include "wireshark/capture.h"

#include <QFile>
#include <QtEndian>

#include <pcap/pcap.h>

namespace {

constexpr int snapLength = 65535;
constexpr int ipHeaderSize = 20;
constexpr int udpHeaderSize = 8;
constexpr quint8 icmp = 1;
constexpr quint8 udp = 17;

// Documentation addresses: 192.0.2.0/24 for engines, 198.51.100.0/24 for modules.
constexpr quint32 engineNetwork = 0xC0000200;
constexpr quint32 moduleNetwork = 0xC6336400;

template<typename Number>
void append(QByteArray *bytes, Number number)
{
    char big[sizeof(Number)];
    qToBigEndian(number, big);
    bytes->append(big, int(sizeof(Number)));
}

QByteArray ipPacket(quint8 protocol, quint32 source, quint32 destination, const QByteArray &payload)
{
    QByteArray packet;
    append(&packet, quint16(0x4500));
    append(&packet, quint16(ipHeaderSize + payload.size()));
    append(&packet, quint32(0));
    append(&packet, quint8(64));
    append(&packet, protocol);
    append(&packet, quint16(0));
    append(&packet, source);
    append(&packet, destination);
    return packet + payload;
}

} // namespace

Capture::Capture(const QString &path)
    : m_pcap(pcap_open_dead_with_tstamp_precision(DLT_RAW, snapLength, PCAP_TSTAMP_PRECISION_NANO))
    , m_dumper(m_pcap != nullptr ? pcap_dump_open(m_pcap, QFile::encodeName(path).constData()) : nullptr)
{}

Capture::~Capture()
{
    finish();
    if (m_pcap != nullptr)
        pcap_close(m_pcap);
}

bool Capture::finish()
{
    if (m_dumper == nullptr)
        return false;
    const bool flushed = pcap_dump_flush(m_dumper) == 0;
    pcap_dump_close(m_dumper);
    m_dumper = nullptr;
    return flushed;
}

QByteArray Capture::packet(Direction direction, const QByteArray &datagram) const
{
    const bool toEngine = direction == Direction::ToEngine;
    const quint32 engine = engineNetwork | m_conversation;
    const quint32 module = moduleNetwork | m_conversation;
    QByteArray segment;
    ::append(&segment, toEngine ? m_modulePort : m_enginePort);
    ::append(&segment, toEngine ? m_enginePort : m_modulePort);
    ::append(&segment, quint16(udpHeaderSize + datagram.size()));
    ::append(&segment, quint16(0));
    return ipPacket(udp, toEngine ? module : engine, toEngine ? engine : module, segment + datagram);
}

void Capture::write(const QByteArray &packet, int captured)
{
    using namespace std::chrono;
    pcap_pkthdr header{};
    header.ts.tv_sec = time_t(duration_cast<seconds>(m_time).count());
    // With this precision, the field holds nanoseconds.
    header.ts.tv_usec = suseconds_t((m_time % seconds(1)).count());
    header.len = bpf_u_int32(packet.size());
    header.caplen = bpf_u_int32(captured);
    pcap_dump(reinterpret_cast<u_char *>(m_dumper), &header,
              reinterpret_cast<const u_char *>(packet.constData()));
}

void Capture::append(Direction direction, const QByteArray &datagram, int captured)
{
    appendAt(m_time + std::chrono::milliseconds(1), direction, datagram, captured);
}

void Capture::appendAt(std::chrono::nanoseconds time, Direction direction, const QByteArray &datagram,
                       int captured)
{
    m_time = time;
    const QByteArray bytes = packet(direction, datagram);
    write(bytes, captured < 0 ? bytes.size() : ipHeaderSize + udpHeaderSize + captured);
}

void Capture::appendUnreachable(const QByteArray &datagram)
{
    m_time += std::chrono::milliseconds(1);
    const QByteArray portUnreachable("\x03\x03\0\0\0\0\0\0", 8);
    const QByteArray bytes = ipPacket(icmp, engineNetwork | m_conversation, moduleNetwork | m_conversation,
                                      portUnreachable + packet(Direction::ToEngine, datagram));
    write(bytes, bytes.size());
}
