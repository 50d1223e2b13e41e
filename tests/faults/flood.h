#pragma once

#include <QHostAddress>

#include <atomic>
#include <thread>

namespace testsupport {
class EngineNetwork;
}

/// Sends rubbish to the module from the engine's side until it is stopped: too short, too long, with a good
/// tag and a wrong length, with a good length and a wrong tag, events of unknown kinds.
class Flood
{
public:
    Flood(const testsupport::EngineNetwork &network, const QHostAddress &module, quint16 port, int perSecond);
    ~Flood() { stop(); }
    Q_DISABLE_COPY(Flood)

    void stop();
    /// Datagrams that the system has taken.
    long long sent() const { return m_sent; }

private:
    void run(quint32 address, quint16 port, int perSecond);

    std::atomic<bool> m_stop{false};
    std::atomic<long long> m_sent{0};
    std::thread m_thread;
};
