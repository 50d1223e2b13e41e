#include "support/enginepeer.h"

#include "support/datagram.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMetaObject>
#include <QSignalSpy>
#include <QThread>
#include <QVariant>

#include <cerrno>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace testsupport {

namespace {

constexpr int largestDatagram = 65536;
constexpr int pollMs = 2;

sockaddr_in socketAddress(const QHostAddress &address, quint16 port)
{
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    result.sin_addr.s_addr = htonl(address.toIPv4Address());
    return result;
}

// The module can send faster than a test reads.
void enlargeReceiveBuffer(int descriptor)
{
    const int bytes = EnginePeer::receiveBufferBytes;
    if (::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUFFORCE, &bytes, sizeof(bytes)) != 0)
        ::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &bytes, sizeof(bytes));
}

} // namespace

EnginePeer::EnginePeer()
{
    open(QHostAddress(qEnvironmentVariable("ZELTACONNECT_ENGINE")), enginePort);
}

EnginePeer::EnginePeer(const QHostAddress &address, quint16 port)
{
    open(address, port);
}

EnginePeer::EnginePeer(int descriptor)
    : m_descriptor(descriptor)
{}

EnginePeer::~EnginePeer()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void EnginePeer::open(const QHostAddress &address, quint16 port)
{
    if (address.protocol() != QAbstractSocket::IPv4Protocol) {
        m_error = QStringLiteral("ZELTACONNECT_ENGINE does not contain an address");
        return;
    }
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    enlargeReceiveBuffer(descriptor);
    const sockaddr_in target = socketAddress(address, port);
    if (::bind(descriptor, reinterpret_cast<const sockaddr *>(&target), sizeof(target)) != 0) {
        m_error = QStringLiteral("%1: %2").arg(address.toString(), QString::fromLocal8Bit(strerror(errno)));
        ::close(descriptor);
        return;
    }
    m_descriptor = descriptor;
}

bool EnginePeer::receive(QByteArray &datagram)
{
    sockaddr_in sender{};
    socklen_t senderSize = sizeof(sender);
    m_buffer.resize(largestDatagram);
    const ssize_t length = ::recvfrom(m_descriptor, m_buffer.data(), size_t(m_buffer.size()), MSG_DONTWAIT,
                                      reinterpret_cast<sockaddr *>(&sender), &senderSize);
    if (length < 0)
        return false;
    datagram = QByteArray(m_buffer.constData(), int(length));
    m_moduleAddress = QHostAddress(ntohl(sender.sin_addr.s_addr));
    m_modulePort = ntohs(sender.sin_port);
    return true;
}

QByteArray EnginePeer::next(int timeoutMs)
{
    QElapsedTimer waiting;
    waiting.start();
    QByteArray datagram;
    while (!receive(datagram)) {
        if (waiting.hasExpired(timeoutMs))
            return QByteArray();
        QCoreApplication::processEvents();
        hasPending(pollMs);
    }
    return datagram;
}

bool EnginePeer::hasPending(int timeoutMs) const
{
    pollfd readable{m_descriptor, POLLIN, 0};
    return ::poll(&readable, 1, timeoutMs) > 0;
}

quint16 EnginePeer::port() const
{
    sockaddr_in own{};
    socklen_t size = sizeof(own);
    ::getsockname(m_descriptor, reinterpret_cast<sockaddr *>(&own), &size);
    return ntohs(own.sin_port);
}

int EnginePeer::discardPending()
{
    int count = 0;
    QByteArray datagram;
    while (receive(datagram))
        ++count;
    return count;
}

bool EnginePeer::send(const QByteArray &datagram)
{
    return m_modulePort != 0 && sendTo(datagram, m_moduleAddress, m_modulePort);
}

bool EnginePeer::sendTo(const QByteArray &datagram, const QHostAddress &address, quint16 port)
{
    const sockaddr_in target = socketAddress(address, port);
    const ssize_t sent = ::sendto(m_descriptor, datagram.constData(), size_t(datagram.size()), 0,
                                  reinterpret_cast<const sockaddr *>(&target), sizeof(target));
    return sent == datagram.size();
}

bool EnginePeer::connectTo(QObject *module)
{
    discardPending();
    return nothingSentBy(module);
}

bool EnginePeer::nothingSentBy(QObject *module)
{
    if (!QMetaObject::invokeMethod(module, "requestOutsUpdate"))
        return false;
    // Parameter 3B 1F, the request for the output levels.
    const QByteArray expected = datagram("IM 0003 0bb9633b 0bb9621f 0bb90600");
    const QByteArray datagram = next();
    if (datagram == expected)
        return true;
    qWarning().noquote() << "expected the request for output levels, got" << datagram.toHex(' ');
    return false;
}

bool EnginePeer::settle(QObject *module, int timeoutMs)
{
    QSignalSpy events(module, SIGNAL(udpPacketArrived(ushort, ushort, ushort)));
    ++m_fenceCount;
    QByteArray fence = datagram("ZZ AC 00000000");
    fence[4] = char(m_fenceCount >> 8);
    fence[5] = char(m_fenceCount & 0xFF);
    if (!send(fence))
        return false;
    const auto arrived = [&] {
        for (const QList<QVariant> &event : qAsConst(events)) {
            if (event.at(0).toUInt() == fenceKind && event.at(1).toUInt() == m_fenceCount)
                return true;
        }
        return false;
    };
    // QTest::qWaitFor() polls every 10 ms, which would be most of the duration of a test.
    QElapsedTimer waiting;
    waiting.start();
    while (!arrived()) {
        if (waiting.hasExpired(timeoutMs))
            return false;
        QThread::msleep(1);
        QCoreApplication::processEvents();
    }
    return true;
}

} // namespace testsupport
