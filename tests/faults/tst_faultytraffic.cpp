// Parameters, meters and hits while datagrams are dropped, the network device is down or the engine restarts.
// All other datagrams arrive, and everything works again afterwards without a restart of the module.

#include "faultyline.h"

#include "support/datagram.h"
#include "support/logcatcher.h"
#include "support/privatenetworktest.h"
#include "support/processresources.h"
#include "support/signalrecorder.h"

#include <QElapsedTimer>
#include <QTest>
#include <QtEndian>

#include <memory>

using namespace testsupport;
using Direction = EngineNetwork::Direction;

namespace {

#ifdef ZELTACONNECT_LONG_CASES
constexpr int storm = 20000;
constexpr qint64 outageMs = 10000;
#else
constexpr int storm = 2000;
constexpr qint64 outageMs = 1000;
#endif
constexpr int burst = 50;
constexpr int values = 128;
constexpr int meterValues = 71;
constexpr double meterScale = 70.0;

void addLossRows()
{
    QTest::addColumn<int>("percent");
    QTest::newRow("1 of 100") << 1;
    QTest::newRow("5 of 100") << 5;
    QTest::newRow("20 of 100") << 20;
}

// The bounds are so wide that random variation practically never exceeds them.
bool isPlausible(int lost, int sent, int percent)
{
    const int expected = sent * percent / 100;
    return lost > expected / 10 && lost < expected * 2 + 20;
}

QByteArray tempoReport(int tempo)
{
    QByteArray report = datagram("TM AC 00000000");
    qToBigEndian(quint16(tempo), report.data() + 4);
    return report;
}

QByteArray meterReport(int value)
{
    QByteArray report = datagram("DR");
    for (int i = 0; i < 18; ++i)
        report += QByteArray(1, '\0') + QByteArray(1, char(value));
    return report;
}

// The reports of a storm that QML received.
struct Heard
{
    explicit Heard(QConnectQmlPlugin &module)
    {
        QObject::connect(&module, &QConnectQmlPlugin::tempoChanged, &context, [this, &module] {
            const int tempo = module.property("tempo").toInt();
            inOrder = inOrder && tempo > lastTempo;
            lastTempo = tempo;
            ++tempos;
        });
        QObject::connect(&module, &QConnectQmlPlugin::outputLevelsChanged, &context, [this, &module] {
            const double first = module.property("masterOutL").toDouble();
            const double last = module.property("usbInRLevel").toDouble();
            whole = whole && first > 0 && first <= 1 && qFuzzyCompare(first, last);
            ++meters;
        });
    }

    QObject context;
    int tempos = 0;
    int lastTempo = 0;
    bool inOrder = true;
    int meters = 0;
    bool whole = true;
};

} // namespace

class FaultyTrafficTest : public PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    void parametersGetLost_data() { addLossRows(); }
    void parametersGetLost();
    void reportsGetLost_data() { addLossRows(); }
    void reportsGetLost();
    void outage_data();
    void outage();
    void engineIsAwayForAWhile();
    void engineRestartsWhileItMeters();

private:
    int m_threads = 0;
};

void FaultyTrafficTest::parametersGetLost()
{
    QFETCH(const int, percent);
    FaultyLine line;
    QVERIFY2(line.connected, qPrintable(line.network.errorString()));
    const LogCatcher log;
    const QString noLoss = EngineNetwork::noLossReason();
    if (!noLoss.isEmpty())
        QSKIP(qPrintable(noLoss));
    QCOMPARE(line.network.loseDatagrams(percent, Direction::ToEngine), QString());

    int arrived = 0;
    int last = -1;
    const auto take = [&](const QByteArray &datagram) {
        QCOMPARE(datagram.left(15), testsupport::datagram("IM 0003 0bb9633b 0bb96200 0bb906"));
        QCOMPARE(datagram.size(), 16);
        // The distance from the previous value. It is large for a late or repeated datagram.
        const int value = uchar(datagram.at(15));
        const int step = (value - last + values - 1) % values + 1;
        QVERIFY2(step <= values / 2, qPrintable(QStringLiteral("%1 after %2").arg(value).arg(last)));
        last = value;
        ++arrived;
    };
    for (int i = 0; i < storm && !QTest::currentTestFailed(); ++i) {
        line.module.setDirectOut1Level(uchar(i % values));
        while (i % burst == burst - 1 && line.peer.hasPending())
            take(line.peer.next());
    }
    QCOMPARE(line.network.loseNothing(), QString());
    QCOMPARE(line.module.writeBinaryData(QByteArray("end")), qint64(3));
    QByteArray datagram = line.peer.next();
    while (!QTest::currentTestFailed() && !datagram.isNull() && datagram != "end") {
        take(datagram);
        datagram = line.peer.next();
    }
    QCOMPARE(datagram, QByteArray("end"));
    QVERIFY2(isPlausible(storm - arrived, storm, percent), qPrintable(QString::number(arrived)));
    qInfo() << storm << "parameters," << storm - arrived << "lost";

    QVERIFY(line.worksAgain());
    QCOMPARE(log.warnings(), QStringList());
}

void FaultyTrafficTest::reportsGetLost()
{
    QFETCH(const int, percent);
    FaultyLine line;
    QVERIFY2(line.connected, qPrintable(line.network.errorString()));
    const LogCatcher log;
    const QString noLoss = EngineNetwork::noLossReason();
    if (!noLoss.isEmpty())
        QSKIP(qPrintable(noLoss));
    QCOMPARE(line.network.loseDatagrams(percent, Direction::ToModule), QString());

    const Heard heard(line.module);
    const SignalRecorder recorder(&line.module);
    for (int i = 0; i < storm; ++i) {
        QVERIFY(line.peer.send(tempoReport(i + 1)));
        QVERIFY(line.peer.send(meterReport(1 + i % (meterValues - 1))));
        QVERIFY(line.peer.send(datagram("IM AC 99096426")));
        if (i % burst == burst - 1)
            QTRY_COMPARE_WITH_TIMEOUT(waitingBytes(line.peer.modulePort()), qint64(0), patienceMs);
    }
    QCOMPARE(line.network.loseNothing(), QString());
    QVERIFY(line.peer.settle(&line.module));

    const int hits = recorder.count("noteChanged");
    const auto lost = [](int arrived) {
        return storm - arrived;
    };
    QVERIFY2(isPlausible(lost(heard.tempos), storm, percent), qPrintable(QString::number(heard.tempos)));
    QVERIFY2(isPlausible(lost(heard.meters), storm, percent), qPrintable(QString::number(heard.meters)));
    QVERIFY2(isPlausible(lost(hits), storm, percent), qPrintable(QString::number(hits)));
    QVERIFY(heard.inOrder);
    QVERIFY(heard.whole);
    qInfo() << storm << "of each kind, lost:" << lost(heard.tempos) << "tempos," << lost(heard.meters)
            << "meters," << lost(hits) << "hits";

    QVERIFY(line.worksAgain());
    QVERIFY(line.peer.nothingSentBy(&line.module));
    QCOMPARE(log.warnings(), QStringList());
}

void FaultyTrafficTest::outage_data()
{
    QTest::addColumn<bool>("atEngine");
    QTest::newRow("network device of the module down") << false;
    QTest::newRow("network device of the engine down") << true;
}

void FaultyTrafficTest::outage()
{
    QFETCH(const bool, atEngine);
    FaultyLine line;
    QVERIFY2(line.connected, qPrintable(line.network.errorString()));
    const LogCatcher log;
    const int descriptors = descriptorCount();
    const Heard heard(line.module);

    QCOMPARE(atEngine ? line.network.cutEngine() : line.network.cut(), QString());
    QElapsedTimer out;
    out.start();
    int tempo = 100;
    while (!out.hasExpired(outageMs)) {
        for (int i = 0; i < 10; ++i)
            line.module.setSnareStyle(1);
        line.peer.send(tempoReport(++tempo));
        line.peer.send(meterReport(20));
        QTest::qWait(1); // the rate of the storm
    }
    QVERIFY(!line.peer.hasPending());
    QCOMPARE(heard.tempos, 0);
    QCOMPARE(heard.meters, 0);
    QCOMPARE(atEngine ? line.network.restoreEngine() : line.network.restore(), QString());

    QVERIFY(line.worksAgain());
    const SignalRecorder recorder(&line.module);
    QVERIFY(line.peer.send(meterReport(21)));
    QVERIFY(line.peer.settle(&line.module));
    QCOMPARE(recorder.count("outputLevelsChanged"), 1);
    QCOMPARE(qRound(line.module.property("masterOutL").toDouble() * meterScale), 21);
    QVERIFY(line.peer.nothingSentBy(&line.module));
    QCOMPARE(descriptorCount(), descriptors);
    QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads + 1, patienceMs); // the module's own
    QCOMPARE(log.warnings(), QStringList());
}

// No process listens at the engine's port, and the engine's system reports this for each parameter.
void FaultyTrafficTest::engineIsAwayForAWhile()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    auto peer = std::make_unique<EnginePeer>(network.openEngineSocket());
    const LogCatcher log;
    QConnectQmlPlugin module;
    QVERIFY(peer->connectTo(&module));
    const quint16 port = peer->modulePort();

    peer.reset();
    for (int i = 0; i < storm; ++i)
        module.setSnareStyle(1);

    peer = std::make_unique<EnginePeer>(network.openEngineSocket());
    QVERIFY(peer->isOpen());
    QVERIFY(peer->connectTo(&module));
    QCOMPARE(peer->modulePort(), port);
    QVERIFY(peer->settle(&module));
    QVERIFY(peer->nothingSentBy(&module));
    QCOMPARE(log.warnings(), QStringList());
}

void FaultyTrafficTest::engineRestartsWhileItMeters()
{
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    FarEngineThread thread(network);
    RemoteEngine engine(thread, QStringLiteral("172.20.21.22"));
    const LogCatcher log;
    QConnectQmlPlugin module;
    SignalRecorder recorder(&module);
    for (int run = 0; run < 3; ++run) {
        // A new engine does not know the module's address until it receives a datagram from the module.
        const quint64 before = engine.heard();
        engine.setMeters(true);
        module.setSnareStyle(uchar(run));
        QTRY_VERIFY_WITH_TIMEOUT(engine.heard() > before, patienceMs);
        recorder.clear();
        QTRY_VERIFY_WITH_TIMEOUT(recorder.count("outputLevelsChanged") >= 5, patienceMs);
        QCOMPARE(engine.violations(), QStringList());
        engine.replace();
        for (int i = 0; i < burst; ++i)
            module.setSnareStyle(1);
        QTRY_COMPARE_WITH_TIMEOUT(engine.heard(), quint64(burst), patienceMs);
    }
    QCOMPARE(log.warnings(), QStringList());
}

int main(int argc, char **argv)
{
    return runInPrivateNetwork<FaultyTrafficTest>(argc, argv);
}

#include "tst_faultytraffic.moc"
