#include "recorder.h"

#include "line.h"

#include <QFile>
#include <QUdpSocket>

#include <pcap/pcap.h>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>

namespace simulated {

namespace {

constexpr int largestPacket = 65535;

// Sizes of the file format.
constexpr qint64 fileHeaderBytes = 24;
constexpr qint64 packetHeaderBytes = 16;

// A buffer that holds the largest packet with its header, so that a packet is written with one call.
constexpr size_t bufferBytes = 128 * 1024;

QString errorText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

// The address from which this machine sends.
quint32 localAddressTowards(const Endpoint &receiver)
{
    QUdpSocket socket;
    socket.connectToHost(QHostAddress(receiver.address), receiver.port);
    return socket.waitForConnected(0) ? socket.localAddress().toIPv4Address() : 0;
}

} // namespace

Recorder::Recorder(Line *line, QObject *parent)
    : QObject(parent)
    , m_line(line)
{
    connect(line, &Line::arrived, this,
            [this](const QByteArray &datagram, const QHostAddress &sender, quint16 senderPort) {
                if (!isRecording())
                    return;
                const Endpoint module{sender.toIPv4Address(), senderPort};
                write(module, engineTowards(module), datagram);
            });
    connect(line, &Line::sent, this, [this](const QByteArray &datagram) {
        if (!isRecording())
            return;
        const Endpoint module{m_line->moduleAddress().toIPv4Address(), m_line->modulePort()};
        write(engineTowards(module), module, datagram);
    });
}

Recorder::~Recorder()
{
    stop();
}

bool Recorder::start(const QString &path, QString *problem)
{
    stop();
    std::FILE *file = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (file == nullptr) {
        *problem = QStringLiteral("cannot write recording %1: %2").arg(path, errorText(errno));
        return false;
    }
    // If this fails, the file has a buffer of the usual size.
    static_cast<void>(std::setvbuf(file, nullptr, _IOFBF, bufferBytes));
    m_path = path;
    m_pcap = pcap_open_dead_with_tstamp_precision(DLT_RAW, largestPacket, PCAP_TSTAMP_PRECISION_NANO);
    if (m_pcap != nullptr)
        m_dumper = pcap_dump_fopen(m_pcap, file);
    if (m_dumper == nullptr)
        static_cast<void>(std::fclose(file));
    if (m_dumper == nullptr || pcap_dump_flush(m_dumper) != 0) {
        *problem = QStringLiteral("cannot write recording %1: %2").arg(path, errorText(errno));
        stop();
        return false;
    }
    m_writtenBytes = fileHeaderBytes;
    using namespace std::chrono;
    m_startNs = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
    m_sinceStart.start();
    return true;
}

void Recorder::stop()
{
    if (m_dumper != nullptr)
        pcap_dump_close(m_dumper);
    if (m_pcap != nullptr)
        pcap_close(m_pcap);
    m_dumper = nullptr;
    m_pcap = nullptr;
}

// Also removes the part of a packet that fitted on the disk: a file that ends with one cannot be read.
void Recorder::stopAfterWholePacket()
{
    // The path may refer to another file by now.
    const int descriptor = ::dup(::fileno(pcap_dump_file(m_dumper)));
    // Closing the file tries to write the rest of the packet again.
    stop();
    QFile file;
    if (descriptor >= 0 && file.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        static_cast<void>(file.resize(m_writtenBytes));
}

void Recorder::write(const Endpoint &from, const Endpoint &to, const QByteArray &datagram)
{
    constexpr qint64 nsPerSecond = 1000000000;
    // A step of the system's clock does not change the gaps.
    const qint64 now = m_startNs + m_sinceStart.nsecsElapsed();
    const QByteArray packet = udpPacket(from, to, datagram, m_nextId++);
    pcap_pkthdr header{};
    header.ts.tv_sec = time_t(now / nsPerSecond);
    // With this precision, the field holds nanoseconds.
    header.ts.tv_usec = suseconds_t(now % nsPerSecond);
    header.len = bpf_u_int32(packet.size());
    header.caplen = header.len;
    pcap_dump(reinterpret_cast<u_char *>(m_dumper), &header,
              reinterpret_cast<const u_char *>(packet.constData()));
    if (pcap_dump_flush(m_dumper) == 0) {
        m_writtenBytes += packetHeaderBytes + packet.size();
        return;
    }
    const QString reason = errorText(errno);
    stopAfterWholePacket();
    Q_EMIT failed(QStringLiteral("recording %1 ended: %2").arg(m_path, reason));
}

Endpoint Recorder::engineTowards(const Endpoint &module)
{
    if (m_line->address() != QHostAddress(QHostAddress::AnyIPv4))
        return {m_line->address().toIPv4Address(), m_line->port()};
    // A socket for all addresses does not say which one it uses.
    if (module.address != m_latestModule || m_ownAddress == 0)
        m_ownAddress = localAddressTowards(module);
    m_latestModule = module.address;
    return {m_ownAddress, m_line->port()};
}

} // namespace simulated
