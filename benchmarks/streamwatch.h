#pragma once

#include <QByteArray>

#include <netinet/in.h>

#include <atomic>
#include <thread>

/// The engine's side of a transfer that is timed. It receives all packets and acknowledges ends. To disturb
/// the sender little it polls every few milliseconds; the kernel records when packets arrive.
class StreamWatch
{
public:
    /// Binds the address, port 19797, and makes it the engine of every control object created from now on.
    explicit StreamWatch(const char *address);
    ~StreamWatch();
    StreamWatch(const StreamWatch &) = delete;
    StreamWatch &operator=(const StreamWatch &) = delete;

    const sockaddr_in &address() const { return m_address; }
    /// Number of transfers that have ended.
    int ends() const { return m_ends; }
    /// Time from start packet to end packet of the latest transfer that has ended.
    double milliseconds() const { return double(m_nanoseconds) / 1e6; }
    /// Number of data packets of that transfer.
    int packets() const { return m_packets; }

private:
    void watch();
    bool receive();

    const int m_descriptor;
    sockaddr_in m_address{};
    qint64 m_start = 0;
    int m_count = 0;
    std::atomic<int> m_ends{0};
    std::atomic<int> m_packets{0};
    std::atomic<qint64> m_nanoseconds{0};
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};
