#include "link/sockettransceiver.h"

#include "link/eventkind.h"
#include "link/logging.h"
#include "link/ping.h"
#include "link/timerslack.h"

#include <QDebug>
#include <QUdpSocket>
#include <QtEndian>

#include <sys/socket.h>

namespace {

constexpr unsigned long idlePauseMs = 1;
constexpr unsigned long datagramPauseUs = 100;

// The default buffer holds some 256 small datagrams, which a burst of pad hits and meters exceeds while the
// receive loop makes its pauses.
constexpr int receiveBufferBytes = 1024 * 1024;
constexpr int largestDatagram = 65536;

constexpr int eventLength = 8;
constexpr int compressorMeterLength = 16;
constexpr int outputMeterLength = 38;

constexpr quint16 eventTag = zelta::eventKind('A', 'C');
constexpr quint16 compressorMeterTag = zelta::eventKind('C', 'R');
constexpr quint16 outputMeterTag = zelta::eventKind('D', 'R');

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
    m_bound = m_socket->bind(m_engine.host, m_engine.port);
    // An unbound socket would bind itself in whichever thread sends first. In the transfer thread that leaves
    // its read notifier without an event loop, and nothing would ever be received.
    if (!m_bound && !m_socket->bind(QHostAddress(QHostAddress::AnyIPv4), 0))
        qCWarning(lcLink) << "no local port to receive on:" << m_socket->errorString();
    m_descriptor = int(m_socket->socketDescriptor());
    enlargeReceiveBuffer();
}

void SocketTransceiver::enlargeReceiveBuffer()
{
    // The forced form goes past the system's limit and needs privileges; the plain one is cut to the limit.
    if (::setsockopt(m_descriptor, SOL_SOCKET, SO_RCVBUFFORCE, &receiveBufferBytes,
                     sizeof(receiveBufferBytes)) != 0)
        m_socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, receiveBufferBytes);
}

qint64 SocketTransceiver::writeToSocket(const QByteArray &data, const QHostAddress &address, quint16 port)
{
    if (m_bound)
        return m_socket->write(data.constData(), data.size());
    return m_socket->writeDatagram(data.constData(), data.size(), address, port);
}

qint64 SocketTransceiver::writeToSocket(const char *data, qint64 size, const QHostAddress &address,
                                        quint16 port)
{
    return m_socket->writeDatagram(data, size, address, port);
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
        if (!receiveDatagram(datagram)) {
            msleep(idlePauseMs);
            continue;
        }
        const QString hex = QString::fromLatin1(datagram.toHex());
        parseDatagram(hex, testCommandStatus, testCommandCodeIndex);
        sortDatagram(datagram, hex);
        usleep(datagramPauseUs);
    }
}

// The socket object belongs to the GUI thread and re-arms its read notifier on every read, which it may only
// do there. Reading from its descriptor needs no such thing: Qt switches the notifier off in the GUI thread
// as soon as it sees that nobody reads there, and this thread is left alone with the data.
bool SocketTransceiver::receiveDatagram(QByteArray &datagram)
{
    datagram.resize(largestDatagram);
    const ssize_t length = ::recv(m_descriptor, datagram.data(), size_t(datagram.size()), MSG_DONTWAIT);
    datagram.resize(length < 0 ? 0 : int(length));
    return length >= 0;
}

void SocketTransceiver::sortDatagram(const QByteArray &datagram, const QString &hex)
{
    const auto word = [&datagram](int index) {
        return wordAt(datagram, index);
    };
    const int length = datagram.size();

    // Events carry their tag behind the kind, meters in front: that is how the engine sends them.
    if (length == eventLength && word(1) == eventTag) {
        Q_EMIT sockUdpPacketArrived(word(0), word(2), word(3));
    } else if (length == compressorMeterLength && word(0) == compressorMeterTag) {
        Q_EMIT sockCompPacketArrived(word(1), word(2), word(3), word(4), word(5), word(6), word(7));
    } else if (length == outputMeterLength && word(0) == outputMeterTag) {
        Q_EMIT sockOutLevelPacketArrived(word(1), word(2), word(3), word(4), word(5), word(6), word(7),
                                         word(8), word(9), word(10), word(11), word(12), word(13), word(14),
                                         word(15), word(16), word(17), word(18));
    } else {
        qCDebug(lcLink) << "not handled " << hex << "(" << length << ")";
    }
}
