#include "line.h"

#include <sys/socket.h>

namespace simulated {

namespace {

// The module may send thousands of datagrams without a pause.
constexpr int receiveBufferBytes = 32 * 1024 * 1024;

// Number of datagrams read before timers run again.
constexpr int batch = 256;

// A delayed datagram waits at most this long for later ones.
constexpr int holdMs = 50;

constexpr int largestDatagram = 65536;

void askForLargeBuffer(QUdpSocket *socket)
{
    socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, receiveBufferBytes);
#ifdef SO_RCVBUFFORCE
    // Exceeds the system's limit. Fails without CAP_NET_ADMIN; then the request above applies.
    const int bytes = receiveBufferBytes;
    ::setsockopt(int(socket->socketDescriptor()), SOL_SOCKET, SO_RCVBUFFORCE, &bytes, sizeof bytes);
#endif
}

} // namespace

Line::Line(QObject *parent)
    : QObject(parent)
    , m_socket(this)
    , m_flush(this)
{
    m_flush.setSingleShot(true);
    m_flush.setInterval(holdMs);
    connect(&m_socket, &QUdpSocket::readyRead, this, &Line::readPending);
    connect(&m_flush, &QTimer::timeout, this, [this] { deliver(m_filter.flush()); });
}

bool Line::listen(const QHostAddress &address, quint16 port)
{
    close();
    // Two engines with the same address would each receive a part of the traffic.
    if (!m_socket.bind(address, port, QAbstractSocket::DontShareAddress))
        return false;
    askForLargeBuffer(&m_socket);
    return true;
}

void Line::close()
{
    m_socket.close();
}

void Line::setModule(const QHostAddress &address, quint16 port)
{
    if (address == m_module && port == m_modulePort)
        return;
    m_module = address;
    m_modulePort = port;
    Q_EMIT moduleChanged(address, port);
}

bool Line::send(const QByteArray &datagram)
{
    if (!knowsModule())
        return refuse(QStringLiteral("no module is known yet"));
    if (m_filter.isGone())
        return refuse(QStringLiteral("a failure mode has made the engine vanish"));
    if (m_socket.writeDatagram(datagram, m_module, m_modulePort) != datagram.size())
        return refuse(m_socket.errorString());
    Q_EMIT sent(datagram);
    return true;
}

bool Line::refuse(const QString &problem)
{
    m_sendProblem = problem;
    return false;
}

void Line::readPending()
{
    QByteArray buffer(largestDatagram, Qt::Uninitialized);
    for (int i = 0; i < batch && m_socket.hasPendingDatagrams(); ++i) {
        QHostAddress sender;
        quint16 senderPort = 0;
        const qint64 size = m_socket.readDatagram(buffer.data(), buffer.size(), &sender, &senderPort);
        if (size < 0)
            continue;
        const QByteArray datagram(buffer.constData(), int(size));
        Q_EMIT arrived(datagram, sender, senderPort);
        setModule(sender, senderPort);
        deliver(m_filter.pass(datagram));
        if (m_filter.heldBack() > 0)
            m_flush.start();
    }
}

void Line::deliver(const QVector<QByteArray> &datagrams)
{
    for (const QByteArray &datagram : datagrams)
        Q_EMIT received(datagram);
}

} // namespace simulated
