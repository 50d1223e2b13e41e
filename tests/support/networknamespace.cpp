#include "support/networknamespace.h"

#include <QByteArray>
#include <QFile>
#include <QHostAddress>
#include <QProcess>
#include <QStringList>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <future>
#include <thread>

#include <arpa/inet.h>
#include <fcntl.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace testsupport {

namespace {

const char engineHost[] = "172.20.21.22";
const char moduleDevice[] = "module0";
const char engineDevice[] = "engine0";

constexpr std::chrono::seconds carrierPatience{30};
constexpr std::chrono::milliseconds carrierPoll{2};

// The first line creates the table if there is none, so that the second line succeeds.
const char noLoss[] = "table ip loss\ndelete table ip loss\n";

bool privateNetwork = false;

QString systemError(const char *what)
{
    return QStringLiteral("%1: %2").arg(QString::fromLatin1(what), QString::fromLocal8Bit(strerror(errno)));
}

bool writeFile(const char *path, const QByteArray &text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

QString run(const QString &program, const QStringList &arguments, const QByteArray &input = QByteArray())
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForStarted())
        return QStringLiteral("cannot run %1 (Debian packages iproute2, nftables)").arg(program);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        return QStringLiteral("%1 %2: %3")
            .arg(program, arguments.join(QLatin1Char(' ')),
                 QString::fromLocal8Bit(process.readAll()).trimmed());
    }
    return QString();
}

// The programs are in sbin, which may be missing from the PATH of an ordinary user.
QString systemProgram(const char *name)
{
    const QString inSbin = QStringLiteral("/usr/sbin/") + QString::fromLatin1(name);
    return QFile::exists(inSbin) ? inSbin : QString::fromLatin1(name);
}

QString nft(const QByteArray &rules)
{
    return run(systemProgram("nft"), {QStringLiteral("-f"), QStringLiteral("-")}, rules);
}

bool isRunning(const char *device)
{
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strncpy(request.ifr_name, device, sizeof(request.ifr_name) - 1);
    const bool running =
        ::ioctl(descriptor, SIOCGIFFLAGS, &request) == 0 && (request.ifr_flags & IFF_RUNNING) != 0;
    ::close(descriptor);
    return running;
}

// A device that is up drops all packets until the system has detected its carrier. On a busy machine this
// takes up to a second.
QString waitForCarrier(const char *device)
{
    const auto end = std::chrono::steady_clock::now() + carrierPatience;
    while (!isRunning(device)) {
        if (std::chrono::steady_clock::now() > end)
            return QStringLiteral("%1 has no carrier").arg(QString::fromLatin1(device));
        std::this_thread::sleep_for(carrierPoll);
    }
    return QString();
}

QString unshareNetwork()
{
    if (::unshare(CLONE_NEWNET) == 0)
        return QString();
    if (errno != EPERM)
        return systemError("cannot create a network namespace");

    const uid_t user = ::getuid();
    const gid_t group = ::getgid();
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return systemError("cannot create a network namespace without privileges");
    writeFile("/proc/self/setgroups", "deny");
    if (!writeFile("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1") ||
        !writeFile("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1"))
        return QStringLiteral("the user namespace cannot be mapped");
    return QString();
}

} // namespace

QString enterPrivateNetwork()
{
    QString error = unshareNetwork();
    if (error.isEmpty())
        error = ip(QStringLiteral("link set lo up"));
    privateNetwork = error.isEmpty();
    return error;
}

bool inPrivateNetwork()
{
    return privateNetwork;
}

QString ip(const QString &arguments)
{
    return run(systemProgram("ip"), arguments.split(QLatin1Char(' ')));
}

EngineNetwork::EngineNetwork()
{
    m_error = privateNetwork ? setUp() : QStringLiteral("not in a private network");
}

EngineNetwork::~EngineNetwork()
{
    // The system removes both ends of the pair. It removes the namespace when the last descriptor is closed.
    if (m_namespace >= 0) {
        ip(QStringLiteral("link del module0"));
        ::close(m_namespace);
    }
}

QString EngineNetwork::setUp()
{
    // A namespace exists as long as a thread is in it or a descriptor refers to it. "ip link" finds the
    // namespace by the thread's id, so the thread waits until the far end of the pair has been moved.
    std::promise<QString> unshared;
    std::promise<void> moved;
    pid_t engineThread = 0;
    std::thread engine([&] {
        engineThread = pid_t(::syscall(SYS_gettid));
        if (::unshare(CLONE_NEWNET) != 0) {
            unshared.set_value(systemError("cannot create a second network namespace"));
            return;
        }
        m_namespace = ::open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
        unshared.set_value(m_namespace < 0 ? systemError("cannot open the namespace") : QString());
        moved.get_future().wait();
    });

    QString error = unshared.get_future().get();
    const auto step = [&error](const QString &arguments) {
        if (error.isEmpty())
            error = ip(arguments);
    };
    step(QStringLiteral("link add module0 type veth peer name engine0 netns %1").arg(engineThread));
    moved.set_value();
    engine.join();

    step(QStringLiteral("addr add 172.20.21.1/24 dev module0"));
    step(QStringLiteral("link set module0 up"));
    onEngineSide([&step] {
        step(QStringLiteral("link set lo up"));
        step(QStringLiteral("addr add 172.20.21.22/24 dev engine0"));
        step(QStringLiteral("link set engine0 up"));
    });
    return error.isEmpty() ? waitForCarriers() : error;
}

QString EngineNetwork::waitForCarriers()
{
    QString error = waitForCarrier(moduleDevice);
    if (error.isEmpty())
        onEngineSide([&error] { error = waitForCarrier(engineDevice); });
    return error;
}

void EngineNetwork::onEngineSide(const std::function<void()> &function)
{
    std::thread([this, &function] {
        if (enterEngineSide())
            function();
    }).join();
}

bool EngineNetwork::enterEngineSide() const
{
    return ::setns(m_namespace, CLONE_NEWNET) == 0;
}

int EngineNetwork::openEngineSocket(quint16 port)
{
    int descriptor = -1;
    onEngineSide([&descriptor, port] {
        descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        ::inet_pton(AF_INET, engineHost, &address.sin_addr);
        if (::bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0) {
            ::close(descriptor);
            descriptor = -1;
        }
    });
    return descriptor;
}

QString EngineNetwork::cut()
{
    return ip(QStringLiteral("link set module0 down"));
}

QString EngineNetwork::restore()
{
    const QString error = ip(QStringLiteral("link set module0 up"));
    return error.isEmpty() ? waitForCarriers() : error;
}

QString EngineNetwork::cutEngine()
{
    QString error;
    onEngineSide([&error] { error = ip(QStringLiteral("link set engine0 down")); });
    return error;
}

QString EngineNetwork::restoreEngine()
{
    QString error;
    onEngineSide([&error] { error = ip(QStringLiteral("link set engine0 up")); });
    return error.isEmpty() ? waitForCarriers() : error;
}

QString EngineNetwork::silenceEngine()
{
    QString error;
    onEngineSide([&error] { error = ip(QStringLiteral("link set engine0 arp off")); });
    // Datagrams are queued until the engine's hardware address is known. The default queue is as long as the
    // send buffer of one socket, so that several sockets could not fill their buffers.
    if (error.isEmpty())
        error = ip(QStringLiteral("ntable change name arp_cache dev module0 queue 10000"));
    return error.isEmpty() ? ip(QStringLiteral("neigh flush dev module0")) : error;
}

QString EngineNetwork::unsilenceEngine()
{
    QString error;
    onEngineSide([&error] { error = ip(QStringLiteral("link set engine0 arp on")); });
    return error;
}

QString EngineNetwork::removeRoute()
{
    return ip(QStringLiteral("route del 172.20.21.0/24 dev module0"));
}

QString EngineNetwork::restoreRoute()
{
    return ip(QStringLiteral("route add 172.20.21.0/24 dev module0 src 172.20.21.1"));
}

QString EngineNetwork::noLossReason()
{
    const QString error =
        nft("table ip probe {\n"
            "chain in { type filter hook input priority 0; numgen random mod 2 < 1 drop\n}\n}\n"
            "delete table ip probe\n");
    return error.isEmpty() ? error : QStringLiteral("datagrams cannot be dropped here: %1").arg(error);
}

QString EngineNetwork::loseDatagrams(int percent, Direction direction, quint16 firstPort, quint16 lastPort)
{
    const auto rules = [&](const char *portOfEngine) {
        return QStringLiteral("table ip loss {\n"
                              "chain in { type filter hook input priority 0; "
                              "udp %1 %2-%3 numgen random mod 100 < %4 drop\n}\n}\n")
            .arg(QLatin1String(portOfEngine))
            .arg(firstPort)
            .arg(lastPort)
            .arg(percent)
            .toLatin1();
    };
    QString error;
    if (direction != Direction::ToModule)
        error = nftOnEngineSide(rules("dport"));
    if (error.isEmpty() && direction != Direction::ToEngine)
        error = nft(rules("sport"));
    return error;
}

QString EngineNetwork::loseNothing()
{
    const QString error = nftOnEngineSide(noLoss);
    return error.isEmpty() ? nft(noLoss) : error;
}

QString EngineNetwork::nftOnEngineSide(const QByteArray &rules)
{
    QString error;
    onEngineSide([&] { error = nft(rules); });
    return error;
}

} // namespace testsupport
