#include "link/sockettransceiver.h"

#include "link/inboundtags.h"
#include "link/logging.h"
#include "link/ping.h"
#include "link/senddatagram.h"
#include "link/timerslack.h"

#include <QDebug>
#include <QUdpSocket>
#include <QtEndian>

#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>

#include <cstring>

namespace {

constexpr int idleWaitMs = 1;
constexpr unsigned long datagramPauseUs = 100;

// The default buffer holds about 256 small datagrams. Because of the pauses of the receive loop, a burst of
// pad hits and meters can exceed it.
constexpr int receiveBufferBytes = 1024 * 1024;
constexpr int largestDatagram = 65536;

constexpr int eventLength = 8;
constexpr int compressorMeterLength = 16;
constexpr int outputMeterLength = 38;

quint16 wordAt(const QByteArray &datagram, int index)
{
    return qFromBigEndian<quint16>(datagram.constData() + index * 2);
}

} // namespace

SocketTransceiver::SocketTransceiver()
    : m_engine(zelta::engineAddress())
{
    zelta::waitForPingReply(m_engine.host.toString());
    openSocket();
    connect(m_socket, SIGNAL(readyRead()), this, SLOT(startTransceiver()));
}

SocketTransceiver::~SocketTransceiver()
{
    requestInterruption();
    wait();
    m_socket->close();
}

void SocketTransceiver::openSocket()
{
    m_socket = new QUdpSocket(this);
    m_bound = !m_engine.fromEnvironment && m_socket->bind(m_engine.host, m_engine.port);
    // Qt reports readyRead(), which starts the receive thread, only for a socket that is bound.
    if (!m_bound && !m_socket->bind(QHostAddress(QHostAddress::AnyIPv4), 0))
        qCWarning(lcLink) << "no local port to receive on:" << m_socket->errorString();
    m_descriptor = int(m_socket->socketDescriptor());
    enlargeReceiveBuffer();
    countDrops();
}

void SocketTransceiver::enlargeReceiveBuffer()
{
    // The forced option can exceed the limit of the system and needs privileges; the other one is cut to the
    // limit.
    if (::setsockopt(m_descriptor, SOL_SOCKET, SO_RCVBUFFORCE, &receiveBufferBytes,
                     sizeof(receiveBufferBytes)) != 0)
        m_socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, receiveBufferBytes);
}

void SocketTransceiver::countDrops()
{
    // The kernel then passes its counter along with datagrams that arrive after a drop. A kernel that cannot
    // do this passes nothing.
    const int on = 1;
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_RXQ_OVFL, &on, sizeof(on));
}

qint64 SocketTransceiver::writeToSocket(const QByteArray &data, const QHostAddress &address, quint16 port)
{
    if (m_bound)
        return m_socket->write(data.constData(), data.size());
    return zelta::sendDatagram(m_descriptor, data.constData(), data.size(), address, port);
}

qint64 SocketTransceiver::writeToSocket(const char *data, qint64 size, const QHostAddress &address,
                                        quint16 port)
{
    return zelta::sendDatagram(m_descriptor, data, size, address, port);
}

void SocketTransceiver::startTransceiver()
{
    if (!isRunning())
        start(QThread::LowPriority);
}

void SocketTransceiver::run()
{
    zelta::useMinimalTimerSlack();
    __func();
}

void SocketTransceiver::__func() // NOLINT(bugprone-reserved-identifier)
{
    const QString testCommandStatus = QStringLiteral("b9");
    const QString testCommandCodeIndex = QStringLiteral("0b");
    QByteArray datagram;
    datagram.reserve(largestDatagram);

    while (!isInterruptionRequested()) {
        if (m_drops.hasUnreported())
            reportDrops();
        if (!receiveDatagram(datagram)) {
            waitForDatagram();
            continue;
        }
        const QString hex = QString::fromLatin1(datagram.toHex());
        parseDatagram(hex, testCommandStatus, testCommandCodeIndex);
        sortDatagram(datagram, hex);
        usleep(datagramPauseUs);
    }
}

// QUdpSocket enables its read notifier with every read, which Qt allows in the GUI thread only, so this
// thread reads from the descriptor. Qt disables the notifier in the GUI thread after the first datagram,
// because that thread does not read.
bool SocketTransceiver::receiveDatagram(QByteArray &datagram)
{
    datagram.resize(largestDatagram);
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(quint32))> control;
    iovec bytes{datagram.data(), size_t(datagram.size())};
    msghdr message{};
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const ssize_t length = ::recvmsg(m_descriptor, &message, MSG_DONTWAIT);
    datagram.resize(length < 0 ? 0 : int(length));
    if (length >= 0 && message.msg_controllen > 0)
        updateDrops(message);
    return length >= 0;
}

void SocketTransceiver::updateDrops(msghdr &message)
{
    const cmsghdr *header = CMSG_FIRSTHDR(&message);
    if (header != nullptr && header->cmsg_level == SOL_SOCKET && header->cmsg_type == SO_RXQ_OVFL) {
        quint32 total = 0;
        std::memcpy(&total, CMSG_DATA(header), sizeof(total));
        m_drops.update(total);
    }
}

void SocketTransceiver::reportDrops()
{
    const quint64 count = m_drops.takeReport(std::chrono::steady_clock::now());
    if (count > 0)
        qCWarning(lcLink, "datagrams dropped by the kernel: %llu", count);
}

void SocketTransceiver::waitForDatagram()
{
    pollfd socket{m_descriptor, POLLIN, 0};
    const int ready = ::poll(&socket, 1, idleWaitMs);
    // poll() returns at once when it reports an error. The loop must not spin.
    if (ready != 0 && (socket.revents & POLLIN) == 0)
        msleep(idleWaitMs);
}

void SocketTransceiver::sortDatagram(const QByteArray &datagram, const QString &hex)
{
    const auto word = [&datagram](int index) {
        return wordAt(datagram, index);
    };
    const int length = datagram.size();

    // An event has its tag in the second word, a meter report in the first.
    if (length == eventLength && word(1) == zelta::eventTag) {
        Q_EMIT sockUdpPacketArrived(word(0), word(2), word(3));
    } else if (length == compressorMeterLength && word(0) == zelta::compressorMeterTag) {
        Q_EMIT sockCompPacketArrived(word(1), word(2), word(3), word(4), word(5), word(6), word(7));
    } else if (length == outputMeterLength && word(0) == zelta::outputMeterTag) {
        Q_EMIT sockOutLevelPacketArrived(word(1), word(2), word(3), word(4), word(5), word(6), word(7),
                                         word(8), word(9), word(10), word(11), word(12), word(13), word(14),
                                         word(15), word(16), word(17), word(18));
    } else {
        qCDebug(lcLink) << "not handled " << hex << "(" << length << ")";
    }
}
