// Single events are received as they arrive. The link is compared with a thread that blocks in recv(), in the
// same run, because a busy machine delays both.

#include "link/sockettransceiver.h"
#include "support/datagram.h"
#include "support/enginepeer.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <random>
#include <thread>
#include <vector>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace testsupport;
using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

namespace {

constexpr int eventCount = 100;
// The receive thread is idle again when the next event arrives.
constexpr int shortestDistanceUs = 1000;
constexpr int longestDistanceUs = 5000;
// Much less than the delay of a loop that polls every 20 ms, and much more than the wake-up time of a thread.
constexpr microseconds allowed{5000};
constexpr int allowedFactor = 4;
constexpr microseconds arrivalPoll{200};
constexpr microseconds never{-1};

/// Time of the last arrival, written by a receiving thread.
class Arrival
{
public:
    void note() { m_time = sinceStart(); }

    // Sends a datagram and returns the time until its arrival was recorded, or never.
    template<typename Send>
    microseconds after(Send send)
    {
        m_time = never;
        const microseconds sent = sinceStart();
        send();
        QElapsedTimer waiting;
        waiting.start();
        while (m_time.load() == never) {
            if (waiting.hasExpired(patienceMs))
                return never;
            std::this_thread::sleep_for(arrivalPoll);
        }
        return m_time.load() - sent;
    }

private:
    microseconds sinceStart() const
    {
        return std::chrono::duration_cast<microseconds>(Clock::now() - m_start);
    }

    const Clock::time_point m_start = Clock::now();
    std::atomic<microseconds> m_time{never};
};

/// A thread that repeatedly blocks until a datagram arrives at its socket.
class BlockingReceiver
{
public:
    explicit BlockingReceiver(Arrival &arrival)
        : m_descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in local{};
        socklen_t size = sizeof(local);
        local.sin_family = AF_INET;
        local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(m_descriptor, reinterpret_cast<const sockaddr *>(&local), sizeof(local));
        ::getsockname(m_descriptor, reinterpret_cast<sockaddr *>(&local), &size);
        m_port = ntohs(local.sin_port);
        m_thread = std::thread([this, &arrival] {
            std::array<char, 16> buffer{};
            // An empty datagram ends the thread.
            while (::recv(m_descriptor, buffer.data(), buffer.size(), 0) > 0)
                arrival.note();
        });
    }
    ~BlockingReceiver()
    {
        sockaddr_in own{};
        own.sin_family = AF_INET;
        own.sin_port = htons(m_port);
        own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::sendto(m_descriptor, nullptr, 0, 0, reinterpret_cast<const sockaddr *>(&own), sizeof(own));
        m_thread.join();
        ::close(m_descriptor);
    }
    Q_DISABLE_COPY(BlockingReceiver)

    quint16 port() const { return m_port; }

private:
    const int m_descriptor;
    quint16 m_port = 0;
    std::thread m_thread;
};

microseconds median(std::vector<microseconds> times)
{
    const auto middle = times.begin() + int(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

} // namespace

class EventLatencyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void singleEvents();
};

void EventLatencyTest::singleEvents()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    Arrival atLink;
    SocketTransceiver link;
    connect(
        &link, &SocketTransceiver::sockUdpPacketArrived, &link, [&atLink] { atLink.note(); },
        Qt::DirectConnection);
    link.startTransceiver();
    link.writeToSocket(QByteArray("hello"), link.engine().host, link.engine().port);
    QCOMPARE(peer.next(), QByteArray("hello"));

    Arrival atBaseline;
    const BlockingReceiver baseline(atBaseline);
    const QHostAddress loopback(QHostAddress::LocalHost);

    const QByteArray event = datagram("IM AC 99096426");
    std::vector<microseconds> linkTimes;
    std::vector<microseconds> baselineTimes;
    std::minstd_rand random(1);
    std::uniform_int_distribution<int> distance(shortestDistanceUs, longestDistanceUs);
    for (int i = 0; i < eventCount; ++i) {
        std::this_thread::sleep_for(microseconds(distance(random)));
        linkTimes.push_back(atLink.after([&] { peer.send(event); }));
        QVERIFY2(linkTimes.back() != never, "the link did not receive an event");
        baselineTimes.push_back(atBaseline.after([&] { peer.sendTo(event, loopback, baseline.port()); }));
        QVERIFY2(baselineTimes.back() != never, "the baseline did not receive an event");
    }
    const microseconds linkTime = median(linkTimes);
    const microseconds baselineTime = median(baselineTimes);
    QVERIFY2(
        linkTime <= allowedFactor * baselineTime + allowed,
        qPrintable(QStringLiteral("%1 us, baseline %2 us").arg(linkTime.count()).arg(baselineTime.count())));
}

QTEST_GUILESS_MAIN(EventLatencyTest)
#include "tst_eventlatency.moc"
