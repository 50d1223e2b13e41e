#include "flood.h"

#include "support/datagram.h"
#include "support/hex.h"
#include "support/networknamespace.h"

#include <QByteArray>
#include <QtEndian>

#include <array>
#include <chrono>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using testsupport::datagram;
using testsupport::hex;

namespace {

constexpr int millisecondsPerSecond = 1000;

std::array<QByteArray, 8> invalidDatagrams()
{
    return {
        QByteArray(""),
        hex("00"),
        datagram("TM AC 007800"),             // a tempo, cut short
        datagram("XX AC 01020304"),           // an event of an unknown kind
        datagram("TM CA 00780000"),           // a tempo with an unknown tag
        datagram("DR") + QByteArray(35, 'm'), // output meters, cut short
        datagram("CR") + QByteArray(15, 'c'), // compressor meters with one byte more
        QByteArray(300, char(0xA5)),
    };
}

} // namespace

Flood::Flood(const testsupport::EngineNetwork &network, const QHostAddress &module, quint16 port,
             int perSecond)
{
    const quint32 address = module.toIPv4Address();
    m_thread = std::thread([this, &network, address, port, perSecond] {
        if (network.enterEngineSide())
            run(address, port, perSecond);
    });
}

void Flood::stop()
{
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
}

void Flood::run(quint32 address, quint16 port, int perSecond)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in module{};
    module.sin_family = AF_INET;
    module.sin_port = qToBigEndian(port);
    module.sin_addr.s_addr = qToBigEndian(address);
    const std::array<QByteArray, 8> kinds = invalidDatagrams();

    // One portion per millisecond, at fixed times.
    auto next = std::chrono::steady_clock::now();
    std::size_t kind = 0;
    while (!m_stop) {
        for (int i = 0; i < perSecond / millisecondsPerSecond; ++i) {
            const QByteArray &datagram = kinds.at(kind++ % kinds.size());
            if (::sendto(descriptor, datagram.constData(), size_t(datagram.size()), 0,
                         reinterpret_cast<const sockaddr *>(&module), sizeof(module)) >= 0)
                ++m_sent;
        }
        next += std::chrono::milliseconds(1);
        std::this_thread::sleep_until(next);
    }
    ::close(descriptor);
}
