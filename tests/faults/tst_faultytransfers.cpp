// Files on a network that loses datagrams, is cut or has an engine that starts anew. The file arrives, or QML
// is told that it did not; and the next one arrives, with nothing started again.

#include "faultyline.h"

#include "failures/judgedtransfer.h"
#include "support/logcatcher.h"
#include "support/privatenetworktest.h"
#include "transfer/session.h"

#include <QMap>
#include <QTest>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <vector>

using namespace testsupport;
using Direction = EngineNetwork::Direction;
using Result = JudgedTransfer::Result;

namespace {

#ifdef ZELTACONNECT_LONG_CASES
constexpr int rounds = 5;
constexpr int outageMs = 10000;
#else
constexpr int rounds = 1;
constexpr int outageMs = 1000;
#endif
// So long that it can be disturbed halfway on a busy machine too.
constexpr int disturbedMs = 2500;
constexpr int chunkBytes = 512;
constexpr int timeoutMs = 120000;
constexpr quint16 firstPort = 20000;

const QString &engineHost()
{
    static const QString host = QStringLiteral("172.20.21.22");
    return host;
}

// The kinds whose end tells the status, without the sound bank, whose end may take ten minutes.
std::vector<TransferKind> kinds()
{
    std::vector<TransferKind> kinds;
    const QVector<TransferKind> all = quickKinds();
    for (const TransferKind &kind : all) {
        if (kind.content != QByteArray("SB") && kind.complete.contains(QStringLiteral("%1")))
            kinds.push_back(kind);
    }
    return kinds;
}

struct Loss
{
    const char *name;
    int percent;
    Direction direction;
    int packets; ///< fewer for more loss: the module rests for seconds before it sends packets again
};

constexpr std::array<Loss, 9> losses{{
    {"1 of 100 to the engine", 1, Direction::ToEngine, 300},
    {"5 of 100 to the engine", 5, Direction::ToEngine, 100},
    {"20 of 100 to the engine", 20, Direction::ToEngine, 30},
    {"1 of 100 to the module", 1, Direction::ToModule, 300},
    {"5 of 100 to the module", 5, Direction::ToModule, 100},
    {"20 of 100 to the module", 20, Direction::ToModule, 30},
    {"1 of 100 both ways", 1, Direction::Both, 300},
    {"5 of 100 both ways", 5, Direction::Both, 100},
    {"20 of 100 both ways", 20, Direction::Both, 30},
}};

enum class Disturbance { CutAtModule, CutAtEngine, Restart };

// What is sent again and again at a station of its own.
struct Sending
{
    TransferKind kind;
    QString path;
    QByteArray content;
    std::unique_ptr<Station> station;
};
using Sendings = std::vector<Sending>;
using Outcomes = QMap<Result, int>;

// One of each kind, to engines at ports one after the other.
Sendings makeSendings(EngineThread &thread, const TestFiles &files, quint16 port,
                      const std::function<int(const TransferKind &kind)> &packets)
{
    Sendings sendings;
    for (const TransferKind &kind : kinds()) {
        Sending sending;
        sending.kind = kind;
        sending.content = kind.file(packets(kind) * chunkBytes, port);
        sending.path = files.write(QStringLiteral("%1/%2").arg(port).arg(kind.fileName), sending.content);
        sending.station = std::make_unique<Station>(thread, engineHost(), port++);
        sendings.push_back(std::move(sending));
    }
    return sendings;
}

bool allAreOnTheirWay(const Sendings &sendings)
{
    return std::all_of(sendings.begin(), sendings.end(), [](const Sending &sending) {
        const QString progress = sending.kind.progress.section(QLatin1Char('('), 0, 0);
        return sending.station->recorder.count(progress.toLatin1().constData()) > 30;
    });
}

// All at the same time, since most of it is waiting for an end that is not acknowledged. The disturbance
// comes when all of them are under way. One outcome for each group.
std::vector<Outcomes> sendAll(const std::vector<Sendings> &groups, const std::function<void()> &disturb = {})
{
    std::vector<std::vector<std::unique_ptr<JudgedTransfer>>> transfers(groups.size());
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (const Sending &sending : groups[group]) {
            transfers[group].push_back(std::make_unique<JudgedTransfer>(
                *sending.station, sending.kind, sending.path, sending.content, timeoutMs));
            transfers[group].back()->start();
        }
    }
    const auto isOver = [](const auto &transfer) {
        return transfer->isOver();
    };
    const auto allAreOver = [&isOver](const auto &group) {
        return std::all_of(group.begin(), group.end(), isOver);
    };
    const auto noneIsOver = [&isOver](const auto &group) {
        return std::none_of(group.begin(), group.end(), isOver);
    };
    bool complete = true;
    if (disturb) {
        complete =
            QTest::qWaitFor([&] { return std::all_of(groups.begin(), groups.end(), allAreOnTheirWay); },
                            timeoutMs) &&
            std::all_of(transfers.begin(), transfers.end(), noneIsOver);
        disturb();
    }
    complete = QTest::qWaitFor([&] { return std::all_of(transfers.begin(), transfers.end(), allAreOver); },
                               timeoutMs * 2) &&
               complete;
    std::vector<Outcomes> outcomes(groups.size());
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (const auto &transfer : transfers[group])
            ++outcomes[group][complete ? transfer->result() : Result::Silent];
    }
    return outcomes;
}

void verifyHonest(const char *name, const Outcomes &outcomes)
{
    qInfo().nospace() << name << ": " << outcomes[Result::Arrived] << " arrived, " << outcomes[Result::Failed]
                      << " failed and told so, " << outcomes[Result::Unproven]
                      << " failed without a word of the engine, " << outcomes[Result::FalseFailure]
                      << " arrived with the acknowledgement lost";
    QVERIFY2(outcomes[Result::FalseSuccess] == 0, name);
    QVERIFY2(outcomes[Result::Silent] == 0, name);
}

void verifyAllArrive(const std::vector<Sendings> &groups)
{
    const std::vector<Outcomes> outcomes = sendAll(groups);
    for (std::size_t group = 0; group < groups.size(); ++group) {
        QCOMPARE(outcomes[group][Result::Arrived], int(groups[group].size()));
        for (const Sending &sending : groups[group])
            QCOMPARE(sending.station->engine.violations(), QStringList());
    }
}

} // namespace

Q_DECLARE_METATYPE(Disturbance)

class FaultyTransfersTest : public PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void datagramsGetLost();
    void disturbed_data();
    void disturbed();
};

void FaultyTransfersTest::datagramsGetLost()
{
    const QString noLoss = EngineNetwork::noLossReason();
    if (!noLoss.isEmpty())
        QSKIP(qPrintable(noLoss));
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    const LogCatcher log;
    const TestFiles files;
    FarEngineThread thread(network);
    std::vector<Sendings> groups;
    quint16 port = firstPort;
    for (const Loss &loss : losses) {
        groups.push_back(
            makeSendings(thread, files, port, [&loss](const TransferKind &) { return loss.packets; }));
        const auto next = quint16(port + groups.back().size());
        QCOMPARE(network.loseDatagrams(loss.percent, loss.direction, port, quint16(next - 1)), QString());
        port = next;
    }

    std::array<Outcomes, losses.size()> totals;
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Outcomes> outcomes = sendAll(groups);
        for (std::size_t group = 0; group < outcomes.size(); ++group) {
            for (auto outcome = outcomes[group].begin(); outcome != outcomes[group].end(); ++outcome)
                totals.at(group)[outcome.key()] += outcome.value();
        }
    }
    for (std::size_t group = 0; group < losses.size(); ++group) {
        verifyHonest(losses.at(group).name, totals.at(group));
        if (QTest::currentTestFailed())
            return;
    }
    // What is lost on its way to the module is a word about a file, and most words need no answer. All twelve
    // files and more do not lose theirs by chance.
    int arrived = 0;
    for (std::size_t group = 0; group < losses.size(); ++group) {
        if (losses.at(group).direction == Direction::ToModule)
            arrived += totals.at(group)[Result::Arrived];
    }
    QVERIFY(arrived > 0);
    QCOMPARE(network.loseNothing(), QString());
    verifyAllArrive(groups);
    QCOMPARE(warningsOf(log), QStringList());
}

void FaultyTransfersTest::disturbed_data()
{
    QTest::addColumn<Disturbance>("disturbance");
    QTest::newRow("cable out at the module") << Disturbance::CutAtModule;
    QTest::newRow("cable out at the engine") << Disturbance::CutAtEngine;
    QTest::newRow("engine restarted") << Disturbance::Restart;
}

void FaultyTransfersTest::disturbed()
{
    QFETCH(const Disturbance, disturbance);
    EngineNetwork network;
    QVERIFY2(network.errorString().isEmpty(), qPrintable(network.errorString()));
    const LogCatcher log;
    const TestFiles files;
    FarEngineThread thread(network);
    std::vector<Sendings> groups;
    groups.push_back(makeSendings(thread, files, firstPort,
                                  [](const TransferKind &kind) { return kind.packetsFor(disturbedMs); }));

    const std::vector<Outcomes> outcomes = sendAll(groups, [&] {
        switch (disturbance) {
        case Disturbance::CutAtModule:
            QCOMPARE(network.cut(), QString());
            QTest::qWait(outageMs); // the outage itself
            QCOMPARE(network.restore(), QString());
            break;
        case Disturbance::CutAtEngine:
            QCOMPARE(network.cutEngine(), QString());
            QTest::qWait(outageMs);
            QCOMPARE(network.restoreEngine(), QString());
            break;
        case Disturbance::Restart:
            for (const Sending &sending : groups.front())
                sending.station->engine.replace();
            break;
        }
    });
    verifyHonest(QTest::currentDataTag(), outcomes.front());
    // A new engine knows nothing of a file that is on its way.
    if (disturbance == Disturbance::Restart)
        QCOMPARE(outcomes.front()[Result::Arrived], 0);
    verifyAllArrive(groups);
    QCOMPARE(warningsOf(log), QStringList());
}

int main(int argc, char **argv)
{
    return runInPrivateNetwork<FaultyTransfersTest>(argc, argv);
}

#include "tst_faultytransfers.moc"
