// How long the transfer of a file takes, against a plain sender that reads, sends and pauses for the same
// time.

#include "benchmarks/ratio.h"
#include "benchmarks/streamwatch.h"
#include "control/qconnectqmlplugin.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QTemporaryFile>

#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <thread>

namespace {

constexpr int fileBytes = 4 * 1024 * 1024;
constexpr int packetsPerPause = 10;

struct Kind
{
    const char *name;
    quint16 tag;
    int chunkBytes;
    int pauseMs;
    int rounds;
    void (QConnectQmlPlugin::*send)(const QString &);
};

void put(unsigned char *place, quint32 value)
{
    for (int i = 0; i < 4; ++i)
        place[i] = static_cast<unsigned char>(value >> (24 - 8 * i));
}

// The minimum: no locks, no signals, no allocation.
void sendPlainly(const Kind &kind, const char *path, const sockaddr_in &target)
{
    prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const auto send = [&](const unsigned char *bytes, std::size_t size) {
        ::sendto(descriptor, bytes, size, 0, reinterpret_cast<const sockaddr *>(&target), sizeof(target));
    };
    std::array<unsigned char, 2048> packet{'D', 'S', static_cast<unsigned char>(kind.tag >> 8),
                                           static_cast<unsigned char>(kind.tag & 0xFF)};
    put(packet.data() + 4, fileBytes);
    send(packet.data(), 8);
    packet[1] = 'C';
    const timespec pause{0, kind.pauseMs * 1000000L};
    quint32 number = 0;
    quint32 sum = 0;
    for (;;) {
        const ssize_t got = ::read(file, packet.data() + 10, std::size_t(kind.chunkBytes));
        if (got <= 0)
            break;
        for (ssize_t i = 0; i < got; i += 2)
            sum += quint32(packet[std::size_t(10 + i)] << 8 | packet[std::size_t(11 + i)]);
        put(packet.data() + 4, number);
        packet[8] = static_cast<unsigned char>(got / 2 >> 8);
        packet[9] = static_cast<unsigned char>(got / 2 & 0xFF);
        send(packet.data(), std::size_t(10 + got));
        if (++number % packetsPerPause == 0)
            nanosleep(&pause, nullptr);
    }
    packet[1] = 'E';
    put(packet.data() + 4, sum);
    send(packet.data(), 8);
    ::close(descriptor);
    ::close(file);
}

double plainMilliseconds(StreamWatch &engine, const Kind &kind, const QByteArray &path)
{
    const int ends = engine.ends();
    std::thread(sendPlainly, std::cref(kind), path.constData(), std::cref(engine.address())).join();
    while (engine.ends() == ends)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return engine.milliseconds();
}

double productMilliseconds(StreamWatch &engine, const Kind &kind, const QByteArray &path,
                           QConnectQmlPlugin &module)
{
    QEventLoop loop;
    QObject::connect(&module, &QConnectQmlPlugin::soundbankTransferComplete, &loop, &QEventLoop::quit);
    QObject::connect(&module, &QConnectQmlPlugin::triggerbankTransferComplete, &loop, &QEventLoop::quit);
    QObject::connect(&module, &QConnectQmlPlugin::bluetoothTransferComplete, &loop, &QEventLoop::quit);
    (module.*kind.send)(QString::fromLocal8Bit(path));
    loop.exec();
    if (engine.packets() != fileBytes / kind.chunkBytes)
        qFatal("packets are missing");
    return engine.milliseconds();
}

bool measure(StreamWatch &engine, const Kind &kind, const QByteArray &path, QConnectQmlPlugin &module)
{
    const QString name =
        QStringLiteral("%1, %2 ms / plain sender").arg(QLatin1String(kind.name)).arg(kind.pauseMs);
    return benchmark::judge(
        {name, 1.02, true}, kind.rounds, QStringLiteral("ms"),
        [&] { return productMilliseconds(engine, kind, path, module); },
        [&] { return plainMilliseconds(engine, kind, path); });
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    StreamWatch engine("127.20.26.6");
    QConnectQmlPlugin module;

    QTemporaryFile file;
    if (!file.open() || file.write(QByteArray(fileBytes, '\x5A')) != fileBytes || !file.flush())
        qFatal("cannot write a file");
    const QByteArray path = file.fileName().toLocal8Bit();

    const Kind kinds[] = {
        {"bluetooth file", 0x4246, 512, 1, 9, &QConnectQmlPlugin::sendBtFw},
        {"sound bank", 0x5342, 1024, 7, 5, &QConnectQmlPlugin::sendSoundBank},
        {"trigger bank", 0x5442, 512, 15, 5, &QConnectQmlPlugin::sendTriggerBank},
    };
    benchmark::printHeading(QStringLiteral("Transfer of 4 MiB"));
    bool met = true;
    for (const Kind &kind : kinds)
        met = measure(engine, kind, path, module) && met;
    return met ? 0 : 1;
}
