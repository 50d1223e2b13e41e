#pragma once

#include "udppacket.h"

#include <QElapsedTimer>
#include <QObject>

struct pcap;
struct pcap_dumper;

namespace simulated {

class Line;

/// Writes the datagrams of a line in both directions to a file in the pcap format, with nanoseconds.
///
/// Each datagram is an ordinary IPv4 packet without a link-layer header. It is written to the file at once
/// with a single system call, so that the file of a process that is killed ends with a whole packet. After a
/// failure, the part of a packet that was written is removed.
class Recorder : public QObject
{
    Q_OBJECT

public:
    explicit Recorder(Line *line, QObject *parent = nullptr);
    ~Recorder() override;

    /// Begins a file; an existing one is replaced. Returns false and sets problem to one line if that fails.
    bool start(const QString &path, QString *problem);
    void stop();
    bool isRecording() const { return m_dumper != nullptr; }

Q_SIGNALS:
    /// A datagram could not be written, for example because the disk is full. The file ends before it.
    void failed(const QString &line);

private:
    void stopAfterWholePacket();
    void write(const Endpoint &from, const Endpoint &to, const QByteArray &datagram);
    Endpoint engineTowards(const Endpoint &module);

    Line *m_line;
    pcap *m_pcap = nullptr;
    pcap_dumper *m_dumper = nullptr;
    QString m_path;
    qint64 m_writtenBytes = 0; // in whole packets, with the header of the file
    qint64 m_startNs = 0;      // since 1970
    QElapsedTimer m_sinceStart;
    quint16 m_nextId = 0;
    quint32 m_latestModule = 0; // its address
    quint32 m_ownAddress = 0;   // towards it, for a socket for all addresses
};

} // namespace simulated
