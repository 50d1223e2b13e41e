#include "recording.h"

#include "udppacket.h"

#include <QFile>
#include <QHostAddress>

#include <pcap/pcap.h>

#include <cerrno>
#include <cstring>

namespace simulated {

namespace {

constexpr qint64 nsPerSecond = 1000000000;
constexpr qint64 dayNs = 24 * 60 * 60 * nsPerSecond;
constexpr qint64 longestGapNs = dayNs;
constexpr qint64 longestNs = 366 * dayNs;

QString addressText(quint32 address)
{
    return QHostAddress(address).toString();
}

} // namespace

// The state while a file is read.
struct Recording::Reading
{
    int linkType = 0;
    quint16 enginePort = 0;
    qint64 packets = 0;
    qint64 previousStamp = 0;
    bool hasEngine = false;
    quint32 engine = 0; // its address
    bool hasUnreadable = false;
    bool hasLaterParts = false;
    QString problem;

    bool refuse(const QString &what)
    {
        problem = QStringLiteral("packet %1 %2").arg(packets).arg(what);
        return false;
    }
};

bool Recording::load(const QString &path, QString *problem, quint16 enginePort)
{
    clear();
    QString reason;
    std::FILE *file = std::fopen(QFile::encodeName(path).constData(), "rb");
    if (file == nullptr)
        reason = QString::fromLocal8Bit(std::strerror(errno));
    else if (read(file, &reason, enginePort))
        return true;
    *problem = QStringLiteral("recording %1: %2").arg(path, reason);
    return false;
}

bool Recording::read(std::FILE *file, QString *problem, quint16 enginePort)
{
    clear();
    const int first = std::fgetc(file);
    if (first == EOF && std::ferror(file) == 0) {
        static_cast<void>(std::fclose(file));
        *problem = QStringLiteral("the file is empty");
        return false;
    }
    static_cast<void>(std::ungetc(first, file));
    char reason[PCAP_ERRBUF_SIZE] = "";
    pcap *capture = pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_NANO, reason);
    if (capture == nullptr) {
        static_cast<void>(std::fclose(file));
        *problem = QString::fromLocal8Bit(reason);
        return false;
    }
    const bool isGood = readPackets(capture, enginePort, problem);
    pcap_close(capture);
    if (!isGood)
        clear();
    return isGood;
}

void Recording::clear()
{
    m_entries.clear();
    m_bytes.clear();
    m_fromEngine = 0;
}

bool Recording::readPackets(pcap *capture, quint16 enginePort, QString *problem)
{
    Reading reading;
    reading.linkType = pcap_datalink(capture);
    reading.enginePort = enginePort;
    if (!isKnownLinkType(reading.linkType)) {
        const char *name = pcap_datalink_val_to_description_or_dlt(reading.linkType);
        *problem = QStringLiteral("packets of link type %1 (%2) cannot be read")
                       .arg(reading.linkType)
                       .arg(QString::fromLatin1(name));
        return false;
    }
    pcap_pkthdr *header = nullptr;
    const u_char *bytes = nullptr;
    int result = 0;
    while ((result = pcap_next_ex(capture, &header, &bytes)) == 1) {
        ++reading.packets;
        // With this precision, the second field holds nanoseconds. Any number may stand in a file.
        const qint64 stamp =
            qint64(quint32(header->ts.tv_sec)) * nsPerSecond + header->ts.tv_usec % nsPerSecond;
        if (!take(reading, stamp, bytes, header->caplen, header->len)) {
            *problem = reading.problem;
            return false;
        }
    }
    if (result != PCAP_ERROR_BREAK) {
        *problem = QStringLiteral("after %1 packets: %2")
                       .arg(reading.packets)
                       .arg(QString::fromLocal8Bit(pcap_geterr(capture)));
        return false;
    }
    if (size() > 0)
        return true;
    if (reading.packets == 0) {
        *problem = QStringLiteral("the capture is empty");
    } else if (reading.hasUnreadable) {
        *problem = QStringLiteral("the packets are cut too short to be read");
    } else {
        *problem = QStringLiteral("no UDP datagram with port %1 in %2 packets%3")
                       .arg(enginePort)
                       .arg(reading.packets)
                       .arg(reading.hasLaterParts ? QLatin1String(", but fragments") : QLatin1String());
    }
    return false;
}

// Returns false when the file cannot be used.
bool Recording::take(Reading &reading, qint64 stamp, const uchar *bytes, quint32 captured, quint32 length)
{
    const CapturedPacket packet = readPacket(reading.linkType, bytes, captured, length);
    switch (packet.kind) {
    case CapturedPacket::Kind::Other: return true;
    case CapturedPacket::Kind::Unreadable: reading.hasUnreadable = true; return true;
    case CapturedPacket::Kind::LaterPart: reading.hasLaterParts = true; return true;
    default: break;
    }
    const bool isFromEngine = packet.from.port == reading.enginePort;
    const bool isToEngine = packet.to.port == reading.enginePort;
    if (!isFromEngine && !isToEngine)
        return true;
    if (packet.kind == CapturedPacket::Kind::Fragment)
        return reading.refuse(QStringLiteral("is a fragment of a datagram"));
    if (packet.kind == CapturedPacket::Kind::Cut)
        return reading.refuse(QStringLiteral("is cut (capture with a larger snapshot length)"));
    if (packet.kind == CapturedPacket::Kind::Damaged)
        return reading.refuse(QStringLiteral("is damaged: its lengths contradict each other"));
    if (isFromEngine && isToEngine) {
        return reading.refuse(
            QStringLiteral("has port %1 on both sides, so its direction is unknown").arg(reading.enginePort));
    }
    const quint32 engine = isFromEngine ? packet.from.address : packet.to.address;
    if (reading.hasEngine && engine != reading.engine) {
        return reading.refuse(QStringLiteral("belongs to a second engine, %1; the first one is %2")
                                  .arg(addressText(engine), addressText(reading.engine)));
    }
    if (size() >= mostDatagrams || qint64(m_bytes.size()) + packet.datagram.size() > mostBytes) {
        return reading.refuse(QStringLiteral("exceeds the limit of %1 datagrams or %2 MiB")
                                  .arg(mostDatagrams)
                                  .arg(mostBytes / (1024 * 1024)));
    }
    const qint64 gap = reading.hasEngine ? stamp - reading.previousStamp : 0;
    append(gap < 0 || gap > longestGapNs ? 0 : gap, isFromEngine, packet.datagram);
    reading.hasEngine = true;
    reading.engine = engine;
    reading.previousStamp = stamp;
    return true;
}

void Recording::append(qint64 gap, bool isFromEngine, const QByteArray &datagram)
{
    const qint64 time = duration() + (gap > longestNs - duration() ? 0 : gap);
    m_entries.push_back({time, quint32(m_bytes.size()), quint16(datagram.size()), isFromEngine});
    m_bytes.insert(m_bytes.end(), datagram.begin(), datagram.end());
    m_fromEngine += isFromEngine ? 1 : 0;
}

QByteArray Recording::datagram(int index) const
{
    const Entry &entry = m_entries[size_t(index)];
    return QByteArray(m_bytes.data() + entry.offset, entry.size);
}

} // namespace simulated
