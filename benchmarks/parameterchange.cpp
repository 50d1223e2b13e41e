// CPU time of one parameter change, from the method that QML calls to the wire, against a bare datagram of
// the same size.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"
#include "control/qconnectqmlplugin.h"

#include <QGuiApplication>
#include <QUdpSocket>

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

    EngineSocket partnerEngine("127.20.26.2");
    const QHostAddress partnerHost(QStringLiteral("127.20.26.2"));
    const quint16 partnerPort = ntohs(partnerEngine.address().sin_port);
    QUdpSocket partner;
    partner.bind(QHostAddress(QHostAddress::AnyIPv4), 0);
    const QByteArray datagram(16, 'x');

    benchmark::printHeading(QStringLiteral("Parameter change"));
    const bool met = benchmark::judge(
        {QStringLiteral("setMasterOutLevel / writeDatagram(16 bytes)"), 1.5, true}, rounds,
        QStringLiteral("us"),
        [&] { return microsecondsPerSend(engine, [&](int i) { module.setMasterOutLevel(uchar(i)); }); },
        [&] {
            return microsecondsPerSend(
                partnerEngine, [&](int) { partner.writeDatagram(datagram, partnerHost, partnerPort); });
        });
    return met ? 0 : 1;
}
