#include "line.h"

#include <sys/socket.h>

namespace simulated {

namespace {

// A module may send thousands of datagrams without a pause.
constexpr int receiveBufferBytes = 32 * 1024 * 1024;

// Datagrams read before timers get their turn again.
constexpr int batch = 256;

// How long a datagram that a failure mode holds back waits for the ones it is to follow.
constexpr int holdMs = 50;

constexpr int largestDatagram = 65536;

void askForLargeBuffer(QUdpSocket *socket)
{
    socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, receiveBufferBytes);
#ifdef SO_RCVBUFFORCE
    // Beyond the system's limit, for those who may; for others the request above stands.
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
    // Sharing the address would split the traffic between two engines.
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
        return refuse(QStringLiteral("no module has been heard yet"));
    if (m_filter.isGone())
        return refuse(QStringLiteral("a failure mode has made the engine vanish"));
    if (m_socket.writeDatagram(datagram, m_module, m_modulePort) != datagram.size())
        return refuse(m_socket.errorString());
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
        setModule(sender, senderPort);
        deliver(m_filter.pass(QByteArray(buffer.constData(), int(size))));
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
