// Events per second that the receive thread takes from a socket that is never empty: against one event per
// pause of 100 us, and against a plain loop with the same pauses.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"
#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <ctime>
#include <thread>

namespace {

constexpr int rounds = 5;
constexpr int measuredEvents = 5000;
constexpr int eventsInFlight = 200;
constexpr double idealPerSecond = 10000.0;

QByteArray unclaimedEvent()
{
    return QByteArray::fromHex("5a5a414300010002");
}

// Keeps datagrams in the module's socket, without overflow, until enough events have been received.
double moduleRate(EngineSocket &engine, const int &received)
{
    const QByteArray event = unclaimedEvent();
    const int start = received;
    int sent = 0;
    QElapsedTimer timer;
    timer.start();
    while (received - start < measuredEvents) {
        while (sent - (received - start) < eventsInFlight) {
            engine.send(event);
            ++sent;
        }
        QCoreApplication::processEvents();
    }
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    const double rate = measuredEvents / seconds;
    while (received - start < sent)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return rate;
}

void pauseFor(long nanoseconds)
{
    const timespec time{0, nanoseconds};
    nanosleep(&time, nullptr);
}

void receivePlainly(int descriptor, std::atomic<int> &received, const std::atomic<bool> &stop)
{
    prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
    std::array<char, 65536> buffer{};
    while (!stop) {
        if (::recv(descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT) < 0) {
            pauseFor(1000000);
            continue;
        }
        ++received;
        pauseFor(100000);
    }
}

double plainLoopRate()
{
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_DGRAM, 0, pair.data()) != 0)
        qFatal("no socket pair");
    std::atomic<int> received{0};
    std::atomic<bool> stop{false};
    std::thread receiver(receivePlainly, pair[1], std::ref(received), std::cref(stop));
    const QByteArray event = unclaimedEvent();
    QElapsedTimer timer;
    timer.start();
    // A full socket blocks its sender, so the socket is never empty.
    for (int i = 0; i < measuredEvents; ++i) {
        if (::send(pair[0], event.constData(), size_t(event.size()), 0) < 0)
            qFatal("cannot send");
    }
    while (received < measuredEvents)
        pauseFor(20000);
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    stop = true;
    receiver.join();
    ::close(pair[0]);
    ::close(pair[1]);
    return measuredEvents / seconds;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    EngineSocket engine("127.20.26.3");
    QConnectQmlPlugin module;
    int received = 0;
    QObject::connect(&module, &QConnectQmlPlugin::udpPacketArrived, &module, [&received] { ++received; });
    module.requestOutsUpdate();
    engine.drain();

    benchmark::printHeading(QStringLiteral("Receive ceiling"));
    const QString unit = QStringLiteral("/s");
    const auto product = [&] {
        return moduleRate(engine, received);
    };
    const bool ideal = benchmark::judge({QStringLiteral("events / one per 100 us"), 0.72, false}, rounds,
                                        unit, product, [] { return idealPerSecond; });
    const bool plain =
        benchmark::judge({QStringLiteral("events / plain loop with the same pauses"), 0.95, false}, rounds,
                         unit, product, plainLoopRate);
    return ideal && plain ? 0 : 1;
}
