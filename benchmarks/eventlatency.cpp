// Time from a pad hit on the wire to noteChanged in the GUI thread, against a QUdpSocket whose readyRead
// handler reads the same datagram in the GUI thread. Single hits at random intervals, sent to both sides
// alternately.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"
#include "control/qconnectqmlplugin.h"

#include <QGuiApplication>
#include <QSemaphore>
#include <QTextStream>
#include <QUdpSocket>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <random>
#include <thread>
#include <vector>

#include <arpa/inet.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int hitsPerSide = 1000;
constexpr int shortestDistanceUs = 1000;
constexpr int longestDistanceUs = 10000;
constexpr int lostAfterMs = 1000;

/// The arrivals at one side: product or baseline.
class Side
{
public:
    // GUI thread.
    void arrive()
    {
        m_arrived = Clock::now();
        m_arrival.release();
    }

    // Sends a hit and waits for its arrival. Sending thread.
    template<typename Send>
    void hit(Send send)
    {
        const Clock::time_point sent = Clock::now();
        send();
        if (m_arrival.tryAcquire(1, lostAfterMs))
            m_microseconds.push_back(std::chrono::duration<double, std::micro>(m_arrived - sent).count());
    }

    int lost() const { return hitsPerSide - int(m_microseconds.size()); }

    // part is between 0 and 1: 0.5 gives the median.
    double quantile(double part)
    {
        if (m_microseconds.empty())
            return 0;
        std::sort(m_microseconds.begin(), m_microseconds.end());
        return m_microseconds[std::size_t(part * double(m_microseconds.size() - 1))];
    }

private:
    QSemaphore m_arrival;
    Clock::time_point m_arrived; ///< written before a release, read after an acquire
    std::vector<double> m_microseconds;
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    EngineSocket engine("127.20.26.9");
    QConnectQmlPlugin module;
    module.requestOutsUpdate();
    engine.drain();
    Side product;
    QObject::connect(&module, &QConnectQmlPlugin::noteChanged, &module, [&product] { product.arrive(); });

    QUdpSocket socket;
    if (!socket.bind(QHostAddress(QStringLiteral("127.20.26.10")), 0))
        qFatal("cannot bind 127.20.26.10");
    Side baseline;
    QObject::connect(&socket, &QUdpSocket::readyRead, &socket, [&socket, &baseline] {
        std::array<char, 8> datagram{};
        while (socket.hasPendingDatagrams()) {
            socket.readDatagram(datagram.data(), qint64(datagram.size()));
            baseline.arrive();
        }
    });
    sockaddr_in baselineAddress{};
    baselineAddress.sin_family = AF_INET;
    baselineAddress.sin_port = htons(socket.localPort());
    inet_pton(AF_INET, "127.20.26.10", &baselineAddress.sin_addr);

    std::thread sender([&] {
        std::minstd_rand random(1);
        std::uniform_int_distribution<int> distance(shortestDistanceUs, longestDistanceUs);
        QByteArray hit = QByteArray::fromHex("494d414399090026");
        const auto pause = [&] {
            std::this_thread::sleep_for(std::chrono::microseconds(distance(random)));
        };
        for (int i = 0; i < hitsPerSide; ++i) {
            hit[6] = char(1 + i % 127);
            pause();
            product.hit([&] { engine.send(hit); });
            pause();
            baseline.hit([&] { engine.sendTo(hit, baselineAddress); });
        }
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QGuiApplication::exec();
    sender.join();

    benchmark::printHeading(QStringLiteral("Event latency"));
    const auto compare = [&](const char *name, double limit, double part) {
        return benchmark::judge(
            {QString::fromLatin1(name), limit, true}, 1, QStringLiteral("us"),
            [&] { return product.quantile(part); }, [&] { return baseline.quantile(part); });
    };
    const bool medianMet = compare("pad hit / plain handler, median", 1.7, 0.5);
    const bool slowestMet = compare("pad hit / plain handler, 99 of 100", 2.0, 0.99);
    QTextStream(stdout) << "lost: " << product.lost() << " of " << hitsPerSide << '\n';
    return medianMet && slowestMet && product.lost() == 0 ? 0 : 1;
}
