// No route, datagrams of every size, and a flood of invalid datagrams.

#include "faultyline.h"
#include "flood.h"

#include "support/datagram.h"
#include "support/dropwarnings.h"
#include "support/logcatcher.h"
#include "support/privatenetworktest.h"
#include "support/processresources.h"
#include "support/signalrecorder.h"
#include "support/texts.h"
#include "transfer/session.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <QtEndian>

#include <numeric>

using namespace testsupport;

namespace {

constexpr int largestDatagram = 65507;
constexpr int floodRate = 50000;
#ifdef ZELTACONNECT_LONG_CASES
constexpr qint64 floodMs = 20000;
#else
constexpr qint64 floodMs = 2000;
#endif
constexpr int tickMs = 5;
constexpr int goodEventMs = 10;
constexpr long long allowedFloodBytes = 1024 * 1024;

QVector<int> selectedSizes()
{
    QVector<int> sizes;
    for (int size = 0; size <= 64; ++size)
        sizes.append(size);
    for (int power = 128; power < largestDatagram; power *= 2)
        sizes.append({power - 1, power, power + 1});
    // Sizes around the largest datagram that fits into one packet, and the size of the largest datagram.
    sizes.append({1471, 1472, 1473, largestDatagram - 1, largestDatagram});
    return sizes;
}

QVector<int> allSizes()
{
#ifdef ZELTACONNECT_LONG_CASES
    QVector<int> sizes(largestDatagram + 1);
    std::iota(sizes.begin(), sizes.end(), 0);
    return sizes;
#else
    return selectedSizes();
#endif
}

} // namespace

class FaultyLinkTest : public PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void noRoute();
    void reportsOfEverySize_data();
    void reportsOfEverySize();
    void messagesOfEverySize();
    void flood();
};

// The module starts before the network exists, and works as soon as the network exists.
void FaultyLinkTest::noRoute()
{
    const TestFiles files;
    const QString path = files.write(QStringLiteral("triggers.bin"), noise(512 * 25));
    const LogCatcher log;
    QConnectQmlPlugin module;
    SignalRecorder recorder(&module);
    for (int i = 0; i < 1000; ++i)
        module.setSnareStyle(1);
    module.setLedEnabled(3, true);
    module.sendSysEx({1, 2, 3});
    QVERIFY(module.writeBinaryData(QByteArray("lost")) < 0);
    // The transfer thread sends the file, too, and waits for the acknowledgement of its end.
    module.sendTriggerBank(path);
    QTRY_COMPARE_WITH_TIMEOUT(recorder.count("triggerbankTransferComplete"), 1, patienceMs);
    QStringList seen = recorder.takeTexts();
    QCOMPARE(seen.takeLast(), QStringLiteral("triggerbankTransferComplete(255)"));
    seen.removeDuplicates();
    QCOMPARE(seen, texts({"triggerProgressChanged()"}));

    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    EnginePeer peer(network.openEngineSocket());
    QVERIFY(peer.isOpen());
    QVERIFY(peer.connectTo(&module));
    QVERIFY(peer.settle(&module));
    QVERIFY(peer.nothingSentBy(&module));
    QCOMPARE(recorder.count(), 0);
    QCOMPARE(log.warnings(), QStringList());
}

void FaultyLinkTest::reportsOfEverySize_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("zeros") << QByteArray();
    QTest::newRow("like an event") << datagram("TM AC");
    QTest::newRow("like output meters") << datagram("DR");
    QTest::newRow("like compressor meters") << datagram("CR");
    QTest::newRow("like a MIDI packet") << datagram("IM 0001 06f0");
}

void FaultyLinkTest::reportsOfEverySize()
{
    QFETCH(const QByteArray, beginning);
    FaultyLine line;
    QVERIFY2(line.connected, qPrintable(line.network.errorString()));
    LogCatcher log;
    const SignalRecorder recorder(&line.module);
    const QByteArray longest = beginning + QByteArray(largestDatagram, '\x02');

    QStringList expected;
    qint64 waiting = 0;
    const auto compare = [&] {
        QVERIFY(line.peer.settle(&line.module));
        QCOMPARE(log.debugTexts("zeltaconnect.link"), expected);
        QCOMPARE(log.warnings(), QStringList());
        QCOMPARE(recorder.texts(), QStringList());
        log.clear();
        expected.clear();
        waiting = 0;
    };
    const QVector<int> all = beginning.isEmpty() ? allSizes() : selectedSizes();
    for (const int size : all) {
        const QByteArray report = longest.left(size);
        if ((size == 8 && report.mid(2, 2) == "AC") || (size == 38 && report.startsWith("DR")) ||
            (size == 16 && report.startsWith("CR")))
            continue; // valid reports
        QVERIFY(line.peer.send(report));
        expected.append(
            QStringLiteral("not handled  \"%1\" ( %2 )").arg(QString::fromLatin1(report.toHex())).arg(size));
        waiting += size + 1024;
        if (waiting > 100 * 1024) {
            compare();
            if (QTest::currentTestFailed())
                return;
        }
    }
    compare();
    QVERIFY(line.worksAgain());
}

void FaultyLinkTest::messagesOfEverySize()
{
    FaultyLine line;
    QVERIFY2(line.connected, qPrintable(line.network.errorString()));
    const LogCatcher log;
    const QByteArray longest = noise(largestDatagram + 1);
    const QVector<int> all = allSizes();
    for (const int size : all) {
        const QByteArray message = longest.left(size);
        QCOMPARE(line.module.writeBinaryData(message), qint64(size));
        const QByteArray arrived = line.peer.next();
        QVERIFY(!arrived.isNull());
        QVERIFY2(arrived == message, qPrintable(QString::number(size)));
    }
    QVERIFY(line.module.writeBinaryData(longest) < 0);
    QVERIFY(line.worksAgain());
    QCOMPARE(log.warnings(), QStringList());
}

void FaultyLinkTest::flood()
{
    FaultyLine line;
    QVERIFY2(line.connected, qPrintable(line.network.errorString()));
    LogCatcher log;
    const long long heap = heapBytes();

    int heard = 0;
    int lastTempo = 0;
    bool inOrder = true;
    QObject context;
    QObject::connect(&line.module, &QConnectQmlPlugin::tempoChanged, &context, [&] {
        const int tempo = line.module.property("tempo").toInt();
        inOrder = inOrder && tempo > lastTempo;
        lastTempo = tempo;
        ++heard;
    });

    // The delay of a timer in the GUI thread.
    QTimer tick;
    QElapsedTimer since;
    qint64 worstMs = 0;
    tick.setTimerType(Qt::PreciseTimer);
    since.start();
    QObject::connect(&tick, &QTimer::timeout, &context, [&] {
        worstMs = qMax(worstMs, since.restart() - tickMs);
        log.clear(); // thousands of lines a second
    });
    tick.start(tickMs);

    Flood flood(line.network, line.peer.moduleAddress(), line.peer.modulePort(), floodRate);
    QElapsedTimer lasting;
    lasting.start();
    int sent = 0;
    QByteArray report = datagram("TM AC 00000000");
    while (!lasting.hasExpired(floodMs)) {
        qToBigEndian(quint16(++sent), report.data() + 4);
        QVERIFY(line.peer.send(report));
        line.module.setSnareStyle(1);
        // Sending does not depend on receiving.
        QCOMPARE(line.peer.next(), datagram("IM 0003 0bb96337 0bb96204 0bb90601"));
        QTest::qWait(goodEventMs);
    }
    flood.stop();
    tick.stop();
    qInfo() << flood.sent() << "invalid datagrams in" << lasting.elapsed() << "ms," << heard << "of" << sent
            << "valid events received, interface at most" << worstMs << "ms late";
    // A slow machine sends only part of the intended number.
    QVERIFY(flood.sent() > floodRate * floodMs / 1000 / 20);
    QVERIFY(heard > 0);
    QVERIFY(inOrder);
    QVERIFY(!line.peer.hasPending());

    // Thousands of datagrams are still in the socket. Events behind them are received.
    QTRY_COMPARE_WITH_TIMEOUT(waitingBytes(line.peer.modulePort()), qint64(0), patienceMs);
    QVERIFY(line.worksAgain());
    log.clear();
    const SignalRecorder recorder(&line.module);
    QVERIFY(line.peer.send(datagram("TM AC ffff0000")));
    QVERIFY(line.peer.settle(&line.module));
    QCOMPARE(recorder.texts(), texts({"tempoChanged()"}));
    // The kernel drops what does not fit, and the module warns of it at most once a second.
    const auto reported = [&log] {
        const QList<qint64> numbers = dropsIn(log.warnings());
        return std::accumulate(numbers.begin(), numbers.end(), qint64(0));
    };
    if (canReportDrops())
        QTRY_COMPARE_WITH_TIMEOUT(reported(), droppedDatagrams(line.peer.modulePort()), patienceMs);
    QVERIFY(dropsIn(log.warnings()).size() <= lasting.elapsed() / 1000 + 1);
    QCOMPARE(withoutDrops(log.warnings()), QStringList());
    QVERIFY2(heap < 0 || heapBytes() - heap < allowedFloodBytes,
             qPrintable(QString::number(heapBytes() - heap)));
}

int main(int argc, char **argv)
{
    return runInPrivateNetwork<FaultyLinkTest>(argc, argv);
}

#include "tst_faultylink.moc"
