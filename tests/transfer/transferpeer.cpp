#include "transferpeer.h"

#include <QTest>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr quint16 enginePort = 19797;
constexpr quint16 lastPort = 19997;
constexpr int receiveBufferBytes = 8 * 1024 * 1024;
constexpr int pollMs = 20;
constexpr int longPauseMs = 1500;
constexpr int silenceMs = 1000;
const char marker[] = "marker";

int word(const QByteArray &bytes, int offset)
{
    return quint8(bytes.at(offset)) << 8 | quint8(bytes.at(offset + 1));
}

} // namespace

TransferPeer::TransferPeer(const QString &address)
    : m_address(address)
    , m_endAnswer{{0x4445, 0, 0}}
{
    m_socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (::setsockopt(m_socket, SOL_SOCKET, SO_RCVBUFFORCE, &receiveBufferBytes, sizeof(receiveBufferBytes)) !=
        0)
        ::setsockopt(m_socket, SOL_SOCKET, SO_RCVBUF, &receiveBufferBytes, sizeof(receiveBufferBytes));
    sockaddr_in local = {};
    local.sin_family = AF_INET;
    ::inet_pton(AF_INET, qPrintable(address), &local.sin_addr);
    for (m_port = enginePort; m_port < lastPort; ++m_port) {
        local.sin_port = htons(m_port);
        if (::bind(m_socket, reinterpret_cast<sockaddr *>(&local), sizeof(local)) == 0)
            break;
    }
    if (m_port == lastPort)
        qFatal("no free port at %s", qPrintable(address));
    m_clock.start();
    m_thread = std::thread(&TransferPeer::serve, this);
}

TransferPeer::~TransferPeer()
{
    m_ended = true;
    m_thread.join();
    ::close(m_socket);
}

QString TransferPeer::endpoint() const
{
    return QStringLiteral("%1:%2").arg(m_address).arg(m_port);
}

void TransferPeer::answerQuery(quint16 query, const EngineEvents &events)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_queryAnswers[query] = events;
}

void TransferPeer::answerEnd(const EngineEvents &events)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_endAnswer = events;
}

void TransferPeer::answerStart(const EngineEvents &events)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_startAnswer = events;
}

void TransferPeer::answerData(quint32 number, const EngineEvents &events)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_dataAnswers[number] = events;
}

void TransferPeer::answerPause(const EngineEvents &events)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_pauseAnswer = events;
}

void TransferPeer::watch(const std::function<void(const QByteArray &)> &watcher)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_watcher = watcher;
}

void TransferPeer::forgetData()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_keepsData = false;
}

void TransferPeer::raise(const EngineEvent &event)
{
    const char bytes[] = {
        char(event.id >> 8), char(event.id & 0xFF), 'A', 'C', char(event.a >> 8), char(event.a & 0xFF),
        char(event.b >> 8),  char(event.b & 0xFF)};
    std::vector<char> sender;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        sender = m_sender;
    }
    ::sendto(m_socket, bytes, sizeof(bytes), 0, reinterpret_cast<const sockaddr *>(sender.data()),
             socklen_t(sender.size()));
}

void TransferPeer::raiseAll(const EngineEvents &events)
{
    for (const EngineEvent &event : events)
        raise(event);
}

QVector<QByteArray> TransferPeer::received() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // Not shared with what goes on growing here: Qt looks whether a container is shared without ordering
    // anything, so a copy that has just been read and dropped in another thread could be written over too
    // early.
    QVector<QByteArray> copy = m_received;
    copy.detach();
    return copy;
}

bool TransferPeer::waitForCount(int count, int timeoutMs) const
{
    return QTest::qWaitFor(
        [&] {
            const std::lock_guard<std::mutex> lock(m_mutex);
            return m_received.size() >= count;
        },
        timeoutMs);
}

bool TransferPeer::waitForPrefix(const QByteArray &prefix, int timeoutMs) const
{
    return QTest::qWaitFor(
        [&] {
            const std::lock_guard<std::mutex> lock(m_mutex);
            for (const QByteArray &datagram : m_received) {
                if (datagram.startsWith(prefix))
                    return true;
            }
            return false;
        },
        timeoutMs);
}

bool TransferPeer::waitUntilCaughtUp(int timeoutMs)
{
    sockaddr_in own = {};
    socklen_t ownLength = sizeof(own);
    ::getsockname(m_socket, reinterpret_cast<sockaddr *>(&own), &ownLength);
    const int markers = m_markers;
    // Datagrams on the loopback network keep their order.
    ::sendto(m_socket, marker, sizeof(marker), 0, reinterpret_cast<sockaddr *>(&own), ownLength);
    return QTest::qWaitFor([&] { return m_markers > markers; }, timeoutMs);
}

bool TransferPeer::waitUntilSilent(int timeoutMs) const
{
    return QTest::qWaitFor([&] { return m_clock.elapsed() - m_lastDatagramMs > silenceMs; }, timeoutMs);
}

void TransferPeer::serve()
{
    QByteArray buffer(65536, '\0');
    while (!m_ended) {
        pollfd descriptor = {m_socket, POLLIN, 0};
        if (::poll(&descriptor, 1, pollMs) <= 0) {
            reactToPause();
            continue;
        }
        sockaddr_in sender = {};
        socklen_t senderLength = sizeof(sender);
        const ssize_t length = ::recvfrom(m_socket, buffer.data(), size_t(buffer.size()), 0,
                                          reinterpret_cast<sockaddr *>(&sender), &senderLength);
        if (length < 0)
            continue;
        if (QByteArray::fromRawData(buffer.constData(), int(length)) == QByteArray(marker, sizeof(marker))) {
            ++m_markers;
            continue;
        }
        m_lastDatagramMs = m_clock.elapsed();
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            const char *raw = reinterpret_cast<const char *>(&sender);
            m_sender.assign(raw, raw + senderLength);
        }
        react(QByteArray(buffer.constData(), int(length)));
    }
}

void TransferPeer::reactToPause()
{
    EngineEvents events;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_lastDataNumber < 0 || m_clock.elapsed() - m_lastDatagramMs < longPauseMs)
            return;
        events.swap(m_pauseAnswer);
    }
    raiseAll(events);
}

void TransferPeer::react(const QByteArray &datagram)
{
    EngineEvents events;
    std::function<void(const QByteArray &)> watcher;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const bool isData = datagram.size() >= 10 && datagram.startsWith("DC");
        if (!isData || m_keepsData)
            m_received.append(datagram);
        watcher = m_watcher;
        if (isData) {
            const quint32 number = quint32(word(datagram, 4)) << 16 | quint32(word(datagram, 6));
            m_lastDataNumber = number;
            const auto answer = m_dataAnswers.find(number);
            if (answer != m_dataAnswers.end()) {
                events = answer->second;
                m_dataAnswers.erase(answer);
            }
        } else if (datagram.size() == 4 && word(datagram, 2) == 0) {
            const auto answer = m_queryAnswers.find(quint16(word(datagram, 0)));
            if (answer != m_queryAnswers.end())
                events = answer->second;
        } else if (datagram.startsWith("DS")) {
            events = m_startAnswer;
        } else if (datagram.size() == 8 && datagram.startsWith("DE")) {
            events = m_endAnswer;
        }
    }
    if (watcher)
        watcher(datagram);
    raiseAll(events);
}
