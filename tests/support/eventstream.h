#pragma once

#include <QtGlobal>

#include <atomic>
#include <thread>

namespace testsupport {

class EnginePeer;

/// Sends events of all kinds to the module from another thread until it is destroyed, as fast as the module
/// reads them. The peer has to know the module, and is not to be used otherwise meanwhile.
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
