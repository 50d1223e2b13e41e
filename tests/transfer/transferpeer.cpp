#include "transferpeer.h"

#include <QTest>

#include <array>
#include <cstdio>
#include <cstring>

#include <arpa/inet.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr quint16 enginePort = 19797;
constexpr quint16 lastPort = 19997;
constexpr int receiveBufferBytes = 8 * 1024 * 1024;
// What CTest knows a skipped test by.
constexpr int skippedExitCode = 77;
constexpr int pollMs = 20;
constexpr int longPauseMs = 1500;
constexpr int silenceMs = 1000;
const char marker[] = "marker";

// Of a system that gives datagrams no time stamps, when this is called.
qint64 arrivalNs(msghdr &message)
{
    timeval stamp = {};
    ::gettimeofday(&stamp, nullptr);
    for (cmsghdr *part = CMSG_FIRSTHDR(&message); part; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level == SOL_SOCKET && part->cmsg_type == SCM_TIMESTAMP)
            std::memcpy(&stamp, CMSG_DATA(part), sizeof(stamp));
    }
    return stamp.tv_sec * Q_INT64_C(1000000000) + stamp.tv_usec * 1000;
}

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
    socklen_t bufferBytesSize = sizeof(m_bufferBytes);
    ::getsockopt(m_socket, SOL_SOCKET, SO_RCVBUF, &m_bufferBytes, &bufferBytesSize);
    const int on = 1;
    ::setsockopt(m_socket, SOL_SOCKET, SO_TIMESTAMP, &on, sizeof(on));
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

QVector<qint64> TransferPeer::receivedAtNs() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QVector<qint64> copy = m_receivedAtNs;
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
            verifyNothingDropped();
            reactToPause();
            continue;
        }
        sockaddr_in sender = {};
        iovec space = {buffer.data(), size_t(buffer.size())};
        alignas(cmsghdr) std::array<char, 128> control;
        msghdr message = {};
        message.msg_name = &sender;
        message.msg_namelen = sizeof(sender);
        message.msg_iov = &space;
        message.msg_iovlen = 1;
        message.msg_control = control.data();
        message.msg_controllen = control.size();
        const ssize_t length = ::recvmsg(m_socket, &message, 0);
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
            m_sender.assign(raw, raw + message.msg_namelen);
        }
        if (!buffer.startsWith("DC"))
            verifyNothingDropped();
        react(QByteArray(buffer.constData(), int(length)), arrivalNs(message));
    }
}

void TransferPeer::verifyNothingDropped() const
{
    std::array<quint32, SK_MEMINFO_VARS> figures{};
    socklen_t size = sizeof(figures);
    if (::getsockopt(m_socket, SOL_SOCKET, SO_MEMINFO, figures.data(), &size) != 0)
        return;
    const quint32 dropped = figures[SK_MEMINFO_DROPS];
    if (dropped == 0)
        return;
    // The kernel tells twice of what was asked for.
    if (m_bufferBytes >= 2 * receiveBufferBytes)
        qFatal("the kernel dropped %u datagrams, the engine's thread was kept from running", dropped);
    std::printf(
        "skipped: the kernel dropped %u datagrams, since net.core.rmem_max allows this user a receive "
        "buffer of no more than %d bytes\n",
        dropped, m_bufferBytes);
    std::fflush(stdout);
    ::_exit(skippedExitCode);
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

void TransferPeer::react(const QByteArray &datagram, qint64 arrivedNs)
{
    EngineEvents events;
    std::function<void(const QByteArray &)> watcher;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const bool isData = datagram.size() >= 10 && datagram.startsWith("DC");
        if (!isData || m_keepsData) {
            m_received.append(datagram);
            m_receivedAtNs.append(arrivedNs);
        }
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
