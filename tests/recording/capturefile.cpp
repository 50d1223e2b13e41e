#include "recording/capturefile.h"

#include "support/datagram.h"
#include "support/hex.h"

#include <QFile>
#include <QtEndian>

#include <pcap/pcap.h>

using testsupport::datagram;
using testsupport::hex;

namespace {

constexpr qint64 nsPerSecond = 1000000000;
constexpr qint64 startSecond = 1700000000;

} // namespace

QByteArray withWord(QByteArray bytes, int offset, quint16 word)
{
    qToBigEndian(word, bytes.data() + offset);
    return bytes;
}

QByteArray ipPacket(bool isFromEngine, const QByteArray &datagram)
{
    //                      size      id   flags ttl UDP sum
    QByteArray packet = hex("4500 0000 0001 0000 40  11  0000");
    const QByteArray engine = hex("AC141516");
    const QByteArray module = hex("AC141501");
    packet += isFromEngine ? engine + module : module + engine;
    packet += isFromEngine ? testsupport::datagram("MU 9C40 0000 0000") : hex("9C40 4D55 0000 0000");
    packet += datagram;
    packet = withWord(packet, 2, quint16(packet.size()));
    return withWord(packet, 24, quint16(packet.size() - 20));
}

CaptureFile::CaptureFile(const QString &path, int linkType)
    : m_linkType(linkType)
    , m_pcap(pcap_open_dead_with_tstamp_precision(linkType, 65535, PCAP_TSTAMP_PRECISION_NANO))
    , m_dumper(pcap_dump_open(m_pcap, QFile::encodeName(path).constData()))
{}

CaptureFile::~CaptureFile()
{
    finish();
    pcap_close(m_pcap);
}

bool CaptureFile::finish()
{
    if (m_dumper == nullptr)
        return false;
    const bool isWritten = pcap_dump_flush(m_dumper) == 0;
    pcap_dump_close(m_dumper);
    m_dumper = nullptr;
    return isWritten;
}

void CaptureFile::add(const QByteArray &packet, qint64 ns, int length)
{
    pcap_pkthdr header{};
    header.ts.tv_sec = time_t(startSecond + ns / nsPerSecond);
    header.ts.tv_usec = suseconds_t(ns % nsPerSecond);
    header.caplen = bpf_u_int32(packet.size());
    header.len = bpf_u_int32(qMax(length, packet.size()));
    pcap_dump(reinterpret_cast<u_char *>(m_dumper), &header,
              reinterpret_cast<const u_char *>(packet.constData()));
}

void CaptureFile::addIp(const QByteArray &ipPacket, qint64 ns)
{
    QByteArray header;
    switch (m_linkType) {
    //                            receiver     sender       IPv4
    case DLT_EN10MB: header = hex("020000000001 020000000002 0800"); break;
    //                               type device size address          IPv4
    case DLT_LINUX_SLL: header = hex("0000 0001 0006 0200000000010000 0800"); break;
    //                                IPv4 none interface device type size address
    case DLT_LINUX_SLL2: header = hex("0800 0000 00000002 0001 00 06 0200000000010000"); break;
    case DLT_NULL: header = hex("02000000"); break;
    case DLT_LOOP: header = hex("00000002"); break;
    default: break;
    }
    add(header + ipPacket, ns);
}

void CaptureFile::addDatagram(bool isFromEngine, const QByteArray &datagram, qint64 ns)
{
    addIp(ipPacket(isFromEngine, datagram), ns);
}
