// Capture files with any bytes as packets, written with libpcap.
#pragma once

#include <QByteArray>
#include <QString>

struct pcap;
struct pcap_dumper;

/// The two ends of the datagrams in these files.
constexpr quint16 enginePort = 19797;
constexpr quint16 modulePort = 40000;

/// A datagram as an IPv4 packet. The engine has 172.20.21.22, the module 172.20.21.1; the checksums are 0.
QByteArray ipPacket(bool isFromEngine, const QByteArray &datagram);

/// Writes big-endian words at an offset.
QByteArray withWord(QByteArray bytes, int offset, quint16 word);

class CaptureFile
{
public:
    /// linkType: a DLT_ value.
    CaptureFile(const QString &path, int linkType);
    ~CaptureFile();
    Q_DISABLE_COPY(CaptureFile)

    /// A packet at a time since the start. length: its length on the network if that is more than its bytes.
    void add(const QByteArray &packet, qint64 ns = 0, int length = 0);
    /// Writes a frame for the link type around an IPv4 packet.
    void addIp(const QByteArray &ipPacket, qint64 ns = 0);
    void addDatagram(bool isFromEngine, const QByteArray &datagram, qint64 ns = 0);

    bool finish();

private:
    int m_linkType;
    pcap *m_pcap;
    pcap_dumper *m_dumper;
};
