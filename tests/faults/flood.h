#pragma once

#include <QHostAddress>

#include <atomic>
#include <thread>

namespace testsupport {
class EngineNetwork;
}

/// Sends invalid datagrams from the engine's side to the module until it is stopped: too short, too long, a
/// known tag with a wrong length, a known length with a wrong tag, events of unknown kinds.
class Flood
{
public:
    Flood(const testsupport::EngineNetwork &network, const QHostAddress &module, quint16 port, int perSecond);
    ~Flood() { stop(); }
    Q_DISABLE_COPY(Flood)

    void stop();
    /// Number of datagrams that the system has accepted.
    long long sent() const { return m_sent; }

private:
    void run(quint32 address, quint16 port, int perSecond);

    std::atomic<bool> m_stop{false};
    std::atomic<long long> m_sent{0};
    std::thread m_thread;
};
