// CPU time of the receive thread while no datagram arrives, against a plain loop that reads every
// millisecond.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"
#include "control/qconnectqmlplugin.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <ctime>
#include <thread>

namespace {

constexpr int rounds = 5;
constexpr int measuredMs = 3000;

void pollPlainly(int descriptor, std::atomic<int> &threadId, const std::atomic<bool> &stop)
{
    prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
    threadId = int(::syscall(SYS_gettid));
    std::array<char, 65536> buffer{};
    const timespec pause{0, 1000000};
    while (!stop) {
        if (::recv(descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT) < 0)
            nanosleep(&pause, nullptr);
    }
}

void runEventLoopFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

double cpuMicrosecondsPerSecond(int threadId)
{
    const qint64 before = benchmark::threadCpuNs(threadId);
    runEventLoopFor(measuredMs);
    return double(benchmark::threadCpuNs(threadId) - before) / measuredMs;
}

int startReceiveThread(EngineSocket &engine, QConnectQmlPlugin &module)
{
    const std::vector<int> before = benchmark::threadIds();
    module.requestOutsUpdate();
    engine.drain();
    QEventLoop loop;
    QObject::connect(&module, &QConnectQmlPlugin::udpPacketArrived, &loop, &QEventLoop::quit);
    engine.send(QByteArray::fromHex("5a5a414300010002"));
    loop.exec();
    for (int id : benchmark::threadIds()) {
        if (std::find(before.begin(), before.end(), id) == before.end())
            return id;
    }
    qFatal("the receive thread did not start");
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    EngineSocket engine("127.20.26.4");
    QConnectQmlPlugin module;
    const int receiveThread = startReceiveThread(engine, module);

    const int quietSocket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    std::atomic<int> plainThread{0};
    std::atomic<bool> stop{false};
    std::thread plain(pollPlainly, quietSocket, std::ref(plainThread), std::cref(stop));
    while (plainThread == 0)
        std::this_thread::yield();

    benchmark::printHeading(QStringLiteral("Idle receive thread"));
    const bool met = benchmark::judge(
        {QStringLiteral("receive thread / plain 1 ms polling loop"), 1.15, true}, rounds,
        QStringLiteral("us/s"), [&] { return cpuMicrosecondsPerSecond(receiveThread); },
        [&] { return cpuMicrosecondsPerSecond(plainThread); });
    stop = true;
    plain.join();
    ::close(quietSocket);
    return met ? 0 : 1;
}
