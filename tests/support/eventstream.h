#pragma once

#include <QtGlobal>

#include <atomic>
#include <thread>

namespace testsupport {

class EnginePeer;

/// Sends events of several kinds to the module from another thread until it is destroyed, four per
/// millisecond. The peer must be connected to the module, and must not be used otherwise meanwhile.
class EventStream
{
public:
    explicit EventStream(EnginePeer &peer);
    ~EventStream();
    Q_DISABLE_COPY(EventStream)

private:
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

} // namespace testsupport
