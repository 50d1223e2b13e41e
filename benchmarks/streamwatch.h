#pragma once

#include <QByteArray>

#include <netinet/in.h>

#include <atomic>
#include <thread>

/// The engine's end of a transfer that is to be timed: takes all packets, acknowledges ends, and disturbs the
/// sender as little as it can. It looks a few times per packet pause only, and takes the times from the
/// kernel, which notes them as packets arrive.
class StreamWatch
{
public:
    /// Binds the address, port 19797, and makes it the engine of every control object created from now on.
    explicit StreamWatch(const char *address);
    ~StreamWatch();
    StreamWatch(const StreamWatch &) = delete;
    StreamWatch &operator=(const StreamWatch &) = delete;

    const sockaddr_in &address() const { return m_address; }
    /// Transfers that have ended.
    int ends() const { return m_ends; }
    /// From start packet to end packet of the last transfer that has ended.
    double milliseconds() const { return double(m_nanoseconds) / 1e6; }
    /// Data packets of that transfer.
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
