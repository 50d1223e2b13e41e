#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>

struct pcap;
struct pcap_dumper;

/// A file of captured datagrams between a module and an engine, written with libpcap as raw IPv4 packets.
class Capture
{
public:
    enum class Direction { ToEngine, FromEngine };

    static constexpr quint16 enginePort = 19797;
    static constexpr quint16 modulePort = 40000;

    /// isOpen() is false when the file cannot be written.
    explicit Capture(const QString &path);
    ~Capture();
    Q_DISABLE_COPY(Capture)

    bool isOpen() const { return m_dumper != nullptr; }

    /// The conversation that the following datagrams belong to: the last number of both addresses.
    void setConversation(quint8 number) { m_conversation = number; }
    void setEnginePort(quint16 port) { m_enginePort = port; }
    void setModulePort(quint16 port) { m_modulePort = port; }

    /// Captures a datagram, a millisecond after the previous one. Keeps only the first captured bytes of its
    /// payload, or all of them if captured is negative.
    void append(Direction direction, const QByteArray &datagram, int captured = -1);
    /// The same, at a given time since the start of the capture.
    void appendAt(std::chrono::nanoseconds time, Direction direction, const QByteArray &datagram,
                  int captured = -1);
    /// Captures the ICMP message "port unreachable" that quotes a datagram to the engine.
    void appendUnreachable(const QByteArray &datagram);

    /// Closes the file. Returns false if not everything could be written.
    bool finish();

private:
    QByteArray packet(Direction direction, const QByteArray &datagram) const;
    void write(const QByteArray &packet, int captured);

    pcap *m_pcap = nullptr;
    pcap_dumper *m_dumper = nullptr;
    std::chrono::nanoseconds m_time{0};
    quint8 m_conversation = 1;
    quint16 m_enginePort = enginePort;
    quint16 m_modulePort = modulePort;
};
