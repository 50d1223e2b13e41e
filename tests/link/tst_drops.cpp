// Datagrams that the kernel drops because the module's receive buffer is full.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/dropwarnings.h"
#include "support/logcatcher.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QtEndian>

#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>

using namespace testsupport;

namespace {

// The kernel raises this to its own minimum, which holds a few small datagrams.
constexpr int smallBufferBytes = 1;
constexpr int largeBufferBytes = 1024 * 1024;
constexpr int burstSize = 300;

// The socket of this process that is bound to a UDP port; -1 if there is none.
int socketOnPort(quint16 port)
{
    const QStringList names = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System);
    for (const QString &name : names) {
        const int descriptor = name.toInt();
        sockaddr_in address{};
        socklen_t size = sizeof(address);
        int type = 0;
        socklen_t typeSize = sizeof(type);
        if (::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &typeSize) == 0 && type == SOCK_DGRAM &&
            ::getsockname(descriptor, reinterpret_cast<sockaddr *>(&address), &size) == 0 &&
            address.sin_family == AF_INET && qFromBigEndian(address.sin_port) == port)
            return descriptor;
    }
    return -1;
}

void setReceiveBuffer(int descriptor, int bytes)
{
    ::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &bytes, sizeof(bytes));
}

// A figure of the kernel about a socket.
quint32 memoryFigure(int descriptor, int index)
{
    std::array<quint32, SK_MEMINFO_VARS> figures{};
    socklen_t size = sizeof(figures);
    ::getsockopt(descriptor, SOL_SOCKET, SO_MEMINFO, figures.data(), &size);
    return figures.at(size_t(index));
}

quint32 dropsOf(int descriptor)
{
    return memoryFigure(descriptor, SK_MEMINFO_DROPS);
}

qint64 sumOf(const QList<qint64> &numbers)
{
    qint64 sum = 0;
    for (const qint64 number : numbers)
        sum += number;
    return sum;
}

} // namespace

class DropsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void warnsOncePerBurst();
    void warnsOnceASecond();
    void receivesAsBeforeAfterDrops();
    void staysSilentWithoutDrops();

private:
    bool burst();
    bool dropMore();

    std::unique_ptr<ConnectedModule> m_engine;
    int m_socket = -1;
};

void DropsTest::init()
{
    if (!canReportDrops())
        QSKIP("the system does not report dropped datagrams");
    m_engine = std::make_unique<ConnectedModule>();
    QVERIFY(m_engine->connected);
    QVERIFY(m_engine->peer.settle(&m_engine->module)); // the receive thread runs
    m_socket = socketOnPort(m_engine->peer.modulePort());
    QVERIFY(m_socket >= 0);
    setReceiveBuffer(m_socket, smallBufferBytes);
}

void DropsTest::cleanup()
{
    m_engine.reset();
}

// Sends faster than the module reads, and waits until it has read all that was not dropped. The last datagram
// arrives after all drops, so the module knows of each.
bool DropsTest::burst()
{
    for (int i = 0; i < burstSize; ++i) {
        if (!m_engine->peer.send(datagram("AB AC 00010002")))
            return false;
    }
    return QTest::qWaitFor([this] { return memoryFigure(m_socket, SK_MEMINFO_RMEM_ALLOC) == 0; },
                           patienceMs) &&
           m_engine->peer.settle(&m_engine->module);
}

bool DropsTest::dropMore()
{
    const quint32 before = dropsOf(m_socket);
    // On a busy machine the module may keep up with a burst.
    for (int i = 0; i < 100 && dropsOf(m_socket) == before; ++i) {
        if (!burst())
            return false;
    }
    return dropsOf(m_socket) > before;
}

void DropsTest::warnsOncePerBurst()
{
    const LogCatcher log;
    QVERIFY(dropMore());
    QTRY_VERIFY_WITH_TIMEOUT(!log.warnings().isEmpty(), patienceMs);
    // The first warning comes at once, during the burst. The rest of the burst is in a second one.
    QTRY_COMPARE_WITH_TIMEOUT(sumOf(dropsIn(log.warnings())), qint64(dropsOf(m_socket)), patienceMs);
    const QList<LogLine> lines = log.lines();
    for (const LogLine &line : lines)
        QCOMPARE(line.category, QStringLiteral("zeltaconnect.link"));
    QCOMPARE(withoutDrops(log.warnings()), QStringList());
}

void DropsTest::warnsOnceASecond()
{
    constexpr int lengthMs = 3500;
    const LogCatcher log;
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < lengthMs)
        QVERIFY(dropMore());
    QTRY_COMPARE_WITH_TIMEOUT(sumOf(dropsIn(log.warnings())), qint64(dropsOf(m_socket)), patienceMs);
    const qint64 seconds = time.elapsed() / 1000;
    const QList<qint64> numbers = dropsIn(log.warnings());
    // The first at once, then at most one a second. Each contains what was dropped since the one before.
    QVERIFY2(numbers.size() >= 3 && numbers.size() <= seconds + 1,
             qPrintable(log.warnings().join(QLatin1Char('\n'))));
    for (const qint64 number : numbers)
        QVERIFY(number > 0);
    // Nothing is reported twice.
    QVERIFY(m_engine->peer.settle(&m_engine->module));
    QCOMPARE(dropsIn(log.warnings()), numbers);
}

void DropsTest::receivesAsBeforeAfterDrops()
{
    const LogCatcher log;
    QVERIFY(dropMore());
    QTRY_COMPARE_WITH_TIMEOUT(sumOf(dropsIn(log.warnings())), qint64(dropsOf(m_socket)), patienceMs);
    setReceiveBuffer(m_socket, largeBufferBytes);
    m_engine->recorder.clear();
    // The kernel passes its counter along with each of these.
    QVERIFY(m_engine->deliver(
        {datagram("TM AC 00780000"), datagram("AB AC 00010002"), datagram("TM AC 00790000")}));
    const QStringList expected{QStringLiteral("tempoChanged()"),
                               QStringLiteral("udpPacketArrived(16706, 1, 2)"),
                               QStringLiteral("tempoChanged()")};
    QCOMPARE(m_engine->recorder.texts(), expected);
    QCOMPARE(sumOf(dropsIn(log.warnings())), qint64(dropsOf(m_socket)));
}

void DropsTest::staysSilentWithoutDrops()
{
    setReceiveBuffer(m_socket, largeBufferBytes);
    const LogCatcher log;
    for (int i = 0; i < 3; ++i)
        QVERIFY(m_engine->deliver({datagram("AB AC 00010002"), datagram("AB AC 00010003")}));
    QCOMPARE(dropsOf(m_socket), quint32(0));
    QCOMPARE(log.warnings(), QStringList());
}

QTEST_MAIN(DropsTest)
#include "tst_drops.moc"
