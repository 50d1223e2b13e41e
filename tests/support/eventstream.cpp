#include "support/eventstream.h"

#include "support/datagram.h"
#include "support/enginepeer.h"

#include <chrono>

namespace testsupport {

EventStream::EventStream(EnginePeer &peer)
    : m_thread([this, &peer] {
        while (!m_stop) {
            peer.send(datagram("TM AC 00780000"));
            peer.send(datagram("IM AC 99096426"));
            peer.send(datagram("DR") + QByteArray(36, '\x01'));
            peer.send(datagram("IM AC f7050000"));
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    })
{}

EventStream::~EventStream()
{
    m_stop = true;
    m_thread.join();
}

} // namespace testsupport
