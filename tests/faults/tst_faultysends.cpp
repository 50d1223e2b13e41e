// Parameters from the GUI thread and files from the transfer threads while the sends of both fail, or the
// network changes.

#include "faultyline.h"
#include "modulesockets.h"
#include "sendings.h"

#include "link/midipacket.h"
#include "support/logcatcher.h"
#include "support/privatenetworktest.h"
#include "transfer/session.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <vector>

using namespace testsupport;
using Result = JudgedTransfer::Result;

namespace {

#ifdef ZELTACONNECT_LONG_CASES
constexpr qint64 faultMs = 20000;
#else
constexpr qint64 faultMs = 2000;
#endif
// Long enough that all transfers run at the same time even on a busy machine.
constexpr int judgedFileMs = 2500;
// Longer than a test takes.
constexpr int endlessFileMs = 300000;
constexpr int parametersPerStep = 5;
constexpr qint64 restartEveryMs = 200;
constexpr int smallestSendBuffer = 1; // the system uses its own minimum
constexpr quint16 judgedPorts = 20000;
constexpr quint16 endlessPorts = 20100;

enum class Fault {
    NoAddressResolution,
    NoRoute,
    CableOutAtModule,
    CableOutAtEngine,
    FullSendBuffer,
    Restarts
};

bool sendsFail(Fault fault)
{
    return fault != Fault::CableOutAtEngine && fault != Fault::Restarts;
}

bool isEndless(const TransferKind &kind)
{
    return kind.content == QByteArray("FW") || kind.content == QByteArray("TF") ||
           kind.content == QByteArray("SB") || kind.content == QByteArray("BF");
}

// Transfers that run during the whole fault and are aborted by the destruction of their modules.
class EndlessTransfers
{
public:
    EndlessTransfers(EngineThread &thread, const TestFiles &files)
    {
        QVector<TransferKind> kinds = quickKinds();
        kinds.append(zeltaFirmwareKind());
        quint16 port = endlessPorts;
        for (const TransferKind &kind : qAsConst(kinds)) {
            if (!isEndless(kind))
                continue;
            const QString path =
                files.write(QStringLiteral("%1/%2").arg(port).arg(kind.fileName), kind.header);
            // The blocks after the header are never written and take no space.
            QFile::resize(path, qint64(kind.packetsFor(endlessFileMs)) * kind.chunkBytes);
            m_stations.push_back(std::make_unique<Station>(thread, QStringLiteral("172.20.21.22"), port++));
            kind.send(m_stations.back()->plugin, path);
            m_signals.append(kind.progress.isEmpty() ? QByteArray("intFwUpdateStarted")
                                                     : progressSignal(kind));
        }
    }

    bool allAreUnderWay() const
    {
        for (std::size_t i = 0; i < m_stations.size(); ++i) {
            if (m_stations[i]->recorder.count(m_signals.at(int(i)).constData()) == 0)
                return false;
        }
        return true;
    }

    const std::vector<std::unique_ptr<Station>> &stations() const { return m_stations; }

private:
    std::vector<std::unique_ptr<Station>> m_stations;
    QList<QByteArray> m_signals; ///< for each station, a signal that a running transfer emits
};

void setSendBuffers(int bytes)
{
    const QList<ModuleSocket> sockets = moduleSockets();
    for (const ModuleSocket &socket : sockets)
        QVERIFY(setSendBuffer(socket, bytes));
}

using Stations = std::vector<Station *>;

bool isHeard(Station &station)
{
    const quint64 before = station.engine.heard();
    station.plugin.setMasterOutLevel(1);
    return QTest::qWaitFor([&] { return station.engine.heard() > before; }, 1000);
}

// True when the engine receives a parameter and the module receives the meters that it then sends.
bool worksAgain(Station &station)
{
    if (!QTest::qWaitFor([&] { return isHeard(station); }, patienceMs))
        return false;
    station.recorder.clear();
    station.engine.setMeters(true);
    const bool works =
        QTest::qWaitFor([&] { return station.recorder.count("outputLevelsChanged") > 0; }, patienceMs);
    station.engine.setMeters(false);
    return works;
}

} // namespace

Q_DECLARE_METATYPE(Fault)

class FaultySendsTest : public PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void bothThreads_data();
    void bothThreads();

private:
    static void begin(Fault fault, EngineNetwork &network);
    static void end(Fault fault, EngineNetwork &network);
    // Sends parameters through all modules for the duration of the fault. Returns how many sends failed.
    static int sendParameters(Fault fault, const Stations &stations);
};

void FaultySendsTest::bothThreads_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("engine does not answer address resolution") << Fault::NoAddressResolution;
    QTest::newRow("no route") << Fault::NoRoute;
    QTest::newRow("network device of the module down") << Fault::CableOutAtModule;
    QTest::newRow("network device of the engine down") << Fault::CableOutAtEngine;
    QTest::newRow("full send buffer") << Fault::FullSendBuffer;
    QTest::newRow("engine restarts repeatedly") << Fault::Restarts;
}

void FaultySendsTest::begin(Fault fault, EngineNetwork &network)
{
    switch (fault) {
    case Fault::NoRoute: QCOMPARE(network.removeRoute(), QString()); break;
    case Fault::CableOutAtModule: QCOMPARE(network.cut(), QString()); break;
    case Fault::CableOutAtEngine: QCOMPARE(network.cutEngine(), QString()); break;
    case Fault::FullSendBuffer:
        // Datagrams stay in the buffer as long as the address of the engine's interface is unknown.
        setSendBuffers(smallestSendBuffer);
        Q_FALLTHROUGH();
    case Fault::NoAddressResolution: QCOMPARE(network.silenceEngine(), QString()); break;
    case Fault::Restarts: break;
    }
}

void FaultySendsTest::end(Fault fault, EngineNetwork &network)
{
    switch (fault) {
    case Fault::NoRoute: QCOMPARE(network.restoreRoute(), QString()); break;
    case Fault::CableOutAtModule: QCOMPARE(network.restore(), QString()); break;
    case Fault::CableOutAtEngine: QCOMPARE(network.restoreEngine(), QString()); break;
    case Fault::FullSendBuffer:
    case Fault::NoAddressResolution: QCOMPARE(network.unsilenceEngine(), QString()); break;
    case Fault::Restarts: break;
    }
}

int FaultySendsTest::sendParameters(Fault fault, const Stations &stations)
{
    int failed = 0;
    QElapsedTimer fromBegin;
    QElapsedTimer fromRestart;
    fromBegin.start();
    fromRestart.start();
    while (!fromBegin.hasExpired(faultMs)) {
        for (Station *station : stations) {
            for (int i = 0; i < parametersPerStep; ++i)
                station->plugin.setMasterOutLevel(uchar(i));
            station->plugin.requestOutsUpdate();
            failed += station->plugin.writeMidiData(MIDI_PACKET(0x494D, 0)) < 0 ? 1 : 0;
        }
        if (fault == Fault::Restarts && fromRestart.hasExpired(restartEveryMs)) {
            for (Station *station : stations)
                station->engine.replace();
            fromRestart.start();
        }
        QTest::qWait(1); // the rate of the parameters
    }
    return failed;
}

void FaultySendsTest::bothThreads()
{
    QFETCH(const Fault, fault);
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    const LogCatcher log;
    const TestFiles files;
    FarEngineThread thread(network);
    std::vector<Sendings> groups;
    groups.push_back(makeSendings(thread, files, judgedPorts,
                                  [](const TransferKind &kind) { return kind.packetsFor(judgedFileMs); }));
    Stations stations;
    for (const Sending &sending : groups.front())
        stations.push_back(sending.station.get());
    {
        const EndlessTransfers endless(thread, files);
        QTRY_VERIFY_WITH_TIMEOUT(endless.allAreUnderWay(), patienceMs);
        for (const auto &station : endless.stations())
            stations.push_back(station.get());
        const QList<ModuleSocket> sockets = moduleSockets();
        QCOMPARE(sockets.size(), int(stations.size()));

        const int usualSendBuffer = sendBuffer(sockets.first());
        int failed = 0;
        const std::vector<Outcomes> outcomes = sendAll(groups, [&] {
            begin(fault, network);
            failed = sendParameters(fault, stations);
            end(fault, network);
            setSendBuffers(usualSendBuffer);
        });
        verifyHonest(QTest::currentDataTag(), outcomes.front());
        if (sendsFail(fault))
            QVERIFY(failed > 0);
        // A new engine does not have the state of a running transfer.
        if (fault == Fault::Restarts)
            QCOMPARE(outcomes.front()[Result::Arrived], 0);

        for (Station *station : stations)
            QVERIFY(worksAgain(*station));
        QVERIFY(moduleSockets() == sockets);
    }
    verifyAllArrive(groups);
    QCOMPARE(log.warnings(), QStringList());
}

int main(int argc, char **argv)
{
    return runInPrivateNetwork<FaultySendsTest>(argc, argv);
}

#include "tst_faultysends.moc"
