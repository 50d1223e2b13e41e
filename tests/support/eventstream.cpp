#include "support/eventstream.h"

#include "support/enginepeer.h"
#include "support/hex.h"

#include <chrono>

namespace testsupport {

EventStream::EventStream(EnginePeer &peer)
    : m_thread([this, &peer] {
        while (!m_stop) {
            peer.send(hex("544d4143 00780000"));
            peer.send(hex("494d4143 99096426"));
            peer.send(hex("4452") + QByteArray(36, '\x01'));
            peer.send(hex("494d4143 f7050000"));
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
