#pragma once

#include <QtGlobal>

#include <atomic>
#include <thread>

namespace testsupport {

class EnginePeer;

/// Sends events of all kinds to the module from another thread until it is destroyed, four in a millisecond:
/// more would leave a busy machine little for anything else. The peer has to know the module, and is not to
/// be used otherwise meanwhile.
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
