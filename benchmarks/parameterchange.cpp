// CPU time of one parameter change, from the method that QML calls to the wire, against sendto() of the same
// bytes.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"
#include "control/qconnectqmlplugin.h"

#include <QGuiApplication>

#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int batches = 400;
constexpr int batchSize = 100;
constexpr int rounds = 9;

template<typename Send>
double microsecondsPerSend(EngineSocket &engine, Send send)
{
    qint64 spent = 0;
    for (int batch = 0; batch < batches; ++batch) {
        const qint64 before = benchmark::threadCpuNs();
        for (int i = 0; i < batchSize; ++i)
            send(i);
        spent += benchmark::threadCpuNs() - before;
        engine.drain();
    }
    return double(spent) / 1000.0 / (double(batches) * batchSize);
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    EngineSocket engine("127.20.26.1");
    QConnectQmlPlugin module;

    EngineSocket baselineEngine("127.20.26.2");
    const sockaddr_in target = baselineEngine.address();
    const int baseline = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const sockaddr_in anyPort{AF_INET, 0, {INADDR_ANY}, {}};
    if (::bind(baseline, reinterpret_cast<const sockaddr *>(&anyPort), sizeof(anyPort)) != 0)
        qFatal("cannot bind a port");
    // setMasterOutLevel(value): parameter 38 07.
    QByteArray datagram = QByteArray::fromHex("494d0003"
                                              "0bb96338"
                                              "0bb96207"
                                              "0bb90600");

    benchmark::printHeading(QStringLiteral("Parameter change"));
    const bool met = benchmark::judge(
        {QStringLiteral("setMasterOutLevel / sendto(16 bytes)"), 1.1, true}, rounds, QStringLiteral("us"),
        [&] { return microsecondsPerSend(engine, [&](int i) { module.setMasterOutLevel(uchar(i)); }); },
        [&] {
            return microsecondsPerSend(baselineEngine, [&](int i) {
                datagram[15] = char(i);
                ::sendto(baseline, datagram.constData(), size_t(datagram.size()), MSG_NOSIGNAL,
                         reinterpret_cast<const sockaddr *>(&target), sizeof(target));
            });
        });
    ::close(baseline);
    return met ? 0 : 1;
}
