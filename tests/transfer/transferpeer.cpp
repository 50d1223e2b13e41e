#include "transferpeer.h"

#include <QTest>

#include <array>
#include <cstdio>
#include <ctime>

#include <linux/sock_diag.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// Marks a skipped test for CTest.
constexpr int skippedExitCode = 77;
constexpr int pollMs = 20;
constexpr int longPauseMs = 1500;
constexpr int silenceMs = 1000;

QByteArray marker()
{
    return QByteArrayLiteral("marker");
}

// When the last datagram that was read arrived. The first call makes the kernel keep the times.
qint64 arrivalNs(int descriptor)
{
    timespec stamp = {};
    // Fails before the first datagram and on a system without time stamps.
    if (::ioctl(descriptor, SIOCGSTAMPNS, &stamp) != 0)
        ::clock_gettime(CLOCK_REALTIME, &stamp);
    return stamp.tv_sec * Q_INT64_C(1000000000) + stamp.tv_nsec;
}

int word(const QByteArray &bytes, int offset)
{
    return quint8(bytes.at(offset)) << 8 | quint8(bytes.at(offset + 1));
}

} // namespace

TransferPeer::TransferPeer(const QString &address)
    : m_address(address)
    , m_socket(m_address, 0)
    , m_endAnswer{{"DE", 0, 0}}
{
    if (!m_socket.isOpen())
        qFatal("%s", qPrintable(m_socket.errorString()));
    arrivalNs(m_socket.descriptor());
    m_clock.start();
    m_thread = std::thread(&TransferPeer::serve, this);
}

TransferPeer::~TransferPeer()
{
    m_ended = true;
    m_thread.join();
}

QString TransferPeer::endpoint() const
{
    return QStringLiteral("%1:%2").arg(m_address.toString()).arg(m_socket.port());
}

void TransferPeer::answerQuery(Tag query, const EngineEvents &events)
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
        char(event.tag >> 8), char(event.tag & 0xFF), 'A', 'C', char(event.a >> 8), char(event.a & 0xFF),
        char(event.b >> 8),   char(event.b & 0xFF)};
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_socket.sendTo(QByteArray(bytes, sizeof(bytes)), m_moduleAddress, m_modulePort);
}

void TransferPeer::raiseAll(const EngineEvents &events)
{
    for (const EngineEvent &event : events)
        raise(event);
}

QVector<QByteArray> TransferPeer::received() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // Detached, because m_received changes in the other thread. Qt checks whether data is shared without
    // memory ordering, so a shared copy could be overwritten while it is still read.
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
    const int markers = m_markers;
    // Loopback keeps the order of datagrams.
    m_socket.sendTo(marker(), m_address, m_socket.port());
    return QTest::qWaitFor([&] { return m_markers > markers; }, timeoutMs);
}

bool TransferPeer::waitUntilSilent(int timeoutMs) const
{
    return QTest::qWaitFor([&] { return m_clock.elapsed() - m_lastDatagramMs > silenceMs; }, timeoutMs);
}

void TransferPeer::serve()
{
    QByteArray datagram;
    while (!m_ended) {
        if (!m_socket.hasPending(pollMs)) {
            verifyNothingDropped();
            reactToPause();
            continue;
        }
        if (!m_socket.receive(datagram))
            continue;
        if (datagram == marker()) {
            ++m_markers;
            continue;
        }
        m_lastDatagramMs = m_clock.elapsed();
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_moduleAddress = m_socket.moduleAddress();
            m_modulePort = m_socket.modulePort();
        }
        if (!datagram.startsWith("DC"))
            verifyNothingDropped();
        react(datagram, arrivalNs(m_socket.descriptor()));
    }
}

void TransferPeer::verifyNothingDropped() const
{
    std::array<quint32, SK_MEMINFO_VARS> figures{};
    socklen_t size = sizeof(figures);
    if (::getsockopt(m_socket.descriptor(), SOL_SOCKET, SO_MEMINFO, figures.data(), &size) != 0)
        return;
    const quint32 dropped = figures[SK_MEMINFO_DROPS];
    if (dropped == 0)
        return;
    const quint32 bufferBytes = figures[SK_MEMINFO_RCVBUF];
    // The kernel reports twice the requested size.
    if (bufferBytes >= 2 * EnginePeer::receiveBufferBytes)
        qFatal("the kernel dropped %u datagrams because the engine's thread did not run", dropped);
    std::printf(
        "skipped: the kernel dropped %u datagrams, since net.core.rmem_max allows this user a receive "
        "buffer of no more than %u bytes\n",
        dropped, bufferBytes);
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
