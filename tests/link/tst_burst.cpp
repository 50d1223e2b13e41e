// Datagrams sent faster than the module reads them.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/logcatcher.h"

#include <QTest>
#include <QtEndian>

#include <algorithm>

#include <sys/socket.h>
#include <unistd.h>

using namespace testsupport;

namespace {

constexpr int burstSize = 2000;

QByteArray numberedEvent(int number)
{
    QByteArray datagram = testsupport::datagram("AB AC 00000000");
    qToBigEndian<quint16>(quint16(number), datagram.data() + 4);
    qToBigEndian<quint16>(quint16(65535 - number), datagram.data() + 6);
    return datagram;
}

// The smallest number of datagrams that the kernel keeps for a socket that requests a buffer of 1 MiB. An
// ordinary user gets at most net.core.rmem_max.
int guaranteedDatagrams()
{
    constexpr int wanted = 1024 * 1024;
    constexpr int kernelBytesPerDatagram = 1280;
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUFFORCE, &wanted, sizeof(wanted)) != 0)
        ::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &wanted, sizeof(wanted));
    int granted = 0;
    socklen_t size = sizeof(granted);
    ::getsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &granted, &size);
    ::close(descriptor);
    return granted / kernelBytesPerDatagram;
}

} // namespace

class BurstTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arrivesWholeAndInOrder_data();
    void arrivesWholeAndInOrder();
};

void BurstTest::arrivesWholeAndInOrder_data()
{
    QTest::addColumn<bool>("running");

    QTest::newRow("before the receive thread runs") << false;
    QTest::newRow("into the running receive thread") << true;
}

void BurstTest::arrivesWholeAndInOrder()
{
    QFETCH(bool, running);

    const int count = std::min(burstSize, guaranteedDatagrams());
    if (count < burstSize)
        qInfo("net.core.rmem_max limits the burst to %d datagrams", count);
    ConnectedModule engine;
    QVERIFY(engine.connected);
    if (running)
        QVERIFY(engine.peer.settle(&engine.module));

    const LogCatcher log;
    for (int i = 0; i < count; ++i)
        QVERIFY(engine.peer.send(numberedEvent(i)));
    QTRY_COMPARE_WITH_TIMEOUT(engine.recorder.count(), count, patienceMs);
    QVERIFY(engine.peer.settle(&engine.module));

    const QList<RecordedSignal> recorded = engine.recorder.recorded();
    QCOMPARE(recorded.size(), count);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(recorded.at(i).name, QByteArray("udpPacketArrived"));
        QCOMPARE(recorded.at(i).arguments.at(1).toInt(), i);
        QCOMPARE(recorded.at(i).arguments.at(2).toInt(), 65535 - i);
    }
    QCOMPARE(log.lines().size(), 0);
}

QTEST_MAIN(BurstTest)
#include "tst_burst.moc"
