#pragma once

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <vector>

struct pcap;

namespace simulated {

/// The datagrams between a module and its engine, read from a network capture (pcap or pcapng).
///
/// The whole file is checked when it is read. Packets of other protocols and ports are skipped.
class Recording
{
public:
    static constexpr quint16 defaultEnginePort = 19797;

    /// Limits of the memory that a recording takes. A file with more is refused.
    static constexpr int mostDatagrams = 4 * 1000 * 1000;
    static constexpr qint64 mostBytes = 256 * 1024 * 1024;

    /// Reads a file. enginePort is the UDP port of the engine in it. Returns false and sets problem to one
    /// line when the file is not a capture, is cut off, has no datagram with that port, or has datagrams that
    /// are fragmented, cut, damaged, or of several engines. The recording is then empty.
    bool load(const QString &path, QString *problem, quint16 enginePort = defaultEnginePort);
    /// The same for an open file, which is closed. problem does not contain a name.
    bool read(std::FILE *file, QString *problem, quint16 enginePort = defaultEnginePort);

    int size() const { return int(m_entries.size()); }
    bool isFromEngine(int index) const { return m_entries[size_t(index)].isFromEngine; }
    /// Nanoseconds since the first datagram; never decreases. A gap of more than a day is left out: there the
    /// clock of the machine that captured was set.
    qint64 time(int index) const { return m_entries[size_t(index)].time; }
    QByteArray datagram(int index) const;

    int countFromEngine() const { return m_fromEngine; }
    int countFromModule() const { return size() - m_fromEngine; }
    /// Nanoseconds from the first to the last datagram.
    qint64 duration() const { return m_entries.empty() ? 0 : m_entries.back().time; }

private:
    struct Entry
    {
        qint64 time;
        quint32 offset;
        quint16 size;
        bool isFromEngine;
    };

    struct Reading;
    void clear();
    bool readPackets(pcap *capture, quint16 enginePort, QString *problem);
    bool take(Reading &reading, qint64 stamp, const uchar *bytes, quint32 captured, quint32 length);
    void append(qint64 gap, bool isFromEngine, const QByteArray &datagram);

    std::vector<Entry> m_entries;
    std::vector<char> m_bytes;
    int m_fromEngine = 0;
};

} // namespace simulated
